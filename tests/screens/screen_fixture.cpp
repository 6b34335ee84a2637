#include "tests/screens/screen_fixture.h"
#include "tests/screens/accessible_names.h"
#include "tests/support/patience.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QDialog>
#include <QTimer>

namespace orvane::test {

namespace {

// How often the script looks for a modal window, ms.
constexpr int LookEvery = 2;
// What is queued may queue more: a focus that moves, a box that is told when it has moved, the
// layout behind it.
constexpr int Turns = 10;

void CloseUnforeseen(QWidget& window) {
  if (auto* dialog = qobject_cast<QDialog*>(&window)) {
    dialog->reject();
    if (auto* box = qobject_cast<QMessageBox*>(dialog)) box->done(QMessageBox::Cancel);
  } else {
    window.close();
  }
}

}  // namespace

void RunQueued() {
  for (int turn = 0; turn < Turns; ++turn) {
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
}

std::optional<std::string> TestDesktop::ShowOpenDialog(const FileDialog& dialog) {
  if (RealFileDialogs) return QtDesktop::ShowOpenDialog(dialog);
  OpenDialogs.push_back(dialog);
  return NextFile();
}

std::optional<std::string> TestDesktop::ShowSaveDialog(const FileDialog& dialog) {
  if (RealFileDialogs) return QtDesktop::ShowSaveDialog(dialog);
  SaveDialogs.push_back(dialog);
  return NextFile();
}

std::optional<std::string> TestDesktop::ShowFolderDialog(const std::string& /*title*/,
                                                         const std::string& /*initialFolder*/) {
  return NextFile();
}

std::optional<std::string> TestDesktop::NextFile() {
  if (AnyFile) return AnyFile();
  return NextChosen(Chosen);
}

DialogScript::DialogScript() {
  LookAgainAndAgain();
}

void DialogScript::ExpectBox(const std::string& text, const std::string& title,
                             QMessageBox::StandardButton answer) {
  steps_.push_back({"MessageBox", [text, title, answer](QWidget& window) {
                      auto& box = dynamic_cast<QMessageBox&>(window);
                      EXPECT_EQ(FromQt(box.text()), text);
                      EXPECT_EQ(FromQt(box.windowTitle()),
                                title.empty() ? FromQt(QGuiApplication::applicationDisplayName())
                                              : title);
                      QAbstractButton* button = box.button(answer);
                      ASSERT_NE(button, nullptr) << "no such button in the box " << text;
                      QTest::mouseClick(button, Qt::LeftButton);
                    }});
}

void DialogScript::ExpectDialog(const std::string& name, std::function<void(QWidget&)> action) {
  steps_.push_back({name, std::move(action)});
}

void DialogScript::LookAgainAndAgain() {
  QTimer::singleShot(LookEvery, this, [this] {
    // Armed anew first: the action may open the next modal window inside itself.
    if (stopped_) return;
    LookAgainAndAgain();
    Look();
  });
}

void DialogScript::Look() {
  QWidget* window = QApplication::activeModalWidget();
  if (window == nullptr || !window->isVisible() || (busy_ && window == busyWith_)) return;
  // The platform hands the keys over a moment after it has shown the window.
  if (!window->isActiveWindow()) return;
  if (!ignored_.empty() && FromQt(window->objectName()) == ignored_) return;
  if (auto* box = qobject_cast<QMessageBox*>(window)) boxes_.push_back(FromQt(box->text()));
  if (steps_.empty() || steps_.front().Name != FromQt(window->objectName())) {
    auto* box = qobject_cast<QMessageBox*>(window);
    ADD_FAILURE() << "unforeseen window " << FromQt(window->objectName()) << " \""
                  << FromQt(window->windowTitle())
                  << "\": " << (box != nullptr ? FromQt(box->text()) : "")
                  << (steps_.empty() ? "" : "; foreseen was " + steps_.front().Name);
    CloseUnforeseen(*window);
    return;
  }
  // Whatever window any test opens can be worked by ear.
  EXPECT_EQ(UnnamedControls(*window), std::vector<std::string>()) << steps_.front().Name;
  const Step step = std::move(steps_.front());
  steps_.pop_front();
  const QPointer<QWidget> outer = busyWith_;
  const bool wasBusy = busy_;
  busyWith_ = window;
  busy_ = true;
  try {
    step.Action(*window);
  } catch (const std::exception& error) {
    ADD_FAILURE() << error.what();
    if (QApplication::activeModalWidget() == window) CloseUnforeseen(*window);
  }
  busyWith_ = outer;
  busy_ = wasBusy;
}

ScreenTest::ScreenTest() {
  InstallDesktop(platform);
}

ScreenTest::~ScreenTest() {
  main.reset();
  details.reset();
}

void ScreenTest::SetUp() {
  ASSERT_TRUE(LoadAccessoryCatalogues());
  LoadMaxDims();
  LoadPageSetup();
  LoadDrawingSettings();
  CompanyName = "Test Steel Ltd";
  StartMain();
}

void ScreenTest::StartMain() {
  platform.DataFolder = TempPath("data");
  std::filesystem::create_directories(platform.DataFolder);
  details = std::make_unique<FrmProjectDetails>();
  main = std::make_unique<FrmMain>(*details);
  main->Load();
  main->show();
  main->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(main.get(), Patience));
  Settle();
}

void ScreenTest::TearDown() {
  if (main) Settle();
  EXPECT_TRUE(dialogs.Done()) << "a foreseen window never came: " << dialogs.NextName();
  EXPECT_TRUE(platform.Chosen.empty()) << "a foreseen file dialog never came";
}

void ScreenTest::Type(const std::string& text) {
  QWidget* focus = QApplication::focusWidget();
  ASSERT_NE(focus, nullptr) << "nothing has the focus for " << text;
  // One key at a time: the focus may move on the way.
  for (const QChar letter : ToQt(text)) {
    focus = QApplication::focusWidget();
    ASSERT_NE(focus, nullptr) << "the focus got lost in " << text;
    QTest::keyClick(focus, letter.toLatin1());
  }
}

void ScreenTest::Press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
  QWidget* focus = QApplication::focusWidget();
  if (focus == nullptr) focus = QApplication::activeWindow();
  ASSERT_NE(focus, nullptr) << "nothing has the focus";
  QTest::keyClick(focus, key, modifiers);
}

std::string ScreenTest::Focus() {
  const QWidget* focus = QApplication::focusWidget();
  return focus == nullptr ? "" : FromQt(focus->objectName());
}

void ScreenTest::ClickCell(FlexGrid& grid, int row, int column, Qt::MouseButton button) {
  QTest::mouseClick(grid.viewport(), button, Qt::NoModifier, grid.CellRect(row, column).center());
}

void ScreenTest::Click(const std::string& name) {
  auto& widget = Find<QWidget>(name);
  ASSERT_TRUE(widget.isVisible()) << name;
  QTest::mouseClick(&widget, Qt::LeftButton, Qt::NoModifier);
}

void ScreenTest::Choose(QComboBox& combo, int index) {
  ASSERT_LT(index, combo.count());
  combo.setFocus(Qt::MouseFocusReason);
  combo.showPopup();
  QAbstractItemView* list = combo.view();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(list->window(), Patience));
  const QModelIndex entry =
      combo.model()->index(index, combo.modelColumn(), combo.rootModelIndex());
  list->scrollTo(entry);
  list->setCurrentIndex(entry);
  QTest::keyClick(list, Qt::Key_Return);
}

void ScreenTest::Choose(const std::string& name, const std::string& text) {
  auto& combo = Find<QComboBox>(name);
  const int index = combo.findText(ToQt(text), Qt::MatchExactly);
  ASSERT_GE(index, 0) << text << " isn't in " << name;
  Choose(combo, index);
}

void ScreenTest::Settle() {
  const auto quiet = [this] {
    return dialogs.Done() && QApplication::activeModalWidget() == nullptr;
  };
  QCoreApplication::processEvents();
  EXPECT_TRUE(QTest::qWaitFor(quiet, Patience)) << "waited for " << dialogs.NextName();
  // A box that was queued and not foreseen comes out here.
  RunQueued();
  EXPECT_TRUE(QTest::qWaitFor(quiet, Patience));
}

void ScreenTest::ExpectKeptAside(const std::string& title) {
  dialogs.ExpectBox("The project isn't saved. A copy of it stands in\n" + KeptAside() +
                        "\nand is offered when the program is started again.",
                    title);
}

QObject* ScreenTest::FindObject(QObject& parent, const std::string& name) {
  if (parent.objectName() == ToQt(name)) return &parent;
  return parent.findChild<QObject*>(ToQt(name));
}

}  // namespace orvane::test
