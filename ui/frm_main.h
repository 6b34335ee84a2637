// The main window: toolbar, menus, splitter, window state; it turns entries into calls.
#pragma once

#include <QAction>
#include <QLabel>
#include <QMainWindow>
#include <QMenu>
#include <QPointer>
#include <QSplitter>
#include <QTimer>
#include <QToolButton>
#include <array>
#include <functional>
#include <map>
#include <memory>
#include <string>

#include "output/output_screen.h"
#include "project/changes.h"
#include "project/main_screen.h"
#include "project/section_list/chosen_change.h"
#include "project/section_list/section_list.h"
#include "project/section_look.h"
#include "ui/accessory_chooser.h"
#include "ui/check_keeper.h"
#include "ui/commands.h"
#include "ui/controls/area_splitter.h"
#include "ui/controls/eliding_label.h"
#include "ui/detail_panel.h"
#include "ui/dialogs/frm_check.h"
#include "ui/dialogs/frm_preview.h"
#include "ui/dialogs/frm_project_details.h"
#include "ui/find_line.h"
#include "ui/platform/progress.h"
#include "ui/recovery_keeper.h"
#include "ui/sections_grid.h"
#include "ui/sheet_view.h"
#include "ui/start_page.h"

namespace orvane {

class FrmMain : public QMainWindow, public MainScreen, public OutputScreen {
  Q_OBJECT

 public:
  // Builds the controls only, so that it can't fail; installs itself as the main screen and the
  // output screen for its life. The project details outlive it.
  explicit FrmMain(FrmProjectDetails& details);
  ~FrmMain() override;

  // The ten steps of the load, in one guard: an error shows its description and stops there, and
  // the window stays up. Called once, before the window is shown.
  void Load();

  // Offers what programs that died have left; called once the window is shown.
  void OfferRecovered();
  // Opens that job as "&Open" does once it is chosen there, its prompts included; an error shows
  // its description.
  void OpenGiven(const std::string& path);
  // Looks through the catalogue in use, and says at the window's foot how much is found.
  void LookAtCatalogue();
  // Writes the copy for recovery at once, for a program that is ended from outside.
  void KeepForRecovery();

  // What every menu entry, button and shortcut ends in. An error shows its description. `number`
  // tells families apart, as CommandEntry holds it, and recent files, 1 to 5.
  void Run(Command command, int number = 0);

  // MainScreen.
  void ForgetEditors() override;
  void DisplayItems() override;
  void ClearDetailPanel() override;
  void EmptyHoleList() override;
  void SelectFirstItem() override;
  void SetAccUsage() override;
  void ClearAccUsage() override;
  void ShowFileName(const std::string& text) override;
  void ShowRecentFiles() override;
  void ShowSectionErrors(const std::string& line) override;
  void ShowJobNote(const std::string& line) override;
  void ClearDrawing() override;
  void RefreshProjectDetails() override;
  void ShowProjectDetails() override;
  void GoTo(const TextPlace& place) override;

  // OutputScreen.
  void ShowExportErrors() override;
  PrintSurface& PreviewSurface() override;
  void ShowPreview(const std::string& document, const LayOutAgain& again) override;
  void DropPreview() override;
  bool GoesOn(int done, int count) override;

 protected:
  void closeEvent(QCloseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  // Escape that nothing else has taken ends the search.
  void keyPressEvent(QKeyEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  // A job that is dropped anywhere on the window is opened.
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  // Building, once.
  void BuildToolbar();
  void BuildFilePanel();
  void BuildPanes();
  void BuildLeftPane();
  void BuildNotes();
  void BuildMenus();
  void WatchFields();
  void FillMenu(QMenu& menu, Place place);
  QAction* MakeAction(QMenu& menu, const CommandEntry& entry);

  // Commands.
  void Dispatch(Command command, int number);
  void SettleFields();
  bool LeadsToUndecided();
  void Exit();
  void ShowRegistration();
  void OpenEarlierVersion();
  // Lists of sections, read and written, and blocks that are pasted; PasteBlock gives false for a
  // text that is none.
  void Import(SectionList list, int firstRow, ChangeKind kind);
  void ImportSections();
  void WriteSectionList();
  void ShowCuttingList();
  void CompareWith();
  bool PasteBlock(const std::string& text);
  void EditSection(const std::function<void(std::int16_t)>& edit);
  // A step is taken back, or done again; in a field outside the tables its own typing first.
  void TakeStep(bool back);
  bool FieldTakes(bool back) const;
  // Rows of the sections grid, else the text of the field that has the cursor.
  void UseClipboard(Command command);
  bool UseRows(Command command);
  void PrintChosen();
  // One value for the chosen sections: of the current cell, or chosen in a dialog.
  void FillChosen();
  void ChangeChosen();
  void ChangeRows(const ChosenChange& change, ChangeKind kind);
  bool DropLetters();
  void ShowSteps();
  bool OfferLeft();
  void RecoverLeft();
  void Offer(std::vector<LeftJob> left);
  void EditMitres();
  void EditNotches();
  void ToggleDrawingArea();
  void MaximizeDrawing();
  void RestoreDrawing();
  // F6 and Shift+F6 go round the window's areas, past those that show nothing.
  void BuildAreaKeys();
  void GoRound(int step);
  // A cursor that comes to the grid's side, by a command or a key, brings that side back.
  void FocusMoved(const QWidget* now);
  int SelectedRow() const;

  // The window.
  // The file's name, "*" while there are changes that it lacks, and the system's name.
  void ShowTitle();
  bool AskToExit();
  void LayOut();
  void TakeFirstSize();
  void RestoreGeometry();
  void RestoreNormalPlace();
  void RestoreState(int state);
  void StoreWindow() const;
  int FirstLeftWidth() const;
  int LeftWidth() const;
  void RestoreBars();
  void StoreBars() const;

  bool TakesDrag(QDropEvent& event);

  // The first things to do, in the sheet's place.
  void BuildStart();
  void LeaveStart(const ChangeNotice& change);
  void EndStart();
  void OpenSample(const std::string& path);

  // What the check finds.
  void BuildCheck();
  void ShowFindings();
  void ShowCheck();
  void ListFindings();
  void GoToFinding(const Finding& finding, FrmCheck::ChosenBy how);

  // The catalogue.
  void BuildCatalogueLine();
  void ChooseCatalogue();
  void ShowCatalogueCheck(const std::string& officeFolder);

  // Output.
  void Print(const std::function<void()>& command);
  void ShowSelectedRow();

  FrmProjectDetails& details_;
  QWidget* SSPanelToolbar_ = nullptr;
  QWidget* SSPanelFile_ = nullptr;
  QWidget* SSPanel2_ = nullptr;
  QWidget* SSPanel4_ = nullptr;
  QWidget* SSPanel7_ = nullptr;
  QSplitter* SSSplitter1_ = nullptr;
  AreaSplitter* leftSplitter_ = nullptr;
  bool leftWidthMoved_ = false;       // the bar beside the drawing was, since the start
  ElidingLabel* fileName_ = nullptr;  // lblFilename(1)
  std::map<Place, QMenu*> menus_;
  // By their index in the control array, never by their place in the menu.
  std::map<int, QAction*> mnuProject_;

  SheetView* sheet_ = nullptr;
  StartPage* start_ = nullptr;        // over the sheet, until a job is begun or opened
  QWidget* notes_ = nullptr;          // under the sheet
  QLabel* mirrorNote_ = nullptr;      // lblMirrored
  ElidingLabel* errors_ = nullptr;    // lblErrors
  ElidingLabel* jobNote_ = nullptr;   // lblJobNote
  ElidingLabel* findings_ = nullptr;  // lblCheck
  QToolButton* cmdCheck_ = nullptr;
  QToolButton* cmdCatalogue_ = nullptr;
  SectionsGrid* sections_ = nullptr;
  FindLine* find_ = nullptr;
  DetailPanel* detail_ = nullptr;
  AccessoryChooser* accessories_ = nullptr;

  std::unique_ptr<CheckKeeper> check_;  // behind the sheet among those who follow changes
  std::unique_ptr<FrmCheck> frmCheck_;  // from its first showing on
  QTimer checkShown_{this};
  int listed_ = -1;  // revision of what it shows

  std::unique_ptr<RecoveryKeeper> recovery_;  // from the load on

  std::unique_ptr<FrmPreview> preview_;  // being drawn, not shown yet
  // Writes the figures of the report in work to a file; none for one that is printed alone.
  std::function<void()> saveFigures_;
  std::unique_ptr<ProgressRun> printRun_;  // of the commands that draw it

  bool drawingMaximized_ = false;
  int drawingWidth_ = 0;           // of the drawing pane before it was maximized
  QPointer<QWidget> focusBefore_;  // what had the focus then
  bool asking_ = false;            // the questions of the exit are open
  bool Ending_ = false;            // the exit was consented to by its command

  const ChangeFollower begun_{[this](const ChangeNotice& change) { LeaveStart(change); }};
  const ChangeFollower follower_{nullptr, [](const ChangeNotice& change) { ForgetSaid(change); }};
};

}  // namespace orvane
