// How much a job is: by product and length, by hole, by accessory; and that the factory's file adds
// up to the same.
#include "output/cutting_list.h"

#include <map>
#include <set>
#include <sstream>
#include <string>
#include <tuple>
#include <vector>

#include "core/numbers.h"
#include "core/text.h"
#include "output/cam_export.h"
#include "output/list_reports.h"
#include "project/job.h"
#include "tests/output/print_fixture.h"
#include "tests/support/golden.h"

namespace orvane {

namespace {

using namespace test;

using Values = std::vector<std::string>;

class CuttingListTest : public PrintTest {
 protected:
  static Item Section(const std::string& letter, const std::string& mark,
                      const std::string& product, std::int16_t length, std::int16_t quantity) {
    Item item = MakeItem(letter, mark, length);
    item.Product = product;
    item.Quantity = quantity;
    return item;
  }

  static TextList Cuts(const CuttingList& list) {
    TextList rows;
    for (const CutRow& row : list.Cuts) {
      rows.push_back(row.Section + "|" + row.Product + "|" + DecimalText(row.Length) + "|" +
                     row.Marks + "|" + ShortestText(row.Quantity) + "|" +
                     MetresText(row.Millimetres));
    }
    return rows;
  }
  static TextList Punches(const CuttingList& list) {
    TextList rows;
    for (const PunchRow& row : list.Punches) {
      rows.push_back(ShortestText(row.Diameter) + "|" + ShortestText(row.SlotLength) + "|" +
                     (row.CounterSunk ? "*" : "") + "|" + ShortestText(row.Holes));
    }
    return rows;
  }

  // A job with everything that the factory's file has.
  static void AddEverything() {
    AddPurlin("P1", 6000);  // two holes of its pattern
    Items.At(1).Quantity = 5;
    Item purlin = Section("Z", "P2", "X20018", 6000, 3);
    AddHoles(purlin, {MakeHole(100, 18), MakeHole(500, 14, 30), MakeHole(900, 14, 0, "*"),
                      MakeHole(1000, 18, 0, "", {"42", "n", "n", "y"})});
    Items.Append(purlin);
    Item eaves = Section("E", "E1", "24024", 7500, 2);
    AddHoles(eaves, {MakeHole(50, 18, 22, "*"), MakeHole(60, 18, 22, "", {"n", "n", "n", "n"})});
    AddNotches(eaves, {MakeNotch("TL1", 50, 100, 0)});
    Items.Append(eaves);
    Items.Append(Section("C", "C1", "30116", 3000, 7));
    Items.Append(Section("V", "V9", "VCR", 2970, 1));
    Items.Append(Section("T", "T1", "TH64", 3000, 11));
    AccLines2.Append(MakeLine2(8, "V1", 5, {"3", "2", "3000", "10", "20.5", "KT31", "KT39"}));
    AccLines2.Append(MakeLine2(21, "CC1", 4, {"1500", "", "", "", "", "700"}));
    AccLines2.Append(MakeLine2(21, "CC2", 6, {"2896", "", "", "", "", ""}));
    AccLines2.Append(MakeLine2(6, "S1", 10, {"X20018"}));
    AccLines1.Append(MakeLine1(4, 2, 8));
  }
};

// What a CAM file adds up to, read from nothing but its text.
struct CamSums {
  std::map<std::tuple<std::string, int>, int> Quantities;  // by product and length
  std::map<std::tuple<int, int, bool>, int> Holes;         // by diameter, slot, countersink
  int Millimetres = 0;

  explicit CamSums(const std::string& text) {
    std::istringstream lines(text);
    const auto next = [&lines] {
      std::string line;
      std::getline(lines, line);
      EXPECT_TRUE(line.ends_with('\r'));
      if (!line.empty()) line.pop_back();
      return line;
    };
    for (int header = 0; header < 9; ++header) next();
    while (lines.peek() != std::istringstream::traits_type::eof()) {
      const std::string keyword = next();
      next();  // the mark
      const std::string product = next();
      if (keyword == "EAVES BEAM") next();
      const int quantity = std::stoi(next());
      if (keyword != "SLEEVE") {
        const int length = std::stoi(next());
        Quantities[{product, length}] += quantity;
        Millimetres += quantity * length;
        AddHoles(next, quantity);
        next();  // the mitres
        for (int notches = std::stoi(next()); notches > 0; --notches) next();
      }
      EXPECT_EQ(next(), "");
    }
  }

 private:
  template <class Next>
  void AddHoles(const Next& next, int quantity) {
    for (int count = std::stoi(next()); count > 0; --count) {
      std::istringstream line(next());
      std::string x, flag, diameter, tail;
      line >> x;
      int punched = 0;
      for (int flags = 0; flags < 4; ++flags) {
        line >> flag;
        if (flag != "n") ++punched;
      }
      line >> diameter >> tail;
      if (punched == 0) continue;
      // The file has a slot's extension beyond the round hole.
      const bool isSlot = !tail.empty() && tail != "x";
      const int slot = isSlot ? std::stoi(diameter) + std::stoi(tail) : 0;
      Holes[{std::stoi(diameter), slot, tail == "x"}] += punched * quantity;
    }
  }
};

}  // namespace

TEST_F(CuttingListTest, Sections_of_one_product_and_length_are_one_row_the_longest_first) {
  Items.Append(Section("Z", "P1", "20020", 6000, 4));
  Items.Append(Section("Z", "P2", "17016", 3000, 2));
  Items.Append(Section("Z", "P3", "20020", 7500, 1));
  Items.Append(Section("E", "E1", "24024", 7501, 3));
  Items.Append(Section("Z", "P4", "20020", 6000, 8));
  Items.Append(Section("C", "C1", "20020", 6000, 1));
  const CuttingList list = CuttingListOf(OpenJob());
  EXPECT_EQ(Cuts(list),
            (TextList{"Z|17016|3000|P2 (2)|2|6.000", "Z|20020|7500|P3 (1)|1|7.500",
                      "Z|20020|6000|P1 (4), P4 (8)|12|72.000", "Eaves|24024|7501|E1 (3)|3|22.503",
                      "C|20020|6000|C1 (1)|1|6.000"}));
  EXPECT_EQ(list.Quantity, 19);
  EXPECT_EQ(MetresText(list.Millimetres), "114.003");
  EXPECT_TRUE(list.Punches.empty());
  EXPECT_TRUE(list.NotCounted.empty());
}

TEST_F(CuttingListTest, A_hole_is_punched_on_each_line_of_each_piece) {
  Item item = Section("Z", "P1", "20020", 6000, 10);
  AddHoles(item, {MakeHole(100, 18), MakeHole(200, 14, 30, "", {"y", "y", "y", "y"}),
                  MakeHole(300, 14, 30, "*"), MakeHole(400, 14, 0, "", {"42.5", "n", "n", "n"}),
                  MakeHole(500, 18, 0, "", {"n", "n", "n", "n"})});
  Items.Append(item);
  const CuttingList list = CuttingListOf(OpenJob());
  // 14 mm: one off gauge; countersunk, which is never a slot, two; slots four. 18 mm: two.
  EXPECT_EQ(Punches(list), (TextList{"14|0||10", "14|0|*|20", "14|30||40", "18|0||20"}));
  EXPECT_EQ(list.Holes, 90);
}

TEST_F(CuttingListTest, The_holes_of_a_pattern_are_made_afresh_and_the_job_stays_as_it_is) {
  AddPurlin("P1", 6000);
  Items.At(1).Quantity = 4;
  AddHoles(Items.At(1), {MakeHole(10, 22)});
  Items.At(1).Holes.At(1).Kind = PatternKind;
  const CuttingList list = CuttingListOf(OpenJob());
  // "Pair" stands beside the middle; the stale hole of 22 mm is none.
  ASSERT_EQ(list.Punches.size(), 1U);
  EXPECT_NE(list.Punches.front().Diameter, 22);
  EXPECT_EQ(Items.At(1).Holes.UBound(), 1);
  EXPECT_EQ(ProjectDirty, False);
}

TEST_F(CuttingListTest, What_has_no_length_or_no_quantity_is_named_and_not_counted) {
  Items.Append(Section("Z", "P1", "20020", 0, 4));
  Items.Append(Section("Z", "", "20020", 6000, 0));
  Items.Append(Section("Z", "P3", "20020", 6000, -1));
  AccLines2.Append(MakeLine2(21, "CC1", 0, {"1500", "", "", "", "", ""}));
  const CuttingList list = CuttingListOf(OpenJob());
  EXPECT_TRUE(list.Cuts.empty());
  EXPECT_EQ(list.NotCounted, (TextList{"P1", "Item 2", "P3", "Accessory 21 CC1"}));
  EXPECT_FALSE(list.IsEmpty());
}

TEST_F(CuttingListTest, Accessories_are_added_up_by_type_and_size) {
  AccLines1.Append(MakeLine1(1, 2, 10));
  AccLines1.Append(MakeLine1(1, 1, 0));
  AccLines1.Append(MakeLine1(1, 2, 5));
  AccLines2.Append(MakeLine2(10, "B1", 4, {"1"}));
  AccLines2.Append(MakeLine2(7, "A1", 3, {"1"}));
  AccLines2.Append(MakeLine2(10, "B2", 6, {"2"}));
  AccLines2.Append(MakeLine2(10, "B3", 0, {"2"}));
  AccLines1.Append(MakeLine1(27, 2, 1));
  TextList rows;
  for (const AccessoryRow& row : CuttingListOf(OpenJob()).Accessories) {
    rows.push_back(row.Type + "|" + row.Description + "|" + row.Marks + "|" +
                   ShortestText(row.NumberOff));
  }
  const AccDef& first = AccDefs.At(1);
  EXPECT_EQ(
      rows,
      (TextList{"Accessory 1|" + first.ParamTexts.At(2) + "|" + first.ParamNames.At(2) + "|15",
                "Accessory 7||A1 (3)|3", "Accessory 10||B1 (4), B2 (6)|10", "Accessory 27|||1"}));
}

TEST_F(CuttingListTest, Rails_and_channels_of_accessories_are_cut_too) {
  AccLines2.Append(MakeLine2(8, "V1", 5, {"3", "2", "3000", "10", "20.5", "KT31", "KT39"}));
  AccLines2.Append(MakeLine2(21, "CC1", 4, {"1500", "", "", "", "", "700"}));
  const CuttingList list = CuttingListOf(OpenJob());
  // Rails of 2970, the channel of 1500 + 104. Holes in both rows: 5 rails of 2, 4 channels of 3.
  EXPECT_EQ(Cuts(list),
            (TextList{"C|30116|1604|CC1 (4)|4|6.416", "VCR|VCR|2970|V1 (3), V1X (2)|5|14.850"}));
  EXPECT_EQ(Punches(list), (TextList{"14|0||44"}));
}

TEST_F(CuttingListTest, A_value_that_stops_the_export_stops_the_list_with_the_same_words) {
  AccLines2.Append(MakeLine2(8, "V1", 5, {"3", "2", "3000", "10", "20", "KT99", "KT39"}));
  EXPECT_EQ(ErrorOf([] { CuttingListOf(OpenJob()); }),
            CamFile(desktop.Present).Error->Description());
}

TEST_F(CuttingListTest, The_cam_file_adds_up_to_the_same) {
  AddEverything();
  const CuttingList list = CuttingListOf(OpenJob());
  desktop.Chosen = {TempPath("job.xov")};
  ExportCAM();
  const CamSums cam(BytesOf(TempPath("job.xov")));

  std::map<std::tuple<std::string, int>, int> quantities;
  for (const CutRow& row : list.Cuts) {
    quantities[{row.Product, row.Length}] += static_cast<int>(row.Quantity);
  }
  EXPECT_EQ(quantities, cam.Quantities);
  EXPECT_EQ(list.Millimetres, cam.Millimetres);
  std::map<std::tuple<int, int, bool>, int> holes;
  int sum = 0;
  for (const PunchRow& row : list.Punches) {
    holes[{static_cast<int>(row.Diameter), static_cast<int>(row.SlotLength), row.CounterSunk}] =
        static_cast<int>(row.Holes);
    sum += static_cast<int>(row.Holes);
  }
  EXPECT_EQ(holes, cam.Holes);
  EXPECT_EQ(list.Holes, sum);
  // By hand: 5 x 6000 and 3 x 6000; 2 x 7500; 7 x 3000; 1 and 5 x 2970; 11 x 3000; 4 x 1604;
  // 6 x 3000.
  EXPECT_EQ(list.Millimetres, 48000 + 15000 + 21000 + 17820 + 33000 + 6416 + 18000);
  EXPECT_EQ(list.Quantity, 8 + 2 + 7 + 6 + 11 + 4 + 6);
}

TEST_F(CuttingListTest, The_file_has_its_tables_under_each_other) {
  Item item = Section("Z", "=P1", "20020", 6000, 4);
  AddHoles(item, {MakeHole(100, 18), MakeHole(200, 14, 30), MakeHole(300, 14, 0, "*")});
  Items.Append(item);
  Items.Append(Section("Z", "P2", "20020", 6000, 2));
  Items.Append(Section("Z", "P3", "20020", 0, 2));
  AccLines2.Append(MakeLine2(7, "A1", 3, {"1"}));
  EXPECT_EQ(CuttingListFile(CuttingListOf(OpenJob())),
            "\xEF\xBB\xBF"
            "Section,Product,Length (mm),Quantity,Metres,Marks\r\n"
            "Z,20020,6000,6,36.000,\"'=P1 (4), P2 (2)\"\r\n"
            "Total,,,6,36.000,\r\n"
            "\r\n"
            "Diameter (mm),Slot (mm),Countersunk,Holes\r\n"
            "14,,yes,8\r\n"
            "14,30,,8\r\n"
            "18,,,8\r\n"
            "Total,,,24\r\n"
            "\r\n"
            "Accessory,Description,Code or marks,No.Off\r\n"
            "Accessory 7,,A1 (3),3\r\n"
            "\r\n"
            "Not counted: no length or no quantity\r\n"
            "P3\r\n");
}

TEST_F(CuttingListTest, The_report_is_drawn_line_by_line) {
  CompanyName = "Hillside Steelwork";
  CompanyDetails = "Unit 4, Mill Lane";
  AddEverything();
  Items.Append(Section("Z", "P3", "X20018", 4500, 2));
  Items.Append(Section("Z", "P4", "X20018", 0, 2));
  PrintCuttingList();
  ExpectGolden("reports/cutting-list.txt", Drawn());
  EXPECT_EQ(screen.Shown, 1);
}

TEST_F(CuttingListTest, A_job_of_nothing_has_no_list) {
  PrintCuttingList();
  EXPECT_EQ(screen.Shown, 0);
  ASSERT_EQ(desktop.Boxes.size(), 1U);
  EXPECT_EQ(desktop.Boxes.front().Text, "Nothing to print");
}

}  // namespace orvane
