#include "tests/screens/monkey_fixture.h"

#include <QAbstractButton>
#include <QContextMenuEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QPrinter>
#include <QTableView>
#include <QTimer>
#include <algorithm>
#include <iostream>

#include "core/section_families.h"
#include "ui/platform/printing.h"

namespace orvane::test {

namespace {

constexpr int UsualEvents = 2000;
// Where chance is to lead somewhere, it has that many events for it.
constexpr int LongestSearch = 20000;

// A dialog gets that many events at most before it is closed, and at least so many.
constexpr int MostInside = 30;
constexpr int LeastInside = 5;

// More sections than this make each event slow and show nothing new.
constexpr int ManySections = 40;

int FromEnvironment(const char* name, int usual) {
  bool good = false;
  const int value = qEnvironmentVariableIntValue(name, &good);
  return good && value > 0 ? value : usual;
}

// Another one in each run: what one monkey has passed by, the next one may find.
int NewSeed() {
  constexpr unsigned Seeds = 1000000000;
  return 1 + static_cast<int>(std::random_device()() % Seeds);
}

// Texts at the limits of what fields take, and some that no field should take.
const std::vector<std::string>& Texts() {
  static const std::vector<std::string> texts = {
      "",      "0",     "1",    "5",    "14",   "17",   "18",   "19",   "23",    "24",
      "25",    "26",    "30",   "60",   "75",   "-75",  "-60",  "12.5", "22.5x", "100",
      "500",   "1500",  "2345", "2982", "2983", "3050", "6000", "9999", "15001", "32767",
      "32768", "99999", "-5",   " 7 ",  ".",    "-",    "abc",  "A1",   "B2",    "123456789012"};
  return texts;
}

template <class Widget>
std::vector<Widget*> Usable(QWidget& window) {
  std::vector<Widget*> found;
  for (Widget* child : window.findChildren<Widget*>()) {
    // The month sheet of a date field and the like live in windows of their own.
    if (child->window() != &window || child->size().isEmpty()) continue;
    if (child->isVisibleTo(&window) && child->isEnabled()) found.push_back(child);
  }
  return found;
}

}  // namespace

MonkeyTest::MonkeyTest() : seed_(FromEnvironment("ORVANE_MONKEY_SEED", NewSeed())) {
  random_.seed(static_cast<unsigned>(seed_));
  std::cout << Replay() << std::endl;
}

MonkeyTest::~MonkeyTest() {
  ReplacePrintDialog({});
}

std::string MonkeyTest::Replay() const {
  return "ORVANE_MONKEY_SEED=" + std::to_string(seed_) + " runs this monkey again";
}

int MonkeyTest::EventsWanted() {
  return FromEnvironment("ORVANE_MONKEY_EVENTS", UsualEvents);
}

void MonkeyTest::SetUp() {
  // The monkey answers the windows itself.
  dialogs.Stop();
  ScreenTest::SetUp();
  const std::string job = TempPath("monkey.ovd");
  platform.AnyFile = [this, job]() -> std::optional<std::string> {
    if (Chance(20)) return std::nullopt;
    return job;
  };
  const std::string sheets = TempPath("monkey.pdf");
  ReplacePrintDialog([this, sheets](QPrinter& printer, QWidget*) {
    printer.setOutputFileName(ToQt(sheets));
    return Chance(30);
  });
  // The exit would end the run.
  Entry("mnuProject(15)").setEnabled(false);
  Find<QAbstractButton>("SSCommand1(0)").setEnabled(false);
  QTimer::singleShot(0, &timer_, [this] { Look(); });
}

void MonkeyTest::RunEvents(int events, const std::function<bool()>& enough,
                           std::function<void(QDialog*)> checkAfter) {
  SCOPED_TRACE(Replay());
  checkAfter_ = std::move(checkAfter);
  const int most = std::max(events, LongestSearch);
  while ((done_ < events || (done_ < most && !enough())) && !HasFatalFailure()) {
    ++done_;
    SCOPED_TRACE("event " + std::to_string(done_));
    ActOnMain();
    QCoreApplication::processEvents();
    if (done_ % 7 == 0) RunQueued();
    while (QApplication::activePopupWidget() != nullptr ||
           QApplication::activeModalWidget() != nullptr) {
      QCoreApplication::processEvents();
    }
    if (!main->isVisible()) {
      main->show();
      main->activateWindow();
    }
    if (!HasFatalFailure()) checkAfter_(nullptr);
  }
}

// The hands.

// A random key for whatever has the focus.
void MonkeyTest::Key(QWidget& window) {
  QWidget* focus = QApplication::focusWidget();
  // Keys sent past a modal window would do what no person can.
  if (focus == nullptr || !window.isAncestorOf(focus)) focus = &window;
  static const std::vector<Qt::Key> keys = {
      Qt::Key_Tab,    Qt::Key_Backtab, Qt::Key_Return, Qt::Key_Enter,    Qt::Key_Up,
      Qt::Key_Down,   Qt::Key_Left,    Qt::Key_Right,  Qt::Key_Home,     Qt::Key_End,
      Qt::Key_Delete, Qt::Key_Escape,  Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Backspace,
      Qt::Key_F4,     Qt::Key_Space,   Qt::Key_F2};
  static const std::string letters = "0123456789 0123456789abcPZx-.";
  // The keys of the menus and buttons and the keys that choose in closed lists.
  if (Chance(6)) {
    static const std::string marked = "ACDLNOPRSUX";
    // Steps taken back and done again, in any state of what is typed.
    if (Chance(30)) {
      QTest::keyClick(focus, Chance(60) ? Qt::Key_Z : Qt::Key_Y, Qt::ControlModifier);
      return;
    }
    const Qt::KeyboardModifier with = Chance(50) ? Qt::AltModifier : Qt::ControlModifier;
    if (with == Qt::AltModifier && Chance(50)) {
      const char letter = marked[static_cast<std::size_t>(Pick(static_cast<int>(marked.size())))];
      QTest::keyClick(focus, letter, with);
    } else {
      QTest::keyClick(focus, OneOf(keys), with);
    }
    return;
  }
  if (Chance(55)) {
    QTest::keyClick(focus,
                    letters[static_cast<std::size_t>(Pick(static_cast<int>(letters.size())))]);
  } else {
    QTest::keyClick(focus, OneOf(keys), Chance(15) ? Qt::ShiftModifier : Qt::NoModifier);
  }
}

// A click somewhere on a visible control of a window.
void MonkeyTest::ClickIn(QWidget& window) {
  const std::vector<QWidget*> targets = Usable<QWidget>(window);
  if (targets.empty()) return;
  QWidget* target = OneOf(targets);
  const QPoint place(Pick(target->width()), Pick(target->height()));
  if (!Chance(15)) {
    QTest::mouseClick(target, Qt::LeftButton, Qt::NoModifier, place);
    return;
  }
  // As the window system reports the right button.
  const QPointer<QWidget> still = target;
  QTest::mousePress(target, Qt::RightButton, Qt::NoModifier, place);
  if (still && QApplication::activePopupWidget() == nullptr) {
    QContextMenuEvent event(QContextMenuEvent::Mouse, place, target->mapToGlobal(place));
    QCoreApplication::sendEvent(target, &event);
  }
  if (still) QTest::mouseRelease(target, Qt::RightButton, Qt::NoModifier, place);
}

void MonkeyTest::Replace(QLineEdit& field, const std::string& text) {
  const QPointer<QLineEdit> still = &field;
  field.setFocus();
  if (still) QTest::keyClick(still, Qt::Key_A, Qt::ControlModifier);
  if (still) QTest::keyClick(still, Qt::Key_Delete);
  for (const char letter : text) {
    if (still && still->isVisible()) QTest::keyClick(still, letter);
  }
}

void MonkeyTest::FillField(QWidget& window) {
  const std::vector<QLineEdit*> fields = Usable<QLineEdit>(window);
  if (fields.empty()) return;
  const QPointer<QLineEdit> field = OneOf(fields);
  Replace(*field, OneOf(Texts()));
  // In many fields Enter stores.
  if (field && field->isVisible() && Chance(60)) QTest::keyClick(field, Qt::Key_Return);
}

// A click on a cell of a grid, and often a text or an entry for the editor that opens on it.
void MonkeyTest::ClickGrid(QWidget& window) {
  const std::vector<QTableView*> grids = Usable<QTableView>(window);
  if (grids.empty()) return;
  QTableView* grid = OneOf(grids);
  const int rows = grid->model()->rowCount();
  const int columns = grid->model()->columnCount();
  if (rows == 0 || columns == 0) return;
  const QRect cell = grid->visualRect(grid->model()->index(Pick(rows), Pick(columns)));
  if (!grid->viewport()->rect().contains(cell.center())) return;
  QTest::mouseClick(grid->viewport(), Qt::LeftButton, Qt::NoModifier, cell.center());
  QWidget* editor = QApplication::focusWidget();
  if (editor == nullptr || !window.isAncestorOf(editor) || !Chance(70)) return;
  if (auto* field = qobject_cast<QLineEdit*>(editor)) Replace(*field, OneOf(Texts()));
  if (auto* list = qobject_cast<QComboBox*>(editor)) TypeEntry(*list);
}

void MonkeyTest::ChooseEntry(QWidget& window) {
  const std::vector<QComboBox*> lists = Usable<QComboBox>(window);
  if (lists.empty()) return;
  QComboBox* list = OneOf(lists);
  list->setFocus();
  if (window.isAncestorOf(QApplication::focusWidget())) TypeEntry(*list);
}

// Closed lists choose by the letters of their entries.
void MonkeyTest::TypeEntry(QComboBox& list) {
  if (list.count() == 0) return;
  const std::string entry = FromQt(list.itemText(Pick(list.count())));
  const QPointer<QComboBox> still = &list;
  for (const char letter : entry.substr(0, 3)) {
    if (still && still->isVisible()) QTest::keyClick(still, letter);
  }
}

void MonkeyTest::ActInside(QWidget& window) {
  const int kind = Pick(100);
  if (kind < 30) {
    Key(window);
  } else if (kind < 53) {
    ClickIn(window);
  } else if (kind < 75) {
    FillField(window);
  } else if (kind < 92) {
    ClickGrid(window);
  } else {
    ChooseEntry(window);
  }
}

// The main window.

void MonkeyTest::ActOnMain() {
  const int kind = Pick(100);
  if (kind < 45) {
    Key(*main);
  } else if (kind < 63) {
    ClickIn(*main);
  } else if (kind < 73) {
    RunEntry();
  } else if (kind < 83) {
    PrepareSection();
  } else if (kind < 93) {
    OpenEditor();
  } else {
    OpenAccessory();
  }
}

// An entry of a menu or of the toolbar; the exit is left alone.
void MonkeyTest::RunEntry() {
  const CommandEntry& entry = OneOf(CommandTable());
  if (entry.What == Command::Exit || entry.What == Command::None) return;
  if (Items.UBound() > ManySections && entry.What != Command::Delete) return;
  main->Run(entry.What, entry.What == Command::Recent ? 1 + Pick(5) : entry.Number);
}

// What a section needs before there is anything to edit by hand: a product, a length, a pattern.
// Every step may meet a refusal of the one before.
void MonkeyTest::PrepareSection() {
  if (Items.UBound() == 0 || (Items.UBound() < ManySections && Chance(15))) {
    main->Run(Command::AddSection, 1 + Pick(static_cast<int>(SectionFamilies.size())));
    return;
  }
  PrepareRow(1 + Pick(Items.UBound()), Chance(50) ? 0 : Pick(30));
}

void MonkeyTest::PrepareRow(int row, int pattern) {
  FlexGrid& grid = Sections();
  const auto goTo = [&](int column) {
    if (row >= grid.Rows()) return std::string();
    grid.EnsureVisible(row, column);
    ClickCell(grid, row, column);
    return grid.Row() == row && grid.Col() == column ? Focus() : std::string();
  };
  static const std::vector<std::string> lengths = {"60", "1000", "2280", "3000", "3050", "12000"};
  if (goTo(3) == "txtEdit") Replace(Find<QLineEdit>("txtEdit"), OneOf(lengths));
  if (goTo(2) == "cboEdit") {
    const auto& products = Find<QComboBox>("cboEdit");
    const std::string product = FromQt(products.itemText(Pick(std::max(1, products.count()))));
    for (const char letter : product) {
      if (Focus() == "cboEdit") QTest::keyClick(QApplication::focusWidget(), letter);
    }
    if (Focus() == "cboEdit") QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  }
  ChoosePattern(pattern);
}

void MonkeyTest::ChoosePattern(int entry) {
  auto& patterns = Find<QComboBox>("cboPattern");
  if (!patterns.isVisible() || entry >= patterns.count()) return;
  patterns.setFocus();
  const std::string name = FromQt(patterns.itemText(entry));
  for (const char letter : name) {
    if (Focus() == "cboPattern") QTest::keyClick(QApplication::focusWidget(), letter);
  }
  if (Focus() == "cboPattern") QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
}

// One of the dialogs that edit a section.
void MonkeyTest::OpenEditor() {
  // Holes are placed on the first pattern alone, and none on a section without a length.
  const int section = Sections().Row();
  if (section < 1) return;
  if (Items.At(section).Length < 60) PrepareRow(section, 0);
  if (Find<QComboBox>("cboPattern").currentIndex() != 0 && Chance(70)) ChoosePattern(0);
  auto& holes = Find<FlexGrid>("MSFlexGrid2");
  if (holes.isVisible() && holes.Rows() > 1 && Chance(30)) {
    const int row = 1 + Pick(holes.Rows() - 1);
    holes.EnsureVisible(row, 0);
    ClickCell(holes, row, 0);
    main->Run(Chance(70) ? Command::EditHole : Command::RemoveHole);
    return;
  }
  main->Run(OneOf<Command>({Command::HolesAbsolute, Command::HolesRelative, Command::Mitres,
                            Command::Notches, Command::OppositeHand, Command::ConvertHoles}));
}

// The dialog of an accessory, or the menu of the list.
void MonkeyTest::OpenAccessory() {
  auto& list = Find<QListWidget>("lstAccessories");
  if (list.count() == 0 || !list.isVisible()) return;
  QListWidgetItem* entry = list.item(Pick(list.count()));
  list.scrollToItem(entry);
  const QPoint place = list.visualItemRect(entry).center();
  if (Chance(75)) {
    QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::NoModifier, place);
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, Qt::NoModifier, place);
  } else {
    QTest::mouseClick(list.viewport(), Qt::RightButton, Qt::NoModifier, place);
  }
}

// Windows over it.

bool MonkeyTest::MayBeAnswered(const QWidget& window) const {
  return std::none_of(answering_.begin(), answering_.end(),
                      [&](const QPointer<QWidget>& other) { return other == &window; });
}

void MonkeyTest::Look() {
  // At each turn of the loop, by no time of its own: a seed that is run again does the same again.
  QTimer::singleShot(0, &timer_, [this] { Look(); });
  if (QWidget* popup = QApplication::activePopupWidget()) {
    AnswerPopup(*popup);
    return;
  }
  QWidget* window = QApplication::activeModalWidget();
  // A window may open another one while it is answered.
  if (window == nullptr || !window->isVisible() || !MayBeAnswered(*window)) return;
  answering_.emplace_back(window);
  auto* dialog = qobject_cast<QDialog*>(window);
  if (HasFatalFailure()) {
    if (dialog != nullptr) dialog->reject();
  } else if (dialog == nullptr || qobject_cast<QMessageBox*>(dialog) != nullptr) {
    AnswerBox(*window);
  } else {
    WorkIn(*dialog);
  }
  answering_.pop_back();
}

void MonkeyTest::AnswerPopup(QWidget& popup) {
  const QPointer<QWidget> still = &popup;
  const auto isOpen = [&] { return still && QApplication::activePopupWidget() == still; };
  QTest::keyClick(still, Chance(50) ? Qt::Key_Down : Qt::Key_Escape);
  if (isOpen() && Chance(60)) QTest::keyClick(still, Chance(40) ? Qt::Key_Return : Qt::Key_Escape);
}

// A question: some keys, then a button.
void MonkeyTest::AnswerBox(QWidget& window) {
  const QPointer<QWidget> still = &window;
  const auto isOpen = [&] { return still && QApplication::activeModalWidget() == still; };
  for (int strokes = Pick(4); strokes > 0 && isOpen(); --strokes) Key(*still);
  if (isOpen() && Chance(80)) PressAButton(*still);
  if (!isOpen() || ++held_ <= 3) return;
  held_ = 0;
  if (auto* dialog = qobject_cast<QDialog*>(still.data())) dialog->reject();
}

// One event in a dialog at a time, and in the end its closing.
void MonkeyTest::WorkIn(QDialog& dialog) {
  const QPointer<QDialog> still = &dialog;
  const std::string name = FromQt(dialog.objectName());
  const auto [entry, isNew] = left_.try_emplace(&dialog, 0);
  if (isNew) {
    entry->second = LeastInside + Pick(MostInside - LeastInside);
    // Another dialog may come to lie at its address.
    QObject::connect(&dialog, &QDialog::finished, &timer_,
                     [this, address = &dialog] { left_.erase(address); });
  }
  ++done_;
  ++inside_[name];
  SCOPED_TRACE("event " + std::to_string(done_) + " in " + name);
  if (entry->second-- > 0) {
    ActInside(dialog);
  } else {
    CloseDialog(dialog);
  }
  checkAfter_(still);
}

void MonkeyTest::PressAButton(QWidget& window) {
  const std::vector<QAbstractButton*> buttons = Usable<QAbstractButton>(window);
  if (!buttons.empty()) QTest::mouseClick(OneOf(buttons), Qt::LeftButton);
}

// By Escape, by OK, by any button, or by the window's own.
void MonkeyTest::CloseDialog(QDialog& dialog) {
  const QPointer<QDialog> still = &dialog;
  const int way = Pick(100);
  if (way < 30) {
    QTest::keyClick(&dialog, Qt::Key_Escape);
  } else if (way < 65) {
    for (const char* ok : {"SSCommand2(0)", "cmdButton(0)", "SSCommand2"}) {
      auto* button = dialog.findChild<QAbstractButton*>(ok);
      if (button == nullptr || !button->isVisible()) continue;
      QTest::mouseClick(button, Qt::LeftButton);
      break;
    }
  } else if (way < 85) {
    PressAButton(dialog);
  } else {
    dialog.close();
  }
  if (!still || !still->isVisible() || ++held_ <= 3) return;
  held_ = 0;
  if (QApplication::activeModalWidget() == still) still->reject();
}

}  // namespace orvane::test
