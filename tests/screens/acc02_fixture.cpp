#include "tests/screens/acc02_fixture.h"

namespace orvane::test {

void Acc02Test::SetUp() {
  ASSERT_TRUE(LoadAccessoryCatalogues());
  LoadMaxDims();
  LoadPageSetup();
  LoadDrawingSettings();
}

void Acc02Test::PutLine(std::int16_t accIndex, const std::string& mark, std::int16_t noOff,
                        const Texts& values) {
  AccLine2 line;
  line.AccIndex = accIndex;
  line.Mark = mark;
  line.NoOff = noOff;
  for (const std::string& value : values) line.Values.Append(value);
  AccLines2.Append(line);
  AccUsed.At(accIndex) = True;
}

std::vector<Texts> Acc02Test::Stored(std::int16_t accIndex) {
  std::vector<Texts> lines;
  for (const AccLine2& line : AccLines2) {
    if (line.AccIndex != accIndex) continue;
    Texts& texts = lines.emplace_back(Texts{line.Mark, ShortestText(line.NoOff)});
    texts.insert(texts.end(), line.Values.begin(), line.Values.end());
  }
  return lines;
}

AccDef& Acc02Test::Reshape(std::int16_t accIndex, const Texts& columns) {
  AccDef& accessory = AccDefs.At(accIndex);
  accessory.Groups.Clear();
  accessory.Options.Clear();
  accessory.ParamNames.Resize(2);
  for (const std::string& column : columns) accessory.ParamNames.Append(column);
  // The catalogue has no row of choices for an accessory without a column of its own.
  if (!columns.empty()) accessory.Options.Resize(accessory.ParamCount());
  return accessory;
}

void Acc02Test::GiveChoices(AccDef& accessory, int column, const Texts& texts) {
  AccParamOptions& options = accessory.Options.At(column);
  for (const std::string& text : texts) options.OptionTexts.Append(text);
}

void Acc02Test::InDialog(std::int16_t accIndex, const std::function<void(FrmAcc02&)>& action) {
  CurrentAcc = accIndex;
  dialogs.ExpectDialog("frmAcc02", [&action](QWidget& window) {
    WaitUntilActive(window);
    action(dynamic_cast<FrmAcc02&>(window));
    RunQueued();
    if (window.isVisible()) Button(window, 3).click();  // "&Cancel"
  });
  FrmAcc02 dialog(accIndex);
  dialog.exec();
  Settle();
}

void Acc02Test::TypeInto(QWidget& form, int row, int column, const std::string& text) {
  Click(form, row, column);
  Key(Qt::Key_Delete);
  Keys(text);
}

void Acc02Test::Key(Qt::Key key, Qt::KeyboardModifiers modifiers) {
  ASSERT_NE(QApplication::focusWidget(), nullptr);
  QTest::keyClick(QApplication::focusWidget(), key, modifiers);
}

void Acc02Test::Keys(const std::string& text) {
  // One key at a time: the first one may open the editor of the cell.
  for (const QChar letter : ToQt(text)) {
    ASSERT_NE(QApplication::focusWidget(), nullptr);
    QTest::keyClick(QApplication::focusWidget(), letter.toLatin1());
  }
}

std::vector<Texts> Acc02Test::Cells(QWidget& form) {
  std::vector<Texts> rows;
  for (int row = 1; row < Grid(form).Rows(); ++row) {
    Texts& cells = rows.emplace_back();
    for (int column = 1; column < Grid(form).Cols(); ++column) {
      cells.push_back(Grid(form).TextMatrix(row, column));
    }
  }
  return rows;
}

void Acc02Test::ExpectEditing(QWidget& form, int row, int column, const std::string& text) {
  SCOPED_TRACE("row " + std::to_string(row) + ", column " + std::to_string(column));
  EXPECT_EQ(Grid(form).Row(), row);
  EXPECT_EQ(Grid(form).Col(), column);
  Texts shown;
  for (const QWidget* panel : Grid(form).viewport()->findChildren<QWidget*>()) {
    const std::string name = FromQt(panel->objectName());
    if (name.rfind("SSPanelEdit", 0) != 0 && name.rfind("sspEditCombo", 0) != 0) continue;
    if (!panel->isVisible()) continue;
    shown.push_back(name);
    EXPECT_EQ(panel->geometry(), Grid(form).CellRect(row, column));
  }
  if (Focus() == "txtEdit") {
    EXPECT_EQ(shown, Texts{"SSPanelEdit"});
    EXPECT_EQ(FromQt(Text(form).text()), text);
    EXPECT_EQ(FromQt(Text(form).selectedText()), text);
  } else {
    EXPECT_EQ(Focus(), "cboEdit(" + std::to_string(column) + ")");
    EXPECT_EQ(shown, Texts{"sspEditCombo(" + std::to_string(column) + ")"});
    EXPECT_EQ(FromQt(Choices(form, column).currentText()), text);
  }
}

void Acc02Test::ExpectNoEditor(QWidget& form) {
  for (const QWidget* editor : Grid(form).viewport()->findChildren<QWidget*>()) {
    EXPECT_FALSE(editor->isVisible()) << FromQt(editor->objectName());
  }
}

}  // namespace orvane::test
