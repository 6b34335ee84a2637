// The readers of accs1.csv and accs2.csv.
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "core/catalogues.h"
#include "core/model.h"
#include "core/numbers.h"
#include "tests/support/fixture.h"

namespace orvane {

namespace {

using Texts = std::vector<std::string>;

// A record of accs1.csv: name|picture|values|flag|sizes as "text=code".
std::string Type1Text(const AccDef& row) {
  EXPECT_EQ(row.IsType1, True);
  EXPECT_EQ(row.HasParamColumn, False);
  EXPECT_EQ(row.ParamHeading, "");
  EXPECT_EQ(row.Option, "");
  EXPECT_TRUE(row.Groups.Empty());
  EXPECT_TRUE(row.Options.Empty());
  EXPECT_EQ(row.ParamCount(), row.ParamTexts.UBound());
  EXPECT_EQ(row.ParamNames.At(0), "");
  EXPECT_EQ(row.ParamTexts.At(0), "");
  std::string text = row.Name + "|" + row.DrawingFile + "|" + ShortestText(row.Value1) + " " +
                     ShortestText(row.Value2) + " " + ShortestText(row.Value3) +
                     (row.Flag == True ? "|Y|" : "|N|");
  for (int param = 1; param <= row.ParamCount(); ++param) {
    text += "[" + row.ParamTexts.At(param) + "=" + row.ParamNames.At(param) + "]";
  }
  return text;
}

// A record of accs2.csv: name|picture|values|text|columns, each with its choices|groups as
// "title first+count".
std::string Type2Text(const AccDef& row) {
  EXPECT_EQ(row.IsType1, False);
  EXPECT_EQ(row.Flag, False);
  EXPECT_TRUE(row.ParamTexts.Empty());
  EXPECT_EQ(row.Options.UBound(), row.ParamCount() > 2 ? row.ParamCount() : 0);
  std::string text = row.Name + "|" + row.DrawingFile + "|" + ShortestText(row.Value1) + " " +
                     ShortestText(row.Value2) + " " + ShortestText(row.Value3) + "|" + row.Option +
                     "|";
  for (int param = 1; param <= row.ParamCount(); ++param) {
    text += "[" + row.ParamNames.At(param);
    if (param <= row.Options.UBound()) {
      const AccParamOptions& options = row.Options.At(param);
      for (const std::string& choice : options.OptionTexts) text += "/" + choice;
    }
    text += "]";
  }
  text += "|";
  for (const AccGroup& group : row.Groups) {
    text += "[" + group.Title + " " + ShortestText(group.FirstParam) + "+" +
            ShortestText(group.GroupValue) + "]";
  }
  return text;
}

class AccessoryCatalogues : public test::SystemTest {
 protected:
  bool Load1(std::string_view text) { return LoadAccessories1(TempFile("accs1.csv", text)); }
  bool Load2(std::string_view text) { return LoadAccessories2(TempFile("accs2.csv", text)); }

  // What a file holds, when it loads without a message.
  Texts Type1Of(std::string_view text) {
    EXPECT_TRUE(Load1(text));
    EXPECT_TRUE(desktop.Boxes.empty());
    EXPECT_EQ(AccDefs.UBound(), AccType1Count);
    Texts rows;
    for (const AccDef& row : AccDefs) rows.push_back(Type1Text(row));
    return rows;
  }
  Texts Type2Of(std::string_view text) {
    EXPECT_TRUE(Load2(text));
    EXPECT_TRUE(desktop.Boxes.empty());
    EXPECT_EQ(AccDefs.UBound(), AccType1Count + AccType2Count);
    Texts rows;
    for (int row = AccType1Count + 1; row <= AccDefs.UBound(); ++row) {
      rows.push_back(Type2Text(AccDefs.At(row)));
    }
    return rows;
  }
};

// --- accs1.csv

TEST_F(AccessoryCatalogues, Accs1_reads_an_accessory_and_its_sizes) {
  EXPECT_EQ(Type1Of("A,Cleats,acc01,110,1,35,Y\nI,Cleat for 140,CL140\nI,Cleat for 165,CL165\n"
                    "A,Bolts,None,60,0,30,N\nI,M12 x 30,M12x30\n"),
            (Texts{"Cleats|acc01|110 1 35|Y|[Cleat for 140=CL140][Cleat for 165=CL165]",
                   "Bolts|None|60 0 30|N|[M12 x 30=M12x30]"}));
  EXPECT_EQ(AccType1Count, 2);
}

TEST_F(AccessoryCatalogues, Accs1_starts_an_accessory_without_sizes) {
  EXPECT_EQ(Type1Of("A,N,D,1,2,3,Y\n"), (Texts{"N|D|1 2 3|Y|"}));
  EXPECT_EQ(AccDefs.At(1).ParamCount(), 0);
}

TEST_F(AccessoryCatalogues, Accs1_takes_only_a_Y_of_either_case_for_the_flag) {
  EXPECT_EQ(Type1Of("A,1,D,0,0,0,Y\nA,2,D,0,0,0,y\nA,3,D,0,0,0, Y\nA,4,D,0,0,0,N\nA,5,D,0,0,0,\n"
                    "A,6,D,0,0,0,yes\nA,7,D,0,0,0,Y \nA,8,D,0,0,0,\"Y\"\n"),
            (Texts{"1|D|0 0 0|Y|", "2|D|0 0 0|Y|", "3|D|0 0 0|Y|", "4|D|0 0 0|N|", "5|D|0 0 0|N|",
                   "6|D|0 0 0|N|", "7|D|0 0 0|N|", "8|D|0 0 0|Y|"}));
}

TEST_F(AccessoryCatalogues, Accs1_converts_its_values_to_whole_numbers) {
  // A fraction goes to the nearest whole number, a half to the even neighbour.
  EXPECT_EQ(Type1Of("A,1,D, 12,12 ,\"12\",N\nA,2,D,-5,+5,007,N\nA,3,D,2.5,3.5,-2.5,N\n"
                    "A,4,D,32767,-32768,1e2,N\nA,5,D,32767.4,0.5,1.5,N\n"),
            (Texts{"1|D|12 12 12|N|", "2|D|-5 5 7|N|", "3|D|2 4 -2|N|", "4|D|32767 -32768 100|N|",
                   "5|D|32767 0 2|N|"}));
}

TEST_F(AccessoryCatalogues, Accs1_stores_its_texts_as_read) {
  EXPECT_EQ(Type1Of("A, N ,\" D \",0,0,0,N\nI, long ,\" code \"\nI,,\nI,\"a,b\",c\n"),
            (Texts{"N | D |0 0 0|N|[long = code ][=][a,b=c]"}));
}

TEST_F(AccessoryCatalogues, Accs1_knows_its_tags_in_either_case_and_between_blanks) {
  EXPECT_EQ(Type1Of("  a ,N,D,1,2,3,Y\ni,t,c\n\" I \",u,d\n"), (Texts{"N|D|1 2 3|Y|[t=c][u=d]"}));
}

TEST_F(AccessoryCatalogues, Accs1_keeps_all_rows_whether_they_end_with_their_last_cell_or_commas) {
  for (const std::string behind : {"", ",", ",,,,,,", ",x,I,t,c"}) {
    EXPECT_EQ(Type1Of("A,N,D,1,2,3,Y" + behind + "\nI,t,c" + behind + "\nI,u,d" + behind +
                      "\nA,O,E,4,5,6,N" + behind + "\nI,v,e" + behind + "\n"),
              (Texts{"N|D|1 2 3|Y|[t=c][u=d]", "O|E|4 5 6|N|[v=e]"}))
        << "behind the row: '" << behind << "'";
  }
}

TEST_F(AccessoryCatalogues, Accs1_passes_over_what_it_does_not_know) {
  EXPECT_EQ(Type1Of("Row,Name,A\ncomment\n\nP,x,y\nA,N,D,1,2,3,Y\nRemark,I,x,y\nremark\n,,,,,,\n"
                    "AI,x,y\nO,x\nG,x,1\n\" \",I,x,y\nI,t,c\n\nremark\nI,u,d\n"),
            (Texts{"N|D|1 2 3|Y|[t=c][u=d]"}));
}

TEST_F(AccessoryCatalogues, Accs1_reads_the_next_cell_as_a_tag_behind_an_empty_first_one) {
  EXPECT_EQ(Type1Of(",A,N,D,1,2,3,Y\n,,I,t,c\n"), (Texts{"N|D|1 2 3|Y|[t=c]"}));
}

TEST_F(AccessoryCatalogues, Accs1_ignores_a_last_line_of_a_single_field) {
  for (const std::string last : {"A", "I", "A\n", "I,", "word"}) {
    EXPECT_EQ(Type1Of("A,N,D,1,2,3,Y\n" + last), (Texts{"N|D|1 2 3|Y|"})) << last;
  }
}

TEST_F(AccessoryCatalogues, Accs1_reads_last_rows_without_a_line_end) {
  EXPECT_EQ(Type1Of("A,N,D,1,2,3,Y"), (Texts{"N|D|1 2 3|Y|"}));
  EXPECT_EQ(Type1Of("A,N,D,1,2,3,Y\nI,t,c"), (Texts{"N|D|1 2 3|Y|[t=c]"}));
}

TEST_F(AccessoryCatalogues, Accs1_reads_every_kind_of_line_end_alike) {
  for (const std::string end : {"\n", "\r\n", "\r"}) {
    EXPECT_EQ(
        Type1Of("Row,Name" + end + end + "A,N,D,1,2,3,Y" + end + "I,t,c" + end + "I,u,d," + end),
        (Texts{"N|D|1 2 3|Y|[t=c][u=d]"}));
  }
}

TEST_F(AccessoryCatalogues, Accs1_skips_a_byte_order_mark_and_reads_Windows_1252) {
  EXPECT_EQ(Type1Of("\xEF\xBB\xBF"
                    "A,N,D,1,2,3,Y\n"),
            (Texts{"N|D|1 2 3|Y|"}));
  EXPECT_EQ(Type1Of("A,B\xFCgel,D,1,2,3,Y\nI,\xD8 12,c\n"), (Texts{"Bügel|D|1 2 3|Y|[Ø 12=c]"}));
}

TEST_F(AccessoryCatalogues, Accs1_empties_the_table_and_its_own_count_alone) {
  AccType2Count = 7;
  EXPECT_EQ(Type1Of("A,N,D,1,2,3,Y\n"), (Texts{"N|D|1 2 3|Y|"}));
  EXPECT_EQ(Type1Of("A,N,D,1,2,3,Y\n"), (Texts{"N|D|1 2 3|Y|"}));
  EXPECT_EQ(AccType2Count, 7);
}

// --- accs2.csv

TEST_F(AccessoryCatalogues, Accs2_reads_an_accessory_with_columns_choices_and_groups) {
  EXPECT_EQ(Type2Of("A,Ties,acc13,130,1,35,Diagonal tie\nG,Bay,2\nP,Width\nP,Height\nP,Dia\nO,10\n"
                    "O,12\nG,End,1\nP,Cut\nA,Plates,None,60,0,30,Plate\n"),
            (Texts{"Ties|acc13|130 1 35|Diagonal tie|[Mark][No.Off][Width][Height][Dia/10/12][Cut]|"
                   "[Bay 3+2][End 6+1]",
                   "Plates|None|60 0 30|Plate|[Mark][No.Off]|"}));
  EXPECT_EQ(AccType2Count, 2);
}

TEST_F(AccessoryCatalogues, Accs2_starts_an_accessory_with_mark_and_number_off) {
  EXPECT_EQ(Type2Of("A,N,D,1,2,3,T\n"), (Texts{"N|D|1 2 3|T|[Mark][No.Off]|"}));
  EXPECT_EQ(AccDefs.At(1).ParamCount(), 2);
  EXPECT_EQ(AccDefs.At(1).Options.UBound(), 0);
}

TEST_F(AccessoryCatalogues, Accs2_gives_each_column_an_option_row_of_its_own_number) {
  ASSERT_TRUE(Load2("A,N,D,1,2,3,T\nP,X\n"));
  ASSERT_EQ(AccDefs.At(1).ParamCount(), 3);
  ASSERT_EQ(AccDefs.At(1).Options.UBound(), 3);
  EXPECT_EQ(AccDefs.At(1).Options.At(3).OptionCount(), 0);
  EXPECT_TRUE(AccDefs.At(1).Options.At(3).OptionTexts.Empty());
  ASSERT_TRUE(Load2("A,N,D,1,2,3,T\nP,X\nO,a\nP,Y\nO,b\nO,c\n"));
  EXPECT_EQ(AccDefs.At(1).Options.At(3).OptionCount(), 1);
  EXPECT_EQ(AccDefs.At(1).Options.At(4).OptionCount(), 2);
  EXPECT_EQ(AccDefs.At(1).Options.At(4).OptionTexts.At(2), "c");
}

TEST_F(AccessoryCatalogues, Accs2_lets_a_group_head_the_columns_that_follow) {
  EXPECT_EQ(Type2Of("A,N,D,1,2,3,T\nG,First,1\nP,X\nG,Second,-1\nG,Third,2.5\nP,Y\nG,Last,9\n"),
            (Texts{"N|D|1 2 3|T|[Mark][No.Off][X][Y]|"
                   "[First 3+1][Second 4+-1][Third 4+2][Last 5+9]"}));
}

TEST_F(AccessoryCatalogues, Accs2_puts_its_rows_behind_those_of_accs1) {
  ASSERT_TRUE(Load1("A,N1,D,1,2,3,Y\nI,t,c\nA,N2,D,4,5,6,N\n"));
  EXPECT_EQ(Type2Of("A,N3,D,7,8,9,T\nP,X\nA,N4,D,0,0,0,U\n"),
            (Texts{"N3|D|7 8 9|T|[Mark][No.Off][X]|", "N4|D|0 0 0|U|[Mark][No.Off]|"}));
  EXPECT_EQ(AccType1Count, 2);
  EXPECT_EQ(AccType2Count, 2);
  ASSERT_EQ(AccDefs.UBound(), 4);
  EXPECT_EQ(Type1Text(AccDefs.At(1)), "N1|D|1 2 3|Y|[t=c]");
  EXPECT_EQ(Type1Text(AccDefs.At(2)), "N2|D|4 5 6|N|");
}

TEST_F(AccessoryCatalogues, Accs2_read_again_puts_its_rows_at_the_same_places) {
  ASSERT_TRUE(Load1("A,N1,D,1,2,3,Y\n"));
  EXPECT_EQ(Type2Of("A,N2,D,7,8,9,T\nP,X\nA,N3,D,7,8,9,T\n").size(), 2U);
  EXPECT_EQ(Type2Of("A,N4,D,0,0,0,U\n"), (Texts{"N4|D|0 0 0|U|[Mark][No.Off]|"}));
  ASSERT_EQ(AccDefs.UBound(), 2);
  EXPECT_EQ(AccDefs.At(1).Name, "N1");
}

TEST_F(AccessoryCatalogues, Accs2_read_again_leaves_no_row_of_the_earlier_reading) {
  ASSERT_TRUE(Load1("A,N1,D,1,2,3,Y\nI,t,c\n"));
  const auto readOnce = [this] {
    ASSERT_TRUE(Load2("A,N2,D,7,8,9,T\nP,X\nA,N3,D,7,8,9,T\n"));
    ASSERT_EQ(AccDefs.UBound(), 3);
  };
  const auto expectType1Only = [] {
    EXPECT_EQ(AccType1Count, 1);
    EXPECT_EQ(AccType2Count, 0);
    ASSERT_EQ(AccDefs.UBound(), 1);
    EXPECT_EQ(Type1Text(AccDefs.At(1)), "N1|D|1 2 3|Y|[t=c]");
  };

  readOnce();
  ASSERT_TRUE(Load2("Row,Name\nremark,x\n"));  // without an accessory
  expectType1Only();

  readOnce();
  EXPECT_FALSE(LoadAccessories2(TempPath("gone.csv")));
  expectType1Only();

  readOnce();
  EXPECT_FALSE(Load2("A,N4,D,1,2,3,T\nA,N5,D,1,x,3,T\n"));
  EXPECT_EQ(AccType2Count, 1);
  ASSERT_EQ(AccDefs.UBound(), 2);
  EXPECT_EQ(Type2Text(AccDefs.At(2)), "N4|D|1 2 3|T|[Mark][No.Off]|");
}

TEST_F(AccessoryCatalogues, Accs2_stores_its_texts_as_read) {
  EXPECT_EQ(Type2Of("A, N ,\" D \",0,0,0, T \nP,\" X \"\nO, a \nP,\nO,\nG,\"g,h\",1\n"),
            (Texts{"N | D |0 0 0|T |[Mark][No.Off][ X /a ][/]|[g,h 5+1]"}));
}

TEST_F(AccessoryCatalogues, Accs2_knows_its_tags_in_either_case_and_between_blanks) {
  EXPECT_EQ(Type2Of(" a ,N,D,1,2,3,T\ng ,Bay,1\np,X\n o,a\n"),
            (Texts{"N|D|1 2 3|T|[Mark][No.Off][X/a]|[Bay 3+1]"}));
}

TEST_F(AccessoryCatalogues, Accs2_keeps_all_rows_whether_they_end_with_their_last_cell_or_commas) {
  for (const std::string behind : {"", ",", ",,,,,,", ",x,P,y"}) {
    EXPECT_EQ(Type2Of("A,N,D,1,2,3,T" + behind + "\nG,Bay,1" + behind + "\nP,X" + behind + "\nO,a" +
                      behind + "\nO,b" + behind + "\nP,Y" + behind + "\nG,End,1" + behind +
                      "\nG,Out,2" + behind + "\nA,M,E,4,5,6,U" + behind + "\nP,Z" + behind + "\n"),
              (Texts{"N|D|1 2 3|T|[Mark][No.Off][X/a/b][Y]|[Bay 3+1][End 5+1][Out 5+2]",
                     "M|E|4 5 6|U|[Mark][No.Off][Z]|"}))
        << "behind the row: '" << behind << "'";
  }
}

TEST_F(AccessoryCatalogues, Accs2_passes_over_what_it_does_not_know) {
  EXPECT_EQ(Type2Of("Row,Name,A\ncomment\n\nI,x,y\nA,N,D,1,2,3,T\nRemark,P,x\nremark\n,,,,,,\n"
                    "PO,x\n\" \",P,x\nP,X\nremark\nI,x,y\nO,a\n\nO,b\n"),
            (Texts{"N|D|1 2 3|T|[Mark][No.Off][X/a/b]|"}));
}

TEST_F(AccessoryCatalogues, Accs2_reads_the_next_cell_as_a_tag_behind_an_empty_first_one) {
  EXPECT_EQ(Type2Of(",A,N,D,1,2,3,T\n,,P,X\n,O,a\n,G,g,1\n"),
            (Texts{"N|D|1 2 3|T|[Mark][No.Off][X/a]|[g 4+1]"}));
}

TEST_F(AccessoryCatalogues, Accs2_ignores_a_last_line_of_a_single_field) {
  for (const std::string last : {"A", "P", "O", "G\n", "P,", "word"}) {
    EXPECT_EQ(Type2Of("A,N,D,1,2,3,T\n" + last), (Texts{"N|D|1 2 3|T|[Mark][No.Off]|"})) << last;
  }
}

TEST_F(AccessoryCatalogues, Accs2_reads_last_rows_without_a_line_end) {
  EXPECT_EQ(Type2Of("A,N,D,1,2,3,T"), (Texts{"N|D|1 2 3|T|[Mark][No.Off]|"}));
  EXPECT_EQ(Type2Of("A,N,D,1,2,3,T\nP,X"), (Texts{"N|D|1 2 3|T|[Mark][No.Off][X]|"}));
  EXPECT_EQ(Type2Of("A,N,D,1,2,3,T\nP,X\nO,a"), (Texts{"N|D|1 2 3|T|[Mark][No.Off][X/a]|"}));
  EXPECT_EQ(Type2Of("A,N,D,1,2,3,T\nG,g,1"), (Texts{"N|D|1 2 3|T|[Mark][No.Off]|[g 3+1]"}));
}

TEST_F(AccessoryCatalogues, Accs2_reads_every_kind_of_line_end_alike) {
  for (const std::string end : {"\n", "\r\n", "\r"}) {
    EXPECT_EQ(Type2Of("Row,Name" + end + end + "A,N,D,1,2,3,T" + end + "P,X" + end + "O,a" + end),
              (Texts{"N|D|1 2 3|T|[Mark][No.Off][X/a]|"}));
  }
}

TEST_F(AccessoryCatalogues, Accs2_skips_a_byte_order_mark_and_reads_Windows_1252) {
  EXPECT_EQ(Type2Of("\xEF\xBB\xBF"
                    "A,N,D,1,2,3,T\n"),
            (Texts{"N|D|1 2 3|T|[Mark][No.Off]|"}));
  EXPECT_EQ(Type2Of("A,N,D,1,2,3,B\xFCgel\nP,\xD8\n"),
            (Texts{"N|D|1 2 3|Bügel|[Mark][No.Off][Ø]|"}));
}

}  // namespace

}  // namespace orvane
