#include "ui/frm_acc02.h"

namespace orvane {

FrmAcc02::FrmAcc02(QWidget* parent) : PlainDialog(parent) {
  setObjectName("frmAcc02");
}

}  // namespace orvane
