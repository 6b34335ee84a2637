// The readers of dims.csv and punch.csv, and the look-ups in the catalogues.
#include "core/catalogues.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "core/model.h"
#include "core/numbers.h"
#include "tests/support/fixture.h"

namespace orvane {

namespace {

using Texts = std::vector<std::string>;

// Columns 3 to 14 of a row in which every dimension bears the number of its column.
const std::string Dims = "3,4,5,6,7,8,9,10,11,12,13,14";
const std::string DimsRead = "3 4 5 6 7 8 9 10 11 12 13 14";

class Catalogues : public test::SystemTest {
 protected:
  bool LoadDims(std::string_view text) { return LoadSectionDims(TempFile("dims.csv", text)); }
  bool LoadPunch(std::string_view text) { return LoadPunchPatterns(TempFile("punch.csv", text)); }

  // What a file of section products holds, when it loads without a message.
  Texts DimsOf(std::string_view text) {
    EXPECT_TRUE(LoadDims(text));
    EXPECT_TRUE(desktop.Boxes.empty());
    return DimRows();
  }
  Texts PatternsOf(std::string_view text) {
    EXPECT_TRUE(LoadPunch(text));
    EXPECT_TRUE(desktop.Boxes.empty());
    return PatternRows();
  }

  // Each record in one text: letter|product|the dimensions.
  static Texts DimRows() {
    Texts rows;
    for (const SectionDim& dim : SectionDims) {
      std::string row = dim.SectionType + "|" + dim.Product + "|";
      for (const double value : {dim.Dim3, dim.Dim4, dim.Dim5, dim.Dim6, dim.Dim7, dim.Dim8,
                                 dim.Dim9, dim.Dim10, dim.Dim11, dim.Dim12, dim.Dim13}) {
        row += ShortestText(value) + " ";
      }
      rows.push_back(row + ShortestText(dim.Dim14));
    }
    return rows;
  }

  // Each record in one text: letter|name|codes|S for sag bars|* for a starred one.
  static Texts PatternRows() {
    Texts rows;
    for (const PunchPattern& row : PunchPatterns) {
      EXPECT_TRUE(row.HasSagBars == True || row.HasSagBars == False);
      EXPECT_TRUE(row.Starred == True || row.Starred == False);
      rows.push_back(row.SectionType + "|" + row.Name + "|" + row.Codes +
                     (row.HasSagBars == True ? "|S" : "|") + (row.Starred == True ? "|*" : "|"));
    }
    return rows;
  }
};

// --- dims.csv

TEST_F(Catalogues, Dims_stores_a_row_of_each_letter_and_M_as_C) {
  std::string text;
  for (const char letter : std::string_view("EZCMVRT")) {
    text += std::string{letter} + ",P" + letter + "," + Dims + "\n";
  }
  EXPECT_EQ(DimsOf(text),
            (Texts{"E|PE|" + DimsRead, "Z|PZ|" + DimsRead, "C|PC|" + DimsRead, "C|PM|" + DimsRead,
                   "V|PV|" + DimsRead, "R|PR|" + DimsRead, "T|PT|" + DimsRead}));
}

TEST_F(Catalogues, Dims_stores_the_letter_as_the_field_was_read) {
  // The tag is trimmed and upper-cased; only a field that is "M" itself becomes "C".
  EXPECT_EQ(DimsOf("z,P1," + Dims + "\nm,P2," + Dims + "\n  Z,P3," + Dims + "\nZ ,P4," + Dims +
                   "\nM ,P5," + Dims + "\n\" c \",P6," + Dims + "\n M,P7," + Dims + "\n"),
            (Texts{"z|P1|" + DimsRead, "m|P2|" + DimsRead, "Z|P3|" + DimsRead, "Z |P4|" + DimsRead,
                   "M |P5|" + DimsRead, " c |P6|" + DimsRead, "C|P7|" + DimsRead}));
}

TEST_F(Catalogues, Dims_stores_the_product_as_read) {
  EXPECT_EQ(DimsOf("Z,\" P1 \"," + Dims + "\nZ, P2 ," + Dims + "\nZ,\"a,b\"," + Dims + "\n"),
            (Texts{"Z| P1 |" + DimsRead, "Z|P2 |" + DimsRead, "Z|a,b|" + DimsRead}));
}

TEST_F(Catalogues, Dims_takes_a_dimension_from_the_number_that_the_cell_begins_with) {
  EXPECT_EQ(DimsOf("Z,P,12.5mm,abc,,-3,1e2,+4,  7,1 2,.5,0x10,inf,\"8\"\n"),
            (Texts{"Z|P|12.5 0 0 -3 100 4 7 1 0.5 0 0 8"}));
}

TEST_F(Catalogues, Dims_passes_over_a_heading_row) {
  EXPECT_EQ(DimsOf("Type,Product,D3,D4\nZ,P," + Dims + "\n"), (Texts{"Z|P|" + DimsRead}));
}

TEST_F(Catalogues, Dims_knows_no_other_tags) {
  EXPECT_EQ(DimsOf("ZZ,P," + Dims + "\nX,P," + Dims + "\n\tZ,P," + Dims + "\n1,Z,P," + Dims +
                   "\nC,Q," + Dims + "\n"),
            (Texts{"C|Q|" + DimsRead}));
}

TEST_F(Catalogues, Dims_keeps_the_row_below_a_comment_of_one_cell) {
  EXPECT_EQ(DimsOf("comment\nZ,P," + Dims + "\n\"comment, quoted\"\nC,Q," + Dims + "\n"),
            (Texts{"Z|P|" + DimsRead, "C|Q|" + DimsRead}));
}

TEST_F(Catalogues, Dims_reads_the_next_cell_as_a_tag_behind_an_empty_first_one) {
  EXPECT_EQ(DimsOf(",Z,P," + Dims + "\n,,,C,Q," + Dims + "\n   ,E,R," + Dims + "\n"),
            (Texts{"Z|P|" + DimsRead, "C|Q|" + DimsRead, "E|R|" + DimsRead}));
}

TEST_F(Catalogues, Dims_throws_away_a_row_behind_a_first_cell_of_quoted_blanks) {
  EXPECT_EQ(DimsOf("\"  \",Z,P," + Dims + "\nC,Q," + Dims + "\n"), (Texts{"C|Q|" + DimsRead}));
}

TEST_F(Catalogues, Dims_takes_an_empty_quoted_first_cell_as_empty) {
  EXPECT_EQ(DimsOf("\"\",Z,P," + Dims + "\n"), (Texts{"Z|P|" + DimsRead}));
}

TEST_F(Catalogues, Dims_consumes_lines_of_commas_and_blank_lines) {
  EXPECT_EQ(DimsOf("\n\nZ,P," + Dims + "\n,,,,,,,,,,,,,\n\nC,Q," + Dims + "\n,\n   \nE,R," + Dims +
                   "\n\n"),
            (Texts{"Z|P|" + DimsRead, "C|Q|" + DimsRead, "E|R|" + DimsRead}));
}

TEST_F(Catalogues, Dims_reads_on_in_the_same_line_behind_an_empty_product) {
  for (const std::string product : {"", "   ", "\"\"", "\"  \""}) {
    EXPECT_EQ(DimsOf("Z," + product + ",C,P," + Dims + "\nE,Q," + Dims + "\n"),
              (Texts{"C|P|" + DimsRead, "E|Q|" + DimsRead}))
        << product;
  }
}

TEST_F(Catalogues, Dims_takes_the_number_behind_an_empty_product_as_a_tag) {
  EXPECT_EQ(DimsOf("C,,5,1,2\nZ,P," + Dims + "\n"), (Texts{"Z|P|" + DimsRead}));
}

TEST_F(Catalogues, Dims_takes_a_tab_for_a_product) {
  EXPECT_EQ(DimsOf("Z,\t," + Dims + "\n"), (Texts{"Z|\t|" + DimsRead}));
}

TEST_F(Catalogues, Dims_keeps_all_rows_whether_they_end_with_their_last_cell_or_with_commas) {
  for (const std::string behind : {"", ",", ",,,,,,", " ", ", ,"}) {
    EXPECT_EQ(
        DimsOf("Z,P," + Dims + behind + "\nC,Q," + Dims + behind + "\nE,R," + Dims + behind + "\n"),
        (Texts{"Z|P|" + DimsRead, "C|Q|" + DimsRead, "E|R|" + DimsRead}))
        << "behind the row: '" << behind << "'";
  }
}

TEST_F(Catalogues, Dims_takes_a_surplus_cell_as_a_tag) {
  // A word throws away the rest of its own row, no more; a letter begins a row that takes its
  // cells from the line below.
  EXPECT_EQ(DimsOf("Z,P," + Dims + ",note\nC,Q," + Dims + ",note,Z,X\nE,R," + Dims + "\n"),
            (Texts{"Z|P|" + DimsRead, "C|Q|" + DimsRead, "E|R|" + DimsRead}));
  EXPECT_EQ(DimsOf("Z,P," + Dims + ",E\nC,Q," + Dims + "\nT,R," + Dims + "\n"),
            (Texts{"Z|P|" + DimsRead, "E|C|0 3 4 5 6 7 8 9 10 11 12 13", "T|R|" + DimsRead}));
}

TEST_F(Catalogues, Dims_takes_the_14th_cell_of_a_13_cell_row_from_the_next_line) {
  // The line below loses its letter to Dim14; its product is then a tag that matches nothing.
  EXPECT_EQ(DimsOf("Z,P,3,4,5,6,7,8,9,10,11,12,13\nC,Q," + Dims + "\nE,R," + Dims + "\n"),
            (Texts{"Z|P|3 4 5 6 7 8 9 10 11 12 13 0", "E|R|" + DimsRead}));
}

TEST_F(Catalogues, Dims_goes_on_one_cell_out_of_step_until_a_line_is_thrown_away) {
  // The product "T" of the second line passes for a letter, so the shift goes on into the third.
  EXPECT_EQ(DimsOf("Z,P,3,4,5,6,7,8,9,10,11,12,13\n99,T," + Dims + "\n77,Q," + Dims + "\nE,R," +
                   Dims + "\n"),
            (Texts{"Z|P|3 4 5 6 7 8 9 10 11 12 13 99", "T|3|4 5 6 7 8 9 10 11 12 13 14 77",
                   "E|R|" + DimsRead}));
}

TEST_F(Catalogues, Dims_ignores_a_last_line_of_a_single_field) {
  for (const std::string last : {"Z", "Z\n", "Z,", "word", "word\r\n", "\"Z\"", " "}) {
    EXPECT_EQ(DimsOf("Z,P," + Dims + "\n" + last), (Texts{"Z|P|" + DimsRead})) << last;
  }
}

TEST_F(Catalogues, Dims_reads_a_last_row_without_a_line_end) {
  EXPECT_EQ(DimsOf("Z,P," + Dims), (Texts{"Z|P|" + DimsRead}));
  EXPECT_EQ(DimsOf("Z,P," + Dims + ","), (Texts{"Z|P|" + DimsRead}));
}

TEST_F(Catalogues, Dims_drops_what_stands_behind_a_closing_quote) {
  EXPECT_EQ(DimsOf("Z,\"P\"x," + Dims + "\nC,\"6\" deep\"," + Dims + "\n"),
            (Texts{"Z|P|" + DimsRead, "C|6|" + DimsRead}));
}

TEST_F(Catalogues, Dims_keeps_a_line_end_inside_quotes) {
  EXPECT_EQ(DimsOf("Z,\"P\nQ\"," + Dims + "\n"), (Texts{"Z|P\nQ|" + DimsRead}));
}

TEST_F(Catalogues, Dims_reads_every_kind_of_line_end_alike) {
  for (const std::string end : {"\n", "\r\n", "\r"}) {
    EXPECT_EQ(DimsOf("Type,Product" + end + end + "Z,P," + Dims + end + "remark" + end + ",,," +
                     end + "C,Q," + Dims + end),
              (Texts{"Z|P|" + DimsRead, "C|Q|" + DimsRead}));
  }
}

TEST_F(Catalogues, Dims_skips_a_byte_order_mark) {
  EXPECT_EQ(DimsOf("\xEF\xBB\xBFZ,P," + Dims + "\n"), (Texts{"Z|P|" + DimsRead}));
  // Also before bytes that aren't all UTF-8: the mark is no text in either reading.
  EXPECT_EQ(DimsOf("\xEF\xBB\xBFZ,Tr\xE4ger," + Dims + "\n"), (Texts{"Z|Träger|" + DimsRead}));
}

TEST_F(Catalogues, Dims_reads_UTF8_and_Windows_1252) {
  EXPECT_EQ(DimsOf("Z,Träger 5€," + Dims + "\n"), (Texts{"Z|Träger 5€|" + DimsRead}));
  EXPECT_EQ(DimsOf("Z,Tr\xE4ger 5\x80," + Dims + "\n"), (Texts{"Z|Träger 5€|" + DimsRead}));
}

TEST_F(Catalogues, Dims_empties_the_table_first) {
  EXPECT_EQ(DimsOf("Z,P," + Dims + "\n"), (Texts{"Z|P|" + DimsRead}));
  EXPECT_EQ(DimsOf("Z,P," + Dims + "\n"), (Texts{"Z|P|" + DimsRead}));
  EXPECT_EQ(DimsOf(""), Texts{});
}

TEST_F(Catalogues, Dims_keeps_element_0_blank) {
  EXPECT_TRUE(LoadDims("Z,P," + Dims + "\n"));
  EXPECT_EQ(SectionDims.At(0).SectionType, "");
  EXPECT_EQ(SectionDims.At(0).Product, "");
  EXPECT_EQ(SectionDims.At(0).Dim3, 0);
}

// --- punch.csv

TEST_F(Catalogues, Punch_stores_a_row_of_each_letter_and_none_of_M) {
  std::string text;
  for (const char letter : std::string_view("EZCMRVT")) {
    text += std::string{letter} + ",N" + letter + ",A0 A6,,\n";
  }
  EXPECT_EQ(PatternsOf(text), (Texts{"E|NE|A0 A6||", "Z|NZ|A0 A6||", "C|NC|A0 A6||", "R|NR|A0 A6||",
                                     "V|NV|A0 A6||", "T|NT|A0 A6||"}));
}

TEST_F(Catalogues, Punch_stores_its_texts_trimmed_and_the_letter_not_upper_cased) {
  EXPECT_EQ(PatternsOf("z , N 1 , A0 A6 , S , * \n\" C \",\" N2 \",\" B0 \",\" S \",\n"),
            (Texts{"z|N 1|A0 A6|S|*", "C|N2|B0|S|"}));
}

TEST_F(Catalogues, Punch_takes_only_an_S_for_sag_bars) {
  EXPECT_EQ(PatternsOf("Z,N1,A0,S,\nZ,N2,A0, S ,\nZ,N3,A0,\"S\",\nZ,N4,A0,s,\nZ,N5,A0,SS,\n"
                       "Z,N6,A0,,\nZ,N7,A0,Y,\nZ,N8,A0,\tS,\n"),
            (Texts{"Z|N1|A0|S|", "Z|N2|A0|S|", "Z|N3|A0|S|", "Z|N4|A0||", "Z|N5|A0||", "Z|N6|A0||",
                   "Z|N7|A0||", "Z|N8|A0||"}));
}

TEST_F(Catalogues, Punch_stars_a_row_whose_rest_is_one_star) {
  // The rest of the row is text, not cells: a comma or a quote beside the star spoils it.
  EXPECT_EQ(PatternsOf("Z,N1,A0,,*\nZ,N2,A0,,  * \nZ,N3,A0,,*,\nZ,N4,A0,,,*\nZ,N5,A0,,**\n"
                       "Z,N6,A0,,\"*\"\nZ,N7,A0,S,x\nZ,N8,A0,S,*\nZ,N9,A0,*,\n"),
            (Texts{"Z|N1|A0||*", "Z|N2|A0||*", "Z|N3|A0||", "Z|N4|A0||", "Z|N5|A0||", "Z|N6|A0||",
                   "Z|N7|A0|S|", "Z|N8|A0|S|*", "Z|N9|A0||"}));
}

TEST_F(Catalogues, Punch_drops_a_row_without_a_name) {
  EXPECT_EQ(PatternsOf("Z,,A0,S,*\nZ,  ,A0,S,*\nZ,\"  \",A0,S\nZ,\nC,N,B0,S,*\n"),
            (Texts{"C|N|B0|S|*"}));
}

TEST_F(Catalogues, Punch_drops_a_row_without_codes) {
  EXPECT_EQ(PatternsOf("Z,N1,,S,*\nZ,N2,  ,S\nZ,N3,\" \",,,,\nC,N,B0,S,*\n"),
            (Texts{"C|N|B0|S|*"}));
}

TEST_F(Catalogues, Punch_keeps_all_rows_whether_they_end_with_their_last_cell_or_with_commas) {
  for (const std::string behind : {"", ",", ",,,,,,", ",x,Z,N,A0,S"}) {
    EXPECT_EQ(
        PatternsOf("Z,N1,A0,S" + behind + "\nC,N2,B0," + behind + "\nE,N3,G3,S" + behind + "\n"),
        (Texts{"Z|N1|A0|S|", "C|N2|B0||", "E|N3|G3|S|"}))
        << "behind the row: '" << behind << "'";
  }
}

TEST_F(Catalogues, Punch_takes_column_4_of_a_3_cell_row_from_the_next_line) {
  EXPECT_EQ(PatternsOf("Z,N1,A0\nC,N2,B0,S,\nE,N3,G3,,\n"), (Texts{"Z|N1|A0||", "E|N3|G3||"}));
}

TEST_F(Catalogues, Punch_reads_codes_with_commas_as_one_quoted_field) {
  EXPECT_EQ(PatternsOf("Z,N,\"A0,D3,A6\",S,*\n"), (Texts{"Z|N|A0,D3,A6|S|*"}));
}

TEST_F(Catalogues, Punch_shares_the_outer_loop) {
  EXPECT_EQ(PatternsOf("Type,Name,Codes,Sag,Csk\ncomment\n\n,,,,\n,,Z,N1,A0,,\n\" \",Z,X,A0,,\n"
                       "M,Mezzanine,A0,,\nQ\nC,N2,B0,S,*\nZ"),
            (Texts{"Z|N1|A0||", "C|N2|B0|S|*"}));
}

TEST_F(Catalogues, Punch_keeps_file_order_and_repeated_names) {
  EXPECT_EQ(PatternsOf("Z,B,A0,,\nC,A,B0,,\nZ,A,A6,,\nC,A,B6,S,\n"),
            (Texts{"Z|B|A0||", "C|A|B0||", "Z|A|A6||", "C|A|B6|S|"}));
}

TEST_F(Catalogues, Punch_reads_a_last_row_without_a_line_end) {
  EXPECT_EQ(PatternsOf("Z,N,A0,S"), (Texts{"Z|N|A0|S|"}));
  EXPECT_EQ(PatternsOf("Z,N,A0,S,"), (Texts{"Z|N|A0|S|"}));
  EXPECT_EQ(PatternsOf("Z,N,A0,S,*"), (Texts{"Z|N|A0|S|*"}));
}

TEST_F(Catalogues, Punch_ignores_a_last_line_of_a_single_field) {
  for (const std::string last : {"Z", "Z\n", "Z,", "word"}) {
    EXPECT_EQ(PatternsOf("Z,N,A0,S,*\n" + last), (Texts{"Z|N|A0|S|*"})) << last;
  }
}

TEST_F(Catalogues, Punch_reads_every_kind_of_line_end_alike) {
  for (const std::string end : {"\n", "\r\n", "\r"}) {
    EXPECT_EQ(PatternsOf("Type,Name" + end + "Z,N1,A0,S" + end + "Z,N2,A0,,*" + end + end +
                         "C,N3,B0,S,*" + end),
              (Texts{"Z|N1|A0|S|", "Z|N2|A0||*", "C|N3|B0|S|*"}));
  }
}

TEST_F(Catalogues, Punch_skips_a_byte_order_mark) {
  EXPECT_EQ(PatternsOf("\xEF\xBB\xBFZ,N,A0,S,*\n"), (Texts{"Z|N|A0|S|*"}));
}

TEST_F(Catalogues, Punch_empties_the_table_first) {
  EXPECT_EQ(PatternsOf("Z,N,A0,S,*\n"), (Texts{"Z|N|A0|S|*"}));
  EXPECT_EQ(PatternsOf("Z,N,A0,S,*\n"), (Texts{"Z|N|A0|S|*"}));
}

// --- Look-ups

TEST_F(Catalogues, GetSectionDim_gives_the_first_row_of_the_product_whatever_its_letter) {
  ASSERT_TRUE(
      LoadDims("C,P,1,0,0,0,0,0,0,0,0,0,0,0\nZ,Q,2,0,0,0,0,0,0,0,0,0,0,0\n"
               "Z,P,3,0,0,0,0,0,0,0,0,0,0,0\n"));
  EXPECT_EQ(GetSectionDim("P").SectionType, "C");
  EXPECT_EQ(GetSectionDim("P").Dim3, 1);
  EXPECT_EQ(GetSectionDim("Q").Dim3, 2);
}

TEST_F(Catalogues, FindSectionDim_gives_the_row_that_GetSectionDim_copies_and_0_without_one) {
  ASSERT_TRUE(LoadDims("C,P," + Dims + "\nZ,Q," + Dims + "\nZ,P," + Dims + "\n"));
  EXPECT_EQ(FindSectionDim("P"), 1);
  EXPECT_EQ(FindSectionDim("Q"), 2);
  for (const std::string product : {"", "p", "P ", "nope"}) {
    EXPECT_EQ(FindSectionDim(product), 0) << product;
  }
}

TEST_F(Catalogues, GetSectionDim_compares_exactly) {
  ASSERT_TRUE(LoadDims("Z,\"P \"," + Dims + "\n"));
  EXPECT_EQ(GetSectionDim("P ").Dim3, 3);
  for (const std::string product : {"P", "p ", " P "}) {
    EXPECT_EQ(GetSectionDim(product).Dim3, 0) << product;
  }
}

TEST_F(Catalogues, GetSectionDim_gives_a_blank_record_without_a_match) {
  ASSERT_TRUE(LoadDims("Z,P," + Dims + "\n"));
  SectionDims.At(0) = {};
  Table<SectionDim> found;
  found.Append(GetSectionDim("nope"));
  SectionDims = found;
  EXPECT_EQ(DimRows(), (Texts{"||0 0 0 0 0 0 0 0 0 0 0 0"}));
}

TEST_F(Catalogues, GetSectionDim_gives_a_copy) {
  ASSERT_TRUE(LoadDims("Z,P," + Dims + "\n"));
  SectionDim copy = GetSectionDim("P");
  copy.Dim3 = 99;
  EXPECT_EQ(GetSectionDim("P").Dim3, 3);
}

TEST_F(Catalogues, FindPunchPattern_looks_at_the_name_alone) {
  // The second family gets the first one's sag-bar mark.
  ASSERT_TRUE(LoadPunch("Z,Mid,D3,,\nC,Mid,D3,S,\nC,End,A0,,\n"));
  EXPECT_EQ(FindPunchPattern("Mid"), 1);
  EXPECT_EQ(PunchPatterns.At(FindPunchPattern("Mid")).HasSagBars, False);
  EXPECT_EQ(FindPunchPattern("End"), 3);
}

TEST_F(Catalogues, FindPunchPattern_gives_0_without_an_exact_match) {
  ASSERT_TRUE(LoadPunch("Z,Mid,D3,,\n"));
  for (const std::string name : {"mid", "Mid ", "Mi", "Custom", ""}) {
    EXPECT_EQ(FindPunchPattern(name), 0) << name;
  }
  PunchPatterns.Clear();
  EXPECT_EQ(FindPunchPattern("Mid"), 0);
}

TEST_F(Catalogues, FindComboIndex_gives_the_first_equal_entry_both_trimmed) {
  Table<std::string> entries;
  for (const std::string entry : {" A", "B ", "B", "b", "", "C D"}) entries.Append(entry);
  EXPECT_EQ(FindComboIndex(entries, "A "), 0);
  EXPECT_EQ(FindComboIndex(entries, "B"), 1);
  EXPECT_EQ(FindComboIndex(entries, " b"), 3);
  EXPECT_EQ(FindComboIndex(entries, "C D"), 5);
}

TEST_F(Catalogues, FindComboIndex_gives_minus_1_without_an_entry) {
  Table<std::string> entries;
  EXPECT_EQ(FindComboIndex(entries, "A"), -1);
  for (const std::string entry : {"A", "", "  "}) entries.Append(entry);
  for (const std::string text : {"a", "AA", "C", "A\t"}) {
    EXPECT_EQ(FindComboIndex(entries, text), -1) << text;
  }
  // An empty entry stands in the list, but nothing finds it.
  EXPECT_EQ(FindComboIndex(entries, ""), -1);
  EXPECT_EQ(FindComboIndex(entries, "  "), -1);
}

}  // namespace

}  // namespace orvane
