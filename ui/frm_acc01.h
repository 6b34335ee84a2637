// "Type 1 Accessories": the sizes of an accessory, each with its number off, beside its picture.
#pragma once

#include "ui/controls/plain_dialog.h"

namespace orvane {

// Edits the lines of the accessory CurrentAcc. A picture that can't be loaded raises its error out
// of the constructor.
class FrmAcc01 : public PlainDialog {
 public:
  explicit FrmAcc01(QWidget* parent = nullptr);
};

}  // namespace orvane
