// The progress of a long run.
#include <QProgressBar>
#include <QWindow>

#include "core/desktop.h"
#include "tests/screens/preview_fixture.h"

namespace orvane::test {

namespace {

class Progress : public PrintingTest {
 protected:
  Progress() {
    clock.LookAtEachStep([this] { Look(); });
    owner.setObjectName("owner");
    owner.setText("Owner");
    owner.resize(300, 200);
    QObject::connect(&owner, &QPushButton::clicked, [this] { ++ownerClicks; });
    ShowActive(owner);
    // The dialog stays longer than the script of the other tests allows.
    dialogs.Stop();
  }
  // Does that with the dialog as soon as it is up, once.
  void Foresee(std::function<void(QWidget&)> action) { action_ = std::move(action); }
  void Look() {
    QWidget* dialog = QApplication::activeModalWidget();
    if (!action_ || dialog == nullptr || !dialog->isVisible()) return;
    EXPECT_EQ(FromQt(dialog->objectName()), "ProgressDialog");
    std::exchange(action_, nullptr)(*dialog);
  }
  // Tells the run of its first step, after more than a moment; what that gave.
  bool GoOnLong(ProgressRun& run) {
    clock.MoveOn(ProgressRun::Moment + 1);
    const bool goesOn = run.GoesOn(0, 1000000);
    EXPECT_FALSE(action_) << "the dialog never came";
    return goesOn;
  }
  // As the window system reports it, past the control that is to get it.
  static void ClickWindow(QWidget& window) {
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, Qt::NoModifier,
                      window.rect().center());
  }

  QPushButton owner;
  int ownerClicks = 0;

 private:
  std::function<void(QWidget&)> action_;
};

}  // namespace

TEST_F(Progress, A_run_within_a_moment_shows_nothing) {
  ProgressRun run(&owner, "Sheets drawn");
  for (int done = 0; done <= 20; ++done) {
    EXPECT_TRUE(run.GoesOn(done, 20));
    if (done < 20) clock.MoveOn((ProgressRun::Moment - 1) / 20);
  }
  EXPECT_EQ(owner.findChild<QDialog*>("ProgressDialog"), nullptr);
}

TEST_F(Progress, A_run_that_is_nearly_over_shows_nothing_either) {
  ProgressRun run(&owner, "Sheets drawn");
  clock.MoveOn(ProgressRun::Moment + 100);
  // A tenth of the time up to now is still to come.
  EXPECT_TRUE(run.GoesOn(10, 11));
  EXPECT_EQ(owner.findChild<QDialog*>("ProgressDialog"), nullptr);
  EXPECT_TRUE(run.GoesOn(10, 1000));
  EXPECT_NE(owner.findChild<QDialog*>("ProgressDialog"), nullptr);
}

TEST_F(Progress, A_longer_run_shows_how_far_it_is) {
  ProgressRun run(&owner, "Sheets drawn");
  clock.MoveOn(ProgressRun::Moment);
  ASSERT_TRUE(run.GoesOn(3, 40));
  auto* dialog = owner.findChild<QDialog*>("ProgressDialog");
  ASSERT_NE(dialog, nullptr);
  EXPECT_TRUE(dialog->isVisible());
  EXPECT_EQ(dialog->windowModality(), Qt::ApplicationModal);
  EXPECT_EQ(FromQt(dialog->windowTitle()), "Orvane Detailing System");
  EXPECT_EQ(FromQt(Find<QLabel>(*dialog, "lblProgress").text()), "Sheets drawn: 3 of 40");
  EXPECT_EQ(Find<QProgressBar>(*dialog, "barProgress").value(), 3);
  EXPECT_EQ(Find<QProgressBar>(*dialog, "barProgress").maximum(), 40);
}

TEST_F(Progress, The_count_is_shown_anew_after_some_time_only) {
  ProgressRun run(&owner, "Sheets drawn");
  clock.MoveOn(ProgressRun::Moment);
  ASSERT_TRUE(run.GoesOn(3, 40));
  const auto& count = Find<QLabel>(owner, "lblProgress");
  clock.MoveOn(ProgressRun::ShowEvery - 1);
  ASSERT_TRUE(run.GoesOn(4, 40));
  EXPECT_EQ(FromQt(count.text()), "Sheets drawn: 3 of 40");
  clock.MoveOn(1);
  ASSERT_TRUE(run.GoesOn(5, 40));
  EXPECT_EQ(FromQt(count.text()), "Sheets drawn: 5 of 40");
}

TEST_F(Progress, The_dialog_goes_with_the_run) {
  {
    ProgressRun run(&owner, "Sheets drawn");
    Foresee([](QWidget&) {});
    EXPECT_TRUE(GoOnLong(run));
  }
  EXPECT_EQ(owner.findChild<QDialog*>("ProgressDialog"), nullptr);
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(Progress, Cancel_by_button_key_and_frame_calls_the_run_off_for_good) {
  const std::vector<std::function<void(QWidget&)>> ways = {
      [](QWidget& dialog) { QTest::mouseClick(&Find(dialog, "cmdCancel"), Qt::LeftButton); },
      [](QWidget& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); },
      [](QWidget& dialog) { QTest::keyClick(dialog.focusWidget(), Qt::Key_Return); },
      [](QWidget& dialog) { dialog.close(); },
  };
  for (const auto& way : ways) {
    ProgressRun run(&owner, "Sheets drawn");
    Foresee(way);
    EXPECT_FALSE(GoOnLong(run));
    EXPECT_FALSE(run.GoesOn(999, 1000));
    EXPECT_FALSE(run.GoesOn(1000, 1000));
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  }
}

TEST_F(Progress, Meanwhile_no_other_window_takes_a_click) {
  ClickWindow(owner);
  ASSERT_EQ(ownerClicks, 1);
  ProgressRun run(&owner, "Sheets drawn");
  Foresee([this](QWidget& dialog) {
    ClickWindow(owner);
    QTest::mouseClick(dialog.windowHandle(), Qt::LeftButton, Qt::NoModifier,
                      Find(dialog, "cmdCancel").geometry().center());
  });
  EXPECT_FALSE(GoOnLong(run));
  EXPECT_EQ(ownerClicks, 1);
}

}  // namespace orvane::test
