// What the tests of the house share: fresh tables, a scripted desktop, a folder of their own.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "core/model.h"
#include "tests/support/scripted_desktop.h"

namespace orvane::test {

// Resets the application-wide tables and values, and installs the scripted desktop for the time of
// the test.
class SystemTest : public ::testing::Test {
 protected:
  SystemTest();
  ~SystemTest() override;

  ScriptedDesktop desktop;

  // A file in the test's own folder, which is made at the first use and goes with the test.
  std::string TempPath(const std::string& name);
  // Writes bytes to such a file and gives its path.
  std::string TempFile(const std::string& name, std::string_view bytes);

  // Loads the catalogues that ship.
  void LoadShippedCatalogues();

 private:
  std::filesystem::path folder_;
};

// The description of the RuntimeError that the action raises; empty, with a failed test, if it
// raises none.
std::string ErrorOf(const std::function<void()>& action);

// What the action ended with, where both may be: the error's description, empty without an error.
std::string OutcomeOf(const std::function<void()>& action);

// Adds a section of that family with a product of its own name, one of a kind.
Item& AppendItem(const std::string& mark, const std::string& letter = "Z",
                 std::int16_t length = 3000);

// "AccIndex/Mark/NoOff" of each type 2 line.
std::vector<std::string> LinesOfType2();

// The whole content of a file.
std::string BytesOf(const std::string& path);

// Runs the action in a child process under an unprivileged user, since root passes every permission
// check, and gives what it returned (at most 64 KiB). Fails the test if the child
// died, if the action threw, and if an expectation in it failed. When the tests don't run as root,
// it runs with the present rights.
std::string AsOrdinaryUser(const std::function<std::string()>& action);

}  // namespace orvane::test
