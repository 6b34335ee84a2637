// The dialog of a type 2 accessory as it opens: its table, its editors, its picture.
#include <QHeaderView>
#include <QMenu>
#include <QMenuBar>
#include <QScrollBar>

#include "core/numbers.h"
#include "core/program_folder.h"
#include "drawing/pictures.h"
#include "tests/screens/acc02_fixture.h"
#include "ui/dialogs/accessory_pane.h"

namespace orvane::test {
namespace {

class Acc02OpeningTest : public Acc02Test {
 protected:
  static Texts Headings(QWidget& form) {
    Texts headings;
    for (int column = 0; column < Grid(form).Cols(); ++column) {
      headings.push_back(Grid(form).TextMatrix(0, column));
    }
    return headings;
  }
  static Texts Titles(QWidget& form) {
    Texts titles;
    for (int column = 0; column < Grid(form).Cols(); ++column) {
      titles.push_back(Grid(form).Model().GroupTitle(column));
    }
    return titles;
  }
  static int WidthOf(FlexGrid& grid, const std::string& text) {
    return grid.horizontalHeader()->fontMetrics().horizontalAdvance(ToQt(text));
  }
  static int Middle(FlexGrid& grid, int column) {
    return grid.columnViewportPosition(column) + grid.columnWidth(column) / 2;
  }
};

TEST_F(Acc02OpeningTest, The_caption_is_the_name_of_the_accessory) {
  InDialog(SplicePlates, [](FrmAcc02& form) { EXPECT_EQ(form.windowTitle(), "Splice plates"); });
  InDialog(VcrAssemblies, [](FrmAcc02& form) { EXPECT_EQ(form.windowTitle(), "VCR Assembly"); });
}

TEST_F(Acc02OpeningTest, The_dialog_is_modal) {
  InDialog(SplicePlates, [](FrmAcc02& form) { EXPECT_TRUE(form.isModal()); });
}

TEST_F(Acc02OpeningTest, The_columns_carry_the_names_of_the_parameters) {
  InDialog(SplicePlates, [](FrmAcc02& form) {
    EXPECT_EQ(Headings(form), (Texts{"", "Mark", "No.Off", "Product", "Thickness", "Length"}));
  });
  InDialog(VcrAssemblies, [](FrmAcc02& form) {
    EXPECT_EQ(Headings(form), (Texts{"", "Mark", "No.Off", "As Drawn", "Opp. Hand", "Length",
                                     "End 1", "End 2", "Cleat 1", "Cleat 2"}));
  });
}

// Letters under 9 pixels run together on a screen of 96 pixels to the inch.
TEST_F(Acc02OpeningTest, The_letters_of_each_picture_can_be_read_in_the_size_that_it_opens_with) {
  int count = 0;
  for (int row = 1; row <= AccDefs.UBound(); ++row) {
    if (!HasPicture(Int16(row))) continue;
    const std::string& name = AccDefs.At(row).Name;
    const auto picture = LoadDrawing("\\Drawings\\" + AccDefs.At(row).DrawingFile + ".wmf");
    const QSize first = AccessoryPicture(Int16(row), nullptr).sizeHint();
    constexpr double pixelsPerMm = 96 / 25.4;
    const Box place =
        PicturePlaceOn(*picture, first.width() / pixelsPerMm, first.height() / pixelsPerMm);
    for (const Shape& shape : picture->Shapes) {
      const auto* text = std::get_if<TextShape>(&shape);
      if (text == nullptr) continue;
      const double pixels = text->Type.Size / 72 * 96 * place.Width / picture->Width;
      EXPECT_GE(pixels, 9) << name << ": " << text->Text;
      ++count;
    }
  }
  EXPECT_GT(count, 50);
}

TEST_F(Acc02OpeningTest, Column_0_is_fixed_and_narrow) {
  // 180 twips are 12 of 96 pixels to the inch.
  InDialog(SplicePlates, [](FrmAcc02& form) { EXPECT_EQ(Grid(form).columnWidth(0), 12); });
}

TEST_F(Acc02OpeningTest, A_column_is_as_wide_as_its_heading_and_at_least_850_twips) {
  const std::string wide = "Centres of the fixings along the rail";
  Reshape(PurlinSleeves, {"A", wide, "No. of Fixings"});
  InDialog(PurlinSleeves, [wide](FrmAcc02& form) {
    FlexGrid& grid = Grid(form);
    // 850 twips are 56 2/3 pixels.
    for (const int column : {1, 2, 3}) EXPECT_EQ(grid.columnWidth(column), 57);
    // The heading and the air that keeps it off the lines.
    EXPECT_GE(grid.columnWidth(4), WidthOf(grid, wide));
    EXPECT_LE(grid.columnWidth(4), WidthOf(grid, wide) + 10);
    EXPECT_GT(WidthOf(grid, "No. of Fixings"), 57);
    EXPECT_GE(grid.columnWidth(5), WidthOf(grid, "No. of Fixings"));
    EXPECT_LE(grid.columnWidth(5), WidthOf(grid, "No. of Fixings") + 10);
    // No heading needs a second line.
    EXPECT_LT(grid.horizontalHeader()->height(), 2 * grid.fontMetrics().height());
  });
}

TEST_F(Acc02OpeningTest, Without_groups_there_is_one_heading_row) {
  InDialog(SplicePlates, [](FrmAcc02& form) {
    EXPECT_FALSE(Grid(form).Model().HasGroupTitles());
    EXPECT_EQ(dynamic_cast<GroupHeading*>(Grid(form).horizontalHeader()), nullptr);
  });
}

TEST_F(Acc02OpeningTest, With_groups_there_are_two_and_the_titles_span_their_columns) {
  int oneRow = 0;
  InDialog(SplicePlates,
           [&oneRow](FrmAcc02& form) { oneRow = Grid(form).horizontalHeader()->height(); });
  InDialog(VcrAssemblies, [oneRow](FrmAcc02& form) {
    FlexGrid& grid = Grid(form);
    EXPECT_EQ(Titles(form), (Texts{"", "", "", "Number", "Number", "", "Allowances", "Allowances",
                                   "Cleats", "Cleats"}));
    EXPECT_EQ(grid.horizontalHeader()->height(), 2 * oneRow);
    const auto& heading = dynamic_cast<GroupHeading&>(*grid.horizontalHeader());
    for (const auto& span :
         std::vector<std::pair<int, int>>{{0, 2}, {3, 4}, {5, 5}, {6, 7}, {8, 9}}) {
      for (int column = span.first; column <= span.second; ++column) {
        EXPECT_EQ(grid.Model().GroupSpan(column), span);
        const int left = grid.columnViewportPosition(span.first);
        const int right = grid.columnViewportPosition(span.second) + grid.columnWidth(span.second);
        EXPECT_EQ(heading.TitlePlace(column), QRect(left, 0, right - left, oneRow));
      }
    }
  });
}

TEST_F(Acc02OpeningTest, A_title_is_drawn_once_across_its_columns_and_the_headings_below) {
  InDialog(VcrAssemblies, [](FrmAcc02& form) {
    FlexGrid& grid = Grid(form);
    QHeaderView& heading = *grid.horizontalHeader();
    const QImage drawn = heading.grab().toImage();
    const double scale = drawn.width() / static_cast<double>(heading.width());
    // Whether any column of pixels from `left` to `right` in a heading row is another than its
    // neighbour: the edge between two cells, or a text.
    const auto plain = [&](int left, int right, int row) {
      const int half = heading.height() / 2;
      const int top = static_cast<int>((row * half + 2) * scale);
      const int bottom = static_cast<int>(((row + 1) * half - 2) * scale);
      for (int x = static_cast<int>(left * scale); x < static_cast<int>(right * scale); ++x) {
        for (int y = top; y < bottom; ++y) {
          if (drawn.pixel(x, y) != drawn.pixel(static_cast<int>(left * scale), y)) return false;
        }
      }
      return true;
    };
    const int line = grid.columnViewportPosition(2);
    // No line between the two empty titles, but one between the headings below.
    EXPECT_TRUE(plain(line - 3, line + 3, 0));
    EXPECT_FALSE(plain(line - 3, line + 3, 1));
    // A line on both sides of a title, and its text in the middle of both columns.
    EXPECT_FALSE(plain(grid.columnViewportPosition(3) - 3, grid.columnViewportPosition(3) + 3, 0));
    EXPECT_FALSE(plain(grid.columnViewportPosition(5) - 3, grid.columnViewportPosition(5) + 3, 0));
    const int middle = grid.columnViewportPosition(4);
    EXPECT_FALSE(plain(middle - 15, middle + 15, 0));
    EXPECT_TRUE(plain(Middle(grid, 5) - 15, Middle(grid, 5) + 15, 0));
  });
}

TEST_F(Acc02OpeningTest, Neighbouring_groups_of_one_title_share_a_cell_and_a_long_one_is_cut) {
  AccDef& accessory = Reshape(PurlinSleeves, {"A", "B", "C", "D"});
  accessory.Groups.Append({3, 1, "Ends"});
  accessory.Groups.Append({4, 1, "Ends"});
  accessory.Groups.Append({6, 5, "Rest"});
  InDialog(PurlinSleeves, [](FrmAcc02& form) {
    EXPECT_EQ(Titles(form), (Texts{"", "", "", "Ends", "Ends", "", "Rest"}));
    EXPECT_EQ(Grid(form).Model().GroupSpan(3), std::make_pair(3, 4));
    EXPECT_EQ(Grid(form).Model().GroupSpan(6), std::make_pair(6, 6));
  });
}

TEST_F(Acc02OpeningTest, The_heading_rows_do_not_scroll_with_the_lines) {
  for (int i = 0; i < 60; ++i) PutLine(VcrAssemblies, "A" + std::to_string(i), 0, {});
  InDialog(VcrAssemblies, [](FrmAcc02& form) {
    FlexGrid& grid = Grid(form);
    const QRect before = grid.horizontalHeader()->geometry();
    const QImage heading = grid.horizontalHeader()->grab().toImage();
    const QRect first = grid.CellRect(1, 1);
    grid.verticalScrollBar()->setValue(grid.verticalScrollBar()->maximum());
    EXPECT_LT(grid.CellRect(1, 1).bottom(), 0);
    EXPECT_EQ(grid.horizontalHeader()->geometry(), before);
    EXPECT_EQ(grid.horizontalHeader()->grab().toImage(), heading);
    EXPECT_GE(first.top(), 0);
  });
}

TEST_F(Acc02OpeningTest, All_lines_are_of_one_height_that_holds_270_twips_and_the_text) {
  PutLine(SplicePlates, "A1", 1, {});
  InDialog(SplicePlates, [](FrmAcc02& form) {
    FlexGrid& grid = Grid(form);
    ClickButton(form, 4);
    for (int row = 0; row < 2; ++row) {
      // 270 twips are 18 pixels; the text needs a little air.
      EXPECT_EQ(grid.rowHeight(row), std::max(18, grid.fontMetrics().height() + 10));
    }
  });
}

TEST_F(Acc02OpeningTest, A_column_with_choices_has_its_own_list_in_the_order_of_the_catalogue) {
  InDialog(VcrAssemblies, [](FrmAcc02& form) {
    for (int column = 1; column <= 9; ++column) {
      const auto* panel = form.findChild<QWidget*>(IndexedName("sspEditCombo", column));
      ASSERT_EQ(panel != nullptr, column >= 8) << column;
      if (panel == nullptr) continue;
      EXPECT_EQ(Choices(form, column).parentWidget(), panel);
      Texts texts;
      for (int at = 0; at < Choices(form, column).count(); ++at) {
        texts.push_back(FromQt(Choices(form, column).itemText(at)));
      }
      EXPECT_EQ(texts, (Texts{"KT31", "KT33", "KT36", "KT39", "KT41"}));
    }
    EXPECT_EQ(Text(form).parentWidget()->objectName(), "SSPanelEdit");
  });
}

TEST_F(Acc02OpeningTest, The_buttons_bear_their_captions_and_none_is_a_default) {
  InDialog(SplicePlates, [](FrmAcc02& form) {
    Texts captions;
    for (int index = 0; index < 6; ++index) {
      captions.push_back(FromQt(Button(form, index).text()));
      EXPECT_FALSE(Button(form, index).autoDefault());
      EXPECT_FALSE(Button(form, index).isDefault());
    }
    EXPECT_EQ(captions, (Texts{"&OK", "Clea&r", "&Print", "&Cancel", "&Add", "&Delete"}));
  });
}

TEST_F(Acc02OpeningTest, The_menu_bar_has_its_two_menus) {
  InDialog(SplicePlates, [](FrmAcc02& form) {
    const auto* bar = form.findChild<QMenuBar*>();
    ASSERT_NE(bar, nullptr);
    EXPECT_TRUE(bar->isVisible());
    Texts captions;
    for (const QAction* menu : bar->actions()) {
      captions.push_back(FromQt(menu->text()));
      for (const QAction* entry : menu->menu()->actions()) {
        captions.push_back(FromQt(entry->objectName()) + " " + FromQt(entry->text()));
      }
    }
    EXPECT_EQ(captions, (Texts{"&Accessory", "mnuAcc(0) &Update and close", "mnuAcc(1) &Print",
                               "mnuAcc(2) &Close without updating", "&Line", "mnuLine(0) &Add",
                               "mnuLine(1) &Delete", "mnuLine(2) &Clear all"}));
  });
}

TEST_F(Acc02OpeningTest, A_picture_has_its_place_above_the_table) {
  InDialog(SplicePlates, [](FrmAcc02& form) {
    auto& picture = Find<QWidget>(form, "VSPrinter1");
    EXPECT_TRUE(picture.isVisible());
    EXPECT_LT(picture.geometry().bottom(), Grid(form).mapTo(&form, QPoint(0, 0)).y());
  });
}

TEST_F(Acc02OpeningTest, None_hides_the_picture_and_the_table_takes_the_whole_dialog) {
  const auto tableShare = [](FrmAcc02& form) {
    form.resize(700, 600);
    QCoreApplication::processEvents();
    return Grid(form).height();
  };
  int withPicture = 0;
  InDialog(SplicePlates, [&](FrmAcc02& form) { withPicture = tableShare(form); });
  InDialog(DoorJambKits, [&](FrmAcc02& form) {
    const auto* picture = form.findChild<QWidget*>("VSPrinter1");
    EXPECT_TRUE(picture == nullptr || !picture->isVisible());
    EXPECT_GT(tableShare(form), 400);
    EXPECT_LT(withPicture, 400);
  });
}

TEST_F(Acc02OpeningTest, None_is_exact) {
  AccDefs.At(DoorJambKits).DrawingFile = "none";
  CurrentAcc = DoorJambKits;
  EXPECT_EQ(ErrorOf([] { const FrmAcc02 form(DoorJambKits); }),
            "File not found: " + ProgramFolder + "/Drawings/none.wmf");
}

TEST_F(Acc02OpeningTest, A_missing_picture_stops_the_opening_and_the_result_is_Cancelled) {
  AccDefs.At(SplicePlates).DrawingFile = "acc99";
  CurrentAcc = SplicePlates;
  AccDialogResult = "OK";
  EXPECT_EQ(ErrorOf([] { const FrmAcc02 form(SplicePlates); }),
            "File not found: " + ProgramFolder + "/Drawings/acc99.wmf");
  EXPECT_EQ(AccDialogResult, "Cancelled");
}

TEST_F(Acc02OpeningTest, Opening_shows_the_lines_of_this_accessory_in_their_order) {
  PutLine(SplicePlates, "B2", 4, {"Z14012", "2.0", "300"});
  PutLine(PurlinSleeves, "A1", 9, {"Z14012", "600"});
  PutLine(SplicePlates, "A1", 12, {"Z17012", "3.0", " 450 "});
  InDialog(SplicePlates, [](FrmAcc02& form) {
    EXPECT_EQ(Cells(form), (std::vector<Texts>{{"B2", "4", "Z14012", "2.0", "300"},
                                               {"A1", "12", "Z17012", "3.0", " 450 "}}));
  });
}

TEST_F(Acc02OpeningTest, Without_lines_one_empty_row_stands_ready) {
  PutLine(PurlinSleeves, "A1", 9, {"Z14012", "600"});
  InDialog(SplicePlates, [](FrmAcc02& form) {
    EXPECT_EQ(Cells(form), (std::vector<Texts>{{"", "", "", "", ""}}));
  });
}

TEST_F(Acc02OpeningTest, Values_without_a_column_are_skipped_and_missing_ones_stay_empty) {
  PutLine(PurlinSleeves, "A1", 1, {"Z14012", "600", "too", "many"});
  PutLine(PurlinSleeves, "A2", 2, {"Z17012"});
  InDialog(PurlinSleeves, [](FrmAcc02& form) {
    EXPECT_EQ(Cells(form),
              (std::vector<Texts>{{"A1", "1", "Z14012", "600"}, {"A2", "2", "Z17012", ""}}));
    ClickButton(form, 0);
  });
  EXPECT_EQ(Stored(PurlinSleeves),
            (std::vector<Texts>{{"A1", "1", "Z14012", "600"}, {"A2", "2", "Z17012", ""}}));
}

TEST_F(Acc02OpeningTest, The_first_cell_is_being_edited_with_one_heading_row_or_two) {
  for (const std::int16_t accessory : {SplicePlates, VcrAssemblies}) {
    PutLine(accessory, "A1", 1, {});
    PutLine(accessory, "A2", 2, {});
    InDialog(accessory, [](FrmAcc02& form) {
      EXPECT_EQ(Grid(form).Row(), 1);
      EXPECT_EQ(Grid(form).Col(), 1);
      EXPECT_EQ(Grid(form).TextMatrix(Grid(form).Row(), 1), "A1");
      ExpectEditing(form, 1, 1, "A1");
    });
  }
}

TEST_F(Acc02OpeningTest, The_result_is_Cancelled_from_the_first_moment) {
  AccDialogResult = "OK";
  InDialog(SplicePlates, [](FrmAcc02&) { EXPECT_EQ(AccDialogResult, "Cancelled"); });
}

TEST_F(Acc02OpeningTest, An_accessory_of_mark_and_number_alone_opens_without_fault) {
  Reshape(PurlinSleeves, {});
  InDialog(PurlinSleeves, [this](FrmAcc02& form) {
    TypeInto(form, 1, 1, "A1");
    TypeInto(form, 1, 2, "5");
    ClickButton(form, 0);
  });
  EXPECT_EQ(Stored(PurlinSleeves), (std::vector<Texts>{{"A1", "5"}}));
}

TEST_F(Acc02OpeningTest, Columns_without_any_choice_are_all_typed) {
  Reshape(PurlinSleeves, {"A", "B"});
  InDialog(PurlinSleeves, [this](FrmAcc02& form) {
    for (int column = 1; column <= 4; ++column) {
      Click(form, 1, column);
      EXPECT_EQ(Focus(), "txtEdit");
      ExpectEditing(form, 1, column, "");
    }
  });
}

TEST_F(Acc02OpeningTest, A_column_beyond_9_can_have_choices_too) {
  GiveChoices(Reshape(PurlinSleeves, {"C3", "C4", "C5", "C6", "C7", "C8", "C9", "C10", "C11"}), 11,
              {"Left", "Right"});
  InDialog(PurlinSleeves, [this](FrmAcc02& form) {
    TypeInto(form, 1, 1, "A1");
    Click(form, 1, 11);
    ExpectEditing(form, 1, 11, "");
    Keys("r");
    ClickButton(form, 0);
  });
  EXPECT_EQ(Stored(PurlinSleeves),
            (std::vector<Texts>{{"A1", "0", "", "", "", "", "", "", "", "", "Right"}}));
}

TEST_F(Acc02OpeningTest, Table_and_picture_follow_the_dialog_and_an_open_editor_its_cell) {
  PutLine(SplicePlates, "A1", 1, {"Z14012", "2.0", "300"});
  InDialog(SplicePlates, [this](FrmAcc02& form) {
    form.resize(500, 500);
    QCoreApplication::processEvents();
    Click(form, 1, 3);
    auto& picture = Find<QWidget>(form, "VSPrinter1");
    const QSize table = Grid(form).size();
    const QSize pane = picture.size();
    const QPoint place = form.pos();
    form.resize(700, 650);
    QCoreApplication::processEvents();
    EXPECT_EQ(Grid(form).width(), table.width() + 200);
    EXPECT_EQ(picture.width(), pane.width() + 200);
    EXPECT_GT(Grid(form).height(), table.height());
    EXPECT_GT(picture.height(), pane.height());
    EXPECT_EQ(Grid(form).height() + picture.height(), table.height() + pane.height() + 150);
    EXPECT_EQ(form.pos(), place);
    ExpectEditing(form, 1, 3, "Z14012");
  });
}

TEST_F(Acc02OpeningTest, The_dialog_comes_back_where_it_was_left_and_lies_on_the_screen) {
  QPoint left;
  InDialog(SplicePlates, [&left](FrmAcc02& form) {
    EXPECT_TRUE(form.screen()->availableGeometry().contains(form.frameGeometry()));
    form.move(60, 45);
    left = form.pos();
  });
  InDialog(DoorJambKits, [&left](FrmAcc02& form) { EXPECT_EQ(form.pos(), left); });
}

TEST_F(Acc02OpeningTest, A_table_wider_than_the_dialog_is_scrolled_to_the_cell_that_is_edited) {
  Texts columns;
  for (int column = 3; column <= 30; ++column) columns.push_back("C" + std::to_string(column));
  Reshape(PurlinSleeves, columns);
  InDialog(PurlinSleeves, [this](FrmAcc02& form) {
    EXPECT_LE(form.width(), form.screen()->availableGeometry().width());
    Click(form, 1, 1);
    for (int column = 2; column <= 30; ++column) {
      Key(Qt::Key_Tab);
      ExpectEditing(form, 1, column, "");
      EXPECT_TRUE(Grid(form).viewport()->rect().contains(Grid(form).CellRect(1, column)));
    }
  });
}

}  // namespace
}  // namespace orvane::test
