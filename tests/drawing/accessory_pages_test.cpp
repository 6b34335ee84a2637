// The sheets of accessories as pages, and those of the accessories that ship.
#include <algorithm>
#include <array>

#include "core/numbers.h"
#include "drawing/accessory_sheet.h"
#include "drawing/page_surface.h"
#include "drawing/pictures.h"
#include "tests/drawing/accessory_fixture.h"
#include "tests/drawing/page_fixture.h"

namespace orvane::test {

namespace {

constexpr AccessoryType One = AccessoryType::One;
constexpr AccessoryType Two = AccessoryType::Two;

// On paper of 300 x 210 mm. In 11 points a line is 253 twips high, so that 0.269 mm stand above the
// text of a row.
class AccessoryPages : public AccessorySheetTest {
 protected:
  // What picture and table leave on the page, the table's texts and lines apart.
  struct Look {
    Lines Texts;
    Lines Rules;
  };
  Look Detail(AccessoryType type, const TextRows& rows) {
    paper.StartDoc();
    ApplyMargins();
    DrawAccessoryDetail(paper, PresentSource(), AccDefs.At(CurrentAcc), type, rows);
    Look look;
    for (const Shape& shape : paper.Result().Pages.at(0).Shapes) {
      const std::string line = Described(shape);
      if (line.rfind("text", 0) == 0) look.Texts.push_back(line);
      if (line.rfind("line", 0) == 0) look.Rules.push_back(line);
    }
    return look;
  }
  void ApplyMargins() {
    paper.MarginLeft(Length::OfMm(LeftMargin));
    paper.MarginRight(Length::OfMm(RightMargin));
    paper.MarginTop(Length::OfMm(TopMargin));
    paper.MarginBottom(Length::OfMm(BottomMargin));
  }

  const std::vector<Page>& Pages() const { return paper.Result().Pages; }
  // The marks on a page, counted from 1, in the order in which they stand on it.
  Lines Marks(std::size_t number) const {
    Lines marks;
    for (const Shape& shape : Pages().at(number - 1).Shapes) {
      const auto* text = std::get_if<TextShape>(&shape);
      if (text != nullptr && text->Text.size() > 1 && text->Text.front() == 'M' &&
          text->Text.find_first_not_of("0123456789", 1) == std::string::npos) {
        marks.push_back(text->Text);
      }
    }
    return marks;
  }
  std::size_t CountOf(std::size_t number, const std::string& text) const {
    return static_cast<std::size_t>(
        std::count_if(Pages().at(number - 1).Shapes.begin(), Pages().at(number - 1).Shapes.end(),
                      [&](const Shape& shape) {
                        const auto* found = std::get_if<TextShape>(&shape);
                        return found != nullptr && found->Text == text;
                      }));
  }

  PageSurface paper{round, Paper{210, 300}};
};

TEST_F(AccessoryPages, A_type_1_table_is_ruled_centred_and_its_numbers_stand_at_the_right) {
  AddType1("Bolts", {{"Bolt and two washers", "M12x30-8.8"}});
  // 25, 15 and 20 mm: from 12 + (280 - 60) / 2 = 122 on.
  const Look look = Detail(One, RowsOf({{"12"}}));
  EXPECT_EQ(look.Texts, (Lines{
                            "text \"Descripton\" 129.5 35.269 11 bold",  // 10 in 25
                            "text \"Code\" 152.498 35.269 11 bold",      // 4.004 in 15
                            "text \"No. Off\" 174.498 35.269 11 bold",   // 7.002 before 181.5
                            "text \"Bolt and two washers\" 124.5 40.269 11",
                            "text \"M12x30-8.8\" 149.5 40.269 11",
                            "text \"12\" 179.507 40.269 11",  // 1.993 before 181.5
                        }));
  EXPECT_EQ(look.Rules, (Lines{
                            "line 122 35 182 35 pen 0.1",
                            "line 122 40 182 40 pen 0.1",
                            "line 122 45 182 45 pen 0.1",
                            "line 122 35 122 45 pen 0.1",
                            "line 147 35 147 45 pen 0.1",
                            "line 162 35 162 45 pen 0.1",
                            "line 182 35 182 45 pen 0.1",
                        }));
}

TEST_F(AccessoryPages, Without_the_flag_no_description_and_no_heading_of_it_is_to_be_seen) {
  AddType1("Bolts", {{"Bolt and two washers", "M12x30-8.8"}}).Flag = False;
  // 0, 15 and 20 mm: from 12 + (280 - 35) / 2 = 134.5 on.
  const Look look = Detail(One, RowsOf({{"12"}}));
  EXPECT_EQ(look.Texts, (Lines{
                            "text \"Code\" 139.998 35.269 11 bold",     // 4.004 in 15
                            "text \"No. Off\" 161.998 35.269 11 bold",  // 7.002 before 169
                            "text \"M12x30-8.8\" 137 40.269 11",
                            "text \"12\" 167.007 40.269 11",
                        }));
  EXPECT_EQ(look.Rules, (Lines{
                            "line 134.5 35 169.5 35 pen 0.1",
                            "line 134.5 40 169.5 40 pen 0.1",
                            "line 134.5 45 169.5 45 pen 0.1",
                            "line 134.5 35 134.5 45 pen 0.1",
                            "line 149.5 35 149.5 45 pen 0.1",
                            "line 169.5 35 169.5 45 pen 0.1",
                        }));
}

TEST_F(AccessoryPages, With_nothing_used_only_the_number_column_has_its_heading) {
  AddType1("Bolts", {{"Bolt and two washers", "M12x30-8.8"}});
  // 20 mm: from 12 + (280 - 20) / 2 = 142 on.
  const Look look = Detail(One, RowsOf({{"0"}}));
  EXPECT_EQ(look.Texts, Lines{"text \"No. Off\" 154.498 35.269 11 bold"});
  EXPECT_EQ(look.Rules, (Lines{"line 142 35 162 35 pen 0.1", "line 142 40 162 40 pen 0.1",
                               "line 142 35 142 40 pen 0.1", "line 162 35 162 40 pen 0.1"}));
}

TEST_F(AccessoryPages, A_heading_wider_than_its_texts_is_narrowed_into_its_cell) {
  AddType1("Nuts", {{"Nut", "A"}});
  // 170 and 57 twips of text: 7.998, 6.005 and 20 mm from 134.998 on. The heading's 10 mm have the
  // 6.998 mm between the paddings of their cell.
  const Look look = Detail(One, RowsOf({{"1"}}));
  EXPECT_EQ(look.Texts.at(0), "text \"Descripton\" 135.498 35.269 11 bold narrowed 0.7");
  EXPECT_EQ(look.Texts.at(1), "text \"Code\" 143.997 35.269 11 bold");
  EXPECT_EQ(look.Texts.size(), 6U);
}

TEST_F(AccessoryPages, A_group_stands_in_the_middle_over_its_columns_with_no_line_between_them) {
  AccDef& ties = AddType2("Ties", {"Width", "Height", "Hole"});
  AddGroup(ties, 3, 2, "Bay");
  // Five columns of 20 mm: from 12 + (280 - 100) / 2 = 102 to 202.
  const Look look = Detail(Two, RowsOf({{"T1", "4", "5000", "2400", "14"}}));
  EXPECT_EQ(look.Texts, (Lines{
                            "text \"Bay\" 160.501 35.269 11 bold",  // 2.998 in 142 to 182
                            "text \"Mark\" 102.5 40.269 11 bold",
                            "text \"No.Off\" 122.5 40.269 11 bold",
                            "text \"Width\" 142.5 40.269 11 bold",
                            "text \"Height\" 162.5 40.269 11 bold",
                            "text \"Hole\" 182.5 40.269 11 bold",
                            "text \"T1\" 102.5 45.269 11",
                            "text \"4\" 122.5 45.269 11",
                            "text \"5000\" 142.5 45.269 11",
                            "text \"2400\" 162.5 45.269 11",
                            "text \"14\" 182.5 45.269 11",
                        }));
  EXPECT_EQ(look.Rules, (Lines{
                            "line 102 35 202 35 pen 0.1",
                            "line 102 40 202 40 pen 0.1",
                            "line 102 45 202 45 pen 0.1",
                            "line 102 50 202 50 pen 0.1",
                            "line 102 35 102 50 pen 0.1",
                            "line 122 35 122 50 pen 0.1",
                            "line 142 35 142 50 pen 0.1",
                            "line 162 40 162 50 pen 0.1",  // the group is one cell
                            "line 182 35 182 50 pen 0.1",
                            "line 202 35 202 50 pen 0.1",
                        }));
}

TEST_F(AccessoryPages, Overlapping_groups_show_both_titles) {
  AccDef& ties = AddType2("Ties", {"Width", "Height", "Hole"});
  AddGroup(ties, 3, 3, "Bay");
  AddGroup(ties, 4, 1, "Rise");
  // The first one ends where the second begins: 2.998 in 142 to 162, 4.004 in 162 to 182.
  const Look look = Detail(Two, RowsOf({{"T1"}}));
  EXPECT_EQ(look.Texts.at(0), "text \"Bay\" 150.501 35.269 11 bold");
  EXPECT_EQ(look.Texts.at(1), "text \"Rise\" 169.998 35.269 11 bold");
}

TEST_F(AccessoryPages, Each_page_of_a_long_list_has_picture_frame_and_headings_above_the_strip) {
  AccDef& ties = AddType2("Ties", {"Width"});
  AddGroup(ties, 3, 1, "Bay");
  ShowPicture(ties, 100, 50);  // the table at 105 mm, 10 lines a page
  DrawAccessorySheet(paper, AccDefs.At(CurrentAcc), Two, NumberedRows(23, 1), true, true);
  ASSERT_EQ(Pages().size(), 3U);
  constexpr std::array<int, 3> marks = {10, 20, 23};
  int mark = 0;
  for (std::size_t number = 1; number <= 3; ++number) {
    for (const char* text : {"Ties", "Bay", "Width", "Mark", "Job No."}) {
      EXPECT_EQ(CountOf(number, text), 1U) << text;
    }
    int pictures = 0;
    for (const Shape& shape : Pages().at(number - 1).Shapes) {
      if (std::holds_alternative<PictureShape>(shape)) ++pictures;
      const auto* line = std::get_if<LineShape>(&shape);
      if (line == nullptr) continue;
      EXPECT_LE(std::max(line->From.Y, line->To.Y), 167);
    }
    EXPECT_EQ(pictures, 2);  // the logo and the accessory
    for (const std::string& text : Marks(number)) EXPECT_EQ(text, "M" + DecimalText(++mark));
    EXPECT_EQ(mark, marks.at(number - 1));
  }
}

TEST_F(AccessoryPages, Sheets_in_one_document_take_their_own_pages) {
  AccDef& ties = AddType2("Ties", {"Width"});
  ShowPicture(ties, 100, 50);  // 11 lines a page
  AddType1("Bolts", {{"Bolt", "M12"}});
  DrawAccessorySheet(paper, AccDefs.At(CurrentAcc), One, RowsOf({{"1"}}), true, false);
  CurrentAcc = 1;
  paper.NewPage();
  DrawAccessorySheet(paper, AccDefs.At(CurrentAcc), Two, NumberedRows(12, 1), false, false);
  paper.EndDoc();
  ASSERT_EQ(Pages().size(), 3U);
  EXPECT_EQ(CountOf(1, "Bolts"), 1U);
  EXPECT_EQ(CountOf(2, "Ties"), 1U);
  EXPECT_EQ(CountOf(3, "Ties"), 1U);
  EXPECT_EQ(Marks(3), Lines{"M12"});
}

TEST_F(AccessoryPages, A_long_type_1_list_runs_on_into_the_strip_and_loses_no_size) {
  // A table from 35 mm down: 34 sizes and the heading reach the paper's edge, more go over it.
  for (const int sizes : {34, 35, 60}) {
    AccDefs.Clear();
    AccDef& bolts = AddType1("Bolts", {});
    TextRows rows;
    for (int size = 1; size <= sizes; ++size) {
      bolts.ParamTexts.Append("Bolt");
      bolts.ParamNames.Append("M" + DecimalText(size));
      rows.Append({}).Append("1");
    }
    DrawAccessorySheet(paper, AccDefs.At(CurrentAcc), One, rows, true, true);
    ASSERT_EQ(Pages().size(), sizes == 34 ? 1U : 2U);
    Lines marks;
    for (std::size_t number = 1; number <= Pages().size(); ++number) {
      for (const std::string& mark : Marks(number)) marks.push_back(mark);
    }
    ASSERT_EQ(marks.size(), static_cast<std::size_t>(sizes));
    for (int size = 1; size <= sizes; ++size) {
      EXPECT_EQ(marks.at(static_cast<std::size_t>(size) - 1), "M" + DecimalText(size));
    }
  }
}

TEST_F(AccessoryPages, The_closing_operation_leaves_the_document_as_it_is) {
  AddType1("Bolts", {{"Bolt", "M12"}});
  DrawAccessorySheet(paper, AccDefs.At(CurrentAcc), One, RowsOf({{"1"}}), true, true);
  const std::size_t shapes = Pages().at(0).Shapes.size();
  paper.Finish();
  ASSERT_EQ(Pages().size(), 1U);
  EXPECT_EQ(Pages().at(0).Shapes.size(), shapes);
}

// What ships, on A4 with the margins of a new installation; the strip begins at 170 mm.

class ShippedAccessories : public SheetTest {
 protected:
  ShippedAccessories() { LoadShippedCatalogues(); }

  void Draw(const TextRows& rows) {
    surface.Forget();
    DrawAccessorySheet(surface, AccDefs.At(CurrentAcc), AccDefs.At(CurrentAcc).IsType1 ? One : Two,
                       rows, true, true);
  }
  // The last length that was recorded of that operation, mm.
  double LastOf(const std::string& operation) const {
    const std::string line = LinesOf(operation).back();
    return Length(std::string_view(line).substr(operation.size() + 1)).Mm();
  }
};

TEST_F(ShippedAccessories, Each_picture_leaves_room_for_five_lines_at_least) {
  int count = 0;
  for (int row = AccType1Count + 1; row <= AccDefs.UBound(); ++row) {
    CurrentAcc = Int16(row);
    const AccDef& accessory = AccDefs.At(row);
    Draw(NumberedRows(5, accessory.ParamCount() - 2));
    EXPECT_TRUE(LinesOf("NewPage").empty()) << accessory.Name;
    EXPECT_EQ(LinesOf("StartTable").size(), 2U) << accessory.Name;
    ++count;
  }
  EXPECT_GE(count, 16);
}

TEST_F(ShippedAccessories, All_sizes_of_type_1_stand_above_the_strip) {
  ASSERT_EQ(AccType1Count, 5);
  for (int row = 1; row <= AccType1Count; ++row) {
    CurrentAcc = Int16(row);
    const AccDef& accessory = AccDefs.At(row);
    TextRows rows;
    for (int size = 1; size <= accessory.ParamCount(); ++size) rows.Append({}).Append("9999");
    Draw(rows);
    EXPECT_LE(LastOf("CurrentY") + 5 * (accessory.ParamCount() + 1), 167) << accessory.Name;
  }
}

TEST_F(ShippedAccessories, Pictures_and_tables_stay_between_the_margins) {
  for (int row = 1; row <= AccDefs.UBound(); ++row) {
    CurrentAcc = Int16(row);
    const AccDef& accessory = AccDefs.At(row);
    TextRows rows = NumberedRows(1, accessory.ParamCount() - 2);
    if (accessory.IsType1) {
      rows = {};
      for (int size = 1; size <= accessory.ParamCount(); ++size) rows.Append({}).Append("1");
    }
    Draw(rows);
    EXPECT_GE(LastOf("TableIndent"), 0) << accessory.Name;
    EXPECT_LE(accessory.Value1, 277) << accessory.Name;
    EXPECT_GE(accessory.Value3, TopMargin) << accessory.Name;
  }
}

TEST_F(ShippedAccessories, Each_picture_names_the_columns_that_it_stands_over) {
  const auto textsOf = [](const AccDef& accessory) {
    std::string texts;
    for (const Shape& shape :
         LoadDrawing("\\Drawings\\" + accessory.DrawingFile + ".wmf")->Shapes) {
      const auto* text = std::get_if<TextShape>(&shape);
      if (text == nullptr) continue;
      // A letter alone would be one that no column explains.
      EXPECT_GT(text->Text.size(), 1U) << accessory.Name << ": " << text->Text;
      texts += text->Text + "\n";
    }
    return texts;
  };
  int count = 0;
  for (const AccDef& accessory : AccDefs) {
    if (accessory.DrawingFile == "None") continue;
    const std::string texts = textsOf(accessory);
    for (int column = 3; !accessory.IsType1 && column <= accessory.ParamCount(); ++column) {
      const std::string& name = accessory.ParamNames.At(column);
      EXPECT_NE(texts.find(name), std::string::npos) << accessory.Name << ": " << name;
      ++count;
    }
  }
  EXPECT_GE(count, 40);
}

TEST_F(ShippedAccessories, Groups_end_within_their_columns) {
  for (const AccDef& accessory : AccDefs) {
    int next = 3;
    for (const AccGroup& group : accessory.Groups) {
      EXPECT_GE(group.FirstParam, next) << accessory.Name;
      next = group.FirstParam + group.GroupValue;
      EXPECT_LE(next - 1, accessory.ParamCount()) << accessory.Name;
    }
  }
}

}  // namespace

}  // namespace orvane::test
