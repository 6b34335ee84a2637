// What the outputs need of the window; the program's screens implement it, the companion and the
// tests too.
#pragma once

namespace orvane {

class OutputScreen {
 public:
  virtual ~OutputScreen() = default;
  // Shows ExportErrors and waits until the user has closed the list.
  virtual void ShowExportErrors() = 0;
};

// The window that the outputs speak to, application-wide; kept alive by who installs it until it is
// replaced or uninstalled. Asking for it without one is an error of the program.
void InstallOutputScreen(OutputScreen& screen);
void UninstallOutputScreen();
OutputScreen& TheOutputScreen();

}  // namespace orvane
