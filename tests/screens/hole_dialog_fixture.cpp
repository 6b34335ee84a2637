#include "tests/screens/hole_dialog_fixture.h"

#include <utility>

namespace orvane::test {

const std::string BadPosition =
    "Please enter a valid value for the X position (too close to edge or too close to existing "
    "hole)";

namespace {

// As a window manager does. The toolkit calls a dialog active while its parent still is, so that
// the keys are waited for.
void Activate(QWidget& dialog) {
  dialog.activateWindow();
  EXPECT_TRUE(QTest::qWaitFor([&dialog] { return QApplication::activeWindow() == &dialog; }));
}

}  // namespace

Item& HoleDialogTest::ShowSection(const std::string& letter,
                                  const std::vector<std::int16_t>& positions) {
  Item& item = PutSection(letter, "Custom");
  for (const std::int16_t x : positions) PutHole(item, x, "C");
  Show(Items.UBound());
  return Items.At(Items.UBound());
}

void HoleDialogTest::InDialog(const std::function<void()>& open,
                              std::function<void(FrmAddHoles&)> action) {
  bool ran = false;
  dialogs.ExpectDialog("frmAddHoles", [&](QWidget& window) {
    auto& dialog = dynamic_cast<FrmAddHoles&>(window);
    ran = true;
    Activate(dialog);
    try {
      action(dialog);
    } catch (const std::exception& error) {
      ADD_FAILURE() << error.what();
    }
    if (dialog.isVisible()) dialog.reject();
  });
  open();
  Settle();
  EXPECT_TRUE(ran);
  BackToMain();
}

void HoleDialogTest::InAbsolute(const std::function<void(FrmAddHoles&)>& action) {
  InDialog([this] { Click("cmdHoles(0)"); }, action);
}

void HoleDialogTest::InRelative(const std::function<void(FrmAddHoles&)>& action) {
  InDialog([this] { Click("cmdHoles(1)"); }, action);
}

void HoleDialogTest::InEdit(int customRow, const std::function<void(FrmAddHoles&)>& action) {
  ClickCell(HoleList(), customRow, 0);
  InDialog([this] { Entry("mnuCHPUI(2)").trigger(); }, action);
}

PictureRadio& HoleDialogTest::Picture(FrmAddHoles& dialog, const std::string& letter, int code) {
  return Find<PictureRadio>(dialog, "rbn" + letter + "(" + std::to_string(code) + ")");
}

std::vector<int> HoleDialogTest::CodesOf(FrmAddHoles& dialog, const std::string& letter) {
  std::vector<int> codes;
  const auto& panel = Find<QWidget>(dialog, "pnl" + letter);
  for (int code = -1; code <= 20; ++code) {
    const std::string name = "rbn" + letter + "(" + std::to_string(code) + ")";
    if (panel.findChild<PictureRadio*>(ToQt(name)) != nullptr) codes.push_back(code);
  }
  EXPECT_EQ(static_cast<int>(codes.size()), panel.findChildren<QAbstractButton*>().size());
  return codes;
}

std::string HoleDialogTest::Checked(FrmAddHoles& dialog, const std::string& array) {
  std::string name;
  for (const QAbstractButton* button : dialog.findChildren<QAbstractButton*>()) {
    const std::string own = FromQt(button->objectName());
    if (own.rfind(array + "(", 0) != 0 || !button->isChecked()) continue;
    EXPECT_EQ(name, "");
    name = own;
  }
  return name;
}

void HoleDialogTest::Retype(QLineEdit& field, const std::string& text) {
  field.setFocus();
  field.selectAll();
  QTest::keyClick(&field, Qt::Key_Delete);
  QTest::keyClicks(&field, ToQt(text));
}

void HoleDialogTest::ClickOn(QAbstractButton& button) {
  QTest::mouseClick(&button, Qt::LeftButton);
}

void HoleDialogTest::Store(FrmAddHoles& dialog, const std::string& x) {
  Retype(X(dialog), x);
  ClickOn(Button(dialog, "SSCommand2(0)"));
}

void HoleDialogTest::StoreRefused(FrmAddHoles& dialog, const std::string& x) {
  dialogs.ExpectBox(BadPosition);
  const std::string before = RecordText(Items.At(Items.UBound()));
  const std::size_t boxes = dialogs.Boxes().size();
  Store(dialog, x);
  EXPECT_EQ(dialogs.Boxes().size(), boxes + 1) << x;
  EXPECT_EQ(RecordText(Items.At(Items.UBound())), before) << x;
  EXPECT_TRUE(dialog.isVisible()) << x;
  Activate(dialog);
}

std::string HoleDialogTest::LinesOf(const Hole& hole) {
  return hole.BF + "|" + hole.W1 + "|" + hole.W2 + "|" + hole.TF;
}

}  // namespace orvane::test
