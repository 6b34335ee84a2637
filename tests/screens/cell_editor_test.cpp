// The editor of cells on a table that stands for no steel: columns of each kind, and some that
// aren't edited.
#include <QLineEdit>
#include <QVBoxLayout>

#include "tests/screens/dialog_fixture.h"
#include "ui/controls/text_table.h"

namespace orvane::test {

namespace {

// Column 2 and the last one aren't edited, 3 takes digits, 4 has a list.
const std::vector<std::string> Headings = {"", "Name", "Sum", "Count", "Colour", "Total"};

CellEdit EditOfColumn(int column) {
  switch (column) {
    case 1:
      return CellEdit::Text;
    case 3:
      return CellEdit::Digits;
    case 4:
      return CellEdit::Choice;
    default:
      return CellEdit::None;
  }
}

class PaintTable : public TextTable {
 public:
  PaintTable(TextRowsModel* model, CellTakes takes, QWidget* parent)
      : TextTable(model, EditOfColumn, takes, "panText", parent) {
    setObjectName("grid");
    SetColumnRatio({1, 3, 3, 3, 3, 3});
    Table<std::string> colours;
    for (const char* colour : {"Red", "Green", "Grey"}) colours.Append(colour);
    Editor().AddChoices(4, "panColour", "cboColour").Fill(colours);
  }
};

class CellEditorTest : public DialogTest {
 protected:
  void Open(CellTakes takes) {
    TextRows rows;
    for (const char* name : {"a", "b", "c"}) {
      Table<std::string>& row = rows.Append({});
      for (const char* text : {name, "s", "7", "Red", "t"}) row.Append(text);
    }
    auto* layout = new QVBoxLayout(&window_);
    table_ = new PaintTable(new TextRowsModel(Headings, rows, 1, nullptr), takes, &window_);
    layout->addWidget(table_);
    outside_ = new QLineEdit(&window_);
    layout->addWidget(outside_);
    ShowActive(window_);
    table_->setFocus();
  }
  std::string CellText(int row, int column) const { return table_->TextMatrix(row, column); }
  ::testing::AssertionResult At(int row, int column) const {
    const std::string focus = column == 4 ? "cboColour" : "txtEdit";
    if (table_->Row() == row && table_->Col() == column && Focus() == focus) {
      return ::testing::AssertionSuccess();
    }
    return ::testing::AssertionFailure()
           << "at " << table_->Row() << "," << table_->Col() << " with the focus on " << Focus();
  }

  QWidget window_;
  PaintTable* table_ = nullptr;
  QLineEdit* outside_ = nullptr;  // the focus goes there to leave the table
};

TEST_F(CellEditorTest,
       The_keys_pass_over_columns_that_are_not_edited_and_stop_at_the_last_that_is) {
  Open(CellTakes::AtOnce);
  Press(Qt::Key_Return);
  EXPECT_TRUE(At(1, 1));
  for (const int column : {3, 4, 4}) {
    Press(Qt::Key_Tab);
    EXPECT_TRUE(At(1, column));
  }
  for (const int column : {3, 1, 1}) {
    Press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(At(1, column));
  }
}

TEST_F(CellEditorTest, A_table_takes_each_stroke_at_once) {
  Open(CellTakes::AtOnce);
  Type("x");
  EXPECT_TRUE(At(1, 1));
  EXPECT_EQ(CellText(1, 1), "x");
  Type("y");
  EXPECT_EQ(CellText(1, 1), "xy");
  Press(Qt::Key_Tab);
  Type("1z2");
  EXPECT_EQ(CellText(1, 3), "12");
  Press(Qt::Key_Tab);
  // A choice isn't taken before it is made.
  Type("gre");
  Press(Qt::Key_Return);
  EXPECT_EQ(CellText(1, 4), "Red");
  Type("y");
  EXPECT_EQ(CellText(1, 4), "Red");
  Press(Qt::Key_Return);
  EXPECT_EQ(CellText(1, 4), "Grey");
}

TEST_F(CellEditorTest, Or_on_leaving_by_whatever_way) {
  struct Way {
    std::string Name;
    std::function<void()> Leave;
  };
  const std::vector<Way> ways = {
      {"Tab", [this] { Press(Qt::Key_Tab); }},
      {"Down", [this] { Press(Qt::Key_Down); }},
      {"Page Down", [this] { Press(Qt::Key_PageDown); }},
      {"click", [this] { ClickCell(*table_, 3, 4); }},
      {"another control", [this] { outside_->setFocus(); }},
      {"commit", [this] { table_->Commit(); }},
      {"another row shown", [this] { table_->ShowRow(2); }},
      {"a new row", [this] { table_->AddRow(); }},
  };
  Open(CellTakes::OnLeaving);
  for (const Way& way : ways) {
    SCOPED_TRACE(way.Name);
    table_->GoTo(1, 3);
    Press(Qt::Key_Delete);
    Press(Qt::Key_Tab);
    table_->GoTo(1, 3);
    ASSERT_EQ(CellText(1, 3), "");
    Type("85");
    EXPECT_EQ(CellText(1, 3), "");
    way.Leave();
    EXPECT_EQ(CellText(1, 3), "85");
  }
}

TEST_F(CellEditorTest, Rows_that_go_take_what_was_typed_along) {
  Open(CellTakes::OnLeaving);
  table_->GoTo(2, 1);
  Type("typed");
  table_->RemoveRow();
  EXPECT_EQ(Focus(), "grid");
  ASSERT_EQ(table_->Rows(), 3);
  EXPECT_EQ(CellText(1, 1), "a");
  EXPECT_EQ(CellText(2, 1), "c");
  table_->GoTo(1, 1);
  Type("typed");
  table_->ClearRows();
  ASSERT_EQ(table_->Rows(), 2);
  for (int column = 0; column < 6; ++column) EXPECT_EQ(CellText(1, column), "");
}

TEST_F(CellEditorTest, A_list_that_is_only_visited_leaves_its_cell_alone) {
  Open(CellTakes::OnLeaving);
  table_->GoTo(1, 4);
  for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Up, Qt::Key_Home, Qt::Key_End}) Press(key);
  EXPECT_TRUE(At(1, 4));
  Press(Qt::Key_Backtab, Qt::ShiftModifier);
  for (int row = 1; row <= 3; ++row) EXPECT_EQ(CellText(row, 4), "Red");
}

TEST_F(CellEditorTest, Keys_with_Ctrl_or_Alt_neither_move_nor_begin_a_cell) {
  Open(CellTakes::AtOnce);
  for (const Qt::KeyboardModifier held : {Qt::ControlModifier, Qt::AltModifier}) {
    table_->setFocus();
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Return, Qt::Key_F2, Qt::Key_X}) {
      Press(key, held);
      EXPECT_EQ(Focus(), "grid") << key;
    }
    table_->GoTo(2, 1);
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Up, Qt::Key_PageDown, Qt::Key_Return}) {
      Press(key, held);
      EXPECT_TRUE(At(2, 1)) << key;
    }
  }
  EXPECT_EQ(CellText(1, 1), "a");
  EXPECT_EQ(CellText(2, 1), "b");
}

}  // namespace

}  // namespace orvane::test
