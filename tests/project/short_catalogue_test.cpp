// A job of more accessories than the present catalogues have: nothing of it is lost.
#include <string>
#include <vector>

#include "project/accessory_lines.h"
#include "project/history.h"
#include "project/lifecycle.h"
#include "project/project_backup.h"
#include "project/project_file.h"
#include "project/rules/accessory_rules.h"
#include "project/sections.h"
#include "project/unfit_texts.h"
#include "tests/project/lifecycle_fixture.h"

namespace orvane {
namespace {

using test::BytesOf;
using test::First;
using test::Joined;
using test::LifecycleTest;
using test::LinesOf;
using test::SmallProjectLines;
using test::With;
namespace line = test::line;

// The small project has two accessories of each type, with a line of the first, the third and the
// fourth.
class ShortCatalogueTest : public LifecycleTest {
 protected:
  static ProjectNotes NotesOf(const std::vector<std::string>& lines) {
    TextFile file(Joined(lines));
    return ReadProjectFile(file);
  }

  // Opening gives up the blank of a countersink that is none, and nothing else.
  static std::vector<std::string> OnceRead() {
    return With(SmallProjectLines(), line::FirstHoleCounterSunk, "");
  }
};

TEST_F(ShortCatalogueTest, What_it_lacks_is_written_back_where_it_stood) {
  struct Case {
    std::int16_t Type1;
    std::int16_t Type2;
  };
  // Without accs2.csv, without both, with one accessory less of each type.
  for (const Case& each : {Case{2, 0}, Case{0, 0}, Case{1, 1}}) {
    SetCatalogue(each.Type1, each.Type2);
    NotesOf(SmallProjectLines());
    ExpectFlags({-1, 0, -1, -1});
    EXPECT_EQ(LinesOf(ProjectText()), OnceRead());
  }
}

TEST_F(ShortCatalogueTest, It_is_told_by_how_much) {
  SetCatalogue(2, 2);
  EXPECT_EQ(NotesOf(SmallProjectLines()).Line(), "");
  SetCatalogue(2, 1);
  EXPECT_EQ(NotesOf(SmallProjectLines()).Line(),
            "1 accessory mark and 1 accessory line of this job aren't in the catalogue: they are "
            "kept, but can't be shown or edited");
  SetCatalogue(0, 0);
  EXPECT_EQ(NotesOf(SmallProjectLines()).Line(),
            "4 accessory marks and 3 accessory lines of this job aren't in the catalogue: they "
            "are kept, but can't be shown or edited");
  // A line of an accessory of the other type is nobody's either. The flags are as many as ever.
  SetCatalogue(1, 3);
  EXPECT_EQ(NotesOf(With(SmallProjectLines(), line::Lines1End - 3, " 2 ")).Line(),
            "1 accessory line of this job isn't in the catalogue: it is kept, but can't be shown "
            "or edited");
  SetCatalogue(2, 2);
  std::vector<std::string> more = SmallProjectLines();
  more.emplace_back("-1 ");
  EXPECT_EQ(NotesOf(more).Line(),
            "1 accessory mark of this job isn't in the catalogue: it is kept, but can't be shown "
            "or edited");
  EXPECT_EQ(NotesOf(With(more, line::ProjectDate, "tomorrow")).Line(),
            "The date \"tomorrow\" can't be read; today's is in its place. 1 accessory mark of "
            "this job isn't in the catalogue: it is kept, but can't be shown or edited");
}

TEST_F(ShortCatalogueTest, A_longer_one_is_nothing_to_tell) {
  SetCatalogue(2, 4);
  EXPECT_EQ(NotesOf(SmallProjectLines()).Line(), "");
}

TEST_F(ShortCatalogueTest, Opening_tells_it_and_saving_gives_the_same_bytes) {
  SetCatalogue(0, 0);
  const std::string bytes = Joined(OnceRead());
  TempFile("job.ovd", bytes);
  OpenFile(JobPath());
  EXPECT_EQ(window.Note,
            "4 accessory marks and 3 accessory lines of this job aren't in the catalogue: they "
            "are kept, but can't be shown or edited");
  EXPECT_TRUE(SaveProject(False));
  EXPECT_TRUE(person.ChoiceBoxes.empty());
  EXPECT_EQ(BytesOf(JobPath()), bytes);
  // The file before is as good a version as any.
  EXPECT_EQ(BytesOf(JobPath() + ".bak"), bytes);
}

TEST_F(ShortCatalogueTest, The_text_of_such_a_job_comes_back_as_it_is) {
  SetCatalogue(1, 0);
  NotesOf(SmallProjectLines());
  const std::string text = ProjectText();
  EXPECT_EQ(FitOf(text, OpenJob()), FileFit::Same);
  EXPECT_EQ(FitOf(text.substr(0, text.size() - 5), OpenJob()), FileFit::Otherwise);
  EXPECT_EQ(CheckProjectContent(text), ProjectContent::Old);
  // And apart from the tables.
  TextFile file(text);
  EXPECT_EQ(ProjectText(ViewOf(ReadProject(file).Records)), text);
}

TEST_F(ShortCatalogueTest, What_stands_behind_the_flags_and_is_none_is_not_kept) {
  SetCatalogue(2, 1);
  std::vector<std::string> lines = SmallProjectLines();
  lines.emplace_back("");
  lines.emplace_back("remark");
  NotesOf(lines);
  ExpectFlags({-1, 0, -1, -1});
}

TEST_F(ShortCatalogueTest, The_next_job_has_nothing_of_it) {
  SetCatalogue(1, 1);
  NotesOf(SmallProjectLines());
  ASSERT_EQ(AccUsed.UBound(), 4);
  // The flags of the catalogue's accessories stay where a file has none.
  EXPECT_EQ(NotesOf(First(SmallProjectLines(), line::Lines1End)).Line(), "");
  ExpectFlags({-1, 0});
  NotesOf(SmallProjectLines());
  NewProjectTables({2024, 3, 5});
  ExpectFlags({0, 0});
}

TEST_F(ShortCatalogueTest, An_edit_leaves_it_alone) {
  SetCatalogue(1, 1);
  AccDefs.Resize(2);
  AccDefs.At(1).ParamNames.Resize(2);
  NotesOf(SmallProjectLines());
  ClearAccessory(1);
  EXPECT_TRUE(AccLines1.Empty());
  ASSERT_EQ(AccLines2.UBound(), 2);
  ExpectFlags({0, 0, -1, -1});
  TextRows rows;
  rows.Append({}).Append("C1");
  StoreType2Lines(2, rows);
  ASSERT_EQ(AccLines2.UBound(), 3);
  EXPECT_EQ(AccLines2.At(1).Mark, "C1");
  EXPECT_EQ(AccLines2.At(2).Mark, "A1");
  EXPECT_EQ(AccLines2.At(3).Mark, "B2");
  ExpectFlags({0, -1, -1, -1});
}

TEST_F(ShortCatalogueTest, Its_accessories_are_not_in_use) {
  SetCatalogue(1, 1);
  AccDefs.Resize(2);
  NotesOf(SmallProjectLines());
  EXPECT_EQ(AccessoriesInUse(), (std::vector<std::int16_t>{1}));
}

TEST_F(ShortCatalogueTest, Steps_back_and_forth_keep_it) {
  SetCatalogue(1, 1);
  NotesOf(OnceRead());
  BeginHistory();
  ClearAccessory(1);
  RestoredStep restored;
  ASSERT_TRUE(UndoStep(restored));
  EXPECT_EQ(LinesOf(ProjectText()), OnceRead());
  ASSERT_TRUE(RedoStep(restored));
  ExpectFlags({0, 0, -1, -1});
  ASSERT_TRUE(UndoStep(restored));
  // Another job that can't be read to its end takes its place, and is taken back.
  TempFile("torn.ovd", Joined(With(SmallProjectLines(), line::Lines1Count, "x")));
  OpenFile(Path("@/torn.ovd"));
  ASSERT_TRUE(UndoStep(restored));
  EXPECT_EQ(LinesOf(ProjectText()), OnceRead());
  EndHistory();
}

}  // namespace
}  // namespace orvane
