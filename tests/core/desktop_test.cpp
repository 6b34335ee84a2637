#include "core/desktop.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "core/headless_desktop.h"
#include "tests/support/fixture.h"

namespace {

using namespace orvane;

class Desktops : public orvane::test::SystemTest {};

TEST_F(Desktops, Message_is_a_plain_box_without_title_or_icon) {
  TheDesktop().Message("Overflow");
  ASSERT_EQ(desktop.Boxes.size(), 1U);
  EXPECT_EQ(desktop.Boxes[0].Text, "Overflow");
  EXPECT_EQ(desktop.Boxes[0].Title, "");
  EXPECT_EQ(desktop.Boxes[0].Choice, Buttons::Ok);
  EXPECT_EQ(desktop.Boxes[0].Sign, Icon::None);
}

TEST_F(Desktops, One_without_a_person_closes_what_it_is_asked_and_keeps_nothing) {
  HeadlessDesktop headless;
  EXPECT_EQ(headless.ShowMessageBox("t", "", Buttons::Ok, Icon::Stop), Answer::Ok);
  EXPECT_EQ(headless.ShowMessageBox("t", "", Buttons::YesNo, Icon::None), Answer::No);
  EXPECT_EQ(headless.ShowMessageBox("t", "", Buttons::YesNoCancel, Icon::None), Answer::Cancel);
  EXPECT_EQ(headless.ShowOpenDialog({}), std::nullopt);
  EXPECT_EQ(headless.ShowSaveDialog({}), std::nullopt);
  EXPECT_EQ(headless.ShortDateForm(), "dd/MM/yyyy");
  EXPECT_EQ(headless.UserDataFolder(), "");
  EXPECT_EQ(headless.Now().Day, (Date{2024, 3, 5}));
  EXPECT_EQ(headless.Now().Second, 9);
  EXPECT_EQ(headless.Settings().Query(SettingsRoot::LocalMachine, "key", "name"), std::nullopt);
  EXPECT_TRUE(headless.Settings().Store(SettingsRoot::LocalMachine, "key", "name", "text"));
  EXPECT_EQ(headless.Settings().Query(SettingsRoot::LocalMachine, "key", "name"), "text");
}

TEST_F(Desktops, The_installed_desktop_is_the_one_in_use) {
  EXPECT_EQ(&TheDesktop(), &desktop);
  EXPECT_EQ(&TheDesktop().Settings(), &desktop.Values);
}

TEST_F(Desktops, Asking_without_an_installed_desktop_is_an_error_of_the_program) {
  UninstallDesktop();
  try {
    TheDesktop();
    FAIL() << "a desktop was given";
  } catch (const std::logic_error& error) {
    EXPECT_STREQ(error.what(), "no desktop installed");
  }
  InstallDesktop(desktop);
  EXPECT_EQ(&TheDesktop(), &desktop);
}

TEST_F(Desktops, Tell_shows_an_error_in_a_plain_box_and_leaves_what_was_done_before_it) {
  int done = 0;
  EXPECT_FALSE(Tell([&] {
    done = 1;
    throw RuntimeError(Failure::Overflow);
  }));
  EXPECT_EQ(done, 1);
  ASSERT_EQ(desktop.Boxes.size(), 1U);
  EXPECT_EQ(desktop.Boxes[0].Text, "Overflow");
  EXPECT_EQ(desktop.Boxes[0].Title, "");
  EXPECT_EQ(desktop.Boxes[0].Sign, Icon::None);
}

TEST_F(Desktops, Tell_says_nothing_of_an_action_that_went_well) {
  int done = 0;
  EXPECT_TRUE(Tell([&] { done = 1; }));
  EXPECT_EQ(done, 1);
  EXPECT_TRUE(desktop.Boxes.empty());
}

}  // namespace
