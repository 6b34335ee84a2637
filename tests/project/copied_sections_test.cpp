// Sections as bytes of the clipboard, and their pasting.
#include "project/copied_sections.h"

#include <limits>
#include <random>

#include "core/runtime_error.h"
#include "project/packed_records.h"
#include "project/project_file.h"
#include "tests/project/history_fixture.h"

namespace orvane::test {
namespace {

using MarkList = std::vector<std::string>;

constexpr const char* Unreadable =
    "The sections on the clipboard can't be read: they were copied by another version of the "
    "program, or not copied whole";

void ExpectSame(const Hole& one, const Hole& other) {
  EXPECT_EQ(one.XPos, other.XPos);
  EXPECT_EQ(one.Kind, other.Kind);
  EXPECT_EQ(one.BF, other.BF);
  EXPECT_EQ(one.W1, other.W1);
  EXPECT_EQ(one.W2, other.W2);
  EXPECT_EQ(one.TF, other.TF);
  EXPECT_EQ(one.Diameter, other.Diameter);
  EXPECT_EQ(one.SlotLength, other.SlotLength);
  EXPECT_EQ(one.RelX, other.RelX);
  EXPECT_EQ(one.DrawGap, other.DrawGap);
  EXPECT_EQ(one.CounterSunk, other.CounterSunk);
}

// Field by field; the mark and the serial are the caller's.
void ExpectSame(const Item& one, const Item& other) {
  EXPECT_EQ(one.SectionType, other.SectionType);
  EXPECT_EQ(one.Product, other.Product);
  EXPECT_EQ(one.Length, other.Length);
  EXPECT_EQ(one.Quantity, other.Quantity);
  EXPECT_EQ(one.DateText, other.DateText);
  EXPECT_EQ(one.Notes, other.Notes);
  EXPECT_EQ(one.MitreLeft, other.MitreLeft);
  EXPECT_EQ(one.MitreRight, other.MitreRight);
  EXPECT_EQ(one.PatternName, other.PatternName);
  EXPECT_EQ(one.CustomHoleCount, other.CustomHoleCount);
  EXPECT_EQ(one.Pitch, other.Pitch);
  EXPECT_EQ(one.JointingPieces, other.JointingPieces);
  EXPECT_EQ(one.SagBarDia, other.SagBarDia);
  ASSERT_EQ(one.Holes.UBound(), other.Holes.UBound());
  // The end sentinel goes with the holes, never alone.
  for (int row = one.Holes.Empty() ? 1 : 0; row <= one.Holes.UBound(); ++row) {
    ExpectSame(one.Holes.At(row), other.Holes.At(row));
  }
  ASSERT_EQ(one.Notches.UBound(), other.Notches.UBound());
  for (int row = 1; row <= one.Notches.UBound(); ++row) {
    EXPECT_EQ(one.Notches.At(row).Code, other.Notches.At(row).Code);
    EXPECT_EQ(one.Notches.At(row).Size1, other.Notches.At(row).Size1);
    EXPECT_EQ(one.Notches.At(row).Size2, other.Notches.At(row).Size2);
    EXPECT_EQ(one.Notches.At(row).Size3, other.Notches.At(row).Size3);
  }
}

// Sections of all sorts of texts and numbers, with those that a project file has no sign for.
class RandomSections {
 public:
  explicit RandomSections(unsigned seed) : random_(seed) {}

  Item Next() {
    Item item;
    item.Mark = Text();
    item.SectionType = Text();
    item.Product = Text();
    item.Length = Whole();
    item.Quantity = Whole();
    item.DateText = Text();
    item.Notes = Text();
    item.MitreLeft = Fraction();
    item.MitreRight = Fraction();
    for (int holes = Below(4); holes > 0; --holes) item.Holes.Append(NextHole());
    if (!item.Holes.Empty()) item.Holes.At(0) = NextHole();
    for (int notches = Below(3); notches > 0; --notches) {
      item.Notches.Append({Text(), Fraction(), Fraction(), Fraction()});
    }
    item.PatternName = Text();
    item.CustomHoleCount = Whole();
    item.Pitch = Text();
    item.JointingPieces = Whole();
    item.SagBarDia = Whole();
    return item;
  }

 private:
  int Below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(random_); }
  std::string Text() {
    static const std::vector<std::string> texts = {"",
                                                   "P1",
                                                   "12\" x 3\", see drawing",
                                                   "  blank in front",
                                                   "a\tb",
                                                   "y",
                                                   "n",
                                                   "line\r\nline",
                                                   "\xC3\xA9t\xC3\xA9",
                                                   "*",
                                                   " ",
                                                   "Z14012",
                                                   std::string("\0nul", 4),
                                                   std::string(300, 'x'),
                                                   "45.5"};
    return texts.at(static_cast<std::size_t>(Below(static_cast<int>(texts.size()))));
  }
  std::int16_t Whole() { return static_cast<std::int16_t>(Below(65536) - 32768); }
  float Fraction() { return static_cast<float>(Below(2000001) - 1000000) / 7.0F; }
  double Gap() { return (Below(2000001) - 1000000) / 3.0; }
  Hole NextHole() {
    return {Whole(),    Text(),     Text(), Text(), Text(), Text(),
            Fraction(), Fraction(), Gap(),  Gap(),  Text()};
  }

  std::mt19937 random_;
};

class CopiedSectionsTest : public HistoryFixture {
 protected:
  static MarkList MarksNow() {
    MarkList marks;
    for (const Item& item : Items) marks.push_back(item.Mark);
    return marks;
  }
  static std::string CopyOf(const std::vector<Item>& sections) {
    const Table<Item> former = std::exchange(Items, {});
    std::vector<int> rows;
    for (const Item& item : sections) {
      Items.Append(item);
      rows.push_back(Items.UBound());
    }
    std::string bytes = CopiedSections(rows);
    Items = former;
    return bytes;
  }
  static Item Marked(const std::string& mark) {
    Item item;
    item.SectionType = "Z";
    item.Product = "Z14012";
    item.Mark = mark;
    return item;
  }
  static void Paste(const MarkList& marks) {
    std::vector<Item> sections;
    for (const std::string& mark : marks) sections.push_back(Marked(mark));
    PasteSectionRows(std::move(sections));
  }
};

TEST_F(CopiedSectionsTest, Sections_come_back_with_every_field_as_it_was) {
  RandomSections random(20240305);
  for (int round = 0; round < 300; ++round) {
    SCOPED_TRACE(round);
    std::vector<Item> sections;
    for (int count = round % 5; count >= 0; --count) sections.push_back(random.Next());
    const std::vector<Item> read = ReadCopiedSections(CopyOf(sections));
    ASSERT_EQ(read.size(), sections.size());
    for (std::size_t at = 0; at < read.size(); ++at) {
      EXPECT_EQ(read[at].Mark, sections[at].Mark);
      EXPECT_EQ(read[at].Serial, 0);
      ExpectSame(read[at], sections[at]);
    }
  }
}

TEST_F(CopiedSectionsTest, Pasted_sections_equal_those_that_were_copied_in_another_job_too) {
  for (const char* mark : {"P1", "P2", "P3"}) AddPurlin(mark);
  ChoosePattern(1, "Butt 1 Sag Bar");
  ChoosePattern(3, "Butt");
  Items.At(3).Notches.Append({"T2", 10, 20.5F, 500});
  Items.At(3).Notes = "two, or \"three\"";
  const std::vector<Item> former(Items.begin(), Items.end());
  const std::string bytes = CopiedSections({1, 3});
  Items.Clear();
  BeginHistory();
  EXPECT_EQ(PasteSectionRows(ReadCopiedSections(bytes)).Row, 1);
  ASSERT_EQ(Items.UBound(), 2);
  EXPECT_EQ(Items.At(1).Mark, "P1");
  EXPECT_EQ(Items.At(2).Mark, "P3");
  ExpectSame(Items.At(1), former[0]);
  ExpectSame(Items.At(2), former[2]);
  EXPECT_GT(Items.At(1).HoleCount(), 0);
}

TEST_F(CopiedSectionsTest, Pasting_is_one_step_with_serials_of_its_own) {
  AddPurlin("P1");
  AddPurlin("P2");
  ProjectDirty = False;
  const std::string before = ProjectText();
  PasteSectionRows(ReadCopiedSections(CopiedSections({1, 2})));
  const std::string after = ProjectText();
  EXPECT_EQ(ProjectDirty, True);
  EXPECT_EQ(StepToUndo(), "Paste sections");
  EXPECT_NE(Items.At(3).Serial, Items.At(1).Serial);
  Undo();
  EXPECT_EQ(ProjectText(), before);
  Redo();
  EXPECT_EQ(ProjectText(), after);
}

TEST_F(CopiedSectionsTest, A_mark_that_exists_gets_an_A_until_it_is_free) {
  Paste({"P1", "", "Q"});
  Paste({"P1", "", "R"});
  EXPECT_EQ(MarksNow(), (MarkList{"P1", "", "Q", "P1A", "", "R"}));
  Paste({"P1", "P1A", "p1"});
  EXPECT_EQ(MarksNow(), (MarkList{"P1", "", "Q", "P1A", "", "R", "P1AA", "P1AAA", "p1"}));
  // Blanks at both ends don't make another mark of it, as in the cell.
  Items.Clear();
  Paste({"P1"});
  Paste({" P1 ", "P1"});
  EXPECT_EQ(MarksNow(), (MarkList{"P1", " P1 A", "P1A"}));
}

TEST_F(CopiedSectionsTest, What_the_catalogue_lacks_stays_and_is_named_once) {
  Item odd = Marked("P1");
  odd.Product = "Z99999";
  odd.PatternName = "Nobody's";
  Item second = odd;
  second.Mark = "P2";
  second.PatternName = "Custom";
  Item nameless = odd;
  nameless.Mark = "";
  nameless.PatternName = "";
  Item rail = Marked("R1");
  rail.SectionType = "R";
  rail.Product = "CLR";
  const PastedSections pasted = PasteSectionRows({odd, second, nameless, rail, Marked("P5")});
  EXPECT_EQ(pasted.Lacking,
            "Not in this program's catalogue, and left as pasted:\r"
            "pattern Nobody's (P1)\r"
            "product Z99999 (P1, P2, a section without a mark)");
  EXPECT_EQ(Items.At(1).Product, "Z99999");
  EXPECT_EQ(Items.At(1).PatternName, "Nobody's");
  EXPECT_EQ(PasteSectionRows({Marked("P6")}).Lacking, "");
}

TEST_F(CopiedSectionsTest, Many_that_lack_something_are_counted) {
  std::vector<Item> sections(7, Marked("P1"));
  for (Item& section : sections) section.Product = "Z99999";
  EXPECT_EQ(PasteSectionRows(sections).Lacking,
            "Not in this program's catalogue, and left as pasted:\r"
            "product Z99999 (P1, P1A, P1AA, P1AAA, P1AAAA and 2 more)");
}

TEST_F(CopiedSectionsTest, Rows_beyond_the_numbers_that_there_are_are_not_appended) {
  Items.Resize(32766);
  EXPECT_EQ(ErrorOf([] { PasteSectionRows({Marked("P1"), Marked("P2")}); }), "Overflow");
  EXPECT_EQ(Items.UBound(), 32766);
}

TEST_F(CopiedSectionsTest, Bytes_cut_off_anywhere_are_refused) {
  RandomSections random(7);
  const std::string bytes = CopyOf({random.Next(), random.Next()});
  for (std::size_t length = 0; length < bytes.size(); ++length) {
    ASSERT_EQ(ErrorOf([&] { ReadCopiedSections(bytes.substr(0, length)); }), Unreadable) << length;
  }
  EXPECT_EQ(ErrorOf([&] { ReadCopiedSections(bytes + "0"); }), Unreadable);
}

TEST_F(CopiedSectionsTest, Bytes_that_were_changed_anywhere_are_read_or_refused) {
  RandomSections random(11);
  const std::string bytes = CopyOf({random.Next(), random.Next(), random.Next()});
  int refused = 0;
  for (std::size_t at = 0; at < bytes.size(); ++at) {
    for (const char other : {'\0', '\x7F', '\xFF', '9'}) {
      std::string changed = bytes;
      changed[at] = other;
      try {
        ReadCopiedSections(changed);
      } catch (const RuntimeError& error) {
        ASSERT_EQ(error.Description(), Unreadable);
        ++refused;
      }
    }
  }
  EXPECT_GT(refused, 0);
}

TEST_F(CopiedSectionsTest, Sections_of_another_form_and_numbers_that_are_none_are_refused) {
  EXPECT_EQ(ErrorOf([] { ReadCopiedSections("Orvane sections\n00000003abc000000010"); }),
            Unreadable);
  Item item = Marked("P1");
  item.MitreLeft = std::numeric_limits<float>::quiet_NaN();
  EXPECT_EQ(ErrorOf([&] { ReadCopiedSections(CopyOf({item})); }), Unreadable);
  item.MitreLeft = 0;
  item.Holes.Append({});
  item.Holes.At(0).DrawGap = std::numeric_limits<double>::infinity();
  EXPECT_EQ(ErrorOf([&] { ReadCopiedSections(CopyOf({item})); }), Unreadable);
}

}  // namespace
}  // namespace orvane::test
