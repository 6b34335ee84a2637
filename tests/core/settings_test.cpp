#include "core/settings.h"

#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "core/runtime_error.h"
#include "core/settings_file.h"
#include "tests/support/fixture.h"

namespace {

using namespace orvane;
using orvane::test::ErrorOf;

const SettingsRoot Root = SettingsRoot::LocalMachine;

// A store that keeps a record of what it is asked, in front of one in memory.
class TracedStore : public MemorySettings {
 public:
  std::vector<std::string> Calls;

  std::optional<std::string> Query(SettingsRoot root, const std::string& key,
                                   const std::string& name) override {
    Calls.push_back("get " + key + " " + name);
    return MemorySettings::Query(root, key, name);
  }
  bool Store(SettingsRoot root, const std::string& key, const std::string& name,
             const std::string& text) override {
    Calls.push_back("set " + key + " " + name + "=" + text);
    return MemorySettings::Store(root, key, name, text);
  }
};

// A store in which every call raises an error.
class FailingStore : public SettingsStore {
 public:
  std::function<void()> Fail;

  std::optional<std::string> Query(SettingsRoot, const std::string&, const std::string&) override {
    Fail();
    return "not reached";
  }
  bool Store(SettingsRoot, const std::string&, const std::string&, const std::string&) override {
    Fail();
    return true;
  }
};

// A store that refuses everything without an error, as a registry without rights does.
class RefusingStore : public SettingsStore {
 public:
  std::optional<std::string> Query(SettingsRoot, const std::string&, const std::string&) override {
    return std::nullopt;
  }
  bool Store(SettingsRoot, const std::string&, const std::string&, const std::string&) override {
    return false;
  }
};

class Settings : public orvane::test::SystemTest {
 protected:
  std::string Stored(const std::string& key, const std::string& name) {
    return desktop.Values.Query(Root, key, name).value_or("(missing)");
  }
  void Store(const std::string& key, const std::string& name, const std::string& text) {
    desktop.Values.Store(Root, key, name, text);
  }
};

const std::string Key = "SOFTWARE\\Lintaro";
const std::string PageSetup = "SOFTWARE\\Lintaro\\Settings\\PageSetup";
const std::string Drawings = "SOFTWARE\\Lintaro\\Settings\\Drawings";
const std::string Lengths = "SOFTWARE\\Lintaro\\Settings\\MaxDims";
const std::string Registration = "SOFTWARE\\Lintaro\\Registration";
const std::string General = "SOFTWARE\\Lintaro\\Settings";
const std::string Screen = "SOFTWARE\\Lintaro\\Settings\\Screen";
const std::string RecentFiles = "SOFTWARE\\Lintaro\\Settings\\RecentFiles";

void LoadAll() {
  LoadMaxDims();
  LoadPageSetup();
  LoadDrawingSettings();
  LoadRegistration();
}

std::vector<double> MaxDimsNow() {
  return {MaxDims.begin(), MaxDims.end()};
}

// --- The two operations

TEST_F(Settings, GetRegValue_gives_the_stored_text_or_the_default_in_silence) {
  EXPECT_EQ(GetRegValue(Root, Key, "a", "default"), "default");
  EXPECT_TRUE(SetRegValue(Root, Key, "a", "text"));
  EXPECT_EQ(GetRegValue(Root, Key, "a", "default"), "text");
  EXPECT_EQ(GetRegValue(Root, Key, "A", "default"), "default");
  EXPECT_EQ(GetRegValue(Root, Key + "\\a", "a", "default"), "default");
  EXPECT_TRUE(desktop.Boxes.empty());
}

TEST_F(Settings, An_empty_stored_text_is_not_missing) {
  EXPECT_TRUE(SetRegValue(Root, Key, "a", ""));
  EXPECT_EQ(GetRegValue(Root, Key, "a", "default"), "");
}

TEST_F(Settings, A_value_longer_than_255_characters_comes_back_whole) {
  for (const std::size_t length : {254U, 255U, 256U, 300U, 5000U}) {
    const std::string text = std::string(length - 1, 'x') + "y";
    EXPECT_TRUE(SetRegValue(Root, Key, "a", text));
    EXPECT_EQ(GetRegValue(Root, Key, "a", ""), text) << length;
  }
}

TEST_F(Settings, A_later_text_replaces_the_earlier_one) {
  SetRegValue(Root, Key, "a", "one");
  SetRegValue(Root, Key, "a", "two");
  EXPECT_EQ(GetRegValue(Root, Key, "a", ""), "two");
}

TEST_F(Settings, An_error_inside_shows_its_number_and_description_and_gives_empty_or_false) {
  FailingStore store;
  desktop.Store = &store;
  store.Fail = [] { throw RuntimeError(Failure::DiskFull); };
  EXPECT_EQ(GetRegValue(Root, Key, "a", "default"), "");
  EXPECT_FALSE(SetRegValue(Root, Key, "a", "text"));
  store.Fail = [] { throw RuntimeError(1005, "Input/output error"); };
  EXPECT_EQ(GetRegValue(Root, Key, "a", "default"), "");

  ASSERT_EQ(desktop.Boxes.size(), 3U);
  EXPECT_EQ(desktop.Boxes[0].Text, "ERROR #4 : Disk full");
  EXPECT_EQ(desktop.Boxes[1].Text, "ERROR #4 : Disk full");
  EXPECT_EQ(desktop.Boxes[2].Text, "ERROR #1005 : Input/output error");
  for (const auto& box : desktop.Boxes) {
    EXPECT_EQ(box.Title, "");
    EXPECT_EQ(box.Sign, Icon::None);
    EXPECT_EQ(box.Choice, Buttons::Ok);
  }
}

TEST_F(Settings, An_error_that_is_not_the_systems_own_is_shown_under_a_number_of_ours) {
  FailingStore store;
  desktop.Store = &store;
  store.Fail = [] { throw std::length_error("too long"); };
  EXPECT_EQ(GetRegValue(Root, Key, "a", "default"), "");
  EXPECT_FALSE(SetRegValue(Root, Key, "a", "text"));
  ASSERT_EQ(desktop.Boxes.size(), 2U);
  EXPECT_EQ(desktop.Boxes[0].Text, "ERROR #900 : too long");
  EXPECT_EQ(desktop.Boxes[1].Text, "ERROR #900 : too long");
}

TEST_F(Settings, A_store_that_refuses_gives_default_or_false_without_a_message) {
  RefusingStore store;
  desktop.Store = &store;
  EXPECT_EQ(GetRegValue(Root, Key, "a", "default"), "default");
  EXPECT_FALSE(SetRegValue(Root, Key, "a", "text"));
  EXPECT_TRUE(desktop.Boxes.empty());
  LeftMargin = 25;
  SavePageSetup();
  LoadPageSetup();
  EXPECT_EQ(LeftMargin, 10);
  EXPECT_EQ(desktop.Boxes.size(), 1U);  // of four values that can't be stored
}

TEST_F(Settings, The_root_is_the_hive_of_the_machine_and_all_keys_lie_under_one) {
  EXPECT_EQ(TheSettingsRoot, SettingsRoot::LocalMachine);
  EXPECT_EQ(SettingsKey, "SOFTWARE\\Lintaro");
}

// --- The settings

TEST_F(Settings, A_first_start_with_nothing_stored_gives_the_defaults) {
  CompanyName = CompanyDetails = "x";
  LoadAll();
  EXPECT_EQ(LeftMargin, 10);
  EXPECT_EQ(RightMargin, 10);
  EXPECT_EQ(TopMargin, 10);
  EXPECT_EQ(BottomMargin, 10);
  EXPECT_EQ(MinHoleSep, 4);
  EXPECT_EQ(MaxDimsNow(), (std::vector<double>{15000, 15000, 15000, 3050, 3050, 4000}));
  EXPECT_EQ(CompanyName, "");
  EXPECT_EQ(CompanyDetails, "");
  EXPECT_EQ(ProjectDirectory(), "");
  EXPECT_EQ(CamDirectory(), "");
  EXPECT_TRUE(desktop.Boxes.empty());
}

TEST_F(Settings, The_values_of_each_key_are_read_in_their_order) {
  TracedStore store;
  desktop.Store = &store;
  LoadPageSetup();
  LoadDrawingSettings();
  LoadMaxDims();
  LoadRegistration();
  ProjectDirectory();
  CamDirectory();
  const std::vector<std::string> expected = {
      "get " + PageSetup + " LeftMargin",
      "get " + PageSetup + " RightMargin",
      "get " + PageSetup + " TopMargin",
      "get " + PageSetup + " BottomMargin",
      "get " + Drawings + " MinHoleSep",
      "get " + Lengths + " Z",
      "get " + Lengths + " E",
      "get " + Lengths + " C",
      "get " + Lengths + " V",
      "get " + Lengths + " R",
      "get " + Lengths + " T",
      "get " + Registration + " Company Name",
      "get " + Registration + " Company Details",
      "get " + General + " ProjectDirectory",
      "get " + General + " CAMDirectory",
  };
  EXPECT_EQ(store.Calls, expected);
}

TEST_F(Settings, The_values_of_each_key_are_written_in_their_order_and_form) {
  TracedStore store;
  desktop.Store = &store;
  LeftMargin = 11;
  RightMargin = 12;
  TopMargin = 0;
  BottomMargin = -3;
  MinHoleSep = 5;
  for (int row = 1; row <= 6; ++row) MaxDims.At(row) = 1000 * row;
  CompanyName = "Orvane & Sons";
  CompanyDetails = "1 High Street\r\nYork";
  SavePageSetup();
  SaveDrawingSettings();
  SaveMaxDims();
  SaveRegistration();
  StoreProjectDirectory("/home/u/jobs/");
  StoreCamDirectory("C:\\cam\\");
  const std::vector<std::string> expected = {
      "set " + PageSetup + " LeftMargin=11",
      "set " + PageSetup + " RightMargin=12",
      "set " + PageSetup + " TopMargin=0",
      "set " + PageSetup + " BottomMargin=-3",
      "set " + Drawings + " MinHoleSep=5",
      "set " + Lengths + " Z=1000",
      "set " + Lengths + " E=2000",
      "set " + Lengths + " C=3000",
      "set " + Lengths + " V=4000",
      "set " + Lengths + " R=5000",
      "set " + Lengths + " T=6000",
      "set " + Registration + " Company Name=Orvane & Sons",
      "set " + Registration + " Company Details=1 High Street\r\nYork",
      "set " + General + " ProjectDirectory=/home/u/jobs/",
      "set " + General + " CAMDirectory=C:\\cam\\",
  };
  EXPECT_EQ(store.Calls, expected);
}

TEST_F(Settings, What_is_saved_is_loaded_into_the_same_places) {
  LeftMargin = 11;
  RightMargin = 12;
  TopMargin = 13;
  BottomMargin = 14;
  MinHoleSep = 6;
  for (int row = 1; row <= 6; ++row) MaxDims.At(row) = 1000 * row;
  CompanyName = "A";
  CompanyDetails = "B";
  SavePageSetup();
  SaveDrawingSettings();
  SaveMaxDims();
  SaveRegistration();
  StoreProjectDirectory("/p/");
  StoreCamDirectory("/c/");
  ResetModel();
  LoadAll();
  EXPECT_EQ(LeftMargin, 11);
  EXPECT_EQ(RightMargin, 12);
  EXPECT_EQ(TopMargin, 13);
  EXPECT_EQ(BottomMargin, 14);
  EXPECT_EQ(MinHoleSep, 6);
  EXPECT_EQ(MaxDimsNow(), (std::vector<double>{1000, 2000, 3000, 4000, 5000, 6000}));
  EXPECT_EQ(CompanyName, "A");
  EXPECT_EQ(CompanyDetails, "B");
  EXPECT_EQ(ProjectDirectory(), "/p/");
  EXPECT_EQ(CamDirectory(), "/c/");
}

TEST_F(Settings, A_margin_is_read_by_number_prefix_and_rounded_a_half_to_even) {
  struct Case {
    const char* Text;
    int Margin;
  };
  for (const Case& c : std::vector<Case>{{"15", 15},
                                         {"10.5", 10},
                                         {"11.5", 12},
                                         {"10.6", 11},
                                         {" 12mm", 12},
                                         {"-5", -5},
                                         {"abc", 0},
                                         {"10,9", 10},
                                         {"", 0}}) {
    for (const char* name : {"LeftMargin", "RightMargin", "TopMargin", "BottomMargin"}) {
      Store(PageSetup, name, c.Text);
    }
    LoadPageSetup();
    EXPECT_EQ(LeftMargin, c.Margin) << c.Text;
    EXPECT_EQ(RightMargin, c.Margin) << c.Text;
    EXPECT_EQ(TopMargin, c.Margin) << c.Text;
    EXPECT_EQ(BottomMargin, c.Margin) << c.Text;
  }
}

TEST_F(Settings, A_stored_margin_beyond_16_bits_costs_itself_alone_its_value) {
  Store(PageSetup, "LeftMargin", "40000");
  Store(PageSetup, "RightMargin", "12");
  Store(PageSetup, "TopMargin", "13");
  Store(PageSetup, "BottomMargin", "-32769");
  LoadPageSetup();
  EXPECT_EQ(LeftMargin, 10);
  EXPECT_EQ(RightMargin, 12);
  EXPECT_EQ(TopMargin, 13);
  EXPECT_EQ(BottomMargin, 10);
  ASSERT_EQ(desktop.Boxes.size(), 1U);
  EXPECT_EQ(desktop.Boxes.front().Text,
            "Overflow in the settings\r"
            "PageSetup, LeftMargin: 40000 becomes 10\r"
            "PageSetup, BottomMargin: -32769 becomes 10");
  EXPECT_EQ(Stored(PageSetup, "LeftMargin"), "40000") << "reading stores nothing";
}

TEST_F(Settings, A_stored_number_beyond_every_float_costs_itself_alone_its_value) {
  Store(Lengths, "E", "1e999");
  Store(Lengths, "T", "3999");
  LoadMaxDims();
  const std::vector<double> expected = {15000, 15000, 15000, 3050, 3050, 3999};
  for (int row = 1; row <= 6; ++row) {
    EXPECT_EQ(MaxDims.At(row), expected.at(static_cast<std::size_t>(row) - 1)) << row;
  }
  ASSERT_EQ(desktop.Boxes.size(), 1U);
  EXPECT_EQ(desktop.Boxes.front().Text,
            "Overflow in the settings\rMaxDims, E: 1e999 becomes 15000");
  Store(Drawings, "MinHoleSep", "-1e999");
  LoadDrawingSettings();
  EXPECT_EQ(MinHoleSep, 4);
  ASSERT_EQ(desktop.Boxes.size(), 2U);
  EXPECT_EQ(desktop.Boxes.back().Text,
            "Overflow in the settings\rDrawings, MinHoleSep: -1e999 becomes 4");
}

TEST_F(Settings, Words_that_look_like_no_finite_number_count_0_without_a_box) {
  for (const char* text : {"inf", "nan", "-inf", "many"}) {
    Store(PageSetup, "LeftMargin", text);
    Store(Lengths, "Z", text);
    LoadPageSetup();
    LoadMaxDims();
    EXPECT_EQ(LeftMargin, 0) << text;
    EXPECT_EQ(MaxDims.At(1), 0) << text;
  }
  EXPECT_TRUE(desktop.Boxes.empty());
}

TEST_F(Settings, A_stored_measure_of_the_window_that_is_no_finite_number_is_told_and_replaced) {
  Store(Screen, "Width", "1e999");
  Store(Screen, "Height", "700.5");
  EXPECT_EQ(ScreenNumber("Width", 1024), 1024);
  ASSERT_EQ(desktop.Boxes.size(), 1U);
  EXPECT_EQ(desktop.Boxes.front().Text,
            "Overflow in the settings\rScreen, Width: 1e999 becomes 1024");
  EXPECT_EQ(ScreenNumber("Height", 768), 700.5);
  EXPECT_EQ(ScreenNumber("Top", 40), 40);
  EXPECT_EQ(ScreenNumber("State", 0), 0);
  EXPECT_EQ(desktop.Boxes.size(), 1U);
}

TEST_F(Settings, An_empty_margin_that_was_stored_counts_0_and_not_the_default) {
  Store(PageSetup, "LeftMargin", "");
  LoadPageSetup();
  EXPECT_EQ(LeftMargin, 0);
  EXPECT_EQ(RightMargin, 10);
}

TEST_F(Settings, The_fraction_of_MinHoleSep_does_not_survive_being_stored) {
  MinHoleSep = 4.5;
  SaveDrawingSettings();
  EXPECT_EQ(Stored(Drawings, "MinHoleSep"), "5");
  LoadDrawingSettings();
  EXPECT_EQ(MinHoleSep, 5);
}

TEST_F(Settings, A_fraction_in_the_store_is_read_for_MinHoleSep_and_the_greatest_lengths) {
  Store(Drawings, "MinHoleSep", "4.5");
  Store(Lengths, "V", "3050.25");
  LoadDrawingSettings();
  LoadMaxDims();
  EXPECT_EQ(MinHoleSep, 4.5);
  EXPECT_EQ(MaxDims.At(4), 3050.25);
}

TEST_F(Settings, The_greatest_lengths_are_stored_in_the_form_0_and_may_exceed_16_bits) {
  MaxDims.At(1) = 1234.5;
  MaxDims.At(2) = 40000;
  SaveMaxDims();
  EXPECT_EQ(Stored(Lengths, "Z"), "1235");
  EXPECT_EQ(Stored(Lengths, "E"), "40000");
  EXPECT_EQ(Stored(Lengths, "C"), "0");
  LoadMaxDims();
  EXPECT_EQ(MaxDims.At(2), 40000);
}

TEST_F(Settings, An_unusable_text_counts_0) {
  Store(Drawings, "MinHoleSep", "x");
  Store(Lengths, "Z", "&H10");
  Store(Lengths, "E", "");
  LoadDrawingSettings();
  LoadMaxDims();
  EXPECT_EQ(MinHoleSep, 0);
  EXPECT_EQ(MaxDims.At(1), 0);
  EXPECT_EQ(MaxDims.At(2), 0);
  EXPECT_EQ(MaxDims.At(3), 15000);
}

TEST_F(Settings, LoadMaxDims_makes_the_table_of_six_if_it_is_not_there) {
  MaxDims.Clear();
  LoadMaxDims();
  EXPECT_EQ(MaxDimsNow(), (std::vector<double>{15000, 15000, 15000, 3050, 3050, 4000}));
}

// --- The window and the recent files

TEST_F(Settings, The_windows_state_is_0_without_a_stored_one_and_its_measures_are_the_present) {
  EXPECT_EQ(ScreenSetting("State"), "0");
  EXPECT_EQ(ScreenSetting("State", "2"), "0");
  EXPECT_EQ(ScreenSetting("Width", "1024"), "1024");
  EXPECT_EQ(ScreenSetting("Height", "768"), "768");
  EXPECT_EQ(ScreenSetting("Top", "-8"), "-8");
  EXPECT_EQ(ScreenSetting("Left", "0"), "0");
  EXPECT_TRUE(desktop.Boxes.empty());
}

TEST_F(Settings, The_windows_values_lie_under_their_key_and_names) {
  TracedStore store;
  desktop.Store = &store;
  StoreScreenSetting("State", "2");
  StoreScreenSetting("Width", "1280");
  StoreScreenSetting("Height", "960");
  StoreScreenSetting("Top", "15");
  StoreScreenSetting("Left", "-20");
  EXPECT_EQ(ScreenSetting("State"), "2");
  EXPECT_EQ(ScreenSetting("Width", "1"), "1280");
  EXPECT_EQ(ScreenSetting("Height", "1"), "960");
  EXPECT_EQ(ScreenSetting("Top", "1"), "15");
  EXPECT_EQ(ScreenSetting("Left", "1"), "-20");
  const std::vector<std::string> expected = {
      "set " + Screen + " State=2",    "set " + Screen + " Width=1280",
      "set " + Screen + " Height=960", "set " + Screen + " Top=15",
      "set " + Screen + " Left=-20",   "get " + Screen + " State",
      "get " + Screen + " Width",      "get " + Screen + " Height",
      "get " + Screen + " Top",        "get " + Screen + " Left",
  };
  EXPECT_EQ(store.Calls, expected);
}

TEST_F(Settings, The_recent_files_are_five_values_that_are_empty_at_first) {
  TracedStore store;
  desktop.Store = &store;
  for (int number = 1; number <= 5; ++number) EXPECT_EQ(RecentFile(number), "");
  StoreRecentFile(1, "/home/u/a.ovd");
  StoreRecentFile(5, "C:\\e.ovd");
  EXPECT_EQ(RecentFile(1), "/home/u/a.ovd");
  EXPECT_EQ(RecentFile(5), "C:\\e.ovd");
  const std::vector<std::string> expected = {
      "get " + RecentFiles + " Recent1",           "get " + RecentFiles + " Recent2",
      "get " + RecentFiles + " Recent3",           "get " + RecentFiles + " Recent4",
      "get " + RecentFiles + " Recent5",           "set " + RecentFiles + " Recent1=/home/u/a.ovd",
      "set " + RecentFiles + " Recent5=C:\\e.ovd", "get " + RecentFiles + " Recent1",
      "get " + RecentFiles + " Recent5",
  };
  EXPECT_EQ(store.Calls, expected);
}

TEST_F(Settings, An_empty_stored_measure_or_recent_file_is_not_missing) {
  StoreScreenSetting("State", "");
  StoreScreenSetting("Width", "");
  EXPECT_EQ(ScreenSetting("State"), "");
  EXPECT_EQ(ScreenSetting("Width", "1024"), "");
  StoreRecentFile(2, "/home/u/a.ovd");
  StoreRecentFile(2, "");
  EXPECT_EQ(RecentFile(2), "");
  EXPECT_EQ(Stored(RecentFiles, "Recent2"), "");
}

TEST_F(Settings, A_setting_that_the_table_lacks_is_an_error_of_the_program) {
  EXPECT_THROW(ScreenSetting("Depth", "1"), std::logic_error);
  EXPECT_THROW(StoreScreenSetting("ProjectDirectory", "x"), std::logic_error);
  EXPECT_THROW(RecentFile(0), std::logic_error);
  EXPECT_THROW(RecentFile(6), std::logic_error);
  EXPECT_THROW(StoreRecentFile(-1, "x"), std::logic_error);
}

}  // namespace
