#include "ui/platform/printing.h"

namespace orvane {

bool PrintDocument(const Document&, QWidget*, const QString&) {
  return false;
}

}  // namespace orvane
