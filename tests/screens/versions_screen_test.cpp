// Earlier versions by a person's keys: saves, the list of what they replaced, one of them opened.
#include <QMenu>
#include <QTreeWidget>
#include <filesystem>

#include "project/history.h"
#include "project/project_file.h"
#include "project/versions.h"
#include "tests/screens/sections_fixture.h"
#include "tests/support/patience.h"

namespace orvane::test {
namespace {

using Texts = std::vector<std::string>;

class VersionsScreen : public SectionsTest {
 protected:
  void SetUp() override {
    SectionsTest::SetUp();
    KeepVersionsIn(platform.DataFolder);
  }
  void TearDown() override {
    platform.FinishApart();
    KeepVersionsIn({});
    TakeVersionTrouble();
    SectionsTest::TearDown();
  }

  std::string Job() { return TempPath("north.ovd"); }

  void Save() {
    Press(Qt::Key_S, Qt::ControlModifier);
    Settle();
  }
  // Two purlins, saved as the job at 14:07:09, and then with another length a minute later.
  void SaveTwice() {
    Put("Z", "P1", "Z14012", 6000, 2);
    Put("Z", "P2", "Z14012", 4000, 1);
    Show(1, 3);
    platform.Chosen.push_back(Job());
    Save();
    first = ProjectText();
    Retype("5000");
    platform.Present.Minute = 8;
    Save();
    second = ProjectText();
  }
  // Tools > Earlier versions..., by the letters.
  void AskForVersions() {
    Press(Qt::Key_T, Qt::AltModifier);
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_V);
    Settle();
    BackToMain();
  }
  void ExpectVersions(std::function<void(QWidget&, QTreeWidget&)> act) {
    dialogs.ExpectDialog("frmVersions", [act](QWidget& dialog) {
      act(dialog, Find<QTreeWidget>(dialog, "lvwVersions"));
    });
  }
  static void WaitUntilCompared(const QTreeWidget& list) {
    EXPECT_TRUE(QTest::qWaitFor(
        [&list] {
          const int last = list.topLevelItemCount() - 1;
          return last < 0 || list.topLevelItem(last)->text(4) != QString(QChar(0x2026));
        },
        Patience));
  }
  static Texts Row(const QTreeWidget& list, int row) {
    Texts texts;
    for (int column = 0; column < list.columnCount(); ++column) {
      texts.push_back(FromQt(list.topLevelItem(row)->text(column)));
    }
    return texts;
  }
  void ExpectSaveQuestion(QMessageBox::StandardButton answer) {
    dialogs.ExpectBox("Save changes to current project?", "New Project", answer);
  }
  std::string Title() { return FromQt(main->windowTitle()); }

  std::string first;
  std::string second;
};

TEST_F(VersionsScreen, Enter_opens_the_version_as_a_job_without_a_name) {
  SaveTwice();
  Put("Z", "P3", "Z14012", 3000, 1);
  ExpectVersions([](QWidget& dialog, QTreeWidget& list) {
    WaitUntilCompared(list);
    EXPECT_EQ(Focus(), "lvwVersions");
    ASSERT_EQ(list.topLevelItemCount(), 1);
    EXPECT_EQ(Row(list, 0), (Texts{"05/03/2024  14:08:09", "north.ovd", "Before a save", "2",
                                   "1 section added, 1 changed"}));
    for (int column = 0; column < 4; ++column) {  // the figures aren't cut off
      const QString text = list.topLevelItem(0)->text(column);
      EXPECT_GT(list.columnWidth(column), list.fontMetrics().horizontalAdvance(text)) << column;
    }
    QTest::keyClick(&list, Qt::Key_Return);
    EXPECT_FALSE(dialog.isVisible());
  });
  AskForVersions();
  EXPECT_EQ(ProjectText(), first);
  EXPECT_EQ(ProjectFileName, "");
  EXPECT_EQ(Title(), "Untitled* - Orvane Detailing System");
  EXPECT_EQ(FromQt(Find<QLabel>("lblFilename(1)").text()), "None");
  EXPECT_TRUE(CursorAt(1, 1, "P1"));
  EXPECT_EQ(BytesOf(Job()), second);

  // It is saved under a name of its own.
  platform.Chosen.push_back(TempPath("again.ovd"));
  Save();
  EXPECT_EQ(BytesOf(TempPath("again.ovd")), first);
  EXPECT_EQ(BytesOf(Job()), second);
}

TEST_F(VersionsScreen, The_job_that_is_left_for_a_version_is_a_version_itself) {
  SaveTwice();
  Retype("5500");
  const std::string third = ProjectText();
  for (const bool stays : {true, false}) {
    ExpectVersions([](QWidget&, QTreeWidget& list) { QTest::keyClick(&list, Qt::Key_Enter); });
    ExpectSaveQuestion(stays ? QMessageBox::Cancel : QMessageBox::No);
    AskForVersions();
    EXPECT_EQ(ProjectText(), stays ? third : first);
    EXPECT_EQ(ProjectFileName, stays ? Job() : "");
  }
  platform.FinishApart();
  const std::vector<Version> versions = VersionsOf(Job());
  ASSERT_EQ(versions.size(), 2U);
  EXPECT_EQ(versions.front().Kind, VersionKind::LeftUnsaved);
  EXPECT_EQ(ReadVersion(versions.front().File), third);
}

TEST_F(VersionsScreen, Double_click_and_button_open_and_Escape_closes) {
  SaveTwice();
  const std::vector<std::function<void(QWidget&, QTreeWidget&)>> ways = {
      [](QWidget&, QTreeWidget& list) {
        const QPoint at = list.visualItemRect(list.topLevelItem(0)).center();
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, at);
        QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, at);
      },
      [](QWidget& dialog, QTreeWidget&) {
        QTest::mouseClick(&Find<QPushButton>(dialog, "cmdOpen"), Qt::LeftButton);
      },
      [](QWidget& dialog, QTreeWidget&) { QTest::keyClick(&dialog, Qt::Key_O, Qt::AltModifier); }};
  for (const auto& way : ways) {
    ExpectVersions([](QWidget&, QTreeWidget& list) { QTest::keyClick(&list, Qt::Key_Escape); });
    AskForVersions();
    EXPECT_EQ(ProjectText(), second);
    EXPECT_EQ(ProjectFileName, Job());

    ExpectVersions(way);
    if (ProjectDirty != False) ExpectSaveQuestion(QMessageBox::No);  // since it was opened
    AskForVersions();
    EXPECT_EQ(ProjectText(), first);
    EXPECT_EQ(ProjectFileName, "");
    ExpectSaveQuestion(QMessageBox::No);
    platform.Chosen.push_back(Job());
    Press(Qt::Key_O, Qt::ControlModifier);
    Settle();
  }
}

TEST_F(VersionsScreen, The_keys_choose_and_jobs_without_a_name_stand_below) {
  KeepVersion(VersionOf("", VersionKind::LeftUnsaved, "no job at all"));
  SaveTwice();
  Retype("5100");
  platform.Present.Minute = 9;
  Save();
  ExpectVersions([](QWidget&, QTreeWidget& list) {
    WaitUntilCompared(list);
    ASSERT_EQ(list.topLevelItemCount(), 3);
    EXPECT_EQ(Row(list, 0), (Texts{"05/03/2024  14:09:09", "north.ovd", "Before a save", "2",
                                   "1 section changed"}));
    EXPECT_EQ(Row(list, 1), (Texts{"05/03/2024  14:08:09", "north.ovd", "Before a save", "2",
                                   "1 section changed"}));
    EXPECT_EQ(Row(list, 2), (Texts{"05/03/2024  14:07:09", "Untitled", "Left unsaved", "?",
                                   "(Input past end of file)"}));
    QTest::keyClick(&list, Qt::Key_Down);
    QTest::keyClick(&list, Qt::Key_Return);
  });
  AskForVersions();
  EXPECT_EQ(ProjectText(), first);
}

TEST_F(VersionsScreen, A_damaged_version_says_so_and_the_list_stays) {
  SaveTwice();
  platform.FinishApart();
  const std::string file = VersionsOf(Job()).front().File;
  std::filesystem::resize_file(file, std::filesystem::file_size(file) / 2);
  dialogs.ExpectDialog("frmVersions", [this](QWidget& dialog) {
    auto& list = Find<QTreeWidget>(dialog, "lvwVersions");
    WaitUntilCompared(list);
    EXPECT_EQ(Row(list, 0).back(), "(This version is damaged and can't be opened)");
    dialogs.ExpectBox("This version is damaged and can't be opened");
    QTest::keyClick(&list, Qt::Key_Return);
    EXPECT_TRUE(dialog.isVisible());
    QTest::keyClick(&list, Qt::Key_Escape);
  });
  AskForVersions();
  EXPECT_EQ(ProjectText(), second);
}

TEST_F(VersionsScreen, Without_any_version_the_dialog_says_so) {
  dialogs.ExpectDialog("frmVersions", [](QWidget& dialog) {
    EXPECT_FALSE(Find<QTreeWidget>(dialog, "lvwVersions").isVisible());
    EXPECT_FALSE(Find<QPushButton>(dialog, "cmdOpen").isVisible());
    EXPECT_EQ(FromQt(Find<QLabel>(dialog, "lblNote").text()),
              "There are no earlier versions yet. Each save keeps what it replaces.");
    EXPECT_EQ(Focus(), "cmdClose");
    QTest::keyClick(&dialog, Qt::Key_Return);
  });
  AskForVersions();
}

TEST_F(VersionsScreen, A_version_of_any_bytes_survives_the_toolkits_compression) {
  for (const std::string& bytes : {std::string(), std::string(1, '\0'), std::string(100000, 'x'),
                                   std::string("\xFF\0\n", 3)}) {
    KeepVersion(VersionOf(Job(), VersionKind::BeforeSave, bytes));
    const std::string file = VersionsOf(Job()).front().File;
    EXPECT_EQ(ReadVersion(file), bytes);
    EXPECT_LT(std::filesystem::file_size(file), 1000U);
  }
}

}  // namespace
}  // namespace orvane::test
