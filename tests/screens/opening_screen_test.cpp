#include <QDragEnterEvent>
#include <QLabel>
#include <QMenu>
#include <QMimeData>
#include <QUrl>

#include "core/dates.h"
#include "project/project_file.h"
#include "project/recent_files.h"
#include "tests/screens/sections_fixture.h"

namespace orvane::test {
namespace {

// Open and the list of recent files.
class OpeningScreen : public SectionsTest {
 protected:
  std::string FileLabel() { return FromQt(Find<QLabel>("lblFilename(1)").text()); }

  // Writes a project of purlins with these marks, and leaves an empty one behind.
  std::string FileOf(const std::string& name, const std::vector<std::string>& marks) {
    for (const std::string& mark : marks) Put("Z", mark, "Z14012", 6000, 3);
    txtProject.at(1) = "Job " + name;
    const std::string path = TempPath(name);
    WriteProjectFile(path);
    Items.Clear();
    txtProject = {};
    return path;
  }
  void Open(const std::string& path) {
    platform.Chosen.push_back(path);
    Click("SSCommand1(2)");
    Settle();
  }
  // Drags these files over the widget and lets them go; false where they aren't taken. The file
  // manager proposes to move them, and must not: the job would be gone from its folder.
  static bool Drop(QWidget& on, const std::vector<std::string>& paths) {
    QMimeData files;
    QList<QUrl> urls;
    for (const std::string& path : paths) urls.append(QUrl::fromLocalFile(ToQt(path)));
    files.setUrls(urls);
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction | Qt::MoveAction, &files, Qt::LeftButton,
                          Qt::NoModifier);
    enter.setDropAction(Qt::MoveAction);
    QCoreApplication::sendEvent(&on, &enter);
    if (!enter.isAccepted()) return false;
    EXPECT_EQ(enter.dropAction(), Qt::CopyAction);
    QDropEvent drop(QPointF(5, 5), Qt::CopyAction | Qt::MoveAction, &files, Qt::LeftButton,
                    Qt::NoModifier);
    QCoreApplication::sendEvent(&on, &drop);
    EXPECT_EQ(drop.dropAction(), Qt::CopyAction);
    return drop.isAccepted();
  }
  // The captions of the recent entries that show.
  std::vector<std::string> RecentCaptions() {
    std::vector<std::string> captions;
    for (const QAction* entry : Find<QMenu>("mnuBar(0)").actions()) {
      for (int n = 1; n <= 5; ++n) {
        if (FromQt(entry->objectName()) == "mnuProject(" + std::to_string(8 + n) + ")") {
          captions.push_back(FromQt(entry->text()));
        }
      }
    }
    return captions;
  }
};

TEST_F(OpeningScreen, Opening_shows_the_first_section_with_the_cursor_on_its_mark) {
  const std::string path = FileOf("job.ovd", {"A1", "B1"});
  Open(path);
  ASSERT_EQ(platform.OpenDialogs.size(), 1U);
  const FileDialog& dialog = platform.OpenDialogs.front();
  EXPECT_EQ(dialog.Title, "Open Project");
  EXPECT_EQ(dialog.Filter, "Orvane Detail Projects (*.ovd)|*.ovd");
  EXPECT_EQ(dialog.DefaultExtension, ".ovd");
  EXPECT_EQ(dialog.InitialFolder, "");
  EXPECT_TRUE(dialog.FileMustExist);
  EXPECT_TRUE(dialogs.Boxes().empty());
  EXPECT_TRUE(GridShowsItems());
  EXPECT_TRUE(CursorAt(1, 1, "A1"));
  EXPECT_EQ(Sheet().ShownRow(), 1);
  EXPECT_EQ(FileLabel(), path);
  EXPECT_EQ(ProjectFileName, path);
  EXPECT_EQ(FromQt(Find<QLineEdit>("txtProject(1)").text()), "Job job.ovd");
  EXPECT_EQ(ProjectDirty, True);
  Type("Q");
  EXPECT_EQ(Items.At(1).Mark, "Q");
}

TEST_F(OpeningScreen, The_open_dialog_doesnt_read_the_folder_of_the_save_dialog) {
  StoreProjectDirectory("/elsewhere/");
  platform.Chosen.push_back(std::nullopt);
  Press(Qt::Key_O, Qt::ControlModifier);
  Settle();
  EXPECT_EQ(platform.OpenDialogs.front().InitialFolder, "");
  EXPECT_EQ(ProjectDirectory(), "/elsewhere/");
}

TEST_F(OpeningScreen, A_date_that_no_form_fits_is_told_in_a_quiet_line_and_becomes_todays) {
  const std::string path = FileOf("job.ovd", {"A1"});
  std::string bytes = BytesOf(path);
  const std::string line = ProjectDateText(DTPicker1, "dd/MM/yyyy");
  bytes.replace(bytes.find(line), line.size(), "5 Marzo 24");
  TempFile("job.ovd", bytes);
  platform.Present = {{2026, 11, 22}, 9, 0, 0};
  auto& note = Find<QLabel>("lblJobNote");
  EXPECT_FALSE(note.isVisible());
  Open(path);
  EXPECT_TRUE(dialogs.Boxes().empty());
  EXPECT_EQ(DTPicker1, (Date{2026, 11, 22}));
  EXPECT_TRUE(note.isVisible());
  EXPECT_EQ(FromQt(note.text()), "The date \"5 Marzo 24\" can't be read; today's is in its place");
  EXPECT_EQ(FileLabel(), path);
  // It stays while the job is looked at, and goes with a save.
  Press(Qt::Key_Tab);
  Settle();
  EXPECT_TRUE(note.isVisible());
  Press(Qt::Key_S, Qt::ControlModifier);
  Settle();
  EXPECT_FALSE(note.isVisible());
}

TEST_F(OpeningScreen, A_job_dropped_on_the_window_is_opened_with_its_prompt) {
  const std::string path = FileOf("job.ovd", {"A1", "B1"});
  Put("Z", "Old", "Z14012", 6000);
  Show();
  ProjectDirty = True;
  dialogs.ExpectBox("Save changes to current project?", "New Project", QMessageBox::Cancel);
  EXPECT_TRUE(Drop(*main, {path}));
  Settle();
  EXPECT_EQ(Marks(), std::vector<std::string>{"Old"});
  dialogs.ExpectBox("Save changes to current project?", "New Project", QMessageBox::No);
  EXPECT_TRUE(Drop(*main, {path}));
  Settle();
  EXPECT_EQ(Marks(), (std::vector<std::string>{"A1", "B1"}));
  EXPECT_EQ(FileLabel(), path);
  EXPECT_TRUE(CursorAt(1, 1, "A1"));
}

TEST_F(OpeningScreen, Over_a_field_too_a_job_is_a_job_and_no_text) {
  const std::string path = FileOf("job.ovd", {"A1"});
  Put("Z", "Old", "Z14012", 6000);
  Show(1, 1);
  ProjectDirty = False;
  EXPECT_TRUE(Drop(Editor(), {path}));
  Settle();
  EXPECT_EQ(Marks(), std::vector<std::string>{"A1"});
}

TEST_F(OpeningScreen, What_is_no_single_job_is_not_taken) {
  const std::string path = FileOf("job.ovd", {"A1"});
  const std::string other = TempFile("list.csv", "Mark\n");
  EXPECT_FALSE(Drop(*main, {other}));
  EXPECT_FALSE(Drop(*main, {path, path}));
  EXPECT_FALSE(Drop(*main, {}));
  Settle();
  EXPECT_TRUE(Items.Empty());
}

TEST_F(OpeningScreen, A_cancelled_open_changes_nothing_and_says_nothing) {
  Put("Z", "A1", "Z14012", 6000);
  Show(1, 3);
  platform.Chosen.push_back(std::nullopt);
  Click("SSCommand1(2)");
  Settle();
  EXPECT_TRUE(CursorAt(1, 3, "6000"));
  EXPECT_EQ(FileLabel(), "");
  EXPECT_EQ(ProjectDirty, False);
}

TEST_F(OpeningScreen, Open_of_a_dirty_project_asks_under_the_title_New_Project) {
  const std::string path = FileOf("job.ovd", {"A1"});
  Put("Z", "Old", "Z14012", 6000);
  Show();
  for (const auto answer : {QMessageBox::Cancel, QMessageBox::No}) {
    ProjectDirty = True;
    dialogs.ExpectBox("Save changes to current project?", "New Project", answer);
    if (answer == QMessageBox::No) platform.Chosen.push_back(path);
    Entry("mnuProject(1)").trigger();
    Settle();
    EXPECT_EQ(Items.At(1).Mark, answer == QMessageBox::No ? "A1" : "Old");
  }
  ProjectDirty = True;
  const std::string text = ProjectText();
  dialogs.ExpectBox("Save changes to current project?", "New Project", QMessageBox::Yes);
  platform.Chosen.push_back(std::nullopt);
  Items.At(1).Mark = "Saved";
  Click("SSCommand1(2)");
  Settle();
  EXPECT_NE(BytesOf(path), text) << "Yes saves under the project's own name";
  EXPECT_EQ(ProjectDirty, False);
}

TEST_F(OpeningScreen, Opening_while_a_cell_is_edited_neither_validates_nor_writes_it) {
  const std::string path = FileOf("job.ovd", {"A1", "B1"});
  Put("Z", "Old", "Z14012", 6000);
  Show(1, 3);
  Retype("0");
  dialogs.ExpectBox("Save changes to current project?", "New Project", QMessageBox::No);
  platform.Chosen.push_back(path);
  Press(Qt::Key_O, Qt::ControlModifier);
  Settle();
  EXPECT_EQ(Items.At(1).Length, 6000);
  EXPECT_TRUE(CursorAt(1, 1, "A1"));
  EXPECT_TRUE(GridShowsItems());
  Press(Qt::Key_Down);
  EXPECT_TRUE(CursorAt(2, 1, "B1"));
}

TEST_F(OpeningScreen, An_empty_project_opens_with_the_heading_alone) {
  const std::string path = FileOf("empty.ovd", {});
  Item& old = Put("E", "Old", "E20020", 6000);
  old.Pitch = "10";
  old.PatternName = "Eaves Beam";
  Show(1, 5);
  Open(path);
  EXPECT_EQ(Sections().Rows(), 1);
  EXPECT_EQ(Sections().Row(), 0);
  EXPECT_EQ(CurrentItem, 0);
  EXPECT_TRUE(NoEditor());
  EXPECT_EQ(Sheet().ShownRow(), 0);
  EXPECT_EQ(Patterns().currentIndex(), -1);
  EXPECT_EQ(Find<QComboBox>("cboPitch").currentIndex(), -1);
  EXPECT_EQ(FileLabel(), path);
  EXPECT_EQ(ProjectDirty, True);
  Add("Z");
  EXPECT_TRUE(CursorAt(1, 1, ""));
}

TEST_F(OpeningScreen, A_project_opened_after_a_longer_one_leaves_no_row_behind) {
  const std::string longer = FileOf("longer.ovd", {"A1", "B1", "C1"});
  const std::string shorter = FileOf("shorter.ovd", {"X1"});
  Open(longer);
  ClickCell(Sections(), 3, 5);
  Entry("mnuProject(9)");
  ProjectDirty = False;
  Open(shorter);
  EXPECT_TRUE(GridShowsItems());
  EXPECT_TRUE(CursorAt(1, 1, "X1"));
}

TEST_F(OpeningScreen, Rows_other_than_the_first_keep_their_holes_until_they_are_visited) {
  Put("Z", "A1", "Z14012", 6000).PatternName = "Butt Single Holes";
  PutHole(Items.At(1), 1234, "S");
  Put("Z", "B1", "Z14012", 6000).PatternName = "Butt Single Holes";
  PutHole(Items.At(2), 1234, "S");
  const std::string path = FileOf("job.ovd", {});
  Open(path);
  EXPECT_EQ(HolesOf(1), (std::vector<int>{32, 5968}));
  EXPECT_EQ(HolesOf(2), (std::vector<int>{1234}));
  Press(Qt::Key_Down);
  EXPECT_EQ(HolesOf(2), (std::vector<int>{32, 5968}));
}

// 4 mm of paper are 4 / (228 / 6000) mm of a section of 6 m. Who prints or converts a row that was
// never visited finds the gaps of this page, not those of the office that saved the file.
TEST_F(OpeningScreen, Gaps_of_all_rows_are_those_of_the_page_and_the_separation_of_today) {
  for (const char* mark : {"A1", "B1"}) {
    Item& item = Put("Z", mark, "Z14012", 6000);
    item.PatternName = CustomPattern;
    PutHole(item, 3000, "S");
    PutHole(item, 3030, "S");
    item.Holes.At(2).DrawGap = 30;
  }
  Open(FileOf("job.ovd", {}));
  EXPECT_EQ(DrawingWidth, 228);
  EXPECT_EQ(MinHoleSep, 4);
  EXPECT_NEAR(Items.At(2).Holes.At(2).DrawGap, 4 * 6000 / 228.0, 1e-3);
}

TEST_F(OpeningScreen, A_file_cut_within_its_sections_tells_why_and_shows_what_was_read) {
  const std::string good = FileOf("good.ovd", {"G1"});
  const std::string bytes = BytesOf(FileOf("whole.ovd", {"A1", "B1", "C1"}));
  const std::size_t within = bytes.find("\"C1\"");
  ASSERT_NE(within, std::string::npos);
  const std::string cut = TempFile("cut.ovd", bytes.substr(0, within + 8));
  Open(good);
  ASSERT_EQ(RecentFiles.front(), good);
  Type("G2");
  ProjectDirty = False;

  dialogs.ExpectBox("Input past end of file");
  Open(cut);
  EXPECT_TRUE(GridShowsItems());
  EXPECT_EQ(Items.At(1).Mark, "A1");
  EXPECT_EQ(CurrentItem, 0);
  EXPECT_EQ(Sections().Model().GreyRow(), 0);
  EXPECT_TRUE(NoEditor());
  EXPECT_EQ(ProjectFileName, good);
  EXPECT_EQ(FileLabel(), good + " (not fully read)");
  EXPECT_EQ(ProjectDirty, False);
  EXPECT_EQ(RecentFiles.front(), good);
  EXPECT_EQ(RecentCaptions().size(), 1U);

  // The work goes on from what there is.
  ClickCell(Sections(), 2, 4);
  EXPECT_TRUE(CursorAt(2, 4, "3"));
  Add("V");
  EXPECT_TRUE(GridShowsItems());
}

TEST_F(OpeningScreen, A_bad_number_in_a_file_tells_its_description) {
  std::string bytes = BytesOf(FileOf("whole.ovd", {"A1", "B1"}));
  bytes.replace(bytes.rfind(" 6000 "), 6, " 6oo0 ");
  const std::string bad = TempFile("bad.ovd", bytes);
  Put("Z", "Old", "Z14012", 5000);
  Put("Z", "Old2", "Z14012", 5000);
  Put("Z", "Old3", "Z14012", 5000);
  Show(3, 3);
  Retype("0");
  dialogs.ExpectBox("Save changes to current project?", "New Project", QMessageBox::No);
  dialogs.ExpectBox("Type mismatch");
  Open(bad);
  EXPECT_TRUE(GridShowsItems());
  EXPECT_EQ(Items.At(1).Mark, "A1");
  EXPECT_EQ(CurrentItem, 0);
  EXPECT_TRUE(NoEditor());
}

TEST_F(OpeningScreen, The_recent_list_shows_the_latest_first_and_opens_without_a_question) {
  EXPECT_FALSE(Entry("mnuProject(8)").isVisible());
  EXPECT_TRUE(RecentCaptions().empty());
  const std::string first = FileOf("1.ovd", {"A1"});
  const std::string second = FileOf("2.ovd", {"B1"});
  Open(first);
  EXPECT_TRUE(Entry("mnuProject(8)").isVisible());
  ProjectDirty = False;
  Open(second);
  EXPECT_EQ(RecentCaptions(), (std::vector<std::string>{second, first}));
  EXPECT_EQ(RecentFile(1), second);
  EXPECT_EQ(RecentFile(2), first);

  Type("changed");
  Entry("mnuProject(10)").trigger();
  Settle();
  EXPECT_TRUE(dialogs.Boxes().empty());
  EXPECT_TRUE(CursorAt(1, 1, "A1"));
  EXPECT_EQ(RecentCaptions(), (std::vector<std::string>{first, second, first}));
  EXPECT_EQ(ProjectDirty, True);
}

TEST_F(OpeningScreen, A_recent_file_opened_while_a_refusable_cell_is_edited_tells_nothing) {
  Open(FileOf("1.ovd", {"A1"}));
  ClickCell(Sections(), 1, 3);
  Retype("0");
  Entry("mnuProject(9)").trigger();
  Settle();
  EXPECT_EQ(Items.At(1).Length, 6000);
  EXPECT_TRUE(CursorAt(1, 1, "A1"));
}

TEST_F(OpeningScreen, Opening_the_first_entry_leaves_the_list_and_opening_the_third_doubles_it) {
  std::vector<std::string> paths;
  for (const std::string name : {"1", "2", "3", "4"}) {
    paths.push_back(FileOf(name + ".ovd", {"M" + name}));
  }
  for (const std::string& path : paths) {
    ProjectDirty = False;
    Open(path);
  }
  const std::vector<std::string> list = {paths[3], paths[2], paths[1], paths[0]};
  ASSERT_EQ(RecentCaptions(), list);
  Entry("mnuProject(9)").trigger();
  Settle();
  EXPECT_EQ(RecentCaptions(), list);
  Entry("mnuProject(11)").trigger();
  Settle();
  EXPECT_EQ(RecentCaptions(),
            (std::vector<std::string>{paths[1], paths[3], paths[2], paths[1], paths[0]}));
  // Five entries at most: the oldest drops out.
  Entry("mnuProject(11)").trigger();
  Settle();
  EXPECT_EQ(RecentCaptions(),
            (std::vector<std::string>{paths[2], paths[1], paths[3], paths[2], paths[1]}));
  for (int n = 1; n <= 5; ++n) {
    EXPECT_EQ(RecentFile(n), RecentFiles.at(static_cast<std::size_t>(n) - 1));
  }
}

TEST_F(OpeningScreen, A_recent_file_that_has_gone_tells_why_and_stays_in_the_list) {
  const std::string gone = FileOf("gone.ovd", {"A1"});
  const std::string other = FileOf("other.ovd", {"B1"});
  Open(gone);
  ProjectDirty = False;
  Open(other);
  std::filesystem::remove(gone);
  dialogs.ExpectBox("File not found");
  Entry("mnuProject(10)").trigger();
  Settle();
  EXPECT_EQ(RecentCaptions(), (std::vector<std::string>{other, gone}));
  EXPECT_EQ(ProjectFileName, other);
  EXPECT_EQ(FileLabel(), other);
  EXPECT_TRUE(GridShowsItems());
}

TEST_F(OpeningScreen, A_recent_file_that_has_gone_leaves_the_screen_as_it_is) {
  const std::string gone = FileOf("gone.ovd", {"A1"});
  const std::string other = FileOf("other.ovd", {"B1", "B2"});
  Open(gone);
  ProjectDirty = False;
  Open(other);
  std::filesystem::remove(gone);
  ClickCell(Sections(), 2, 3);
  Retype("4500");
  ASSERT_EQ(Sheet().ShownRow(), 2);
  const QPixmap sheet = Find("SSPanel4").grab();
  dialogs.ExpectBox("File not found");
  Entry("mnuProject(10)").trigger();
  Settle();
  EXPECT_TRUE(CursorAt(2, 3, "4500"));
  EXPECT_EQ(CurrentItem, 2);
  EXPECT_EQ(Sheet().ShownRow(), 2);
  EXPECT_EQ(Find("SSPanel4").grab().toImage(), sheet.toImage());
  EXPECT_EQ(FromQt(Find<QLineEdit>("txtProject(1)").text()), "Job other.ovd");
  // The cell is typed in on, and is checked when it is left.
  Retype("0");
  dialogs.ExpectBox("Invalid length");
  Press(Qt::Key_Tab);
  Settle();
}

TEST_F(OpeningScreen, A_file_whose_reading_began_and_failed_clears_the_screen) {
  Open(FileOf("job.ovd", {"B1", "B2"}));
  ASSERT_EQ(Sheet().ShownRow(), 1);
  RecentFiles.at(1) = TempFile("cut.ovd", "0,J\r\n");
  BuildRecent();
  dialogs.ExpectBox("Input past end of file");
  Entry("mnuProject(10)").trigger();
  Settle();
  EXPECT_EQ(Sheet().ShownRow(), 0);
  EXPECT_EQ(CurrentItem, 0);
  EXPECT_TRUE(GridShowsItems());
}

TEST_F(OpeningScreen, Long_paths_show_their_last_50_characters_and_no_key_of_an_ampersand) {
  const std::string fifty = "/" + std::string(45, 'p') + ".ovd";
  const std::string longer = "/x" + std::string(45, 'p') + ".ovd";
  RecentFiles = {fifty, longer, "/a&b.ovd", "", ""};
  ASSERT_EQ(fifty.size(), 50U);
  ASSERT_EQ(longer.size(), 51U);
  BuildRecent();
  EXPECT_EQ(RecentCaptions(),
            (std::vector<std::string>{fifty, "..." + longer.substr(1), "/a&&b.ovd"}));
  RecentFiles = {};
  BuildRecent();
  Settle();
  EXPECT_TRUE(RecentCaptions().empty());
  EXPECT_FALSE(Entry("mnuProject(8)").isVisible());
}

TEST_F(OpeningScreen, The_recent_list_survives_a_restart) {
  const std::string path = FileOf("1.ovd", {"A1"});
  Open(path);
  main.reset();
  details.reset();
  RecentFiles = {};
  StartMain();
  EXPECT_EQ(RecentCaptions(), (std::vector<std::string>{path}));
  EXPECT_TRUE(Entry("mnuProject(8)").isVisible());
}

TEST_F(OpeningScreen, Opening_marks_the_accessories_in_use) {
  AccUsed.At(2) = True;
  AccLines1.Append({2, 1, 3, 0});
  const std::string path = FileOf("acc.ovd", {"A1"});
  AccLines1.Clear();
  AccUsed.At(2) = False;
  main->ClearAccUsage();
  const auto& list = Find<QListWidget>("lstAccessories");
  const QString unused = list.item(1)->text();
  const QString other = list.item(2)->text();
  Open(path);
  EXPECT_NE(list.item(1)->text(), unused);
  EXPECT_EQ(list.item(2)->text(), other);
}

}  // namespace
}  // namespace orvane::test
