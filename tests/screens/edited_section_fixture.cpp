#include "tests/screens/edited_section_fixture.h"
#include "tests/support/patience.h"

namespace orvane::test {

void EditedSectionTest::AddByHand(const std::string& letter, const std::string& mark,
                                  const std::string& product, const std::string& length,
                                  const std::string& quantity) {
  Add(letter);
  Type(mark);
  Press(Qt::Key_Tab);
  ASSERT_EQ(Focus(), "cboEdit");
  Choose("cboEdit", product);
  Press(Qt::Key_Tab);
  Type(length);
  Press(Qt::Key_Tab);
  Type(quantity);
  Press(Qt::Key_Tab);
  Settle();
  EXPECT_TRUE(RowShows(Items.UBound(), {letter, mark, product, length, quantity, ""}));
}

void EditedSectionTest::ChooseInMenu(Qt::Key menu, Qt::Key entry) {
  Press(menu, Qt::AltModifier);
  QWidget* popup = QApplication::activePopupWidget();
  ASSERT_NE(popup, nullptr);
  ASSERT_TRUE(QTest::qWaitForWindowExposed(popup, Patience));
  QTest::keyClick(popup, entry);
  Settle();
  BackToMain();
}

// Holes.

void EditedSectionTest::Fill(FrmAddHoles& dialog, const HandHole& hole) {
  const std::string letter = Items.At(Sections().Row()).SectionType;
  if (hole.Picture) ClickOn(Picture(dialog, letter, *hole.Picture));
  if (hole.Ribbon) ClickOn(Button(dialog, "SSRibbon2(" + std::to_string(*hole.Ribbon) + ")"));
  if (hole.Y) Retype(Y(dialog), *hole.Y);
  if (hole.Diameter) ClickOn(Button(dialog, *hole.Diameter == 18 ? "optDia(0)" : "optDia(1)"));
  if (hole.Slot) Retype(Slot(dialog), *hole.Slot);
  if (hole.CounterSunk && Sunk(dialog).isChecked() != *hole.CounterSunk) {
    QTest::keyClick(&Sunk(dialog), Qt::Key_Space);
  }
}

void EditedSectionTest::Place(FrmAddHoles& dialog, const std::vector<HandHole>& holes,
                              const std::vector<std::string>& refused) {
  for (const HandHole& hole : holes) {
    Fill(dialog, hole);
    if (&hole == &holes.back()) {
      for (const std::string& x : refused) StoreRefused(dialog, x);
    }
    Retype(X(dialog), hole.X);
    QTest::keyClick(&X(dialog), Qt::Key_Return);
    // Ready for the next one.
    EXPECT_EQ(X(dialog).text(), "") << hole.X;
  }
  ClickOn(Button(dialog, "SSCommand2(1)"));
  EXPECT_FALSE(dialog.isVisible());
}

void EditedSectionTest::PlaceAbsolute(const std::vector<HandHole>& holes,
                                      const std::vector<std::string>& refused) {
  InAbsolute([&](FrmAddHoles& dialog) { Place(dialog, holes, refused); });
}

void EditedSectionTest::PlaceRelative(const std::vector<HandHole>& holes,
                                      const std::vector<std::string>& refused) {
  InRelative([&](FrmAddHoles& dialog) { Place(dialog, holes, refused); });
}

void EditedSectionTest::EditHole(int customRow, const HandHole& hole) {
  HoleList().EnsureVisible(customRow, 0);
  InEdit(customRow, [&](FrmAddHoles& dialog) {
    Fill(dialog, hole);
    Retype(X(dialog), hole.X);
    ClickOn(Button(dialog, "SSCommand2(0)"));
    EXPECT_FALSE(dialog.isVisible());
  });
}

// Notches and mitres.

void EditedSectionTest::InForm(const std::string& name, Qt::Key entry,
                               const std::function<void(QWidget&)>& action) {
  dialogs.ExpectDialog(name, [action](QWidget& form) {
    form.activateWindow();
    ASSERT_TRUE(QTest::qWaitFor([&form] { return QApplication::activeWindow() == &form; }));
    action(form);
    QTest::mouseClick(&Find<QPushButton>(form, "SSCommand2(0)"), Qt::LeftButton);
    EXPECT_FALSE(form.isVisible());
  });
  ChooseInMenu(Qt::Key_S, entry);
}

void EditedSectionTest::TypeNotches(const std::vector<std::vector<std::string>>& rows) {
  InForm("frmNotches", Qt::Key_N, [&](QWidget& form) {
    auto& grid = Find<FlexGrid>(form, "MSFlexGrid1");
    for (std::size_t at = 0; at < rows.size(); ++at) {
      const int row = static_cast<int>(at) + 1;
      // One row stands ready.
      if (row > 1) QTest::keyClick(QApplication::focusWidget(), Qt::Key_A, Qt::AltModifier);
      // A key that presses a button acts a moment later.
      ASSERT_TRUE(QTest::qWaitFor([&] { return grid.Rows() == row + 1; }));
      ClickCell(grid, row, 1);
      if (!rows.at(at).front().empty()) {
        auto& codes = Find<QComboBox>(form, "cboEdit");
        Choose(codes, codes.findText(ToQt(rows.at(at).front())));
      }
      ClickCell(grid, row, 2);
      for (std::size_t column = 1; column < rows.at(at).size(); ++column) {
        if (column > 1) QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QTest::keyClicks(QApplication::focusWidget(), ToQt(rows.at(at).at(column)));
      }
    }
    for (std::size_t at = 0; at < rows.size(); ++at) {
      for (std::size_t column = 0; column < rows.at(at).size(); ++column) {
        EXPECT_EQ(grid.TextMatrix(static_cast<int>(at) + 1, static_cast<int>(column) + 1),
                  rows.at(at).at(column));
      }
    }
  });
}

void EditedSectionTest::TypeMitres(const std::string& left, const std::string& right) {
  InForm("frmMitres", Qt::Key_M, [&](QWidget& form) {
    const std::vector<std::string> typed = {left, right};
    for (std::size_t end = 0; end < typed.size(); ++end) {
      if (typed.at(end).empty()) continue;
      auto& box = Find<QLineEdit>(form, "txtAngle(" + std::to_string(end) + ")");
      Retype(box, typed.at(end));
      QTest::keyClick(&box, Qt::Key_Tab);
    }
  });
}

}  // namespace orvane::test
