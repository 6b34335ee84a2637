// The office's own catalogue on the screen: which folder it is taken from, what its check finds,
// and the line at the window's foot.
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>
#include <QTreeWidget>
#include <filesystem>

#include "core/catalogue_folder.h"
#include "tests/screens/screen_fixture.h"
#include "tests/support/patience.h"
#include "ui/start_up.h"

namespace orvane::test {
namespace {

using Texts = std::vector<std::string>;

// A row of three cells takes the next one's away.
const std::string Swallowing = "Z,Butt,A0 A6\nZ,Single,B0 B6,,\n";

class CatalogueScreen : public ScreenTest {
 protected:
  CatalogueScreen() { std::filesystem::create_directories(TempPath("office")); }
  ~CatalogueScreen() override { OfficeFolder.clear(); }

  std::string Office() { return TempPath("office"); }

  // Tools, then the entry's letter.
  void Ask(Qt::Key letter) {
    Press(Qt::Key_T, Qt::AltModifier);
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    QTest::keyClick(QApplication::activePopupWidget(), letter);
    Settle();
    main->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(main.get(), Patience));
    Settle();
  }
  static Texts RowOf(const QTreeWidget& list, int row) {
    Texts texts;
    for (int column = 0; column < list.columnCount(); ++column) {
      texts.push_back(FromQt(list.topLevelItem(row)->text(column)));
    }
    return texts;
  }
  static void Key(QWidget& dialog, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QWidget* focus = dialog.focusWidget();
    QTest::keyClick(focus != nullptr ? focus : &dialog, key, modifiers);
  }
};

TEST_F(CatalogueScreen, A_folder_is_typed_shown_file_by_file_and_counts_from_the_next_start) {
  TempFile("office/punch.csv", Swallowing);
  TempFile("office/accs1.csv", "A,Cleats,None,110,0,35,Y\n");
  dialogs.ExpectDialog("frmCatalogue", [this](QWidget& dialog) {
    auto& files = Find<QTreeWidget>(dialog, "lvwFiles");
    EXPECT_EQ(FromQt(files.topLevelItem(1)->text(1)), "the program's folder");
    EXPECT_EQ(FromQt(Find<QLabel>(dialog, "lblNote").text()),
              "These files are in use. A change counts from the next start of the program.");
    EXPECT_EQ(dialog.focusWidget(), &Find<QLineEdit>(dialog, "txtFolder"));
    QTest::keyClicks(dialog.focusWidget(), ToQt(Office()));
    EXPECT_EQ(RowOf(files, 1),
              (Texts{"punch.csv", "the office's folder", TempPath("office/punch.csv")}));
    EXPECT_EQ(RowOf(files, 0).at(1), "the program's folder");
    EXPECT_EQ(RowOf(files, 2).at(1),
              "the program's folder, as accs1.csv and accs2.csv count as a pair");
    EXPECT_EQ(FromQt(Find<QLabel>(dialog, "lblNote").text()),
              "These files will be in use from the next start of the program.");
    Key(dialog, Qt::Key_Return);
  });
  Ask(Qt::Key_A);
  EXPECT_EQ(CatalogueFolder(), Office());
  EXPECT_EQ(OfficeFolder, "");
  EXPECT_GT(PunchPatterns.UBound(), 40);
}

TEST_F(CatalogueScreen, A_folder_is_chosen_and_the_shipped_one_taken_back_by_keys) {
  platform.Chosen.push_back(Office());
  dialogs.ExpectDialog("frmCatalogue", [this](QWidget& dialog) {
    Key(dialog, Qt::Key_H, Qt::AltModifier);
    EXPECT_EQ(FromQt(Find<QLineEdit>(dialog, "txtFolder").text()), Office());
    QTest::mouseClick(&Find<QPushButton>(dialog, "cmdOK"), Qt::LeftButton);
  });
  Ask(Qt::Key_A);
  EXPECT_EQ(CatalogueFolder(), Office());
  dialogs.ExpectDialog("frmCatalogue", [](QWidget& dialog) {
    Key(dialog, Qt::Key_S, Qt::AltModifier);
    EXPECT_EQ(FromQt(Find<QLineEdit>(dialog, "txtFolder").text()), "");
    Key(dialog, Qt::Key_Return);
  });
  Ask(Qt::Key_A);
  EXPECT_EQ(CatalogueFolder(), "");
}

TEST_F(CatalogueScreen, A_folder_that_is_not_there_is_refused_and_Escape_asks_before_it_forgets) {
  const std::string gone = TempPath("gone");
  dialogs.ExpectDialog("frmCatalogue", [this, gone](QWidget& dialog) {
    QTest::keyClicks(dialog.focusWidget(), ToQt(gone));
    EXPECT_EQ(FromQt(Find<QLabel>(dialog, "lblNote").text()), "There is no such folder.");
    dialogs.ExpectBox("There is no folder " + gone);
    Key(dialog, Qt::Key_Return);
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(dialog.focusWidget(), &Find<QLineEdit>(dialog, "txtFolder"));
    dialogs.ExpectBox("Discard the changes?", "", QMessageBox::Yes);
    Key(dialog, Qt::Key_Escape);
  });
  Ask(Qt::Key_A);
  EXPECT_EQ(CatalogueFolder(), "");
}

TEST_F(CatalogueScreen, The_check_lists_its_findings_and_looks_again) {
  TempFile("office/punch.csv", Swallowing);
  OfficeFolder = Office();
  dialogs.ExpectDialog("frmCatalogueCheck", [this](QWidget& dialog) {
    auto& list = Find<QTreeWidget>(dialog, "lvwCatalogueFindings");
    EXPECT_EQ(dialog.focusWidget(), &list);
    ASSERT_EQ(list.topLevelItemCount(), 1);
    EXPECT_EQ(RowOf(list, 0),
              (Texts{"punch.csv", "1", "3", "fault",
                     "The row has 3 of 4 cells and takes the others from row 2, which is lost: put "
                     "a comma behind it for each cell that is missing"}));
    EXPECT_EQ(FromQt(Find<QLabel>(dialog, "lblCounts").text()), "1 fault");
    TempFile("office/punch.csv", "Z,Butt,A0 A6,,\nZ,Single,B0 B6,,\n");
    Key(dialog, Qt::Key_A, Qt::AltModifier);
    EXPECT_EQ(list.topLevelItemCount(), 0);
    EXPECT_EQ(FromQt(Find<QLabel>(dialog, "lblCounts").text()), "Nothing is found");
    Key(dialog, Qt::Key_Escape);
  });
  Ask(Qt::Key_K);
}

TEST_F(CatalogueScreen, A_folder_is_checked_before_it_is_taken) {
  TempFile("office/punch.csv", Swallowing);
  dialogs.ExpectDialog("frmCatalogue", [this](QWidget& dialog) {
    QTest::keyClicks(dialog.focusWidget(), ToQt(Office()));
    dialogs.ExpectDialog("frmCatalogueCheck", [](QWidget& check) {
      EXPECT_EQ(Find<QTreeWidget>(check, "lvwCatalogueFindings").topLevelItemCount(), 1);
      QTest::mouseClick(&Find<QPushButton>(check, "cmdClose"), Qt::LeftButton);
    });
    Key(dialog, Qt::Key_K, Qt::AltModifier);
    QTest::mouseClick(&Find<QPushButton>(dialog, "cmdCancel"), Qt::LeftButton);
  });
  Ask(Qt::Key_A);
  EXPECT_EQ(CatalogueFolder(), "");
}

// The start of the program with a setting.
class CatalogueStart : public CatalogueScreen {
 protected:
  ~CatalogueStart() override { QApplication::setQuitOnLastWindowClosed(false); }
  void SetUp() override {}
  void Start() {
    CompanyName = "Anna Steel";
    SaveRegistration();
    dialogs.ExpectDialog("frmAbout", [](QWidget& about) {
      QTest::mouseClick(about.findChild<QPushButton*>(), Qt::LeftButton);
    });
    start.Run();
    ASSERT_NE(start.Main(), nullptr);
    RunQueued();
  }
  QToolButton& Line() { return Find<QToolButton>(*start.Main(), "cmdCatalogue"); }

  StartUp start;
};

TEST_F(CatalogueStart, The_offices_files_are_read_and_the_programs_for_what_it_lacks) {
  TempFile("office/punch.csv", "Z,Office Butt,A0 A6,,\n");
  StoreCatalogueFolder(Office());
  Start();
  ASSERT_EQ(PunchPatterns.UBound(), 1);
  EXPECT_EQ(PunchPatterns.At(1).Name, "Office Butt");
  EXPECT_GT(SectionDims.UBound(), 50);
  EXPECT_EQ(AccType1Count, 5);
  EXPECT_FALSE(Line().isVisible());
}

TEST_F(CatalogueStart, The_offices_accessories_come_before_the_about_box) {
  TempFile("office/accs1.csv", "A,Office cleats,None,110,0,35,Y\nI,text,code\n");
  TempFile("office/accs2.csv", "A,Office ties,None,110,0,35,tie\n,\n");
  StoreCatalogueFolder(Office());
  Start();
  ASSERT_EQ(AccDefs.UBound(), 2);
  EXPECT_EQ(AccDefs.At(1).Name, "Office cleats");
  EXPECT_EQ(AccUsed.UBound(), 2);
}

TEST_F(CatalogueStart, A_folder_that_has_vanished_is_told_and_the_shipped_catalogue_is_used) {
  StoreCatalogueFolder(TempPath("gone"));
  dialogs.ExpectBox("The catalogue folder can't be found: " + TempPath("gone") +
                        "\nThe catalogue that ships with the program is used until the next "
                        "start. The setting stays.",
                    "Orvane Detailing System");
  Start();
  EXPECT_GT(PunchPatterns.UBound(), 40);
  EXPECT_EQ(AccType1Count, 5);
  EXPECT_EQ(CatalogueFolder(), TempPath("gone"));
}

TEST_F(CatalogueStart, A_line_at_the_foot_counts_the_faults_and_a_click_shows_them) {
  TempFile("office/punch.csv", Swallowing);
  StoreCatalogueFolder(Office());
  Start();
  EXPECT_TRUE(QTest::qWaitFor([this] { return Line().isVisible(); }, Patience));
  EXPECT_EQ(FromQt(Line().text()), "Catalogue: 1 fault");
  dialogs.ExpectDialog("frmCatalogueCheck", [](QWidget& check) {
    EXPECT_EQ(Find<QTreeWidget>(check, "lvwCatalogueFindings").topLevelItemCount(), 1);
    Key(check, Qt::Key_Escape);
  });
  QTest::mouseClick(&Line(), Qt::LeftButton);
  EXPECT_TRUE(QTest::qWaitFor([this] { return dialogs.Done(); }, Patience));
}

TEST_F(CatalogueStart, Of_the_catalogue_that_ships_nothing_is_said) {
  Start();
  EXPECT_FALSE(Line().isVisible());
}

}  // namespace
}  // namespace orvane::test
