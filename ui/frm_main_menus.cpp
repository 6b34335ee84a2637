// The main window's toolbar and menus, made from the table of commands.
#include <QDropEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenuBar>
#include <algorithm>

#include "core/numbers.h"
#include "project/history.h"
#include "project/recent_files.h"
#include "ui/frm_main.h"
#include "ui/platform/guard.h"
#include "ui/platform/icons.h"
#include "ui/platform/qt_text.h"

namespace orvane {

namespace {

// Recent file n is entry 8 + n of the project menu; entry 8 is the separator in front of them.
constexpr int RecentBase = 8;

// Icons of the toolbar, device-independent pixels.
constexpr int ToolIconSize = 22;

constexpr int GroupGap = 10;  // between groups of buttons

// Letters of a step's name: a mark of hundreds would make the menu as wide as the screen.
constexpr int LongestStep = 60;

// The buttons that begin a group: the sections, then the drawing and the help.
bool BeginsGroup(const CommandEntry& entry) {
  return entry.What == Command::New || entry.What == Command::ToggleDrawing ||
         (entry.What == Command::AddSection && entry.Number == 1);
}

std::string_view ArrayName(Place place) {
  switch (place) {
    case Place::SSCommand1:
      return "SSCommand1";
    case Place::mnuProject:
      return "mnuProject";
    case Place::mnuEdit:
      return "mnuEdit";
    case Place::mnuSection:
      return "mnuSection";
    case Place::mnuOutput:
      return "mnuOutput";
    case Place::mnuTools:
      return "mnuTools";
    case Place::mnuHelp:
      return "mnuHelp";
    case Place::mnuCHPUI:
      return "mnuCHPUI";
    case Place::mnuAccPUI:
      return "mnuAccPUI";
  }
  return "";
}

QList<QKeySequence> ShortcutsOf(const CommandEntry& entry) {
  return QKeySequence::listFromString(ToQt(entry.Shortcut), QKeySequence::PortableText);
}

bool IsShortcut(const QKeyEvent& key) {
  const QKeySequence pressed(key.keyCombination());
  const auto& entries = CommandTable();
  return std::any_of(entries.begin(), entries.end(), [&](const CommandEntry& entry) {
    return !entry.Shortcut.empty() && ShortcutsOf(entry).contains(pressed);
  });
}

// "&Undo" with what it would take back behind it. An "&" of a mark isn't the mark of a key.
QString StepCaption(const char* caption, const std::string& step) {
  if (step.empty()) return caption;
  QString name = ToQt(step);
  if (name.size() > LongestStep) name = name.left(LongestStep - 1) + QChar(0x2026);
  return caption + (' ' + name.replace("&", "&&"));
}

}  // namespace

void FrmMain::BuildToolbar() {
  SSPanelToolbar_ = new QWidget(this);
  SSPanelToolbar_->setObjectName("SSPanelToolbar");
  SSPanelToolbar_->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
  auto* row = new QHBoxLayout(SSPanelToolbar_);
  row->setContentsMargins(4, 3, 4, 3);
  row->setSpacing(1);
  for (const CommandEntry& entry : CommandsOf(Place::SSCommand1)) {
    if (BeginsGroup(entry)) row->addSpacing(GroupGap);
    auto* button = new QToolButton(SSPanelToolbar_);
    button->setObjectName(IndexedName(ArrayName(entry.Where), entry.Index));
    button->setText(ToQt(entry.Caption));
    button->setToolTip(ToQt(entry.ToolTip));
    button->setIcon(LineIcon(entry.Icon));
    button->setIconSize({ToolIconSize, ToolIconSize});
    button->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    button->setAutoRaise(true);
    // Pressing a button doesn't take the cursor out of the cell that is being typed.
    button->setFocusPolicy(Qt::NoFocus);
    connect(button, &QToolButton::clicked, this,
            [this, what = entry.What, number = entry.Number] { Run(what, number); });
    row->addWidget(button);
  }
}

void FrmMain::BuildMenus() {
  for (const BarMenu& of : BarMenus) {
    QMenu* menu = menuBar()->addMenu(ToQt(of.Caption));
    menu->setObjectName(ToQt(of.Name));
    menus_[of.Where] = menu;
    FillMenu(*menu, of.Where);
  }
  mnuProject_.at(RecentBase)->setVisible(false);
}

void FrmMain::FillMenu(QMenu& menu, Place place) {
  for (const CommandEntry& entry : CommandsOf(place)) {
    if (entry.What == Command::Recent) continue;  // made when there are recent files
    QAction* action = MakeAction(menu, entry);
    menu.addAction(action);
    if (place == Place::mnuProject) mnuProject_[entry.Index] = action;
  }
}

QAction* FrmMain::MakeAction(QMenu& menu, const CommandEntry& entry) {
  auto* action = new QAction(&menu);
  action->setObjectName(entry.Name.empty() ? IndexedName(ArrayName(entry.Where), entry.Index)
                                           : ToQt(entry.Name));
  action->setMenuRole(QAction::NoRole);
  if (entry.What == Command::None) {
    action->setSeparator(true);
    return action;
  }
  action->setText(ToQt(entry.Caption));
  action->setIcon(LineIcon(entry.Icon));
  action->setShortcuts(ShortcutsOf(entry));
  connect(action, &QAction::triggered, this,
          [this, what = entry.What, number = entry.Number] { Run(what, number); });
  return action;
}

void FrmMain::ShowSteps() {
  const QList<QAction*> entries = menus_.at(Place::mnuEdit)->actions();
  entries.at(0)->setText(StepCaption("&Undo", StepToUndo()));
  entries.at(1)->setText(StepCaption("&Redo", StepToRedo()));
}

// On some desktops a field takes keys of the menu for its own, such as Ctrl+E for the end of the
// line and Ctrl+D for Delete. The cursor is nearly always in a field, so the menu goes first.
void FrmMain::WatchFields() {
  for (QLineEdit* field : findChildren<QLineEdit*>()) field->installEventFilter(this);
}

bool FrmMain::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride &&
      IsShortcut(*static_cast<const QKeyEvent*>(event))) {
    event->ignore();
    return true;
  }
  // A field would take the path of a job for a text.
  const bool isDrag = event->type() == QEvent::DragEnter || event->type() == QEvent::DragMove;
  if (isDrag && TakesDrag(*static_cast<QDropEvent*>(event))) return true;
  if (event->type() == QEvent::Drop && TakesDrag(*static_cast<QDropEvent*>(event))) {
    dropEvent(static_cast<QDropEvent*>(event));
    return true;
  }
  return QMainWindow::eventFilter(watched, event);
}

void FrmMain::ShowRecentFiles() {
  QMenu& menu = *menus_.at(Place::mnuProject);
  QAction* separator = mnuProject_.at(RecentBase);
  separator->setVisible(false);
  const int count = static_cast<int>(RecentFiles.size());
  for (int n = 1; n <= count; ++n) {
    const auto old = mnuProject_.find(RecentBase + n);
    if (old == mnuProject_.end()) continue;
    // It may be the very entry whose choice led here, so it goes later.
    menu.removeAction(old->second);
    old->second->setObjectName({});
    old->second->deleteLater();
    mnuProject_.erase(old);
  }
  for (int n = 1; n <= count; ++n) {
    const std::string& path = RecentFiles.at(static_cast<std::size_t>(n) - 1);
    if (path.empty()) continue;
    auto* action = new QAction(&menu);
    action->setObjectName(IndexedName(ArrayName(Place::mnuProject), RecentBase + n));
    action->setMenuRole(QAction::NoRole);
    // An "&" of the path isn't the mark of a key.
    action->setText(ToQt(RecentCaption(path)).replace("&", "&&"));
    connect(action, &QAction::triggered, this, [this, n] { Run(Command::Recent, n); });
    menu.insertAction(mnuProject_.at(RecentBase + count + 1), action);
    mnuProject_[RecentBase + n] = action;
    separator->setVisible(true);
  }
  start_->ShowRecent();
}

}  // namespace orvane
