#include "ui/frm_acc01.h"

namespace orvane {

FrmAcc01::FrmAcc01(QWidget* parent) : PlainDialog(parent) {
  setObjectName("frmAcc01");
}

}  // namespace orvane
