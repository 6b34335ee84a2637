// One whole sheet of a rich section for each family, operation by operation, against recordings
// that were worked out by hand from the rules, not taken from the program. Only where the order of
// settings shows nowhere on the page do they follow the program's.
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "core/desktop.h"
#include "core/numbers.h"
#include "core/program_folder.h"
#include "drawing/draw_section.h"
#include "holes/hole_list.h"
#include "tests/drawing/sheet_fixture.h"
#include "tests/drawing/small_metafile.h"
#include "tests/support/golden.h"

namespace orvane::test {
namespace {

struct RichHole {
  std::int16_t XPos;
  std::string Kind, BF, W1, W2, TF;
  float Diameter, SlotLength;
  std::string CounterSunk;
};

struct RichSection {
  std::string Type;
  std::string Mark;
  std::int16_t Length;
  std::int16_t Quantity;
  std::string Notes;
  std::string Pitch;
  std::int16_t JointingPieces;
  float MitreLeft, MitreRight;
  SectionDim Product;
  std::vector<Notch> Notches;
  std::vector<RichHole> Holes;
};

// The sections: pattern holes and holes by hand, round ones and slots of both diameters,
// countersunk ones, ones off gauge, two rows at one position, one on no line; gaps too short to
// draw as they are; every notch and one of an unknown code; both signs of mitres. V, R and T have
// dimensions that differ where the drawing takes one for the other.

const RichSection RichZ = {.Type = "Z",
                           .Mark = "P1",
                           .Length = 6150,
                           .Quantity = 12,
                           .Notes = "  Galvanised, mark both ends  ",
                           .Pitch = "",
                           .JointingPieces = 0,
                           .MitreLeft = 12.5F,
                           .MitreRight = -7.5F,
                           .Product = {.SectionType = "Z",
                                       .Product = "Z203 rich",
                                       .Dim3 = 203,
                                       .Dim4 = 67,
                                       .Dim5 = 63,
                                       .Dim7 = 17,
                                       .Dim8 = 19.5,
                                       .Dim9 = 43,
                                       .Dim10 = 117,
                                       .Dim11 = 43},
                           .Notches = {{"TL1", 21, 43, 0},
                                       {"B2", 12.5F, 52, 3900},
                                       {"T2", 18, 47, 1210},
                                       {"TR1", 26, 61, 0},
                                       {"XX", 10, 10, 10},
                                       {"BL1", 33, 57, 0},
                                       {"B2", 14, 39, 2510},
                                       {"BR1", 17, 66.5F, 0},
                                       {"L3", 23, 34, 71},
                                       {"R3", 31, 29, 82}},
                           .Holes = {
                               {32, "S", "n", "y", "y", "n", 18, 0, " "},
                               {92, "S", "n", "y", "y", "n", 18, 0, " "},
                               {1300, "S", "y", "n", "n", "y", 14, 0, " "},
                               {1300, "C", "n", "60.5", "n", "n", 18, 0, ""},
                               {2050, "S", "n", "n", "n", "y", 18, 28, "*"},
                               {2050, "C", "35", "n", "n", "n", 18, 0, ""},
                               {2120, "C", "n", "y", "n", "n", 14, 30, "*"},
                               {3075, "C", "n", "n", "y", "n", 18, 45, ""},
                               {3100, "C", "n", "n", "70", "n", 18, 0, "*"},
                               {3112, "C", "n", "y", "n", "n", 18, 0, ""},
                               {3125, "C", "n", "n", "y", "n", 18, 0, ""},
                               {4000, "C", "n", "55", "n", "25", 14, 0, ""},
                               {4000, "C", "n", "98", "n", "n", 14, 0, ""},
                               {4600, "C", "n", "n", "n", "n", 18, 0, ""},
                               {5300, "C", "n", "y", "n", "n", 16, 0, ""},
                               {5408, "S", "y", "n", "n", "n", 18, 0, " "},
                               {6118, "S", "n", "y", "y", "n", 18, 0, " "},
                           }};

const RichSection RichC = {.Type = "C",
                           .Mark = "B17/2",
                           .Length = 4775,
                           .Quantity = 3,
                           .Notes = "Paint grey",
                           .Pitch = "",
                           .JointingPieces = 0,
                           .MitreLeft = -10,
                           .MitreRight = 15,
                           .Product = {.SectionType = "C",
                                       .Product = "C254 rich",
                                       .Dim3 = 254,
                                       .Dim4 = 73,
                                       .Dim5 = 69,
                                       .Dim7 = 18,
                                       .Dim8 = 16,
                                       .Dim9 = 47,
                                       .Dim10 = 159,
                                       .Dim11 = 48},
                           .Notches = {{"BR1", 15, 41, 0},
                                       {"R3", 22, 37, 64},
                                       {"B2", 19, 83, 1525},
                                       {"TR1", 13, 48, 0},
                                       {"T2", 24, 77, 3350},
                                       {"L3", 27, 31, 58.5F},
                                       {"BL1", 16, 53, 0},
                                       {"TL1", 29, 36, 0}},
                           .Holes = {
                               {32, "S", "n", "y", "y", "n", 18, 0, "*"},
                               {107, "S", "n", "y", "y", "n", 18, 0, "*"},
                               {690, "S", "y", "y", "y", "n", 18, 0, " "},
                               {900, "C", "n", "n", "n", "y", 14, 32, ""},
                               {1350, "C", "30", "y", "n", "n", 18, 0, ""},
                               {1350, "C", "n", "n", "120.5", "40", 14, 0, "*"},
                               {1592, "C", "n", "n", "y", "n", 14, 40.5F, ""},
                               {1900, "C", "n", "77", "n", "n", 18, 36, "*"},
                               {2352, "S", "n", "y", "y", "n", 14, 0, " "},
                               {2422, "S", "n", "y", "y", "n", 14, 0, " "},
                               {3000, "C", "45", "180", "n", "33.5", 18, 0, ""},
                               {3000, "C", "n", "95.5", "n", "n", 14, 25, ""},
                               {3800, "C", "n", "y", "n", "n", 14, 40.5F, ""},
                               {4100, "C", "y", "n", "n", "y", 18, 50, ""},
                               {4668, "S", "n", "y", "y", "n", 18, 0, "*"},
                               {4743, "S", "n", "y", "y", "n", 18, 0, "*"},
                           }};

const RichSection RichE = {.Type = "E",
                           .Mark = "EB3",
                           .Length = 2130,
                           .Quantity = 8,
                           .Notes = "   ",
                           .Pitch = " 10 ",
                           .JointingPieces = 0,
                           .MitreLeft = 8,
                           .MitreRight = 0,
                           .Product = {.SectionType = "E",
                                       .Product = "E233 rich",
                                       .Dim3 = 233,
                                       .Dim4 = 91,
                                       .Dim5 = 77,
                                       .Dim7 = 21.5,
                                       .Dim8 = 17,
                                       .Dim9 = 41,
                                       .Dim10 = 150,
                                       .Dim11 = 42},
                           .Notches = {{"TL1", 17, 29, 0},
                                       {"T2", 23, 45, 610},
                                       {"TR1", 19, 33, 0},
                                       {"BL1", 21, 37, 0},
                                       {"B2", 12, 51, 1330},
                                       {"BR1", 14.5F, 27, 0},
                                       {"L3", 35, 22, 93},
                                       {"R3", 28, 24, 86}},
                           .Holes = {
                               {35, "S", "n", "n", "n", "y", 18, 28, " "},
                               {40, "C", "n", "y", "n", "n", 18, 0, ""},
                               {69, "S", "n", "y", "y", "n", 18, 0, " "},
                               {441, "S", "y", "y", "y", "n", 18, 0, "*"},
                               {533, "S", "n", "y", "n", "n", 14, 0, " "},
                               {700, "C", "n", "66", "n", "n", 14, 0, "*"},
                               {700, "C", "42", "n", "n", "n", 14, 0, ""},
                               {887, "C", "n", "n", "y", "n", 14, 31, ""},
                               {1065, "C", "n", "91.5", "n", "n", 18, 44, ""},
                               {1290, "C", "n", "n", "n", "37", 18, 0, ""},
                               {1500, "C", "n", "y", "y", "n", 18, 33, "*"},
                               {1777, "C", "n", "71", "n", "n", 18, 0, ""},
                               {1777, "C", "n", "112", "n", "n", 18, 0, ""},
                               {2098, "S", "n", "y", "y", "n", 14, 0, " "},
                           }};

const RichSection RichV = {.Type = "V",
                           .Mark = "V 4",
                           .Length = 2750,
                           .Quantity = 25,
                           .Notes = "Face side up",
                           .Pitch = "",
                           .JointingPieces = 0,
                           .MitreLeft = 5,
                           .MitreRight = -6,
                           .Product = {.SectionType = "V",
                                       .Product = "VCR",
                                       .Dim3 = 63,
                                       .Dim4 = 57,
                                       .Dim7 = 23,
                                       .Dim8 = 19.5,
                                       .Dim9 = 17,
                                       .Dim10 = 22,
                                       .Dim11 = 18},
                           .Notches = {{"TL1", 9, 33, 0},
                                       {"TR1", 8, 26, 0},
                                       {"T2", 7, 41, 777},
                                       {"B2", 6, 52, 1999},
                                       {"BL1", 10.5F, 44, 0},
                                       {"BR1", 12, 47, 0},
                                       {"L3", 13, 21, 16},
                                       {"R3", 14, 23, 19}},
                           .Holes = {
                               {32, "S", "n", "y", "y", "n", 18, 0, " "},
                               {210, "S", "y", "n", "n", "y", 18, 0, " "},
                               {690, "C", "n", "y", "n", "n", 14, 24, "*"},
                               {1000, "C", "n", "n", "y", "n", 18, 38, ""},
                               {1375, "C", "n", "27", "n", "n", 18, 0, "*"},
                               {1900, "C", "n", "n", "33", "n", 18, 0, ""},
                               {2330, "C", "n", "n", "n", "n", 18, 0, ""},
                               {2718, "S", "n", "y", "y", "n", 18, 0, " "},
                           }};

const RichSection RichR = {
    .Type = "R",
    .Mark = "R2",
    .Length = 3020,
    .Quantity = 6,
    .Notes = "",
    .Pitch = "",
    .JointingPieces = 7,
    .MitreLeft = -5,
    .MitreRight = -4,
    .Product =
        {.SectionType = "R", .Product = "CLR", .Dim3 = 147, .Dim5 = 62, .Dim9 = 45, .Dim11 = 51},
    .Notches = {{"TL1", 16, 35, 0},
                {"T2", 12, 44, 655},
                {"TR1", 14, 38, 0},
                {"BL1", 18, 42, 0},
                {"B2", 13, 49, 2105},
                {"BR1", 15, 51, 0},
                {"L3", 22, 28, 48},
                {"R3", 26, 31, 53}},
    .Holes = {
        {35, "S", "n", "n", "n", "y", 18, 28, " "},
        {400, "S", "n", "n", "n", "y", 14, 0, " "},
        {455, "S", "n", "n", "n", "y", 14, 0, "*"},
        {1000, "C", "n", "n", "n", "72.5", 14, 0, "*"},
        {1510, "C", "y", "y", "n", "n", 14, 0, ""},
        {1510, "C", "n", "n", "37", "n", 14, 0, ""},
        {2250, "C", "n", "63", "n", "n", 14, 26, ""},
        {2985, "S", "n", "n", "n", "y", 18, 28, " "},
    }};

const RichSection RichT = {.Type = "T",
                           .Mark = "TH9",
                           .Length = 1530,
                           .Quantity = 40,
                           .Notes = "Crown up",
                           .Pitch = "",
                           .JointingPieces = 0,
                           .MitreLeft = 11,
                           .MitreRight = -9,
                           .Product = {.SectionType = "T",
                                       .Product = "TH113 rich",
                                       .Dim3 = 113,
                                       .Dim4 = 57,
                                       .Dim5 = 49,
                                       .Dim7 = 23,
                                       .Dim8 = 19.5,
                                       .Dim9 = 67},
                           .Notches = {{"TL1", 14, 22, 0},
                                       {"T2", 11, 34, 455},
                                       {"TR1", 13, 26, 0},
                                       {"BL1", 15, 24, 0},
                                       {"B2", 12, 31, 905},
                                       {"BR1", 16, 28, 0},
                                       {"L3", 37, 19, 61},
                                       {"R3", 33, 17, 72}},
                           .Holes = {
                               {32, "S", "y", "n", "n", "y", 14, 0, " "},
                               {72, "S", "n", "y", "y", "n", 18, 0, " "},
                               {383, "S", "n", "y", "y", "n", 14, 0, "*"},
                               {500, "C", "y", "n", "n", "n", 18, 30, ""},
                               {700, "C", "n", "n", "n", "y", 14, 22, "*"},
                               {765, "C", "n", "y", "n", "n", 18, 35, ""},
                               {1100, "C", "33", "n", "n", "n", 18, 0, ""},
                               {1250, "C", "n", "77", "n", "n", 14, 0, ""},
                               {1498, "S", "y", "y", "y", "y", 18, 0, "*"},
                           }};

Item ItemOf(const RichSection& section) {
  Item item;
  item.Mark = section.Mark;
  item.SectionType = section.Type;
  item.Product = section.Product.Product;
  item.Length = section.Length;
  item.Quantity = section.Quantity;
  item.Notes = section.Notes;
  item.Pitch = section.Pitch;
  item.JointingPieces = section.JointingPieces;
  item.MitreLeft = section.MitreLeft;
  item.MitreRight = section.MitreRight;
  for (const Notch& notch : section.Notches) {
    item.Notches.Append(notch);
  }
  for (const RichHole& row : section.Holes) {
    Hole hole;
    hole.XPos = row.XPos;
    hole.Kind = row.Kind;
    hole.BF = row.BF;
    hole.W1 = row.W1;
    hole.W2 = row.W2;
    hole.TF = row.TF;
    hole.Diameter = row.Diameter;
    hole.SlotLength = row.SlotLength;
    hole.CounterSunk = row.CounterSunk;
    item.Holes.Append(hole);
    if (row.Kind == CustomKind) ++item.CustomHoleCount;
  }
  return item;
}

class RichSheetTest : public SheetTest {
 protected:
  RichSheetTest();

  // Draws the section's sheet as a document of its own and compares it with its golden.
  void ExpectSheet(const RichSection& section, const std::string& name);
};

RichSheetTest::RichSheetTest() {
  // The detail picture of rails, twice as wide as high: 45.72 x 22.86 mm.
  const std::filesystem::path picture = TempPath("Drawings/drg015.wmf");
  std::filesystem::create_directories(picture.parent_path());
  ProgramFolder = picture.parent_path().parent_path().string();
  TempFile("Drawings/drg015.wmf", SmallMetafile(1800, 900));
  SetLogo(60, 18);

  txtProject = {"OJ-7731", "J 2041", "Marsh & Field Ltd", "Barn at Low Farm", "K. Loom"};
  DTPicker1 = {2026, 9, 7};
  CompanyName = "Hillside Steelwork";
  CompanyDetails = "Unit 4, Mill Lane";
  MinHoleSep = 4;
}

void RichSheetTest::ExpectSheet(const RichSection& section, const std::string& name) {
  SectionDims.Append(section.Product);
  Items.Append(ItemOf(section));
  PrepareDrawingWidth(surface);
  AdjustHoleSpacing(1);
  DrawSection(surface, 1, true, true);
  ExpectGolden("sheets/" + name, surface.Lines(), EqualButForNoise);
}

TEST_F(RichSheetTest, The_sheet_of_a_rich_purlin_is_drawn_line_by_line) {
  ExpectSheet(RichZ, "rich-z.txt");
}

TEST_F(RichSheetTest, The_sheet_of_a_rich_channel_is_drawn_line_by_line) {
  ExpectSheet(RichC, "rich-c.txt");
}

// Margins that differ from each other, so that none can stand for another.
TEST_F(RichSheetTest, The_sheet_of_a_rich_channel_keeps_to_margins_of_different_width) {
  LeftMargin = 13;
  RightMargin = 8;
  TopMargin = 17;
  BottomMargin = 11;
  ExpectSheet(RichC, "rich-c-uneven-margins.txt");
}

TEST_F(RichSheetTest, The_sheet_of_a_rich_eaves_beam_is_drawn_line_by_line) {
  ExpectSheet(RichE, "rich-e.txt");
}

TEST_F(RichSheetTest, The_sheet_of_a_rich_cladding_rail_is_drawn_line_by_line) {
  ExpectSheet(RichV, "rich-v.txt");
}

TEST_F(RichSheetTest, The_sheet_of_a_rich_cleader_rail_is_drawn_line_by_line) {
  ExpectSheet(RichR, "rich-r.txt");
}

TEST_F(RichSheetTest, The_sheet_of_a_rich_top_hat_is_drawn_line_by_line) {
  ExpectSheet(RichT, "rich-t.txt");
}

}  // namespace
}  // namespace orvane::test
