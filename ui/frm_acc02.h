// "Type 2 Accessories": a table of marked lines with the accessory's own columns, beside its
// picture.
#pragma once

#include "ui/controls/plain_dialog.h"

namespace orvane {

// Edits the lines of the accessory CurrentAcc. A picture that can't be loaded raises its error out
// of the constructor.
class FrmAcc02 : public PlainDialog {
 public:
  explicit FrmAcc02(QWidget* parent = nullptr);
};

}  // namespace orvane
