// The main window's load, its place on the screen, the size of the drawing area, and its end.
#include <QCloseEvent>
#include <QEvent>
#include <QGuiApplication>
#include <QLayout>
#include <QScopedValueRollback>
#include <QScreen>
#include <algorithm>

#include "core/catalogue_folder.h"
#include "core/catalogues.h"
#include "core/desktop.h"
#include "core/files.h"
#include "core/model.h"
#include "core/numbers.h"
#include "core/settings.h"
#include "output/design_check_rules.h"
#include "project/changes.h"
#include "project/history.h"
#include "project/lifecycle.h"
#include "project/recent_files.h"
#include "project/section_look.h"
#include "ui/frm_main.h"
#include "ui/platform/content_area.h"
#include "ui/platform/guard.h"
#include "ui/platform/qt_text.h"

namespace orvane {

namespace {

// "State" of the stored window.
constexpr int NormalState = 0;
constexpr int MinimizedState = 1;
constexpr int MaximizedState = 2;

// The first size: this share of the free screen, more of a small one, and no more than a hand can
// oversee.
constexpr int FirstWidthPercent = 94;
constexpr int FirstHeightPercent = 92;
constexpr QSize LeastFirstSize(1024, 660);
constexpr QSize GreatestFirstSize(1720, 1000);

constexpr QSize Frame = WindowFrame;

// The grid's columns stand in that without crowding, in wider fonts in that many letters; the
// drawing takes what is left, and keeps its part of a small window.
constexpr int LeastFirstGrid = 460;
constexpr int FirstGridLetters = 70;
constexpr int MostFirstGridPercent = 60;

// No stored width is taken for more.
constexpr int MostPixels = 32767;

// What must be on a screen of the window's upper edge, so that it can be dragged.
constexpr int TitleHeight = 24;
constexpr QSize LeastGrip(80, 16);

// A stored measure, device-independent pixels. The numbers of a screen fit 16 bits.
int NormalMeasure(std::string_view name, int present) {
  return Whole(std::clamp(NormalWindowNumber(name, present), -32768.0, 32767.0));
}
int Measure(std::string_view name, int present) {
  return Whole(std::clamp(ScreenNumber(name, present), -32768.0, 32767.0));
}

int BarPlace(std::string_view name, int most) {
  return Whole(std::clamp(BarNumber(name), 0.0, static_cast<double>(most)));
}

// The place of a window of that size in the middle of the free screen; a window that fills it
// stands so that its frame is on the screen too, which is put around it up and left.
QRect InTheMiddle(const QRect& free, const QSize& size) {
  QRect place(QPoint(0, 0), size);
  place.moveCenter(free.center());
  const QPoint last = free.bottomRight() + QPoint(1, 1) - QPoint(size.width(), size.height()) -
                      QPoint(Frame.width(), Frame.height());
  place.moveLeft(std::max(free.left(), std::min(place.left(), last.x())));
  place.moveTop(std::max(free.top(), std::min(place.top(), last.y())));
  return place;
}

bool IsOnAScreen(const QRect& titleBar) {
  const QList<QScreen*> screens = QGuiApplication::screens();
  return std::any_of(screens.begin(), screens.end(), [&](const QScreen* screen) {
    const QSize seen = screen->availableGeometry().intersected(titleBar).size();
    return seen.width() >= LeastGrip.width() && seen.height() >= LeastGrip.height();
  });
}

}  // namespace

// The grids bear their headings and column widths since they were made, and the panes lay
// themselves out; what is left of those steps is done where it falls.
void FrmMain::Load() {
  Guard([this] {
    TheDesktop().ProcessEvents();
    LoadRecent();
    detail_->EmptyHoleGrid();
    LoadSectionCatalogues();
    LoadCheckRules(CataloguePath(CheckFile));
    accessories_->FillAccessoryList();
    detail_->FillPitches();
    Items.Clear();
    sections_->DisplayItems();
    AccLines1.Clear();
    AccLines2.Clear();
    ForgetSaid();
    const int state = Whole(std::clamp(ScreenNumber("State", NormalState), -1.0, 3.0));
    if (state == NormalState) RestoreGeometry();
    sheet_->ApplyMargins();
    RestoreBars();
    RestoreState(state);
  });
  Guard([this] {
    recovery_ = std::make_unique<RecoveryKeeper>(
        [this](const std::string& line) { ShowJobNote(line); }, this);
  });
  // Whatever failed, and behind all who follow changes: what the sheet makes of the gaps when it is
  // told is a look.
  Guard([this] {
    BeginHistory([this] {
      ShowTitle();
      ShowSteps();
      if (recovery_) recovery_->NoteChange();
    });
  });
}

void FrmMain::ShowTitle() {
  const std::string name = ProjectFileName.substr(FolderOfPath(ProjectFileName).size());
  const char* star = IsChangedSinceSaved() ? "*" : "";
  setWindowTitle(ToQt((name.empty() ? "Untitled" : name) + star + " - Orvane Detailing System"));
}

void FrmMain::TakeFirstSize() {
  const QRect free = screen()->availableGeometry();
  const QSize share(free.width() * FirstWidthPercent / 100,
                    free.height() * FirstHeightPercent / 100);
  resize(
      share.expandedTo(LeastFirstSize).boundedTo(GreatestFirstSize).boundedTo(free.size() - Frame));
  move(InTheMiddle(free, size().expandedTo(minimumSizeHint())).topLeft());
  const int left = FirstLeftWidth();
  SSSplitter1_->setSizes({left, width() - left});
}

// Wide enough that the columns stand without crowding and no figure of the hole list is out of
// sight, as far as that leaves the drawing its part.
int FrmMain::FirstLeftWidth() const {
  const QMargins margins = SSPanel7_->layout()->contentsMargins();
  const int holes = detail_->WidthForFigures() + margins.left() + margins.right();
  const int wished =
      std::max({LeastFirstGrid, FirstGridLetters * fontMetrics().averageCharWidth(), holes});
  return std::min(wished, width() * MostFirstGridPercent / 100);
}

// Of the grid's side, also while the drawing has its room.
int FrmMain::LeftWidth() const {
  if (!drawingMaximized_) return SSSplitter1_->sizes().at(0);
  const int bar = style()->pixelMetric(QStyle::PM_SplitterWidth, nullptr, SSSplitter1_);
  return std::max(SSPanel2_->width() - bar - drawingWidth_, 1);
}

// A bar that nobody has moved stands where the window puts it.
void FrmMain::RestoreBars() {
  const int stored = BarPlace("GridPane", MostPixels);
  const int left = stored > 0 ? stored : FirstLeftWidth();
  SSSplitter1_->setSizes({left, std::max(width() - left, 1)});
  const int grid = BarPlace("GridShare", AreaSplitter::WholeShare);
  const int panel = BarPlace("PanelShare", AreaSplitter::WholeShare);
  leftSplitter_->SetShares({grid, panel, AreaSplitter::WholeShare - grid - panel});
}

void FrmMain::StoreBars() const {
  if (leftWidthMoved_) StoreBar("GridPane", DecimalText(LeftWidth()));
  const QList<int>& shares = leftSplitter_->Shares();
  if (shares.empty()) return;
  StoreBar("GridShare", DecimalText(shares.at(0)));
  StoreBar("PanelShare", DecimalText(shares.at(1)));
}

void FrmMain::RestoreGeometry() {
  const int width = Measure("Width", this->width());
  const int height = Measure("Height", this->height());
  const int top = Measure("Top", y());
  const int left = Measure("Left", x());
  const QSize most = screen()->availableVirtualGeometry().size();
  // A window too large for the desktop, or out of reach, stands in the middle.
  const bool cut = width > most.width() || height > most.height();
  const QSize room = cut ? most - Frame : most;
  resize(QSize(width, height).boundedTo(room).expandedTo(minimumSizeHint().boundedTo(room)));
  if (cut || !IsOnAScreen(QRect(left, top, this->width(), TitleHeight))) {
    move(InTheMiddle(screen()->availableGeometry(), size()).topLeft());
  } else {
    move(left, top);
  }
}

// What a maximized window goes back to. Its size is no smaller than the window needs, and no larger
// than the screen has room for.
void FrmMain::RestoreNormalPlace() {
  const QSize most = screen()->availableVirtualGeometry().size() - Frame;
  const QSize size(NormalMeasure("Width", width()), NormalMeasure("Height", height()));
  QRect place(QPoint(NormalMeasure("Left", x()), NormalMeasure("Top", y())),
              size.boundedTo(most).expandedTo(minimumSizeHint().boundedTo(most)));
  if (!IsOnAScreen(QRect(place.left(), place.top(), place.width(), TitleHeight))) {
    place = InTheMiddle(screen()->availableGeometry(), place.size());
  }
  setGeometry(place);
}

void FrmMain::RestoreState(int state) {
  if (state == MinimizedState) setWindowState(Qt::WindowMinimized);
  if (state != MaximizedState) return;
  RestoreNormalPlace();
  setWindowState(Qt::WindowMaximized);
}

void FrmMain::StoreWindow() const {
  if (isMinimized()) return;
  StoreScreenSetting("State", DecimalText(isMaximized() ? MaximizedState : NormalState));
  StoreScreenSetting("Width", DecimalText(width()));
  StoreScreenSetting("Height", DecimalText(height()));
  StoreScreenSetting("Top", DecimalText(y()));
  StoreScreenSetting("Left", DecimalText(x()));
  StoreBars();
  if (!isMaximized()) return;
  const QRect normal = normalGeometry();
  StoreNormalWindow("Width", DecimalText(normal.width()));
  StoreNormalWindow("Height", DecimalText(normal.height()));
  StoreNormalWindow("Top", DecimalText(normal.y()));
  StoreNormalWindow("Left", DecimalText(normal.x()));
}

void FrmMain::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  Guard([this] { LayOut(); });
}

void FrmMain::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (event->type() == QEvent::WindowStateChange) Guard([this] { LayOut(); });
}

// While the window is minimized its areas keep their places.
void FrmMain::LayOut() {
  if (SSPanel2_ == nullptr) return;
  QLayout* areas = SSPanel2_->parentWidget()->layout();
  areas->setEnabled(!isMinimized());
  if (!isMinimized()) areas->activate();
}

void FrmMain::ToggleDrawingArea() {
  if (drawingMaximized_) {
    RestoreDrawing();
  } else {
    MaximizeDrawing();
  }
}

void FrmMain::MaximizeDrawing() {
  // The cursor must not get lost in a pane without a size.
  QWidget* focus = focusWidget();
  focusBefore_.clear();
  if (focus != nullptr && SSPanel7_->isAncestorOf(focus)) {
    const bool inGrid = sections_->isAncestorOf(focus);
    // A refused cell has the cursor back in it: then the grid stays in sight.
    if (inGrid && !sections_->SettleEditor()) return;
    centralWidget()->setFocus();
    if (inGrid) sections_->ForgetEditors();
    focusBefore_ = inGrid ? sections_ : focus;
  }
  drawingWidth_ = SSPanel4_->width();
  SSSplitter1_->setCollapsible(0, true);
  SSSplitter1_->setHandleWidth(0);
  SSSplitter1_->setSizes({0, SSPanel2_->width()});
  drawingMaximized_ = true;
}

void FrmMain::RestoreDrawing() {
  drawingMaximized_ = false;
  SSSplitter1_->setHandleWidth(-1);
  const int rest = SSPanel2_->width() - SSSplitter1_->handleWidth() - drawingWidth_;
  SSSplitter1_->setSizes({std::max(rest, 1), drawingWidth_});
  SSSplitter1_->setCollapsible(0, false);
  if (focusBefore_ == nullptr || focusWidget() != centralWidget()) return;
  if (focusBefore_ == sections_) {
    sections_->GridEnterCell();
  } else {
    focusBefore_->setFocus();
  }
}

void FrmMain::FocusMoved(const QWidget* now) {
  if (drawingMaximized_ && now != nullptr && SSPanel7_->isAncestorOf(now)) RestoreDrawing();
}

bool FrmMain::AskToExit() {
  if (asking_) return false;
  const QScopedValueRollback<bool> asked(asking_, true);
  SettleFields();
  return ExitProject();
}

void FrmMain::Exit() {
  if (!AskToExit()) return;
  Ending_ = true;
  close();
  QCoreApplication::quit();
}

// After the exit command this asks a second time and closes whatever the answer is: the command has
// asked whether to save, this is the last chance to.
void FrmMain::closeEvent(QCloseEvent* event) {
  event->ignore();
  bool consent = false;
  Guard([&] { consent = AskToExit(); });
  if (!consent && !Ending_) return;
  Guard([this] { StoreWindow(); });
  Guard([this] {
    if (recovery_) recovery_->End();
  });
  event->accept();
  // Later, when this window is gone: ending the program asks each window that is still open.
  QMetaObject::invokeMethod(QCoreApplication::instance(), &QCoreApplication::quit,
                            Qt::QueuedConnection);
}

}  // namespace orvane
