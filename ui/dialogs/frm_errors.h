// "Validation Errors": what the check of the export found.
#pragma once

#include "ui/platform/plain_dialog.h"

namespace orvane {

class FrmErrors : public PlainDialog {
 public:
  explicit FrmErrors(QWidget* parent = nullptr);
};

}  // namespace orvane
