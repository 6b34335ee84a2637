// Openings that failed, one behind the other and between saves, taken back and done again: what
// stands in the tables is never written over another job's file unasked.
#include <string>

#include "project/changes.h"
#include "project/history.h"
#include "project/job_lock.h"
#include "project/lifecycle.h"
#include "tests/project/lifecycle_fixture.h"

namespace orvane {
namespace {

using test::BytesOf;
using test::Joined;
using test::LifecycleTest;
using test::LineOf;
using test::SmallProjectLines;
using test::With;
namespace line = test::line;

// job.ovd is open, whose section is Z1; torn.ovd ends within T1.
class TornOpenings : public LifecycleTest {
 protected:
  TornOpenings() {
    person.LaysLocks = true;
    WriteSmallProject(JobPath());
    auto torn = With(SmallProjectLines(), line::Mark, "\"T1\"");
    TempFile("torn.ovd", Joined(With(torn, line::Length, "x")));
    OpenFile(JobPath());
    BeginHistory();
  }
  ~TornOpenings() override {
    EndHistory();
    DropJobLock();
  }

  void FailToOpen() { OpenFile(Path("@/torn.ovd")); }
  static void Undo() {
    RestoredStep restored;
    ASSERT_TRUE(UndoStep(restored));
    if (restored.Kind == ChangeKind::OpenProject) FollowTakenOpening();
  }
  static void Redo() {
    RestoredStep restored;
    ASSERT_TRUE(RedoStep(restored));
    if (restored.Kind == ChangeKind::OpenProject) FollowTakenOpening();
  }
  static void TypeNotes(const std::string& text) {
    Change(ChangeKind::Notes, 1, [&] { Items.At(1).Notes = text; });
  }
  std::string ShownName() {
    std::string shown;
    const std::string call = "ShowFileName ";
    for (const std::string& event : log.Entries) {
      if (event.rfind(call, 0) == 0) shown = event.substr(call.size());
    }
    return shown;
  }
  // Save asks for a file, which isn't given here.
  void ExpectSaveAs() {
    const std::size_t asked = person.SaveDialogs.size();
    person.Chosen = {std::nullopt};
    EXPECT_FALSE(SaveProject(False));
    EXPECT_EQ(person.SaveDialogs.size(), asked + 1);
    person.Chosen.clear();
  }
  void SaveTo(const std::string& path) {
    person.Chosen = {path};
    ASSERT_TRUE(SaveProject(True));
  }
  std::string MarkIn(const std::string& path) { return LineOf(BytesOf(path), line::Mark); }
  bool IsLocked(const std::string& path) { return person.Locks->count(LockPathOf(path)) == 1; }
};

TEST_F(TornOpenings, The_second_one_taken_back_leaves_the_pieces_of_the_first) {
  FailToOpen();
  FailToOpen();
  ASSERT_EQ(StepsToUndo(), 2);
  Undo();
  EXPECT_EQ(Items.At(1).Mark, "T1");
  EXPECT_EQ(ShownName(), "@/job.ovd (not fully read)");
  EXPECT_FALSE(IsLocked(JobPath()));
  ExpectSaveAs();
  EXPECT_EQ(BytesOf(JobPath()), Joined(SmallProjectLines()));
  Undo();
  EXPECT_EQ(Items.At(1).Mark, "Z1");
  EXPECT_EQ(ShownName(), "@/job.ovd");
  EXPECT_TRUE(IsLocked(JobPath()));
  EXPECT_TRUE(SaveProject(False));
  EXPECT_TRUE(person.SaveDialogs.size() == 1U);
  Redo();
  EXPECT_EQ(ShownName(), "@/job.ovd (not fully read)");
  Redo();
  EXPECT_EQ(ShownName(), "@/job.ovd (not fully read)");
  EXPECT_FALSE(IsLocked(JobPath()));
  ExpectSaveAs();
}

TEST_F(TornOpenings, One_behind_steps_on_the_pieces_of_another_leaves_those_too) {
  FailToOpen();
  TypeNotes("on pieces");
  FailToOpen();
  Undo();
  EXPECT_EQ(Items.At(1).Notes, "on pieces");
  EXPECT_EQ(ShownName(), "@/job.ovd (not fully read)");
  ExpectSaveAs();
}

TEST_F(TornOpenings, Taken_back_behind_a_save_the_job_before_has_no_file_to_be_saved_to) {
  const std::string pieces = Path("@/pieces.ovd");
  FailToOpen();
  SaveTo(pieces);
  ASSERT_EQ(MarkIn(pieces), "\"T1\"");
  EXPECT_TRUE(IsLocked(pieces));
  Undo();
  EXPECT_EQ(Items.At(1).Mark, "Z1");
  EXPECT_EQ(ShownName(), "@/pieces.ovd (another project)");
  EXPECT_EQ(PathOfJob(), "");
  EXPECT_FALSE(IsLocked(pieces));
  ExpectSaveAs();
  EXPECT_EQ(MarkIn(pieces), "\"T1\"");
  // Done again it is the job that was saved.
  Redo();
  EXPECT_EQ(ShownName(), "@/pieces.ovd");
  EXPECT_EQ(PathOfJob(), pieces);
  EXPECT_TRUE(IsLocked(pieces));
  TypeNotes("later");
  EXPECT_TRUE(SaveProject(False));
  EXPECT_EQ(MarkIn(pieces), "\"T1\"");
}

TEST_F(TornOpenings, Saved_itself_then_it_has_that_file_and_the_pieces_have_none) {
  FailToOpen();
  SaveTo(Path("@/pieces.ovd"));
  Undo();
  SaveTo(Path("@/again.ovd"));
  EXPECT_EQ(ShownName(), "@/again.ovd");
  EXPECT_EQ(MarkIn(Path("@/again.ovd")), "\"Z1\"");
  Redo();
  EXPECT_EQ(ShownName(), "@/again.ovd (not fully read)");
  ExpectSaveAs();
  EXPECT_EQ(MarkIn(Path("@/again.ovd")), "\"Z1\"");
}

TEST_F(TornOpenings, Where_the_history_loses_track_of_the_tables_the_pieces_stay_pieces) {
  FailToOpen();
  Items.Resize(3);  // behind the gate's back
  TypeNotes("typed");
  ASSERT_EQ(StepsToUndo(), 1);
  FailToOpen();
  Undo();
  EXPECT_EQ(ShownName(), "@/job.ovd (not fully read)");
  ExpectSaveAs();
}

}  // namespace
}  // namespace orvane
