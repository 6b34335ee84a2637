// The settings in the registry of Windows: the user's branch before the machine's.
#include "core/settings_registry.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <optional>
#include <string>

namespace {

using namespace orvane;

constexpr const char* Key = "SOFTWARE\\Lintaro test\\Settings";
constexpr const char* Top = "SOFTWARE\\Lintaro test";
constexpr SettingsRoot Root = SettingsRoot::LocalMachine;

class RegistryTest : public ::testing::Test {
 protected:
  void SetUp() override { Clear(); }
  void TearDown() override { Clear(); }

  static void Clear() {
    for (const HKEY branch : {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE}) {
      RegDeleteKeyA(branch, Key);
      RegDeleteKeyA(branch, Top);
    }
  }
  static void Lay(HKEY branch, const char* name, const std::string& text) {
    HKEY key = nullptr;
    ASSERT_EQ(RegCreateKeyA(branch, Key, &key), ERROR_SUCCESS);
    EXPECT_EQ(RegSetValueExA(key, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                             static_cast<DWORD>(text.size() + 1)),
              ERROR_SUCCESS);
    RegCloseKey(key);
  }
  static bool Has(HKEY branch, const char* name) {
    return RegGetValueA(branch, Key, name, RRF_RT_REG_SZ, nullptr, nullptr, nullptr) ==
           ERROR_SUCCESS;
  }

  RegistrySettings settings_;
};

TEST_F(RegistryTest, The_machines_value_holds_for_who_has_none) {
  Lay(HKEY_LOCAL_MACHINE, "Company Name", "Office");
  EXPECT_EQ(settings_.Query(Root, Key, "Company Name"), "Office");
  EXPECT_EQ(settings_.Query(Root, Key, "Other"), std::nullopt);
}

TEST_F(RegistryTest, The_users_value_goes_before_the_machines_an_empty_one_too) {
  Lay(HKEY_LOCAL_MACHINE, "Company Name", "Office");
  Lay(HKEY_CURRENT_USER, "Company Name", "Me");
  EXPECT_EQ(settings_.Query(Root, Key, "Company Name"), "Me");
  Lay(HKEY_CURRENT_USER, "Company Name", "");
  EXPECT_EQ(settings_.Query(Root, Key, "Company Name"), "");
}

TEST_F(RegistryTest, What_is_stored_is_the_users_and_leaves_the_machines) {
  Lay(HKEY_LOCAL_MACHINE, "Z", "12000");
  EXPECT_TRUE(settings_.Store(Root, Key, "Z", "9000"));
  EXPECT_TRUE(settings_.Store(Root, Key, "E", "8000"));
  EXPECT_EQ(settings_.Query(Root, Key, "Z"), "9000");
  EXPECT_FALSE(Has(HKEY_LOCAL_MACHINE, "E"));
  Clear();
  Lay(HKEY_LOCAL_MACHINE, "Z", "12000");
  EXPECT_EQ(settings_.Query(Root, Key, "Z"), "12000");
}

TEST_F(RegistryTest, A_text_of_any_length_comes_back) {
  for (const std::size_t length :
       {std::size_t{0}, std::size_t{254}, std::size_t{255}, std::size_t{256}, std::size_t{4000}}) {
    const std::string text(length, 'x');
    EXPECT_TRUE(settings_.Store(Root, Key, "Company Details", text));
    EXPECT_EQ(settings_.Query(Root, Key, "Company Details"), text) << length;
  }
}

}  // namespace
