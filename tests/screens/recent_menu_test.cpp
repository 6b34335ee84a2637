// The recent files in the project menu.
#include "core/runtime_error.h"
#include "project/project_file.h"
#include "project/recent_files.h"
#include "project/sections.h"
#include "tests/screens/screen_fixture.h"

namespace orvane::test {

namespace {

class RecentMenuTest : public ScreenTest {
 protected:
  // The texts of the project menu from entry 7 on, as they show; "-" is a separator.
  std::vector<std::string> MenuTail() {
    std::vector<std::string> texts;
    for (const QAction* action : Find<QMenu>("mnuBar(0)").actions()) {
      if (!action->isVisible()) continue;
      texts.push_back(action->isSeparator() ? "-" : FromQt(action->text()));
    }
    texts.erase(texts.begin(), texts.begin() + 7);
    return texts;
  }

  bool Has(const std::string& name) { return main->findChild<QAction*>(ToQt(name)) != nullptr; }

  void Show(const std::array<std::string, 5>& paths) {
    RecentFiles = paths;
    BuildRecent();
  }

  std::string ProjectOf(const std::string& mark) {
    Items.At(AddSectionRow("Z")).Mark = mark;
    std::string path = TempPath(mark + ".ovd");
    WriteProjectFile(path);
    Items.Clear();
    ProjectDirty = False;
    main->DisplayItems();
    return path;
  }
};

const std::string Maximum = "Set &maximum section lengths";

}  // namespace

TEST_F(RecentMenuTest, Without_recent_files_there_is_neither_an_entry_nor_their_separator) {
  EXPECT_EQ(MenuTail(), (std::vector<std::string>{Maximum, "-", "E&xit"}));
  EXPECT_FALSE(Entry("mnuProject(8)").isVisible());
  for (int i = 9; i <= 13; ++i) EXPECT_FALSE(Has("mnuProject(" + std::to_string(i) + ")"));
}

TEST_F(RecentMenuTest, Entries_stand_in_order_between_their_separator_and_the_last_one) {
  Show({"/a.ovd", "/b.ovd", "/c.ovd", "/d.ovd", "/e.ovd"});
  EXPECT_EQ(MenuTail(), (std::vector<std::string>{Maximum, "-", "/a.ovd", "/b.ovd", "/c.ovd",
                                                  "/d.ovd", "/e.ovd", "-", "E&xit"}));
  EXPECT_EQ(FromQt(Entry("mnuProject(9)").text()), "/a.ovd");
  EXPECT_EQ(FromQt(Entry("mnuProject(13)").text()), "/e.ovd");
}

TEST_F(RecentMenuTest, A_free_entry_in_the_middle_leaves_out_its_index) {
  Show({"/a.ovd", "", "/c.ovd", "", ""});
  EXPECT_EQ(MenuTail(), (std::vector<std::string>{Maximum, "-", "/a.ovd", "/c.ovd", "-", "E&xit"}));
  EXPECT_TRUE(Has("mnuProject(9)"));
  EXPECT_FALSE(Has("mnuProject(10)"));
  EXPECT_EQ(FromQt(Entry("mnuProject(11)").text()), "/c.ovd");
}

TEST_F(RecentMenuTest, An_emptied_list_takes_its_entries_and_the_separator_away) {
  Show({"/a.ovd", "/b.ovd", "", "", ""});
  Show({});
  EXPECT_EQ(MenuTail(), (std::vector<std::string>{Maximum, "-", "E&xit"}));
  EXPECT_FALSE(Has("mnuProject(9)"));
}

TEST_F(RecentMenuTest, An_ampersand_of_a_path_is_shown_and_marks_no_key) {
  Show({"/jobs/R&D/hall & co.ovd", "", "", "", ""});
  EXPECT_EQ(FromQt(Entry("mnuProject(9)").text()), "/jobs/R&&D/hall && co.ovd");
}

TEST_F(RecentMenuTest, A_path_of_50_characters_shows_whole_and_one_of_51_by_its_end) {
  const std::string fifty = "/" + std::string(45, 'x') + ".ovd";
  ASSERT_EQ(fifty.size(), 50U);
  Show({fifty, "/y" + fifty.substr(1), "", "", ""});
  EXPECT_EQ(FromQt(Entry("mnuProject(9)").text()), fifty);
  EXPECT_EQ(FromQt(Entry("mnuProject(10)").text()), "...y" + fifty.substr(1));
}

TEST_F(RecentMenuTest, The_stored_list_is_there_from_the_start) {
  StoreRecentFile(1, "/one.ovd");
  StoreRecentFile(2, "/two.ovd");
  main.reset();
  details.reset();
  StartMain();
  EXPECT_EQ(MenuTail(),
            (std::vector<std::string>{Maximum, "-", "/one.ovd", "/two.ovd", "-", "E&xit"}));
}

TEST_F(RecentMenuTest, The_second_entry_opens_the_second_file_and_puts_it_in_front) {
  const std::string first = ProjectOf("P1");
  const std::string second = ProjectOf("P2");
  Show({first, second, "", "", ""});
  Entry("mnuProject(10)").trigger();
  ASSERT_EQ(Items.UBound(), 1);
  EXPECT_EQ(Items.At(1).Mark, "P2");
  EXPECT_EQ(FromQt(Find<QLabel>("lblFilename(1)").text()), second);
  EXPECT_EQ(RecentFiles, (std::array<std::string, 5>{second, first, second, "", ""}));
  Settle();
  // The entry that was chosen has gone for good, and those made afresh work.
  auto& menu = Find<QMenu>("mnuBar(0)");
  for (const QAction* action : menu.findChildren<QAction*>()) {
    if (action == menu.menuAction()) continue;
    EXPECT_NE(FromQt(action->objectName()), "") << FromQt(action->text());
  }
  Entry("mnuProject(10)").trigger();
  EXPECT_EQ(Items.At(1).Mark, "P1");
}

TEST_F(RecentMenuTest, A_recent_file_is_opened_without_a_question_though_changes_are_lost) {
  const std::string path = ProjectOf("P1");
  Show({path, "", "", "", ""});
  Click("SSCommand1(8)");
  Type("lost");
  ASSERT_EQ(ProjectDirty, True);
  Entry("mnuProject(9)").trigger();
  Settle();
  EXPECT_TRUE(dialogs.Boxes().empty());
  ASSERT_EQ(Items.UBound(), 1);
  EXPECT_EQ(Items.At(1).Mark, "P1");
  EXPECT_EQ(Items.At(1).SectionType, "Z");
}

TEST_F(RecentMenuTest, A_file_that_has_gone_is_told_and_stays_in_the_list) {
  Show({TempPath("gone.ovd"), "", "", "", ""});
  dialogs.ExpectBox(DescriptionOf(Failure::FileNotFound));
  Entry("mnuProject(9)").trigger();
  Settle();
  EXPECT_EQ(RecentFiles.front(), TempPath("gone.ovd"));
  EXPECT_TRUE(Has("mnuProject(9)"));
}

}  // namespace orvane::test
