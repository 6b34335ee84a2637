#include "drawing/sheet_source.h"

#include "core/model.h"
#include "drawing/pictures.h"

namespace orvane {

PageMargins PresentMargins() {
  return {LeftMargin, RightMargin, TopMargin, BottomMargin};
}

SheetSource PresentSource() {
  return {PresentMargins(),      txtProject,  DTPicker1,       CompanyName, CompanyDetails,
          frmDrawings().imgLogo, LoadDrawing, TellInMessageBox};
}

}  // namespace orvane
