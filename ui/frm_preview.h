// "Print Preview": a document of pages, to be looked at and printed.
#pragma once

#include "drawing/page_surface.h"
#include "ui/controls/plain_dialog.h"

namespace orvane {

// Holds the surface that a printing command draws on, from before it is shown until it is closed.
class FrmPreview : public PlainDialog {
 public:
  explicit FrmPreview(QWidget* parent = nullptr);

  PageSurface& Surface() { return surface_; }

 private:
  PageSurface surface_;
};

}  // namespace orvane
