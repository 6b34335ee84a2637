#include <algorithm>

#include "project/project_file.h"
#include "tests/screens/sections_fixture.h"

namespace orvane::test {
namespace {

// A detailer at work, both hands on the keyboard.
class HundredSections : public SectionsTest {
 protected:
  struct Line {
    std::string Letter;
    std::string Mark;
    int ProductSteps;  // place of the product in its list; 0 for a rail
    std::string Product;
    std::string Length;
    std::string Quantity;
    std::string Notes;
  };

  // The hundred sections: 20 of each of five families, every figure different.
  static std::vector<Line> Hundred() {
    std::vector<Line> lines;
    for (int n = 1; n <= 100; ++n) {
      const std::string number = std::to_string(n);
      switch (n % 5) {
        case 0:
          lines.push_back({"Z", "Z" + number, 2, "Z14014", std::to_string(6000 + n), number, ""});
          break;
        case 1:
          lines.push_back(
              {"E", "E" + number, 3, "E17024", std::to_string(7000 + n), number, "eaves"});
          break;
        case 2:
          lines.push_back({"C", "C" + number, 1, "14012", std::to_string(8000 + n), number, ""});
          break;
        case 3:
          lines.push_back(
              {"V", "V" + number, 0, "VCR", std::to_string(2000 + n), number, "n " + number});
          break;
        default:
          lines.push_back({"R", "R" + number, 0, "CLR", std::to_string(2500 + n), number, ""});
      }
    }
    return lines;
  }

  // Adds a section by its shortcut and fills its cells one after the other.
  void TypeLine(const Line& line) {
    const std::string letters = "ZECVRT";
    const auto place = static_cast<int>(letters.find(line.Letter));
    Press(static_cast<Qt::Key>(Qt::Key_1 + place), Qt::ControlModifier);
    Type(line.Mark);
    Press(Qt::Key_Tab);
    if (line.ProductSteps > 0) {
      Press(Qt::Key_F4);
      QAbstractItemView* list = &OpenedProducts();
      // The list of a new section opens on its first entry.
      for (int step = 1; step < line.ProductSteps; ++step) QTest::keyClick(list, Qt::Key_Down);
      QTest::keyClick(list, Qt::Key_Return);
      Press(Qt::Key_Tab);
    }
    Type(line.Length);
    Press(Qt::Key_Return);
    Type(line.Quantity);
    Press(Qt::Key_Enter, Qt::KeypadModifier);
    Type(line.Notes);
  }

  static ::testing::AssertionResult Same(const Item& item, const Line& line) {
    if (item.SectionType == line.Letter && item.Mark == line.Mark && item.Product == line.Product &&
        std::to_string(item.Length) == line.Length &&
        std::to_string(item.Quantity) == line.Quantity && item.Notes == line.Notes) {
      return ::testing::AssertionSuccess();
    }
    return ::testing::AssertionFailure()
           << item.SectionType << " " << item.Mark << " " << item.Product << " " << item.Length
           << " " << item.Quantity << " " << item.Notes << " instead of " << line.Mark;
  }
};

TEST_F(HundredSections, A_hundred_sections_are_typed_saved_and_reopened_without_the_mouse) {
  const std::vector<Line> lines = Hundred();
  for (const Line& line : lines) {
    TypeLine(line);
    if (HasFatalFailure()) return;
  }
  Settle();
  ASSERT_EQ(Items.UBound(), 100);
  for (int n = 1; n <= 100; ++n) {
    EXPECT_TRUE(Same(Items.At(n), lines.at(static_cast<std::size_t>(n) - 1))) << "row " << n;
  }
  EXPECT_TRUE(GridShowsItems());
  EXPECT_EQ(Focus(), "txtEdit");
  EXPECT_EQ(Sections().Row(), 100);
  EXPECT_EQ(Sections().Col(), 5);
  EXPECT_EQ(ProjectDirty, True);

  const std::string path = TempPath("hundred.ovd");
  platform.Chosen.push_back(path);
  Press(Qt::Key_S, Qt::ControlModifier);
  Settle();
  EXPECT_EQ(ProjectDirty, False);
  EXPECT_TRUE(dialogs.Boxes().empty());
  const std::string saved = BytesOf(path);
  ASSERT_EQ(saved.size(), ProjectText().size());
  EXPECT_TRUE(saved == ProjectText());
  // 7 lines of the project, 16 of each section without holes and notches, the counts of the two
  // lists of accessory lines, a flag for each accessory.
  EXPECT_EQ(std::count(saved.begin(), saved.end(), '\n'), 7 + 1600 + 2 + AccUsed.UBound());
  EXPECT_EQ(saved.substr(0, 8), "v1.07:\r\n");
  EXPECT_NE(saved.find("\r\n\"V3\"\r\nV\r\nVCR\r\n 2003 \r\n 3 \r\n 0 \r\n 0 \r\n\"n 3\"\r\n"),
            std::string::npos);

  platform.Chosen.push_back(path);
  Press(Qt::Key_O, Qt::ControlModifier);
  Settle();
  ASSERT_EQ(Items.UBound(), 100);
  for (int n = 1; n <= 100; ++n) {
    EXPECT_TRUE(Same(Items.At(n), lines.at(static_cast<std::size_t>(n) - 1))) << "row " << n;
  }
  EXPECT_TRUE(CursorAt(1, 1, "E1"));
  EXPECT_TRUE(GridShowsItems());

  const std::string copy = TempPath("copy.ovd");
  platform.Chosen.push_back(copy);
  Press(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
  Settle();
  EXPECT_TRUE(BytesOf(copy) == saved);
}

TEST_F(HundredSections, A_patterned_job_is_the_same_after_reopening_and_a_look_at_every_row) {
  TypeLine({"Z", "P1", 2, "Z14014", "6000", "4", ""});
  Choose("cboPattern", "Butt 1 Sag Bar");
  Settle();
  ClickCell(Sections(), 1, 5);
  TypeLine({"C", "J1", 1, "14012", "5000", "2", "joist"});
  Choose("cboPattern", "Joist Csk");
  Settle();
  ClickCell(Sections(), 2, 5);
  Press(Qt::Key_Up);
  Settle();
  EXPECT_EQ(HolesOf(1), (std::vector<int>{32, 92, 3000, 5908, 5968}));
  EXPECT_EQ(HolesOf(2), (std::vector<int>{32, 2500, 4968}));

  const std::string path = TempPath("job.ovd");
  platform.Chosen.push_back(path);
  Press(Qt::Key_S, Qt::ControlModifier);
  Settle();
  const std::string saved = BytesOf(path);

  platform.Chosen.push_back(path);
  Press(Qt::Key_O, Qt::ControlModifier);
  Settle();
  Press(Qt::Key_Down);
  Press(Qt::Key_Up);
  Settle();
  EXPECT_EQ(HolesOf(1), (std::vector<int>{32, 92, 3000, 5908, 5968}));
  EXPECT_EQ(HolesOf(2), (std::vector<int>{32, 2500, 4968}));
  EXPECT_EQ(Items.At(1).SagBarDia, 14);
  Press(Qt::Key_S, Qt::ControlModifier);
  Settle();
  EXPECT_EQ(BytesOf(path), saved);
}

TEST_F(HundredSections, The_current_row_is_in_sight_after_the_window_shrinks) {
  for (const Line& line : Hundred()) Put(line.Letter, line.Mark, line.Product, 3000);
  Show(1, 1);
  main->resize(main->minimumSizeHint() + QSize(0, 180));
  QCoreApplication::processEvents();
  const auto inSight = [this](int row) {
    return Sections().viewport()->rect().contains(Sections().CellRect(row, 3));
  };
  // The last row that there is room for.
  int row = 1;
  while (inSight(row + 1)) ++row;
  ClickCell(Sections(), row, 3);
  ASSERT_GT(row, 3);
  Type("7");
  main->resize(main->minimumSizeHint());
  QCoreApplication::processEvents();
  EXPECT_TRUE(inSight(row));
  EXPECT_TRUE(CursorAt(row, 3, Cell(row, 3)));
  EXPECT_EQ(OnScreen("sspEditText").intersected(OnScreen("MSFlexGrid1")), OnScreen("sspEditText"));
  // What grows leaves the rows where they are.
  const QRect place = Sections().CellRect(row, 3);
  main->resize(main->width(), main->height() + 40);
  QCoreApplication::processEvents();
  EXPECT_EQ(Sections().CellRect(row, 3), place);
}

}  // namespace
}  // namespace orvane::test
