// Catalogue files that are missing, can't be read or are faulty, and the start-up that goes on with
// what they held.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "core/catalogues.h"
#include "core/model.h"
#include "core/program_folder.h"
#include "tests/support/fixture.h"

namespace orvane {

namespace {

const std::string Dims = "3,4,5,6,7,8,9,10,11,12,13,14";

// The four readers, each with a good row of its file and what it has read.
struct Reader {
  std::string Name;
  bool (*Load)(const std::string& path);
  int (*Rows)();
  std::string GoodRow;
};

const std::array<Reader, 4> Readers = {{
    {"dims.csv", LoadSectionDims, [] { return SectionDims.UBound(); }, "Z,P," + Dims + "\n"},
    {"punch.csv", LoadPunchPatterns, [] { return PunchPatterns.UBound(); }, "Z,N,A0,S,*\n"},
    {"accs1.csv", LoadAccessories1, [] { return int{AccType1Count}; }, "A,N,D,1,2,3,Y\n"},
    {"accs2.csv", LoadAccessories2, [] { return int{AccType2Count}; }, "A,N,D,1,2,3,T\n"},
}};

class CatalogueFailures : public test::SystemTest {
 protected:
  // The one box that a reader has shown, which must be the box of a catalogue error.
  std::string TakeBox() {
    EXPECT_EQ(desktop.Boxes.size(), 1U);
    if (desktop.Boxes.empty()) return "";
    const test::ShownBox box = desktop.Boxes.back();
    desktop.Boxes.clear();
    EXPECT_EQ(box.Title, "Orvane Detailing System");
    EXPECT_EQ(box.Sign, Icon::Stop);
    EXPECT_EQ(box.Choice, Buttons::Ok);
    return box.Text;
  }

  // Loads a faulty file of the reader's and gives the description that the message closes on.
  std::string DescriptionOf(const Reader& reader, std::string_view text) {
    const std::string path = TempFile(reader.Name, text);
    EXPECT_FALSE(reader.Load(path)) << text;
    const std::string box = TakeBox();
    const std::string start = "Error loading data from " + path + "\r";
    EXPECT_EQ(box.substr(0, start.size()), start);
    return box.size() < start.size() ? "" : box.substr(start.size());
  }

  // A program folder of its own, which holds the files named.
  void InstallFiles(const std::vector<std::pair<std::string, std::string>>& files) {
    ProgramFolder = TempPath("program");
    std::filesystem::remove_all(ProgramFolder);
    std::filesystem::create_directory(ProgramFolder);
    for (const auto& [name, text] : files) TempFile("program/" + name, text);
  }
};

// --- Files that can't be read

TEST_F(CatalogueFailures, A_missing_file_is_told_once_and_leaves_its_table_empty) {
  for (const Reader& reader : Readers) {
    ASSERT_TRUE(reader.Load(TempFile("good", reader.GoodRow))) << reader.Name;
    ASSERT_EQ(reader.Rows(), 1);
    const std::string path = TempPath(reader.Name);
    EXPECT_FALSE(reader.Load(path));
    EXPECT_EQ(TakeBox(), "Error loading data from " + path + "\rFile not found");
    EXPECT_EQ(reader.Rows(), 0) << reader.Name;
  }
}

TEST_F(CatalogueFailures, A_missing_folder_is_told_as_such) {
  for (const Reader& reader : Readers) {
    const std::string path = TempPath("nowhere") + "/" + reader.Name;
    EXPECT_FALSE(reader.Load(path));
    EXPECT_EQ(TakeBox(), "Error loading data from " + path + "\rPath not found");
  }
}

TEST_F(CatalogueFailures, A_file_without_the_right_to_read_it_is_told) {
  for (const Reader& reader : Readers) {
    const std::string path = TempFile(reader.Name, reader.GoodRow);
    std::filesystem::permissions(path, std::filesystem::perms::none);
    const std::string shown = test::AsOrdinaryUser([this, &reader, &path] {
      if (reader.Load(path) || reader.Rows() != 0) return std::string("loaded");
      return TakeBox();
    });
    EXPECT_EQ(shown, "Error loading data from " + path + "\rPermission denied");
  }
}

TEST_F(CatalogueFailures, A_folder_under_the_name_of_the_file_is_told) {
  for (const Reader& reader : Readers) {
    const std::string path = TempPath(reader.Name);
    std::filesystem::create_directory(path);
    EXPECT_FALSE(reader.Load(path));
    EXPECT_EQ(TakeBox(), "Error loading data from " + path + "\rIs a directory");
    EXPECT_EQ(reader.Rows(), 0);
  }
}

TEST_F(CatalogueFailures, An_empty_file_is_a_good_file_without_rows) {
  for (const Reader& reader : Readers) {
    for (const std::string text : {"", "\n", "\r\n\r\n", ",,,,", "\xEF\xBB\xBF", "   "}) {
      EXPECT_TRUE(reader.Load(TempFile(reader.Name, text))) << reader.Name;
      EXPECT_EQ(reader.Rows(), 0) << reader.Name;
    }
  }
  EXPECT_TRUE(desktop.Boxes.empty());
}

TEST_F(CatalogueFailures, The_file_stays_as_it_was) {
  for (const Reader& reader : Readers) {
    const std::string text = reader.GoodRow + reader.GoodRow + "A,N,D,x\nZ,P";
    const std::string path = TempFile(reader.Name, text);
    EXPECT_FALSE(reader.Load(path));
    TakeBox();
    EXPECT_EQ(test::BytesOf(path), text);
  }
}

// --- Files that end too soon

TEST_F(CatalogueFailures, A_row_cut_off_by_the_end_of_the_file_is_told_and_not_stored) {
  struct Cut {
    int Reader;
    const char* Row;
  };
  for (const Cut& cut :
       {Cut{0, "Z,P,1,2"}, Cut{0, "Z,P,3,4,5,6,7,8,9,10,11,12,13"},
        Cut{0, "Z,P,3,4,5,6,7,8,9,10,11,12,13,"}, Cut{0, "Z,P"}, Cut{0, "Z,P,"}, Cut{1, "Z,N"},
        Cut{1, "Z,N,"}, Cut{1, "Z,N,A0"}, Cut{1, "Z,N,A0\n"}, Cut{1, "Z,N,A0,"}, Cut{2, "A,N"},
        Cut{2, "A,N,D,1,2,3"}, Cut{2, "A,N,D,1,2,3,"}, Cut{2, "I,t"}, Cut{3, "A,N,D,1,2,3\n"},
        Cut{3, "A,N,D,1,2,3,"}, Cut{3, "G,g"}, Cut{3, "G,g,"}}) {
    const Reader& reader = Readers.at(static_cast<std::size_t>(cut.Reader));
    EXPECT_EQ(DescriptionOf(reader, reader.GoodRow + cut.Row), "Input past end of file") << cut.Row;
    EXPECT_EQ(reader.Rows(), 1) << cut.Row;
  }
}

TEST_F(CatalogueFailures, A_half_read_size_column_or_group_is_not_stored) {
  EXPECT_FALSE(LoadAccessories1(TempFile("accs1.csv", "A,N,D,1,2,3,Y\nI,t")));
  EXPECT_EQ(AccDefs.At(1).ParamCount(), 0);
  EXPECT_EQ(AccDefs.At(1).ParamTexts.UBound(), 0);
  EXPECT_EQ(AccDefs.At(1).ParamNames.UBound(), 0);
  EXPECT_FALSE(LoadAccessories2(TempFile("accs2.csv", "A,N,D,1,2,3,T\nG,g,x\n")));
  EXPECT_EQ(AccDefs.At(2).Groups.UBound(), 0);
  EXPECT_EQ(AccDefs.At(2).ParamCount(), 2);
}

TEST_F(CatalogueFailures, A_quote_that_never_closes_runs_to_the_end_of_the_file) {
  EXPECT_EQ(DescriptionOf(Readers[0], "Z,P," + Dims + "\nZ,\"Q," + Dims + "\nC,R," + Dims + "\n"),
            "Input past end of file");
  EXPECT_EQ(SectionDims.UBound(), 1);
  // In a first cell it is the last line's single field, and ignored.
  EXPECT_TRUE(LoadSectionDims(TempFile("dims.csv", "Z,P," + Dims + "\n\"Q,1\nZ,R," + Dims)));
  EXPECT_EQ(SectionDims.UBound(), 1);
  EXPECT_TRUE(desktop.Boxes.empty());
}

// --- Faulty fields

TEST_F(CatalogueFailures, A_faulty_16_bit_field_is_told_with_its_row_and_column) {
  struct Fault {
    const char* Row;
    const char* Description;
  };
  for (const Fault& fault : {
           Fault{"A,N,D,x,2,3,Y\n", "Type mismatch (row 2, column 4)"},
           Fault{"A,N,D,1,2mm,3,Y\n", "Type mismatch (row 2, column 5)"},
           Fault{"A,N,D,1,2,3 4,Y\n", "Type mismatch (row 2, column 6)"},
           Fault{"A,N,D,,2,3,Y\n", "Type mismatch (row 2, column 4)"},
           Fault{"A,N,D,1,2,  ,Y\n", "Type mismatch (row 2, column 6)"},
           Fault{"A,N,D,1,0x10,3,Y\n", "Type mismatch (row 2, column 5)"},
           Fault{"A,N,D,inf,2,3,Y\n", "Type mismatch (row 2, column 4)"},
           Fault{"A,N,D,nan,2,3,Y\n", "Type mismatch (row 2, column 4)"},
           Fault{"A,N,D,1,\"2,5\",3,Y\n", "Type mismatch (row 2, column 5)"},
           Fault{"A,N,D,32768,2,3,Y\n", "Overflow (row 2, column 4)"},
           Fault{"A,N,D,1,-32769,3,Y\n", "Overflow (row 2, column 5)"},
           Fault{"A,N,D,1,2,32767.5,Y\n", "Overflow (row 2, column 6)"},
           Fault{"A,N,D,1e999,2,3,Y\n", "Overflow (row 2, column 4)"},
       }) {
    for (const Reader& reader : {Readers[2], Readers[3]}) {
      EXPECT_EQ(DescriptionOf(reader, reader.GoodRow + fault.Row), fault.Description) << fault.Row;
    }
  }
}

TEST_F(CatalogueFailures, A_faulty_group_size_is_told_with_its_row_and_column) {
  EXPECT_EQ(DescriptionOf(Readers[3], "A,N,D,1,2,3,T\nP,X\nG,Bay,two\n"),
            "Type mismatch (row 3, column 3)");
  EXPECT_EQ(DescriptionOf(Readers[3], "A,N,D,1,2,3,T\nG,Bay,\nP,X\n"),
            "Type mismatch (row 2, column 3)");
  EXPECT_EQ(DescriptionOf(Readers[3], "A,N,D,1,2,3,T\nG,Bay,99999\n"),
            "Overflow (row 2, column 3)");
}

TEST_F(CatalogueFailures, Rows_are_counted_by_the_lines_of_the_file_whatever_ends_them) {
  for (const std::string end : {"\n", "\r\n", "\r"}) {
    EXPECT_EQ(DescriptionOf(Readers[2], "Row,Name" + end + end + ",,," + end + "remark" + end +
                                            "A,N,D,1,2,3,Y" + end + "I,t,c" + end +
                                            "A,M,D,1,x,3,N" + end),
              "Type mismatch (row 7, column 5)");
  }
  // A field that a row takes from the next line counts there.
  EXPECT_EQ(DescriptionOf(Readers[2], "A,N,D,1,2\nx,Y\n"), "Type mismatch (row 2, column 1)");
}

TEST_F(CatalogueFailures, A_dimension_too_large_for_any_number_is_told) {
  EXPECT_EQ(DescriptionOf(Readers[0], "Z,P," + Dims + "\nC,Q,3,1e999,5,6,7,8,9,10,11,12,13,14\n"),
            "Overflow (row 2, column 4)");
  EXPECT_EQ(SectionDims.UBound(), 1);
}

TEST_F(CatalogueFailures, A_faulty_accessory_is_not_appended_and_the_counts_stay) {
  EXPECT_FALSE(LoadAccessories1(
      TempFile("accs1.csv",
               "A,N1,D,1,2,3,Y\nI,t,c\nA,N2,D,4,5,6,N\nA,N3,D,7,x,9,Y\nI,u,d\nA,N4,D,0,0,0,N\n")));
  EXPECT_EQ(AccType1Count, 2);
  ASSERT_EQ(AccDefs.UBound(), 2);
  EXPECT_EQ(AccDefs.At(1).ParamCount(), 1);
  EXPECT_EQ(AccDefs.At(2).Name, "N2");
  EXPECT_EQ(AccDefs.At(2).ParamCount(), 0);

  EXPECT_FALSE(LoadAccessories2(
      TempFile("accs2.csv", "A,M1,D,1,2,3,T\nP,X\nO,a\nA,M2,D,4,5,99999,T\nP,Y\n")));
  EXPECT_EQ(AccType1Count, 2);
  EXPECT_EQ(AccType2Count, 1);
  ASSERT_EQ(AccDefs.UBound(), 3);
  EXPECT_EQ(AccDefs.At(3).Name, "M1");
  EXPECT_EQ(AccDefs.At(3).ParamCount(), 3);
  EXPECT_EQ(AccDefs.At(3).Options.At(3).OptionTexts.At(1), "a");
}

// --- Rows that add to nothing

TEST_F(CatalogueFailures, A_row_before_the_first_accessory_of_its_file_is_an_error) {
  EXPECT_EQ(DescriptionOf(Readers[2], "remark,x\nI,t,c\nA,N,D,1,2,3,Y\n"),
            "Subscript out of range (row 2, column 1)");
  EXPECT_EQ(AccDefs.UBound(), 0);
  EXPECT_EQ(AccType1Count, 0);
  // The accessories of the first file are none of the second's.
  ASSERT_TRUE(LoadAccessories1(TempFile("accs1.csv", "A,N,D,1,2,3,Y\nI,t,c\n")));
  for (const std::string row : {"P,X", "O,a", "G,g,1"}) {
    EXPECT_EQ(DescriptionOf(Readers[3], row + "\nA,N,D,1,2,3,T\n"),
              "Subscript out of range (row 1, column 1)")
        << row;
    EXPECT_EQ(AccType2Count, 0);
    ASSERT_EQ(AccDefs.UBound(), 1);
    EXPECT_EQ(AccDefs.At(1).ParamCount(), 1);
    EXPECT_TRUE(AccDefs.At(1).Groups.Empty());
    EXPECT_TRUE(AccDefs.At(1).Options.Empty());
  }
}

TEST_F(CatalogueFailures, A_choice_before_the_first_column_of_its_accessory_is_an_error) {
  EXPECT_EQ(DescriptionOf(Readers[3], "A,N,D,1,2,3,T\nO,a\nP,X\n"),
            "Subscript out of range (row 2, column 1)");
  EXPECT_EQ(AccDefs.At(1).ParamCount(), 2);
  EXPECT_TRUE(AccDefs.At(1).Options.Empty());
  // The columns of the accessory before don't count.
  EXPECT_EQ(DescriptionOf(Readers[3], "A,N,D,1,2,3,T\nP,X\nO,a\nA,M,D,1,2,3,T\nG,g,1\nO,b\n"),
            "Subscript out of range (row 6, column 1)");
  EXPECT_EQ(AccType2Count, 2);
  EXPECT_EQ(AccDefs.At(1).Options.At(3).OptionCount(), 1);
  EXPECT_EQ(AccDefs.At(2).Groups.UBound(), 1);
}

// --- The steps of the start-up

TEST_F(CatalogueFailures, LoadAccessoryCatalogues_reads_both_files_and_makes_their_flags) {
  InstallFiles({{"accs1.csv", "A,N1,D,1,2,3,Y\nI,t,c\n"},
                {"accs2.csv", "A,N2,D,1,2,3,T\nA,N3,D,1,2,3,T\n"}});
  AccUsed.Append(True);
  EXPECT_TRUE(LoadAccessoryCatalogues());
  EXPECT_TRUE(desktop.Boxes.empty());
  EXPECT_EQ(AccType1Count, 1);
  EXPECT_EQ(AccType2Count, 2);
  EXPECT_EQ(AccDefs.UBound(), 3);
  ASSERT_EQ(AccUsed.UBound(), 3);
  EXPECT_EQ(std::count(AccUsed.begin(), AccUsed.end(), False), 3);
}

TEST_F(CatalogueFailures, Accs2_is_not_read_when_accs1_is_missing) {
  InstallFiles({{"accs2.csv", "A,N2,D,1,2,3,T\n"}});
  AccType2Count = 5;
  AccUsed.Append(True);
  EXPECT_FALSE(LoadAccessoryCatalogues());
  EXPECT_EQ(TakeBox(), "Error loading data from " + ProgramFolder + "/accs1.csv\rFile not found");
  EXPECT_EQ(AccType1Count, 0);
  EXPECT_EQ(AccType2Count, 0);
  EXPECT_EQ(AccDefs.UBound(), 0);
  EXPECT_EQ(AccUsed.UBound(), 0);
}

TEST_F(CatalogueFailures, Accs2_is_not_read_when_accs1_is_faulty_and_its_good_rows_have_flags) {
  InstallFiles(
      {{"accs1.csv", "A,N1,D,1,2,3,Y\nA,N2,D,1,2,x,Y\n"}, {"accs2.csv", "A,N3,D,1,2,3,T\n"}});
  EXPECT_FALSE(LoadAccessoryCatalogues());
  EXPECT_EQ(TakeBox(), "Error loading data from " + ProgramFolder +
                           "/accs1.csv\rType mismatch (row 2, column 6)");
  EXPECT_EQ(AccType1Count, 1);
  EXPECT_EQ(AccType2Count, 0);
  EXPECT_EQ(AccDefs.UBound(), 1);
  ASSERT_EQ(AccUsed.UBound(), 1);
  EXPECT_EQ(AccUsed.At(1), False);
}

TEST_F(CatalogueFailures, A_faulty_accs2_leaves_flags_for_the_rows_before_the_fault) {
  InstallFiles(
      {{"accs1.csv", "A,N1,D,1,2,3,Y\n"}, {"accs2.csv", "A,N2,D,1,2,3,T\nA,N3,D,1,2,,T\n"}});
  EXPECT_FALSE(LoadAccessoryCatalogues());
  EXPECT_EQ(TakeBox(), "Error loading data from " + ProgramFolder +
                           "/accs2.csv\rType mismatch (row 2, column 6)");
  EXPECT_EQ(AccDefs.UBound(), 2);
  EXPECT_EQ(AccUsed.UBound(), 2);
}

TEST_F(CatalogueFailures, LoadSectionCatalogues_goes_on_with_punch_when_dims_is_missing) {
  InstallFiles({{"punch.csv", "Z,N,A0,S,*\n"}});
  EXPECT_FALSE(LoadSectionCatalogues());
  EXPECT_EQ(TakeBox(), "Error loading data from " + ProgramFolder + "/dims.csv\rFile not found");
  EXPECT_EQ(SectionDims.UBound(), 0);
  EXPECT_EQ(PunchPatterns.UBound(), 1);
}

TEST_F(CatalogueFailures, LoadSectionCatalogues_tells_of_a_missing_punch_alone_too) {
  InstallFiles({{"dims.csv", "Z,P," + Dims + "\n"}});
  EXPECT_FALSE(LoadSectionCatalogues());
  EXPECT_EQ(TakeBox(), "Error loading data from " + ProgramFolder + "/punch.csv\rFile not found");
  EXPECT_EQ(SectionDims.UBound(), 1);
  EXPECT_EQ(PunchPatterns.UBound(), 0);
}

TEST_F(CatalogueFailures, LoadSectionCatalogues_tells_of_dims_first_and_then_of_punch) {
  InstallFiles({});
  EXPECT_FALSE(LoadSectionCatalogues());
  ASSERT_EQ(desktop.Boxes.size(), 2U);
  EXPECT_EQ(desktop.Boxes[0].Text,
            "Error loading data from " + ProgramFolder + "/dims.csv\rFile not found");
  EXPECT_EQ(desktop.Boxes[1].Text,
            "Error loading data from " + ProgramFolder + "/punch.csv\rFile not found");
}

TEST_F(CatalogueFailures, LoadSectionCatalogues_reads_files_named_in_capitals_too) {
  InstallFiles({{"DIMS.CSV", "Z,P," + Dims + "\n"}, {"Punch.csv", "Z,N,A0,S,*\n"}});
  EXPECT_TRUE(LoadSectionCatalogues());
  EXPECT_EQ(SectionDims.UBound(), 1);
  EXPECT_EQ(PunchPatterns.UBound(), 1);
}

}  // namespace

}  // namespace orvane
