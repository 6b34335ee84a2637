// What the life of the project needs of the main window; the program's main window implements it,
// tests script it.
#pragma once

#include <string>

#include "project/unfit_texts.h"

namespace orvane {

class MainScreen {
 public:
  virtual ~MainScreen() = default;

  // Hides both floating editors of the sections grid and forgets the cell that was edited, without
  // validating it; called before the tables change under them.
  virtual void ForgetEditors() = 0;

  // Shows the sections afresh: CurrentItem becomes 0, the grid gets its heading and one row for
  // each of Items.
  virtual void DisplayItems() = 0;

  // Empties the detail panel: no pattern, no pitch, no jointing pieces, no hole row.
  virtual void ClearDetailPanel() = 0;

  // Leaves the heading alone in the hole list.
  virtual void EmptyHoleList() = 0;

  // Makes row 1, column 1 of the sections grid the current cell, runs its row change and places the
  // editor there.
  virtual void SelectFirstItem() = 0;

  // The marks of the accessory list: from AccUsed, or all blank.
  virtual void SetAccUsage() = 0;
  virtual void ClearAccUsage() = 0;

  // Shows a path, or "None", as the project's file.
  virtual void ShowFileName(const std::string& text) = 0;

  // Shows RecentFiles in the project menu, with the separator in front if there is any.
  virtual void ShowRecentFiles() = 0;

  // Shows what is wrong with the section looked at, in a line under its sheet; empty for nothing.
  virtual void ShowSectionErrors(const std::string& line) = 0;

  // Shows what is worth knowing of the job that was just opened, in a quiet line that stays until
  // the next one; empty for nothing.
  virtual void ShowJobNote(const std::string& line) = 0;

  // Empties the drawing surface.
  virtual void ClearDrawing() = 0;

  // Brings txtProject and DTPicker1 into the fields of the project details.
  virtual void RefreshProjectDetails() = 0;

  // Shows the project details and waits until the user has closed them.
  virtual void ShowProjectDetails() = 0;

  // Puts the cursor where that text is entered. A dialog that it takes is waited for.
  virtual void GoTo(const TextPlace& place) = 0;
};

// The main window, application-wide; kept alive by who installs it until it is replaced or
// uninstalled. Asking for it without one is an error of the program.
void InstallMainScreen(MainScreen& screen);
void UninstallMainScreen();
MainScreen& TheMainScreen();

}  // namespace orvane
