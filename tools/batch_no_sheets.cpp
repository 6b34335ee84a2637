#include <stdexcept>

#include "tools/batch_sheets.h"

namespace orvane {

struct DocumentWriter::Toolkit {};
struct DocumentWriter::Job {};

bool SheetsInThisBuild() {
  return false;
}

DocumentWriter::DocumentWriter() = default;
DocumentWriter::~DocumentWriter() = default;

PrintSurface& DocumentWriter::Begin(const DocumentFiles&) {
  throw std::logic_error("this companion draws nothing");
}

void DocumentWriter::Finish() {}
void DocumentWriter::Drop() {}

}  // namespace orvane
