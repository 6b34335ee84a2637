#include "ui/frm_preview.h"

#include "ui/platform/qt_font_metrics.h"

namespace orvane {

FrmPreview::FrmPreview(QWidget* parent) : PlainDialog(parent), surface_(SheetMetrics()) {
  setObjectName("frmPreview");
  setWindowTitle("Print Preview");
}

}  // namespace orvane
