// What the outputs need of the window; the program's screens implement it, the companion and the
// tests too.
#pragma once

#include <functional>
#include <string>

#include "drawing/print_surface.h"

namespace orvane {

// Lays a document out anew, on a fresh surface that may have other paper. It works on copies: the
// tables keep the gaps of the paper that is shown. False if the user called it off.
using LayOutAgain = std::function<bool(PrintSurface& surface)>;

class OutputScreen {
 public:
  virtual ~OutputScreen() = default;
  // Shows ExportErrors and waits until the user has closed the list.
  virtual void ShowExportErrors() = 0;

  // The surface of a preview not shown yet; a fresh one (PreparePreview) for each command, made by
  // the first call and the same until it is shown or dropped.
  virtual PrintSurface& PreviewSurface() = 0;
  // Shows the preview and waits until the user has closed it; the surface is gone then. Until then
  // `again` may be asked for the same document on other paper.
  // `document` says what it is of the job: "sheets".
  virtual void ShowPreview(const std::string& document, const LayOutAgain& again) = 0;
  // Drops the surface unseen.
  virtual void DropPreview() = 0;

  // Tells that `done` of `count` sheets of a print run are laid out; false once the user has called
  // the run off.
  virtual bool GoesOn(int done, int count) = 0;
};

// The window that the outputs speak to, application-wide; kept alive by who installs it until it is
// replaced or uninstalled. Asking for it without one is an error of the program.
void InstallOutputScreen(OutputScreen& screen);
void UninstallOutputScreen();
OutputScreen& TheOutputScreen();

}  // namespace orvane
