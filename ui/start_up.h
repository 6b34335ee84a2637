// The start of the program, step by step in its fixed order.
#pragma once

#include <memory>

#include "ui/dialogs/frm_project_details.h"
#include "ui/frm_main.h"

namespace orvane {

// Gives the application its names, version, icon and look; called first, once it is made.
void PrepareApplication();

// Each step is a procedure, so that they can be run one by one. The desktop and the program's
// folder are set before.
class StartUp {
 public:
  StartUp() = default;
  StartUp(const StartUp&) = delete;
  StartUp& operator=(const StartUp&) = delete;
  ~StartUp();

  void SetSettingsRoot();  // where the settings lie
  // The office's catalogue folder is a setting, so that both stand before the first catalogue.
  void TakeCatalogueFolder();
  void LoadAccessories();  // accs1.csv, accs2.csv, the size of AccUsed
  void ShowAbout();        // the splash: waits until the user has closed it
  void ReadSettings();     // greatest lengths, margins, drawing settings, company
  void AskRegistration();  // the first-run dialog, while the company has no name
  // Makes the project details, then the main window, loads and shows it. Behind its first picture
  // come the jobs that were left, and then the one that the program was started with, if any.
  void ShowMain(const std::string& job = {});

  // All of them.
  void Run(const std::string& job = {});

  FrmMain* Main() const { return main_.get(); }

 private:
  std::unique_ptr<FrmProjectDetails> details_;
  std::unique_ptr<FrmMain> main_;
};

}  // namespace orvane
