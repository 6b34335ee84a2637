// Sheets drawn beside the thread of the windows.
#include <string>
#include <thread>
#include <vector>

#include "core/catalogues.h"
#include "core/numbers.h"
#include "core/section_families.h"
#include "drawing/draw_section.h"
#include "drawing/pictures.h"
#include "holes/hole_list.h"
#include "tests/drawing/sheet_fixture.h"

namespace orvane::test {

namespace {

using Lines = std::vector<std::string>;

// What one drawing of all sections comes to.
struct Drawn {
  std::vector<Lines> Sheets;
  Lines Told;
};

class SheetThreads : public SheetTest {
 protected:
  // A section of every product, with the holes of a pattern of its family, holes by hand on and off
  // gauge, mitres, and notches, of which one has no depth.
  SheetThreads() {
    LoadShippedCatalogues();
    txtProject = {"OV-1", "J-77", "Barns & Co", "Hill Farm", "M. Lee"};
    CompanyName = "Acme Steel";
    DrawingWidth = 228;
    for (const SectionDim& dim : SectionDims) AddSectionOf(dim);
  }
  ~SheetThreads() override { frmDrawings().imgAcc = nullptr; }

  static void AddSectionOf(const SectionDim& dim) {
    Item item;
    item.Mark = "M" + DecimalText(Items.UBound() + 1);
    item.SectionType = dim.SectionType;
    item.Product = dim.Product;
    item.Length = Int16(2000 + 37 * Items.UBound());
    item.Quantity = 3;
    item.Pitch = "12";
    item.SagBarDia = 14;
    item.MitreLeft = 10;
    item.MitreRight = -5;
    item.Notches.Append({"TL1", 20, 40, 0});
    item.Notches.Append({"B2", 15, 60, 700});
    item.Notches.Append({"T2", 0, 50, 900});  // sides without length: told, and the sheet goes on
    Items.Append(item);
    const std::int16_t row = Int16(Items.UBound());
    for (const PunchPattern& pattern : PunchPatterns) {
      if (pattern.SectionType != dim.SectionType) continue;
      Items.At(row).PatternName = pattern.Name;
      break;
    }
    RebuildHoles(row, Items.At(row).PatternName);
    Hole& hole = Items.At(row).Holes.Append({});
    hole.XPos = 1234;
    hole.Kind = CustomKind;
    hole.BF = hole.W2 = hole.TF = "n";
    hole.W1 = "33";
    hole.Diameter = 14;
    hole.SlotLength = 22;
    SortHoles(row);
    AdjustHoleSpacing(row);
  }

  // Draws all of them by no more than what is handed over.
  static Drawn DrawAll(const Table<Item>& sections, SheetSource source) {
    Drawn drawn;
    source.LoadPicture = ReadDrawing;
    source.Tell = [&drawn](const std::string& description) { drawn.Told.push_back(description); };
    const PlainFontMetrics metrics;
    for (const Item& section : sections) {
      RecordingSurface page(metrics);
      DrawSection(page, source, section, true, true);
      drawn.Sheets.push_back(page.Lines());
    }
    return drawn;
  }
};

TEST_F(SheetThreads, Two_threads_at_once_draw_what_the_window_draws_and_change_nothing) {
  ASSERT_GT(Items.UBound(), 20);
  std::vector<Lines> expected;
  for (int row = 1; row <= Items.UBound(); ++row) {
    surface.Forget();
    DrawSection(surface, Int16(row), true, true);
    expected.push_back(surface.Lines());
  }
  ASSERT_FALSE(desktop.Boxes.empty());
  const std::size_t boxes = desktop.Boxes.size();

  // From here on the threads have their own of everything, and the system other values.
  const Table<Item> sections = Items;
  const SheetSource source = PresentSource();
  Items.Clear();
  LeftMargin = RightMargin = TopMargin = BottomMargin = 33;
  txtProject = {};
  CompanyName = "";
  DrawingWidth = 77;
  SetLogo(10, 10);
  frmDrawings().imgAcc = nullptr;

  Drawn first;
  Drawn second;
  std::thread one([&] { first = DrawAll(sections, source); });
  std::thread other([&] { second = DrawAll(sections, source); });
  one.join();
  other.join();

  for (const Drawn& drawn : {first, second}) {
    ASSERT_EQ(drawn.Sheets.size(), expected.size());
    for (std::size_t at = 0; at < expected.size(); ++at) {
      EXPECT_EQ(drawn.Sheets.at(at), expected.at(at)) << sections.At(static_cast<int>(at) + 1).Mark;
    }
    EXPECT_EQ(drawn.Told.size(), boxes);
  }
  EXPECT_EQ(DrawingWidth, 77);
  EXPECT_EQ(frmDrawings().imgAcc, nullptr);
  EXPECT_EQ(desktop.Boxes.size(), boxes);
}

TEST_F(SheetThreads, Every_family_is_among_the_sections) {
  for (const SectionFamily& family : SectionFamilies) {
    int sections = 0;
    for (const Item& item : Items) sections += item.SectionType == family.Letter ? 1 : 0;
    EXPECT_GT(sections, 0) << family.Letter;
  }
}

}  // namespace

}  // namespace orvane::test
