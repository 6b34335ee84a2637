#include "tests/screens/notches_fixture.h"

#include "core/numbers.h"

namespace orvane::test {

Item& NotchesTest::ShowOne(const std::vector<Notch>& notches) {
  Item& item = Put("Z", "A1", "Z14012", 3000);
  for (const Notch& notch : notches) item.Notches.Append(notch);
  Show();
  return Items.At(1);
}

void NotchesTest::InDialog(const std::function<void(QWidget&)>& action) {
  dialogs.ExpectDialog("frmNotches", [action](QWidget& form) {
    form.activateWindow();
    ASSERT_TRUE(QTest::qWaitFor([&form] { return QApplication::activeWindow() == &form; }));
    action(form);
    RunQueued();
    if (form.isVisible()) Find<QPushButton>(form, "SSCommand2(1)").click();  // "&Cancel"
  });
  Section(NotchesEntry);
  Settle();
  BackToMain();
}

std::vector<Texts> NotchesTest::Cells(QWidget& form) {
  std::vector<Texts> rows;
  for (int row = 1; row < Grid(form).Rows(); ++row) {
    Texts cells;
    for (int column = 1; column < Grid(form).Cols(); ++column) {
      cells.push_back(Grid(form).TextMatrix(row, column));
    }
    rows.push_back(cells);
  }
  return rows;
}

std::vector<Texts> NotchesTest::Stored() {
  std::vector<Texts> notches;
  for (const Notch& notch : Items.At(1).Notches) {
    notches.push_back({notch.Code, ShortestText(notch.Size1), ShortestText(notch.Size2),
                       ShortestText(notch.Size3)});
  }
  EXPECT_EQ(Items.At(1).NotchCount(), static_cast<int>(notches.size()));
  return notches;
}

void NotchesTest::ExpectEditing(QWidget& form, int row, int column, const std::string& text) {
  const int panel = column == 1 ? 1 : 0;
  EXPECT_EQ(Grid(form).Row(), row);
  EXPECT_EQ(Grid(form).Col(), column);
  EXPECT_TRUE(Panel(form, panel).isVisible());
  EXPECT_FALSE(Panel(form, 1 - panel).isVisible());
  EXPECT_EQ(Panel(form, panel).geometry(), Grid(form).CellRect(row, column));
  EXPECT_EQ(Focus(), panel == 1 ? "cboEdit" : "txtEdit");
  EXPECT_EQ(FromQt(panel == 1 ? Codes(form).currentText() : Text(form).text()), text);
  if (panel == 0) {
    EXPECT_EQ(FromQt(Text(form).selectedText()), text);
  }
}

void NotchesTest::ExpectNoEditor(QWidget& form) {
  EXPECT_FALSE(Panel(form, 0).isVisible());
  EXPECT_FALSE(Panel(form, 1).isVisible());
}

}  // namespace orvane::test
