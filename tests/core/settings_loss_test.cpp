// Settings that can't be stored: nothing that stood in the file goes, and the loss is told.
#include <gtest/gtest.h>

#include <filesystem>
#include <iterator>
#include <optional>
#include <string>

#include "core/settings.h"
#include "core/settings_file.h"
#include "tests/support/failing_disk.h"
#include "tests/support/fixture.h"

namespace {

using namespace orvane;
using orvane::test::FailingDisk;
using orvane::test::Fault;
using orvane::test::ForEachFault;

class SettingsLoss : public orvane::test::SystemTest {};

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

TEST_F(SettingsLoss, Settings_that_can_t_be_stored_are_told_once) {
  RefusingStore refusing;
  desktop.Store = &refusing;
  StoreRecentFile(1, "/a.ovd");
  ASSERT_EQ(desktop.Boxes.size(), 1U);
  EXPECT_EQ(desktop.Boxes.front().Text,
            "The settings can't be stored.\rWhat is set now holds until the program ends.");
  EXPECT_EQ(desktop.Boxes.front().Choice, Buttons::Ok);
  SavePageSetup();
  StoreProjectDirectory("/jobs");
  EXPECT_EQ(desktop.Boxes.size(), 1U);
}

TEST_F(SettingsLoss, After_any_fault_the_stored_settings_read_back_and_the_loss_is_told) {
  const std::string path = TempPath("f/settings.txt");
  FileSettings store(path);
  desktop.Store = &store;
  const auto prepare = [&] {
    std::filesystem::remove_all(TempPath("f"));
    StoreProjectDirectory("/former/");
    StoreCamDirectory("/stays/");
    desktop.Boxes.clear();
    SettingsLossTold = False;
  };
  ForEachFault(
      prepare, [&] { StoreProjectDirectory("/fresh/"); },
      [&](const Fault& fault, const FailingDisk& disk) {
        const std::string where = TextOf(fault, disk);
        UninstallDisk();
        const std::string stored = ProjectDirectory();
        EXPECT_TRUE(stored == "/fresh/" || (stored == "/former/" && desktop.Boxes.size() == 1))
            << where;
        EXPECT_EQ(CamDirectory(), "/stays/") << where;
        const std::string& call = disk.Calls.at(static_cast<std::size_t>(fault.Call - 1));
        EXPECT_TRUE(desktop.Boxes.size() == 1 || fault.Heals() || call == "close") << where;
        const auto entries = std::filesystem::directory_iterator(TempPath("f"));
        EXPECT_EQ(std::distance(entries, {}), 1) << where;
      });
}

}  // namespace
