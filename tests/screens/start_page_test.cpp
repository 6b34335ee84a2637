// The page that stands in the sheet's place until a job is begun or opened.
#include <QToolButton>
#include <filesystem>

#include "core/files.h"
#include "core/program_folder.h"
#include "project/lifecycle.h"
#include "project/recent_files.h"
#include "tests/screens/screen_fixture.h"

namespace orvane::test {

namespace {

class StartPageTest : public ScreenTest {
 protected:
  // The window is started by each test, over a program folder with the samples.
  void SetUp() override {
    const std::string folder = TempPath("program");
    std::filesystem::copy(ProgramFolder, folder, std::filesystem::copy_options::recursive);
    std::filesystem::copy(ORVANE_SOURCE_DIR "/samples", folder + "/samples");
    ProgramFolder = folder;
  }

  bool IsShown() { return Find<QWidget>("StartPage").isVisible(); }
  QToolButton* Button(const QString& name) { return main->findChild<QToolButton*>(name); }
  std::string Caption(const QString& name) {
    const QToolButton* button = Button(name);
    return button == nullptr ? "" : FromQt(button->text());
  }
};

}  // namespace

TEST_F(StartPageTest, It_covers_the_sheet_at_the_start_and_F6_leads_to_it) {
  StartMain();
  EXPECT_TRUE(IsShown());
  EXPECT_EQ(Find<QWidget>("StartPage").size(), Find<SheetView>("VSPrinter1").viewport()->size());
  EXPECT_EQ(QApplication::focusWidget(), main->centralWidget());
  Press(Qt::Key_F6);
  EXPECT_EQ(Focus(), "cmdStartNew");
}

TEST_F(StartPageTest, Enter_on_the_first_button_starts_a_project_and_ends_the_page) {
  StartMain();
  Press(Qt::Key_F6);
  dialogs.ExpectDialog("frmProjectDetails",
                       [&](QWidget& details) { QTest::keyClick(&details, Qt::Key_Escape); });
  Press(Qt::Key_Return);
  Settle();
  EXPECT_FALSE(IsShown());
  EXPECT_TRUE(ProjectDirty);
}

TEST_F(StartPageTest, The_arrow_leads_to_Open_and_a_cancelled_choice_leaves_the_page) {
  StartMain();
  Press(Qt::Key_F6);
  Press(Qt::Key_Down);
  EXPECT_EQ(Focus(), "cmdStartOpen");
  platform.Chosen = {std::nullopt};
  Press(Qt::Key_Space);
  Settle();
  EXPECT_EQ(platform.OpenDialogs.size(), 1U);
  EXPECT_TRUE(IsShown());
}

TEST_F(StartPageTest, A_section_added_at_once_ends_the_page_and_the_cursor_is_in_its_cell) {
  StartMain();
  QTest::keyClick(main.get(), Qt::Key_1, Qt::ControlModifier);
  Settle();
  EXPECT_FALSE(IsShown());
  EXPECT_EQ(Items.UBound(), 1);
  Type("P1");
  EXPECT_EQ(Cell(1, 1), "P1");
}

TEST_F(StartPageTest, Each_recent_job_is_named_once_by_its_digit_in_the_list) {
  RecentFiles = {"/jobs/a&b.ovd", "/jobs/c.ovd", "/jobs/a&b.ovd", "", ""};
  StartMain();
  RecentFiles = {"/jobs/a&b.ovd", "/jobs/c.ovd", "/jobs/a&b.ovd", "", ""};
  BuildRecent();
  EXPECT_EQ(Caption("cmdStartRecent(1)"), "&1  /jobs/a&&b.ovd");
  EXPECT_EQ(Caption("cmdStartRecent(2)"), "&2  /jobs/c.ovd");
  for (const char* none : {"cmdStartRecent(3)", "cmdStartRecent(4)", "cmdStartRecent(5)"}) {
    EXPECT_EQ(Button(none), nullptr) << none;
  }
}

TEST_F(StartPageTest, Without_recent_jobs_nothing_speaks_of_them) {
  StartMain();
  for (const QLabel* label : Find<QWidget>("StartPage").findChildren<QLabel*>()) {
    if (label->text() == "Recent jobs") {
      EXPECT_FALSE(label->isVisible());
    }
  }
}

TEST_F(StartPageTest, Alt_and_its_digit_opens_a_recent_job) {
  StartMain();
  const std::string job = TempPath("shed.ovd");
  std::filesystem::copy(ORVANE_SOURCE_DIR "/samples/portal-shed.ovd", job);
  RecentFiles = {job};
  BuildRecent();
  Press(Qt::Key_1, Qt::AltModifier);
  Settle();
  EXPECT_EQ(ProjectFileName, job);
  EXPECT_FALSE(IsShown());
  EXPECT_EQ(Cell(1, 1), "P1");
}

TEST_F(StartPageTest, A_sample_opens_as_a_copy_that_has_no_file) {
  StartMain();
  EXPECT_EQ(Caption("cmdStartSample(6)"), "&6  cladding.ovd");
  EXPECT_EQ(Caption("cmdStartSample(7)"), "&7  mezzanine.ovd");
  EXPECT_EQ(Caption("cmdStartSample(8)"), "&8  portal-shed.ovd");
  const std::string before = ReadWholeFile(TempPath("program/samples/portal-shed.ovd"));
  Press(Qt::Key_8, Qt::AltModifier);
  Settle();
  EXPECT_FALSE(IsShown());
  EXPECT_EQ(Cell(1, 1), "P1");
  EXPECT_EQ(ProjectFileName, "");
  EXPECT_EQ(RecentFiles.front(), "");
  // A save asks where to.
  platform.Chosen = {TempPath("mine.ovd")};
  QTest::keyClick(main.get(), Qt::Key_S, Qt::ControlModifier);
  Settle();
  EXPECT_EQ(ProjectFileName, TempPath("mine.ovd"));
  EXPECT_EQ(ReadWholeFile(TempPath("program/samples/portal-shed.ovd")), before);
}

TEST_F(StartPageTest, Without_samples_beside_the_program_the_page_names_none) {
  std::filesystem::remove_all(TempPath("program/samples"));
  StartMain();
  EXPECT_EQ(Button("cmdStartSample(6)"), nullptr);
  for (const QLabel* label : Find<QWidget>("StartPage").findChildren<QLabel*>()) {
    EXPECT_FALSE(label->text().contains("Samples")) << FromQt(label->text());
  }
}

TEST_F(StartPageTest, What_is_kept_with_the_program_may_be_changed_before_a_job_is_begun) {
  StartMain();
  dialogs.ExpectDialog("frmMaxDims", [&](QWidget& lengths) {
    QTest::keyClick(&Find<QLineEdit>(lengths, "txtMaxDims(1)"), Qt::Key_Return);
  });
  Entry("mnuProject(7)").trigger();
  Settle();
  EXPECT_TRUE(IsShown());
}

TEST_F(StartPageTest, The_empty_grid_names_its_first_keys) {
  StartMain();
  const QString told = Sections().accessibleDescription();
  EXPECT_EQ(FromQt(told),
            "No sections yet. Ctrl+1 to Ctrl+6 add the first one, Ctrl+V those of a spreadsheet.");
  const QImage empty = Sections().viewport()->grab().toImage();
  QTest::keyClick(main.get(), Qt::Key_1, Qt::ControlModifier);
  Settle();
  QTest::keyClick(main.get(), Qt::Key_Z, Qt::ControlModifier);
  Settle();
  ASSERT_TRUE(Items.Empty());
  EXPECT_EQ(Sections().viewport()->grab().toImage(), empty);
  Sections().SetEmptyText({});
  EXPECT_NE(Sections().viewport()->grab().toImage(), empty);
}

}  // namespace orvane::test
