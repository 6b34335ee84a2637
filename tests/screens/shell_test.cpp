// The main window: its areas, and what its commands do.
#include <QContextMenuEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>

#include "core/program_folder.h"
#include "core/runtime_error.h"
#include "project/project_file.h"
#include "project/recent_files.h"
#include "project/sections.h"
#include "tests/screens/screen_fixture.h"
#include "tests/support/patience.h"

namespace orvane::test {

namespace {

std::string Shown(QLabel& label) {
  return FromQt(label.text());
}

class ShellTest : public ScreenTest {
 protected:
  // Presses a toolbar button, chooses a menu entry, or types a shortcut such as "Ctrl+1".
  void Do(const std::string& way) {
    if (way.starts_with("SSCommand1")) {
      Click(way);
    } else if (way.starts_with("mnu")) {
      Entry(way).trigger();
    } else {
      // Nothing is active when a dialog has closed: there is no desktop here to see to it.
      main->activateWindow();
      ASSERT_TRUE(QTest::qWaitFor([this] { return QApplication::activeWindow() == main.get(); }));
      QTest::keySequence(main.get(), QKeySequence::fromString(ToQt(way)));
    }
    Settle();
  }

  // A project file of one section of that mark.
  std::string ProjectOf(const std::string& mark, const std::string& name) {
    const std::int16_t row = AddSectionRow("Z");
    Items.At(row).Mark = mark;
    Items.At(row).Length = 6000;
    std::string path = TempPath(name);
    WriteProjectFile(path);
    Items.Clear();
    ProjectDirty = False;
    main->DisplayItems();
    return path;
  }

  SheetView& Sheet() { return Find<SheetView>("VSPrinter1"); }
};

void CloseIt(QWidget& window) {
  EXPECT_TRUE(window.isModal());
  window.close();
}

}  // namespace

// Areas.

TEST_F(ShellTest, The_window_bears_the_name_of_the_system_behind_that_of_the_file) {
  EXPECT_EQ(FromQt(main->windowTitle()), "Untitled - Orvane Detailing System");
  EXPECT_EQ(FromQt(main->objectName()), "frmMain");
}

TEST_F(ShellTest, All_areas_are_there_under_their_names) {
  for (const char* name :
       {"SSPanelToolbar", "SSPanelFile",    "SSPanel2",       "SSPanel4",        "SSPanel7",
        "SSSplitter1",    "lblFilename(0)", "lblFilename(1)", "MSFlexGrid1",     "sspEditText",
        "txtEdit",        "sspEditCombo",   "cboEdit",        "SSPanelPunching", "cboPattern",
        "cboPitch",       "fraSagBars",     "optSagBars(0)",  "optSagBars(1)",   "txtJointing",
        "SSpanelCustom",  "MSFlexGrid2",    "cmdHoles(0)",    "cmdHoles(1)",     "lstAccessories",
        "VSPrinter1",     "mnuBar(0)",      "mnuBar(1)",      "mnuBar(2)",       "mnuBar(3)",
        "mnuCHPU",        "mnuCHPUI(3)"}) {
    EXPECT_NE(main->findChild<QObject*>(name), nullptr) << name;
  }
}

TEST_F(ShellTest, A_path_too_long_for_its_place_loses_its_middle_and_stands_whole_in_the_tip) {
  const std::string path = "/srv/jobs" + std::string(400, 'x') + "/north/shed.ovd";
  main->ShowFileName(path);
  QCoreApplication::processEvents();
  const auto& label = Find<ElidingLabel>("lblFilename(1)");
  const QString shown = label.ShownText();
  ASSERT_LT(shown.size(), static_cast<int>(path.size()));
  const QStringList ends = shown.split(QChar(0x2026));
  ASSERT_EQ(ends.size(), 2) << FromQt(shown);
  EXPECT_TRUE(ToQt(path).startsWith(ends.front()));
  EXPECT_TRUE(ToQt(path).endsWith(ends.back()));
  EXPECT_LE(std::abs(ends.front().size() - ends.back().size()), 3) << FromQt(shown);
  EXPECT_LE(label.fontMetrics().horizontalAdvance(shown), label.width());
  EXPECT_EQ(FromQt(label.toolTip()), path);
}

TEST_F(ShellTest, Toolbar_and_file_panel_stand_on_one_line_above_the_two_panes) {
  const QRect toolbar = Find("SSPanelToolbar").geometry();
  const QRect file = Find("SSPanelFile").geometry();
  const QRect panes = Find("SSPanel2").geometry();
  EXPECT_EQ(toolbar.top(), file.top());
  EXPECT_EQ(toolbar.bottom(), file.bottom());
  EXPECT_EQ(file.left(), toolbar.right() + 1);
  EXPECT_EQ(file.right(), main->centralWidget()->rect().right());
  EXPECT_EQ(panes.top(), toolbar.bottom() + 1);
  EXPECT_EQ(panes.width(), main->centralWidget()->width());
  EXPECT_TRUE(Find("SSPanel7").isAncestorOf(&Sections()));
  EXPECT_TRUE(Find("SSPanel7").isAncestorOf(&Find("lstAccessories")));
  EXPECT_TRUE(Find("SSPanel4").isAncestorOf(&Sheet()));
}

TEST_F(ShellTest, At_the_start_no_cell_and_no_list_has_the_focus_and_nothing_is_changed) {
  EXPECT_EQ(QApplication::focusWidget(), main->centralWidget());
  EXPECT_EQ(ProjectDirty, False);
  EXPECT_EQ(Sections().Rows(), 1);
  EXPECT_EQ(Sections().Row(), 0);
  EXPECT_EQ(Sheet().ShownRow(), 0);
}

TEST_F(ShellTest, Behind_the_editors_the_focus_goes_on_to_the_pattern_and_not_to_the_list) {
  Do("SSCommand1(6)");
  const QWidget* next = Find("cboEdit").nextInFocusChain();
  while (!next->isVisible() || (next->focusPolicy() & Qt::TabFocus) == 0) {
    next = next->nextInFocusChain();
  }
  EXPECT_EQ(FromQt(next->objectName()), "cboPattern");
}

TEST_F(ShellTest, The_file_name_is_empty_at_first_None_after_New_and_the_path_after_a_save) {
  auto& name = Find<QLabel>("lblFilename(1)");
  EXPECT_EQ(Shown(Find<QLabel>("lblFilename(0)")), "File:");
  EXPECT_EQ(Shown(name), "");
  dialogs.ExpectDialog("frmProjectDetails", CloseIt);
  Do("mnuProject(0)");
  EXPECT_EQ(Shown(name), "None");
  const std::string path = TempPath("saved.ovd");
  platform.Chosen = {path};
  Do("mnuProject(2)");
  EXPECT_EQ(Shown(name), path);
}

TEST_F(ShellTest, A_long_path_is_cut_on_screen_and_whole_in_the_tip) {
  auto& name = Find<QLabel>("lblFilename(1)");
  const int width = main->width();
  const std::string path = "/" + std::string(2000, 'x') + "/hall.ovd";
  main->ShowFileName(path);
  QCoreApplication::processEvents();
  EXPECT_EQ(main->width(), width);
  EXPECT_LE(name.geometry().right(), Find("SSPanelFile").width());
  EXPECT_EQ(Shown(name), path);
  EXPECT_EQ(FromQt(name.toolTip()), path);
}

// Commands.

TEST_F(ShellTest, Each_family_is_added_by_its_button_its_entry_and_its_shortcut) {
  const std::vector<std::string> letters = {"Z", "E", "C", "V", "R", "T"};
  for (int i = 0; i < 6; ++i) {
    for (const std::string& way :
         {"SSCommand1(" + std::to_string(6 + i) + ")", "mnuSection(" + std::to_string(i) + ")",
          "Ctrl+" + std::to_string(i + 1)}) {
      SCOPED_TRACE(way);
      const int before = Items.UBound();
      Do(way);
      ASSERT_EQ(Items.UBound(), before + 1);
      EXPECT_EQ(Items.At(before + 1).SectionType, letters[static_cast<std::size_t>(i)]);
      EXPECT_EQ(Sections().Row(), before + 1);
      EXPECT_EQ(Sections().Col(), 1);
      EXPECT_EQ(Focus(), "txtEdit");
      EXPECT_EQ(ProjectDirty, True);
    }
  }
}

TEST_F(ShellTest, New_empties_the_project_from_button_entry_and_shortcut) {
  for (const char* way : {"SSCommand1(1)", "mnuProject(0)", "Ctrl+N"}) {
    SCOPED_TRACE(way);
    AddSectionRow("Z");
    ProjectDirty = False;
    dialogs.ExpectDialog("frmProjectDetails", CloseIt);
    Do(way);
    EXPECT_EQ(Items.UBound(), 0);
    EXPECT_EQ(ProjectDirty, True);
    EXPECT_EQ(Sections().Rows(), 1);
  }
}

TEST_F(ShellTest, Open_asks_for_a_file_from_button_entry_and_shortcut) {
  const std::string path = ProjectOf("P1", "one.ovd");
  for (const char* way : {"SSCommand1(2)", "mnuProject(1)", "Ctrl+O"}) {
    SCOPED_TRACE(way);
    Items.Clear();
    ProjectDirty = False;
    platform.OpenDialogs.clear();
    platform.Chosen = {path};
    Do(way);
    ASSERT_EQ(platform.OpenDialogs.size(), 1U);
    EXPECT_EQ(platform.OpenDialogs[0].Title, "Open Project");
    ASSERT_EQ(Items.UBound(), 1);
    EXPECT_EQ(Items.At(1).Mark, "P1");
    EXPECT_EQ(Shown(Find<QLabel>("lblFilename(1)")), path);
  }
}

TEST_F(ShellTest, Save_keeps_the_name_and_Save_As_asks_for_one) {
  for (const char* way : {"SSCommand1(4)", "mnuProject(2)", "Ctrl+S"}) {
    SCOPED_TRACE(way);
    ProjectFileName = TempPath("named.ovd");
    ProjectDirty = True;
    Do(way);
    EXPECT_TRUE(platform.SaveDialogs.empty());
    EXPECT_EQ(ProjectDirty, False);
    EXPECT_TRUE(std::filesystem::remove(TempPath("named.ovd")));
  }
  for (const char* way : {"mnuProject(3)", "Ctrl+Shift+S"}) {
    SCOPED_TRACE(way);
    platform.SaveDialogs.clear();
    platform.Chosen = {TempPath("other.ovd")};
    Do(way);
    ASSERT_EQ(platform.SaveDialogs.size(), 1U);
    EXPECT_EQ(platform.SaveDialogs[0].Title, "Save Project");
    EXPECT_EQ(ProjectFileName, TempPath("other.ovd"));
    EXPECT_TRUE(std::filesystem::remove(TempPath("other.ovd")));
  }
}

TEST_F(ShellTest, Each_dialog_comes_modal_from_its_entry) {
  const std::vector<std::pair<std::string, std::string>> ways = {
      {"SSCommand1(3)", "frmProjectDetails"}, {"mnuProject(5)", "frmProjectDetails"},
      {"mnuProject(7)", "frmMaxDims"},        {"mnuHelp(1)", "frmAbout"},
      {"mnuHelp(3)", "frmRegistration"},
  };
  for (const auto& [way, name] : ways) {
    SCOPED_TRACE(way);
    dialogs.ExpectDialog(name, CloseIt);
    Do(way);
    EXPECT_TRUE(dialogs.Done());
  }
  EXPECT_EQ(ProjectDirty, False);
}

TEST_F(ShellTest, The_registration_details_bring_the_selected_sheet_up_to_date) {
  Do("SSCommand1(6)");
  Do("SSCommand1(6)");
  const int drawn = Sheet().DrawCount();
  dialogs.ExpectDialog("frmRegistration", CloseIt);
  Do("mnuHelp(3)");
  EXPECT_EQ(Sheet().DrawCount(), drawn + 1);
  EXPECT_EQ(Sheet().ShownRow(), 2);
}

TEST_F(ShellTest, Help_is_asked_for_with_the_compiled_file_of_the_programs_folder) {
  for (const char* way : {"SSCommand1(13)", "mnuHelp(0)", "F1"}) {
    SCOPED_TRACE(way);
    platform.HelpFiles.clear();
    Do(way);
    EXPECT_EQ(platform.HelpFiles, (std::vector<std::string>{ProgramFolder + "/Lintaro.chm"}));
  }
}

TEST_F(ShellTest, Duplicate_works_on_the_selected_row) {
  AddSectionRow("Z");
  AddSectionRow("C");
  Items.At(1).Mark = "P1";
  Items.At(1).Length = 5000;
  Items.At(2).Mark = "Q1";
  main->DisplayItems();
  main->SelectFirstItem();
  for (const char* way : {"mnuSection(8)", "Ctrl+D"}) {
    SCOPED_TRACE(way);
    const int before = Items.UBound();
    ClickCell(Sections(), 1, 1);
    Do(way);
    ASSERT_EQ(Items.UBound(), before + 1);
    EXPECT_EQ(Items.At(before + 1).Mark, "P1A");
    Items.At(before + 1).Mark = "";
  }
}

TEST_F(ShellTest, The_three_sorts_have_the_keys_mark_product_and_length) {
  const std::vector<std::vector<std::string>> rows = {
      {"B", "PX", "3000"}, {"A", "PZ", "2000"}, {"C", "PY", "1000"}};
  const std::vector<std::pair<std::string, std::string>> ways = {
      {"mnuSection(16)", "ABC"}, {"mnuSection(17)", "BCA"}, {"mnuSection(18)", "CAB"}};
  for (const auto& [way, order] : ways) {
    SCOPED_TRACE(way);
    Items.Clear();
    for (const std::vector<std::string>& row : rows) {
      const std::int16_t item = AddSectionRow("Z");
      Items.At(item).Mark = row[0];
      Items.At(item).Product = row[1];
      Items.At(item).Length = ParseInt16(row[2]);
    }
    main->DisplayItems();
    Do(way);
    EXPECT_EQ(Cell(1, 1) + Cell(2, 1) + Cell(3, 1), order);
  }
}

TEST_F(ShellTest, Delete_asks_for_the_selected_row_and_does_nothing_without_one) {
  Do("mnuSection(20)");
  Do("SSCommand1(6)");
  Type("P1");
  dialogs.ExpectBox("Remove mark P1?", "", QMessageBox::Yes);
  Do("mnuSection(20)");
  EXPECT_EQ(Items.UBound(), 0);
}

TEST_F(ShellTest, Holes_can_be_added_to_a_custom_pattern_only) {
  Do("SSCommand1(6)");
  for (const char* way : {"mnuSection(10)", "mnuSection(11)"}) {
    SCOPED_TRACE(way);
    dialogs.ExpectBox("Punching pattern must be 'Custom'");
    Do(way);
  }
  EXPECT_EQ(HoleDialogMode, 0);
}

TEST_F(ShellTest, Convert_makes_the_holes_of_the_selected_row_custom_ones) {
  Do("mnuSection(12)");
  EXPECT_EQ(ProjectDirty, False);
  Do("SSCommand1(6)");
  Do("SSCommand1(6)");
  Do("mnuSection(12)");
  EXPECT_EQ(Items.At(1).PatternName, "");
  EXPECT_EQ(Items.At(2).PatternName, "Custom");
}

TEST_F(ShellTest, Export_checks_the_sections_from_entry_and_shortcut) {
  for (const char* way : {"mnuOutput(6)", "Ctrl+E"}) {
    SCOPED_TRACE(way);
    Do(way);  // nothing to export: silent
    AddSectionRow("Z");
    dialogs.ExpectDialog("frmErrors", CloseIt);
    Do(way);
    EXPECT_TRUE(dialogs.Done());
    Items.Clear();
  }
}

TEST_F(ShellTest, Printing_commands_show_their_preview_and_leave_the_cursor_in_its_cell) {
  Do("SSCommand1(6)");
  Type("P1");
  ProjectDirty = False;
  for (const char* way :
       {"mnuOutput(0)", "mnuOutput(1)", "mnuOutput(4)", "SSCommand1(5)", "Ctrl+P"}) {
    SCOPED_TRACE(way);
    dialogs.ExpectDialog("frmPreview", CloseIt);
    Do(way);
    EXPECT_TRUE(dialogs.Done());
    EXPECT_EQ(Items.UBound(), 1);
    EXPECT_EQ(ProjectDirty, False);
    main->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(main.get(), Patience));
    EXPECT_EQ(Focus(), "txtEdit");
  }
}

TEST_F(ShellTest, The_entry_of_the_accessory_list_has_no_effect) {
  Do("SSCommand1(6)");
  Type("P1");
  ProjectDirty = False;
  const int drawn = Sheet().DrawCount();
  Do("mnuOutput(2)");
  EXPECT_EQ(Items.UBound(), 1);
  EXPECT_EQ(ProjectDirty, False);
  EXPECT_EQ(Sheet().DrawCount(), drawn);
  EXPECT_EQ(Focus(), "txtEdit");
}

TEST_F(ShellTest, Without_a_project_nothing_is_greyed_and_every_section_command_is_harmless) {
  for (int bar = 0; bar < 4; ++bar) {
    for (const QAction* action : Find<QMenu>("mnuBar(" + std::to_string(bar) + ")").actions()) {
      EXPECT_TRUE(!action->isVisible() || action->isEnabled()) << FromQt(action->objectName());
    }
  }
  for (int i = 0; i <= 13; ++i) {
    EXPECT_TRUE(Find("SSCommand1(" + std::to_string(i) + ")").isEnabled()) << i;
  }
  for (int i = 7; i <= 20; ++i) {
    SCOPED_TRACE(i);
    const std::string name = "mnuSection(" + std::to_string(i) + ")";
    if (Entry(name).isSeparator()) continue;
    if (i == 10 || i == 11) dialogs.ExpectBox("Punching pattern must be 'Custom'");
    Do(name);
  }
  EXPECT_EQ(Items.UBound(), 0);
  EXPECT_EQ(ProjectDirty, False);
  EXPECT_EQ(dialogs.Boxes().size(), 2U);
}

TEST_F(ShellTest, An_error_in_a_command_shows_its_description_and_the_window_goes_on) {
  class NoHelp : public TestDesktop {
   public:
    void ShowHelp(const std::string&) override { throw RuntimeError(Failure::PathNotFound); }
  } broken;
  InstallDesktop(broken);
  for (const char* way : {"SSCommand1(13)", "mnuHelp(0)"}) {
    dialogs.ExpectBox(DescriptionOf(Failure::PathNotFound));
    Do(way);
  }
  InstallDesktop(platform);
  Do("SSCommand1(6)");
  EXPECT_EQ(Items.UBound(), 1);
}

TEST_F(ShellTest, A_button_leaves_the_cursor_in_its_cell) {
  Do("SSCommand1(6)");
  Type("P1");
  ASSERT_EQ(Focus(), "txtEdit");
  Do("SSCommand1(13)");
  EXPECT_EQ(Focus(), "txtEdit");
  EXPECT_EQ(FromQt(Find<QLineEdit>("txtEdit").text()), "P1");
}

TEST_F(ShellTest, The_right_button_on_the_sections_opens_the_section_menu) {
  Do("SSCommand1(6)");
  Do("SSCommand1(6)");
  ClickCell(Sections(), 1, 4, Qt::RightButton);
  auto& menu = Find<QMenu>("mnuBar(1)");
  ASSERT_TRUE(QTest::qWaitFor([&] { return menu.isVisible(); }));
  EXPECT_EQ(Sections().Row(), 1);
  menu.close();
  Entry("mnuSection(12)").trigger();
  EXPECT_EQ(Items.At(1).PatternName, "Custom");
  EXPECT_EQ(Items.At(2).PatternName, "");
}

TEST_F(ShellTest, The_window_speaks_for_the_program_as_long_as_it_lives) {
  EXPECT_EQ(&TheMainScreen(), static_cast<MainScreen*>(main.get()));
  EXPECT_EQ(&TheOutputScreen(), static_cast<OutputScreen*>(main.get()));
  main.reset();
  EXPECT_THROW(TheMainScreen(), std::logic_error);
  EXPECT_THROW(TheOutputScreen(), std::logic_error);
}

// What a small laptop shows of large letters.
TEST_F(ShellTest, A_screen_too_small_for_the_letters_scrolls_the_window) {
  QFont font = main->font();
  font.setPointSizeF(font.pointSizeF() * 2.5);
  main->setFont(font);
  Settle();
  const QSize room = main->screen()->availableSize();
  ASSERT_GT(Find("SSPanelToolbar").width(), room.width());
  EXPECT_LE(main->minimumSizeHint().width(), room.width());
  EXPECT_LE(main->minimumSizeHint().height(), room.height());
  main->resize(main->minimumSizeHint());
  Settle();
  auto& area = dynamic_cast<QScrollArea&>(*main->centralWidget());
  EXPECT_GT(area.horizontalScrollBar()->maximum(), 0);
  // The drawing's edge is out of sight until the bar brings it.
  EXPECT_FALSE(area.viewport()->rect().contains(
      Find("VSPrinter1").mapTo(area.viewport(), QPoint(Find("VSPrinter1").width() - 1, 0))));
  area.horizontalScrollBar()->setValue(area.horizontalScrollBar()->maximum());
  EXPECT_TRUE(area.viewport()->rect().contains(
      Find("VSPrinter1").mapTo(area.viewport(), QPoint(Find("VSPrinter1").width() - 1, 0))));
}

TEST_F(ShellTest, A_screen_with_room_shows_the_whole_window) {
  main->resize(main->minimumSizeHint());
  Settle();
  auto& area = dynamic_cast<QScrollArea&>(*main->centralWidget());
  EXPECT_EQ(area.horizontalScrollBar()->maximum(), 0);
  EXPECT_EQ(area.verticalScrollBar()->maximum(), 0);
}

}  // namespace orvane::test
