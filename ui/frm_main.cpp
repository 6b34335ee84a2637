// The main window's areas, and what is asked of it.
#include "ui/frm_main.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QShortcut>
#include <QVBoxLayout>
#include <algorithm>

#include "project/history.h"
#include "project/job_lock.h"
#include "project/lifecycle.h"
#include "project/rules/section_columns.h"
#include "ui/dialogs/frm_registration.h"
#include "ui/dialogs/frm_versions.h"
#include "ui/platform/content_area.h"
#include "ui/platform/guard.h"
#include "ui/platform/qt_text.h"

namespace orvane {

namespace {

constexpr int PaneMargin = 8;
constexpr int LeastListLines = 2;  // of the accessory list
constexpr int LeastSections = 3;   // rows in sight on the smallest window

// Parts of the height that the areas on the left leave free. The panel's goes to the hole list.
constexpr int SectionsPart = 5;
constexpr int DetailPart = 2;
constexpr int AccessoriesPart = 2;

}  // namespace

FrmMain::FrmMain(FrmProjectDetails& details) : details_(details) {
  setObjectName("frmMain");
  ShowTitle();
  BuildMenus();
  BuildToolbar();
  BuildFilePanel();
  BuildPanes();
  WatchFields();
  BuildAreaKeys();
  TakeFirstSize();
  // A person's dialog belongs to this window on the desktop; its life is the start-up's.
  details_.setParent(this, details_.windowFlags());
  connect(qApp, &QApplication::focusChanged, this,
          [this](QWidget*, const QWidget* now) { GuardFocusChange([&] { FocusMoved(now); }); });
  // Nothing is chosen at first: neither a cell nor the accessory list may have the focus.
  centralWidget()->setFocus();
  setAcceptDrops(true);
  InstallMainScreen(*this);
  InstallOutputScreen(*this);
}

FrmMain::~FrmMain() {
  // The focus moves once more while the controls go, and there is no window to tell then.
  disconnect(qApp, nullptr, this, nullptr);
  EndHistory();
  check_.reset();
  DropJobLock();
  recovery_.reset();
  UninstallOutputScreen();
  UninstallMainScreen();
  details_.setParent(nullptr, details_.windowFlags());
}

void FrmMain::BuildFilePanel() {
  SSPanelFile_ = new QWidget(this);
  SSPanelFile_->setObjectName("SSPanelFile");
  auto* row = new QHBoxLayout(SSPanelFile_);
  row->setContentsMargins(PaneMargin, 0, PaneMargin, 0);
  auto* label = new QLabel("File:", SSPanelFile_);
  label->setObjectName("lblFilename(0)");
  fileName_ = new ElidingLabel(SSPanelFile_);
  fileName_->setObjectName("lblFilename(1)");
  row->addWidget(label);
  row->addWidget(fileName_, 1);
}

void FrmMain::BuildPanes() {
  auto* central = new QWidget(this);
  SSPanel2_ = new QWidget(central);
  SSPanel2_->setObjectName("SSPanel2");
  SSSplitter1_ = new QSplitter(Qt::Horizontal, SSPanel2_);
  SSSplitter1_->setObjectName("SSSplitter1");
  SSSplitter1_->setChildrenCollapsible(false);
  SSPanel7_ = new QWidget;
  SSPanel7_->setObjectName("SSPanel7");
  SSPanel4_ = new QWidget;
  SSPanel4_->setObjectName("SSPanel4");
  SSSplitter1_->addWidget(SSPanel7_);
  SSSplitter1_->addWidget(SSPanel4_);
  SSSplitter1_->setStretchFactor(0, 0);
  SSSplitter1_->setStretchFactor(1, 1);
  connect(SSSplitter1_, &QSplitter::splitterMoved, this, [this] { leftWidthMoved_ = true; });

  // They follow changes in this order: the grid, its panel, and the sheet last.
  sections_ = new SectionsGrid(SSPanel7_);
  detail_ = new DetailPanel(sections_->Grid(), SSPanel7_);
  accessories_ = new AccessoryChooser(SSPanel7_);
  sheet_ = new SheetView(SSPanel4_);
  sections_->Connect(*detail_, *sheet_);
  sections_->PasteBlock = [this](const std::string& text) { return PasteBlock(text); };
  detail_->ElevationPlace = [this] { return sheet_->ElevationPlace(); };
  detail_->BeforeCommand = [this] { SettleFields(); };
  connect(sections_, &SectionsGrid::MenuAsked, this,
          [this](QPoint at) { Guard([&] { menus_.at(Place::mnuSection)->popup(at); }); });

  BuildLeftPane();
  auto* right = new QVBoxLayout(SSPanel4_);
  right->setContentsMargins(0, 0, 0, 0);
  right->setSpacing(0);
  right->addWidget(sheet_, 1);
  BuildStart();
  BuildNotes();
  right->addWidget(notes_);

  auto* whole = new QVBoxLayout(SSPanel2_);
  whole->setContentsMargins(0, 0, 0, 0);
  whole->addWidget(SSSplitter1_);

  auto* line = new QHBoxLayout;
  line->setSpacing(0);
  line->addWidget(SSPanelToolbar_);
  line->addWidget(SSPanelFile_, 1);
  auto* areas = new QVBoxLayout(central);
  areas->setContentsMargins(0, 0, 0, 0);
  areas->setSpacing(0);
  areas->addLayout(line);
  areas->addWidget(SSPanel2_, 1);
  setCentralWidget(new ContentArea(*central, this));
}

// Grid, panel and accessory list one below the other, with a bar between each two.
void FrmMain::BuildLeftPane() {
  auto* list = new QWidget;
  auto* column = new QVBoxLayout(list);
  column->setContentsMargins({});
  column->setSpacing(PaneMargin / 2);
  auto* caption = new QLabel("A&ccessories", list);
  caption->setBuddy(accessories_);
  auto* captionLine = new QHBoxLayout;
  captionLine->addWidget(caption);
  captionLine->addWidget(accessories_->NewLettersLabel(list), 1);
  column->addLayout(captionLine);
  column->addWidget(accessories_);

  leftSplitter_ = new AreaSplitter(SSPanel7_);
  leftSplitter_->setObjectName("splitLeft");
  leftSplitter_->setHandleWidth(PaneMargin);
  auto* sections = new QWidget;
  auto* sectionsColumn = new QVBoxLayout(sections);
  sectionsColumn->setContentsMargins({});
  sectionsColumn->setSpacing(PaneMargin / 2);
  find_ = new FindLine(*sections_, sections);
  sectionsColumn->addWidget(find_);
  sectionsColumn->addWidget(sections_, 1);
  leftSplitter_->AddArea(sections, SectionsPart);
  leftSplitter_->AddArea(detail_, DetailPart);
  leftSplitter_->AddArea(list, AccessoriesPart);
  auto* left = new QVBoxLayout(SSPanel7_);
  left->setContentsMargins(PaneMargin, PaneMargin, PaneMargin / 2, PaneMargin);
  left->addWidget(leftSplitter_);
  // On a small screen the list gives way to the grid.
  sections_->setMinimumHeight(sections_->Grid().HeightOf(LeastSections));
  accessories_->setMinimumHeight(accessories_->fontMetrics().lineSpacing() * LeastListLines);
}

// A line under the sheet. It keeps its room while there is nothing to tell, so that the sheet
// doesn't jump.
void FrmMain::BuildNotes() {
  notes_ = new QWidget(SSPanel4_);
  errors_ = new ElidingLabel(notes_);
  errors_->setObjectName("lblErrors");
  jobNote_ = new ElidingLabel(notes_);
  jobNote_->setObjectName("lblJobNote");
  mirrorNote_ = new QLabel("Punching stands mirrored until the next move.", notes_);
  mirrorNote_->setObjectName("lblMirrored");
  QSizePolicy policy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  policy.setRetainSizeWhenHidden(true);
  mirrorNote_->setSizePolicy(policy);
  // The note may be cut off by a narrow window.
  mirrorNote_->setToolTip(mirrorNote_->text() + "\nConvert it to custom to keep it");
  auto* line = new QHBoxLayout(notes_);
  line->setContentsMargins(PaneMargin, 0, PaneMargin, 0);
  BuildCheck();
  BuildCatalogueLine();
  line->addWidget(errors_, 2);
  line->addWidget(findings_, 6);
  line->addWidget(jobNote_, 2);
  line->addWidget(mirrorNote_, 1);
  line->addWidget(cmdCatalogue_);
  line->addWidget(cmdCheck_);
  errors_->hide();
  jobNote_->hide();
  mirrorNote_->hide();
  sheet_->Shown = [this] {
    mirrorNote_->setVisible(sections_->IsMirrorShown());
    if (sheet_->ShownRow() == 0) ShowSectionErrors({});
    if (sheet_->ShownRow() > 0) EndStart();
    ShowFindings();
  };
}

void FrmMain::ShowSectionErrors(const std::string& line) {
  errors_->ShowText(ToQt(line));
  errors_->setVisible(!line.empty());
}

void FrmMain::ShowJobNote(const std::string& line) {
  jobNote_->ShowText(ToQt(line));
  jobNote_->setVisible(!line.empty());
}

void FrmMain::Run(Command command, int number) {
  Guard([&] { Dispatch(command, number); });
}

void FrmMain::BuildAreaKeys() {
  for (const int step : {1, -1}) {
    auto* shortcut = new QShortcut(QKeySequence(step > 0 ? "F6" : "Shift+F6"), this);
    connect(shortcut, &QShortcut::activated, this, [this, step] { Guard([&] { GoRound(step); }); });
  }
}

// Grid, panel, hole list, sheet. The accessories stand outside: the cursor's arrival there counts
// as a change of the project.
void FrmMain::GoRound(int step) {
  struct Area {
    QWidget* Whole;  // of which the focus is a part
    QWidget* Stop;   // what takes it; none for an area that shows nothing
  };
  QWidget* grid = Items.Empty() ? nullptr : sections_;
  const std::array<Area, 4> areas = {{{sections_, grid},
                                      {detail_, detail_->PatternStop()},
                                      {detail_->HoleListStop(), detail_->HoleListStop()},
                                      {sheet_, start_->isHidden() ? sheet_ : start_->Stop()}}};
  const int count = static_cast<int>(areas.size());
  const QWidget* focus = focusWidget();
  int at = step > 0 ? -1 : count;
  for (int i = 0; i < count; ++i) {
    const QWidget* whole = areas.at(static_cast<std::size_t>(i)).Whole;
    // The hole list lies in the panel, and comes later.
    if (whole != nullptr && (whole == focus || whole->isAncestorOf(focus))) at = i;
  }
  for (int turns = 0; turns < count; ++turns) {
    at = (at + step + count) % count;
    QWidget* stop = areas.at(static_cast<std::size_t>(at)).Stop;
    if (stop == nullptr) continue;
    stop->setFocus(step > 0 ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    return;
  }
}

void FrmMain::ShowRegistration() {
  FrmRegistration(this).exec();
  // Every change shows on the sheet at once.
  ShowSelectedRow();
}

void FrmMain::OpenEarlierVersion() {
  FrmVersions versions(this);
  if (versions.exec() != QDialog::Accepted || !MayReplaceProject()) return;
  OpenCopy(versions.Text(), {});
}

void FrmMain::ForgetEditors() {
  sections_->ForgetEditors();
  accessories_->DropSearch();
}

void FrmMain::DisplayItems() {
  sections_->DisplayItems();
}

void FrmMain::ClearDetailPanel() {
  detail_->ClearDetailPanel();
}

void FrmMain::EmptyHoleList() {
  detail_->EmptyHoleGrid();
}

void FrmMain::SelectFirstItem() {
  sections_->SelectFirstItem();
}

void FrmMain::SetAccUsage() {
  accessories_->SetAccUsage();
}

void FrmMain::ClearAccUsage() {
  accessories_->ClearAccUsage();
}

void FrmMain::ShowFileName(const std::string& text) {
  fileName_->ShowText(ToQt(text));
  ShowTitle();
}

void FrmMain::ClearDrawing() {
  sheet_->Clear();
}

void FrmMain::RefreshProjectDetails() {
  details_.Refresh();
}

void FrmMain::ShowProjectDetails() {
  EndStep();
  details_.exec();
  EndStep();
  // The sheet's bottom strip shows them.
  ShowSelectedRow();
}

void FrmMain::GoTo(const TextPlace& place) {
  switch (place.Where) {
    case TextPlace::In::Details:
      details_.BeginAt(place.Row);
      return ShowProjectDetails();
    case TextPlace::In::Section:
      return sections_->GoTo(place.Row, std::max(place.Column, MarkColumn));
    case TextPlace::In::Accessory:
      return accessories_->EditLine(place.Row, place.Column);
  }
}

}  // namespace orvane
