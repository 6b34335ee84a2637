// The main window's load, its place on the screen, and its end.
#include <QTimer>
#include <array>

#include "core/runtime_error.h"
#include "tests/screens/window_state_fixture.h"

namespace orvane::test {

// Place and size.

TEST_F(WindowStateTest, The_first_size_fits_the_screen_with_its_frame_and_stands_in_its_middle) {
  const QSize least = main->minimumSizeHint();
  EXPECT_GE(main->width(), Free().width() * 94 / 100);
  EXPECT_GE(main->height(), Free().height() * 92 / 100);
  EXPECT_LE(main->width(), std::max(least.width(), Free().width() - 8));
  EXPECT_LE(main->height(), std::max(least.height(), Free().height() - 36));
  EXPECT_LE(std::abs(main->geometry().center().x() - Free().center().x()), FrameWidth);
  EXPECT_LE(std::abs(main->geometry().center().y() - Free().center().y()), FrameWidth);
  EXPECT_FALSE(main->isMaximized());
}

TEST_F(WindowStateTest, A_stored_normal_window_comes_back_where_it_was) {
  Store("0", SomeSize().width(), SomeSize().height(), 40, 12);
  const QSize expected = SomeSize();
  Restart();
  EXPECT_EQ(main->size(), expected);
  EXPECT_EQ(main->pos(), QPoint(12, 40));
  EXPECT_EQ(main->windowState() & ~Qt::WindowActive, Qt::WindowNoState);
}

TEST_F(WindowStateTest, A_value_that_is_missing_leaves_the_present_one) {
  const QRect first(main->pos(), main->size());
  StoreScreenSetting("Height", DecimalText(SomeSize().height()));
  const int height = SomeSize().height();
  Restart();
  EXPECT_EQ(main->pos(), first.topLeft());
  EXPECT_EQ(main->size(), QSize(first.width(), height));
}

TEST_F(WindowStateTest, Closing_stores_state_size_and_place_and_the_next_start_restores_them) {
  main->resize(SomeSize());
  main->move(20, 30);
  QCoreApplication::processEvents();
  const QRect place(main->pos(), main->size());
  EXPECT_TRUE(main->close());
  EXPECT_EQ(InStore(), (Stored{"0", DecimalText(place.width()), DecimalText(place.height()),
                               DecimalText(place.y()), DecimalText(place.x())}));
  Restart();
  EXPECT_EQ(QRect(main->pos(), main->size()), place);
}

TEST_F(WindowStateTest, A_maximized_window_stores_its_state_and_comes_back_maximized) {
  main->showMaximized();
  QCoreApplication::processEvents();
  const Stored expected = Present("2");
  EXPECT_TRUE(main->close());
  EXPECT_EQ(InStore(), expected);
  Restart();
  EXPECT_TRUE(main->isMaximized());
}

TEST_F(WindowStateTest, A_window_closed_while_maximized_keeps_its_normal_size_and_place) {
  main->resize(SomeSize());
  main->move(20, 30);
  QCoreApplication::processEvents();
  const QRect normal = main->geometry();
  for (int start = 0; start < 3; ++start) {
    main->showMaximized();
    QCoreApplication::processEvents();
    ASSERT_NE(main->size(), normal.size());
    EXPECT_TRUE(main->close());
    Restart();
    ASSERT_TRUE(main->isMaximized());
    if (start == 1) continue;  // closed again without having been normal
    main->showNormal();
    QCoreApplication::processEvents();
    EXPECT_EQ(main->geometry(), normal) << start;
  }
}

TEST_F(WindowStateTest, A_normal_size_that_nobody_can_use_is_put_right) {
  StoreScreenSetting("State", "2");
  for (const char* name : {"Width", "Height", "Top", "Left"}) StoreNormalWindow(name, "-9999");
  Restart();
  ASSERT_TRUE(main->isMaximized());
  main->showNormal();
  QCoreApplication::processEvents();
  EXPECT_EQ(main->size(), main->minimumSizeHint());
  EXPECT_TRUE(Free().intersects(main->frameGeometry()));
}

TEST_F(WindowStateTest, The_size_is_read_for_a_normal_window_only) {
  class Asked : public TestDesktop {
   public:
    class Noting : public MemorySettings {
     public:
      std::vector<std::string> Names;
      std::optional<std::string> Query(SettingsRoot root, const std::string& key,
                                       const std::string& name) override {
        if (key == SettingsKey + "\\Settings\\Screen") Names.push_back(name);
        return MemorySettings::Query(root, key, name);
      }
    } Notes;
    SettingsStore& Settings() override { return Notes; }
  } asked;
  InstallDesktop(asked);
  for (const char* state : {"1", "2"}) {
    SCOPED_TRACE(state);
    Store(state, 5000, 5000, 10, 10);
    asked.Notes.Names.clear();
    main.reset();
    main = std::make_unique<FrmMain>(*details);
    main->Load();
    EXPECT_EQ(asked.Notes.Names, (std::vector<std::string>{"State"}));
  }
  main.reset();
  InstallDesktop(platform);
}

TEST_F(WindowStateTest, A_stored_minimized_window_starts_minimized) {
  Store("1", 700, 500, 10, 10);
  main.reset();
  main = std::make_unique<FrmMain>(*details);
  main->Load();
  main->show();
  EXPECT_TRUE(main->isMinimized());
  EXPECT_TRUE(main->isVisible());
}

TEST_F(WindowStateTest, A_window_closed_while_minimized_stores_nothing) {
  Store("2", 700, 500, 11, 12);
  const Stored before = InStore();
  main->showMinimized();
  QCoreApplication::processEvents();
  ASSERT_TRUE(main->isMinimized());
  EXPECT_TRUE(main->close());
  EXPECT_EQ(InStore(), before);
  Restart();
  EXPECT_TRUE(main->isMaximized());
}

TEST_F(WindowStateTest, A_size_that_nobody_can_use_becomes_the_least_that_the_window_needs) {
  for (const int size : {0, -20}) {
    Store("0", size, size, 40, 12);
    Restart();
    EXPECT_EQ(main->size(), main->minimumSizeHint());
    EXPECT_EQ(main->pos(), QPoint(12, 40));
  }
}

TEST_F(WindowStateTest, A_size_beyond_the_screen_becomes_the_screens) {
  Store("0", 30000, 30000, 0, 0);
  Restart();
  // With room for its frame.
  EXPECT_EQ(main->size(), (Free().size() - QSize(8, 36)).expandedTo(main->minimumSizeHint()));
}

TEST_F(WindowStateTest, The_first_place_leaves_room_for_the_frame) {
  // A window system puts the frame's corner there and the frame around the window.
  const QSize frame(8, 36);
  const QSize room = Free().size() - frame;
  EXPECT_GE(main->x(), Free().left());
  EXPECT_GE(main->y(), Free().top());
  if (main->width() <= room.width()) {
    EXPECT_LE(main->x() + main->width() + frame.width(), Free().right() + 1);
  }
  EXPECT_LE(main->height(), room.height());
  EXPECT_LE(main->y() + main->height() + frame.height(), Free().bottom() + 1);
}

TEST_F(WindowStateTest, A_place_on_no_screen_becomes_the_middle_of_the_screen) {
  const std::vector<QPoint> places = {{-5000, 40}, {40, -5000}, {30000, 30000}, {40, 5000}};
  for (const QPoint& place : places) {
    Store("0", SomeSize().width(), SomeSize().height(), place.y(), place.x());
    const QSize size = SomeSize();
    Restart();
    EXPECT_EQ(main->size(), size);
    EXPECT_LE(std::abs(main->geometry().center().x() - Free().center().x()), FrameWidth);
    EXPECT_LE(std::abs(main->geometry().center().y() - Free().center().y()), FrameWidth);
  }
}

TEST_F(WindowStateTest, A_window_half_off_the_screen_stays_where_the_user_put_it) {
  Store("0", SomeSize().width(), SomeSize().height(), 60, -100);
  Restart();
  EXPECT_EQ(main->pos(), QPoint(-100, 60));
}

TEST_F(WindowStateTest, A_text_that_is_no_number_counts_as_0) {
  Store("normal", SomeSize().width(), SomeSize().height(), 33, 22);
  StoreScreenSetting("Left", "far left");
  Restart();
  EXPECT_EQ(main->pos(), QPoint(0, 33));
}

// Layout.

TEST_F(WindowStateTest, While_the_window_is_minimized_its_areas_keep_their_places) {
  const QRect panes = Find("SSPanel2").geometry();
  const QRect file = Find("SSPanelFile").geometry();
  main->showMinimized();
  QCoreApplication::processEvents();
  main->resize(main->width() + 64, main->height() + 32);
  QCoreApplication::processEvents();
  EXPECT_EQ(Find("SSPanel2").geometry(), panes);
  EXPECT_EQ(Find("SSPanelFile").geometry(), file);
  main->showNormal();
  QCoreApplication::processEvents();
  main->resize(main->width() + 16, main->height());
  QCoreApplication::processEvents();
  EXPECT_EQ(Find("SSPanel2").width(), main->centralWidget()->width());
  EXPECT_NE(Find("SSPanel2").width(), panes.width());
}

TEST_F(WindowStateTest, The_file_panel_and_the_panes_follow_the_width_of_the_window) {
  const int toolbar = Find("SSPanelToolbar").width();
  for (const int more : {20, 0, 40}) {
    main->resize(main->minimumSizeHint() + QSize(more, 30));
    QCoreApplication::processEvents();
    EXPECT_EQ(Find("SSPanelToolbar").width(), toolbar);
    EXPECT_EQ(Find("SSPanelFile").width(), main->centralWidget()->width() - toolbar);
    EXPECT_EQ(Find("SSPanel2").width(), main->centralWidget()->width());
  }
}

TEST_F(WindowStateTest, The_window_fits_a_small_screen) {
  EXPECT_LE(main->minimumSizeHint().width(), 910);   // 1366 at 150 %
  EXPECT_LE(main->minimumSizeHint().height(), 512);  // 768 at 150 %
}

// Errors of the load.

TEST_F(WindowStateTest, An_error_stops_the_load_at_its_step_and_the_window_lives_on) {
  class NoEvents : public TestDesktop {
   public:
    void ProcessEvents() override { throw RuntimeError(Failure::TypeMismatch); }
  } broken;
  InstallDesktop(broken);
  main.reset();
  SectionDims.Clear();
  dialogs.ExpectBox("Type mismatch");
  main = std::make_unique<FrmMain>(*details);
  main->Load();
  InstallDesktop(platform);
  main->show();
  Settle();
  EXPECT_TRUE(main->isVisible());
  EXPECT_EQ(Find<QComboBox>("cboPitch").count(), 0);
  EXPECT_TRUE(SectionDims.Empty());
  // All later code lives with the steps not done.
  for (int i = 6; i <= 11; ++i) Click("SSCommand1(" + std::to_string(i) + ")");
  EXPECT_EQ(Items.UBound(), 6);
  Entry("mnuSection(17)").trigger();
  Entry("mnuSection(8)").trigger();
  Settle();
  EXPECT_EQ(Items.UBound(), 7);
}

TEST_F(WindowStateTest, A_measure_that_is_no_finite_number_costs_itself_alone_its_value) {
  const int first = main->width();
  Store("0", 0, SomeSize().height(), 33, 22);
  StoreScreenSetting("Width", "1e999");
  const int height = SomeSize().height();
  main.reset();
  dialogs.ExpectBox("Overflow in the settings\nScreen, Width: 1e999 becomes " + DecimalText(first));
  main = std::make_unique<FrmMain>(*details);
  main->Load();
  main->show();
  Settle();
  EXPECT_TRUE(main->isVisible());
  EXPECT_EQ(main->size(), QSize(first, height));
  EXPECT_EQ(main->pos(), QPoint(22, 33));
  EXPECT_EQ(Find<QComboBox>("cboPitch").count(), 6);
  EXPECT_FALSE(SectionDims.Empty());
}

TEST_F(WindowStateTest, The_load_empties_the_project) {
  AddSectionRow("Z");
  AccLines1.Append({});
  AccLines2.Append({});
  Restart();
  EXPECT_EQ(Items.UBound(), 0);
  EXPECT_EQ(AccLines1.UBound(), 0);
  EXPECT_EQ(AccLines2.UBound(), 0);
  EXPECT_EQ(Sections().Rows(), 1);
}

TEST_F(WindowStateTest, The_load_fills_the_pitches) {
  auto& pitches = Find<QComboBox>("cboPitch");
  QStringList texts;
  for (int i = 0; i < pitches.count(); ++i) texts.append(pitches.itemText(i));
  EXPECT_EQ(texts, (QStringList{"0", "5", "10", "15", "22.5", "30"}));
}

// Closing.

TEST_F(WindowStateTest, An_untouched_program_closes_without_a_question) {
  EXPECT_TRUE(main->close());
  EXPECT_FALSE(main->isVisible());
  EXPECT_TRUE(dialogs.Boxes().empty());
}

TEST_F(WindowStateTest, Cancel_leaves_the_window_open_and_the_project_intact) {
  Click("SSCommand1(6)");
  Type("P1");
  const Stored before = InStore();
  ExpectSaveQuestion(QMessageBox::Cancel);
  EXPECT_FALSE(main->close());
  Settle();
  EXPECT_TRUE(main->isVisible());
  ASSERT_EQ(Items.UBound(), 1);
  EXPECT_EQ(Items.At(1).Mark, "P1");
  EXPECT_EQ(ProjectDirty, True);
  EXPECT_EQ(InStore(), before);
  EXPECT_EQ(Cell(1, 1), "P1");
}

TEST_F(WindowStateTest, No_closes_without_saving) {
  Click("SSCommand1(6)");
  ExpectSaveQuestion(QMessageBox::No);
  EXPECT_TRUE(main->close());
  EXPECT_FALSE(main->isVisible());
  EXPECT_TRUE(platform.SaveDialogs.empty());
  EXPECT_EQ(InStore()[0], "0");
}

TEST_F(WindowStateTest, Yes_saves_and_closes) {
  Click("SSCommand1(6)");
  platform.Chosen = {TempPath("saved.ovd")};
  ExpectSaveQuestion(QMessageBox::Yes);
  EXPECT_TRUE(main->close());
  EXPECT_TRUE(std::filesystem::exists(TempPath("saved.ovd")));
}

TEST_F(WindowStateTest, Yes_closes_although_the_save_was_cancelled) {
  Click("SSCommand1(6)");
  platform.Chosen = {std::nullopt};
  ExpectSaveQuestion(QMessageBox::Yes);
  ExpectKeptAside("Exit");
  EXPECT_TRUE(main->close());
  EXPECT_FALSE(main->isVisible());
}

TEST_F(WindowStateTest, The_frame_obeys_the_length_warning) {
  AddTooShort();
  ExpectTooShort(QMessageBox::No);
  EXPECT_FALSE(main->close());
  EXPECT_TRUE(main->isVisible());
  EXPECT_EQ(InStore()[0], std::nullopt);
  ExpectTooShort(QMessageBox::Yes);
  EXPECT_TRUE(main->close());
}

// The exit command.

TEST_F(WindowStateTest, The_exit_command_warns_twice_asks_to_save_once_and_ends_in_any_case) {
  for (const bool byButton : {true, false}) {
    SCOPED_TRACE(byButton);
    AddTooShort();
    ProjectDirty = True;
    const std::size_t before = dialogs.Boxes().size();
    ExpectTooShort(QMessageBox::Yes);
    ExpectSaveQuestion(QMessageBox::No);
    ExpectTooShort(QMessageBox::No);  // the second answer stops nothing
    if (byButton) {
      Click("SSCommand1(0)");
    } else {
      Entry("mnuProject(15)").trigger();
    }
    EXPECT_FALSE(main->isVisible());
    EXPECT_EQ(dialogs.Boxes().size(), before + 3);
    EXPECT_EQ(InStore()[0], "0");
    Restart();
  }
}

TEST_F(WindowStateTest, The_exit_command_stops_at_a_first_No) {
  AddTooShort();
  ExpectTooShort(QMessageBox::No);
  Click("SSCommand1(0)");
  EXPECT_TRUE(main->isVisible());
  EXPECT_EQ(dialogs.Boxes().size(), 1U);
  EXPECT_EQ(InStore()[0], std::nullopt);
  // The frame still asks and obeys behind it.
  ExpectTooShort(QMessageBox::No);
  EXPECT_FALSE(main->close());
}

TEST_F(WindowStateTest, The_exit_command_stops_at_Cancel) {
  Click("SSCommand1(6)");
  ExpectSaveQuestion(QMessageBox::Cancel);
  Entry("mnuProject(15)").trigger();
  Settle();
  EXPECT_TRUE(main->isVisible());
  EXPECT_EQ(Items.UBound(), 1);
  EXPECT_EQ(ProjectDirty, True);
}

TEST_F(WindowStateTest, A_second_wish_to_close_waits_for_the_open_question) {
  Click("SSCommand1(6)");
  dialogs.ExpectDialog("MessageBox", [this](QWidget& box) {
    EXPECT_FALSE(main->close());
    QTest::keyClick(&box, Qt::Key_Escape);
  });
  Click("SSCommand1(0)");
  EXPECT_TRUE(main->isVisible());
  EXPECT_EQ(dialogs.Boxes().size(), 1U);
}

TEST_F(WindowStateTest, The_process_ends_with_the_window) {
  for (const bool byCommand : {true, false}) {
    SCOPED_TRACE(byCommand);
    QTimer::singleShot(0, main.get(), [this, byCommand] {
      if (byCommand) {
        main->Run(Command::Exit);
      } else {
        main->close();
      }
    });
    EXPECT_EQ(QApplication::exec(), 0);  // comes back: quitting on the last window is off here
    EXPECT_FALSE(main->isVisible());
    Restart();
  }
}

}  // namespace orvane::test
