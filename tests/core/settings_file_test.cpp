#include "core/settings_file.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "core/runtime_error.h"
#include "tests/support/fixture.h"

namespace {

using namespace orvane;
using orvane::test::AsOrdinaryUser;
using orvane::test::BytesOf;

const SettingsRoot Root = SettingsRoot::LocalMachine;
const std::string PageSetup = "SOFTWARE\\Lintaro\\Settings\\PageSetup";
const std::string General = "SOFTWARE\\Lintaro\\Settings";

using Text = std::optional<std::string>;

class FileStore : public orvane::test::SystemTest {
 protected:
  const std::string path = TempPath("settings.txt");
  FileSettings store{path};

  void FileIs(const std::string& bytes) { TempFile("settings.txt", bytes); }
  std::string File() { return BytesOf(path); }
  Text Get(const std::string& key, const std::string& name) { return store.Query(Root, key, name); }
  bool Set(const std::string& key, const std::string& name, const std::string& text) {
    return store.Store(Root, key, name, text);
  }
};

// --- Both stores

TEST_F(FileStore, Both_stores_give_back_what_was_stored_exactly) {
  MemorySettings memory;
  const std::vector<std::string> texts = {"",
                                          "10",
                                          " ",
                                          "  blanks at both ends  ",
                                          "a=b=c",
                                          "a,b,\"c\"",
                                          "[SOFTWARE\\Lintaro]",
                                          "# no comment",
                                          "; no comment",
                                          "C:\\new\\read\\",
                                          "\\",
                                          "\\\\",
                                          "\\n",
                                          "\\\n",
                                          "line\r\nline\rline\nline\n",
                                          "\r",
                                          "\n",
                                          "\t",
                                          "caf\xC3\xA9 \xE2\x82\xAC \xF0\x9F\x99\x82",
                                          "\xEF\xBB\xBF",
                                          std::string(300, 'x') + "y",
                                          std::string(100000, '\\')};
  for (SettingsStore* one : std::vector<SettingsStore*>{&memory, &store}) {
    for (std::size_t i = 0; i < texts.size(); ++i) {
      const std::string name = "Value " + std::string(i + 1, 'x');
      EXPECT_EQ(one->Query(Root, General, name), std::nullopt);
      EXPECT_TRUE(one->Store(Root, General, name, "before"));
      EXPECT_TRUE(one->Store(Root, General, name, texts[i]));
    }
    for (std::size_t i = 0; i < texts.size(); ++i) {
      EXPECT_EQ(one->Query(Root, General, "Value " + std::string(i + 1, 'x')), texts[i]);
    }
  }
}

TEST_F(FileStore, Both_stores_tell_keys_and_names_apart_by_their_exact_text) {
  MemorySettings memory;
  const std::vector<std::pair<std::string, std::string>> places = {
      {General, "Z"},
      {General, "z"},
      {PageSetup, "Z"},
      {"software\\lintaro\\settings", "Z"},
      {General, "Company Name"},
      {General, "CompanyName"}};
  for (SettingsStore* one : std::vector<SettingsStore*>{&memory, &store}) {
    for (const auto& [key, name] : places) {
      EXPECT_EQ(one->Query(Root, key, name), std::nullopt);
      EXPECT_TRUE(one->Store(Root, key, name, key + name));
    }
    for (const auto& [key, name] : places) EXPECT_EQ(one->Query(Root, key, name), key + name);
  }
}

// --- The file's form

TEST_F(FileStore, The_file_is_readable_text_with_a_section_for_each_key) {
  EXPECT_TRUE(Set(PageSetup, "LeftMargin", "10"));
  EXPECT_TRUE(Set(General, "ProjectDirectory", "/home/u/"));
  EXPECT_TRUE(Set(PageSetup, "RightMargin", "12"));
  EXPECT_TRUE(Set("SOFTWARE\\Lintaro\\Registration", "Company Details", "1 High St\r\nYork"));
  EXPECT_TRUE(Set(General, "CAMDirectory", "C:\\cam\\"));
  EXPECT_TRUE(Set(PageSetup, "LeftMargin", "11"));
  EXPECT_EQ(File(),
            "[SOFTWARE\\Lintaro\\Settings\\PageSetup]\n"
            "LeftMargin=11\n"
            "RightMargin=12\n"
            "\n"
            "[SOFTWARE\\Lintaro\\Settings]\n"
            "ProjectDirectory=/home/u/\n"
            "CAMDirectory=C:\\\\cam\\\\\n"
            "\n"
            "[SOFTWARE\\Lintaro\\Registration]\n"
            "Company Details=1 High St\\r\\nYork\n");
}

TEST_F(FileStore, A_missing_file_holds_nothing_and_is_made_with_its_folders_at_the_first_store) {
  const std::string deep = TempPath("a/b/settings.txt");
  FileSettings fresh(deep);
  EXPECT_EQ(fresh.Query(Root, General, "Z"), std::nullopt);
  EXPECT_FALSE(std::filesystem::exists(TempPath("a")));
  EXPECT_TRUE(fresh.Store(Root, General, "Z", "1"));
  EXPECT_EQ(BytesOf(deep), "[SOFTWARE\\Lintaro\\Settings]\nZ=1\n");
  EXPECT_EQ(fresh.Query(Root, General, "Z"), "1");
}

TEST_F(FileStore, An_empty_file_holds_nothing_and_can_be_stored_into) {
  FileIs("");
  EXPECT_EQ(Get(General, "Z"), std::nullopt);
  EXPECT_TRUE(Set(General, "Z", ""));
  EXPECT_EQ(File(), "[SOFTWARE\\Lintaro\\Settings]\nZ=\n");
  EXPECT_EQ(Get(General, "Z"), "");
}

TEST_F(FileStore, Two_stores_on_one_file_lose_nothing_of_each_other) {
  FileSettings other(path);
  EXPECT_TRUE(Set(General, "A", "1"));
  EXPECT_TRUE(other.Store(Root, General, "B", "2"));
  EXPECT_TRUE(Set(General, "C", "3"));
  EXPECT_TRUE(other.Store(Root, General, "A", "4"));
  EXPECT_EQ(Get(General, "A"), "4");
  EXPECT_EQ(Get(General, "B"), "2");
  EXPECT_EQ(other.Query(Root, General, "C"), "3");
  EXPECT_EQ(File(), "[SOFTWARE\\Lintaro\\Settings]\nA=4\nB=2\nC=3\n");
}

TEST_F(FileStore, The_file_is_read_afresh_at_each_query) {
  FileIs("[SOFTWARE\\Lintaro\\Settings]\nZ=1\n");
  EXPECT_EQ(Get(General, "Z"), "1");
  FileIs("[SOFTWARE\\Lintaro\\Settings]\nZ=2\n");
  EXPECT_EQ(Get(General, "Z"), "2");
  std::filesystem::remove(path);
  EXPECT_EQ(Get(General, "Z"), std::nullopt);
}

TEST_F(FileStore, A_store_replaces_the_file_and_never_writes_into_the_old_one) {
  FileIs("[SOFTWARE\\Lintaro\\Settings]\nZ=1\n");
  std::filesystem::create_hard_link(path, TempPath("old.txt"));
  EXPECT_TRUE(Set(General, "Z", "2"));
  EXPECT_EQ(BytesOf(TempPath("old.txt")), "[SOFTWARE\\Lintaro\\Settings]\nZ=1\n");
  EXPECT_EQ(File(), "[SOFTWARE\\Lintaro\\Settings]\nZ=2\n");
}

// --- Edited by hand

TEST_F(FileStore, Comments_blank_lines_and_foreign_lines_are_kept_where_they_stand) {
  FileIs(
      "# mine\n"
      "\n"
      "Loose=1\n"
      "[SOFTWARE\\Lintaro\\Settings\\PageSetup]\n"
      "; margins\n"
      "LeftMargin=10\n"
      "#RightMargin=99\n"
      "what is this?\n"
      "[broken\n"
      "TopMargin=5\n"
      "\n"
      "# the rest\n"
      "[Other]\n"
      "LeftMargin=77\n");
  EXPECT_EQ(Get(PageSetup, "LeftMargin"), "10");
  EXPECT_EQ(Get(PageSetup, "TopMargin"), "5");
  EXPECT_EQ(Get(PageSetup, "RightMargin"), std::nullopt);
  EXPECT_EQ(Get(PageSetup, "#RightMargin"), std::nullopt);
  EXPECT_EQ(Get("", "Loose"), std::nullopt);
  EXPECT_TRUE(Set(PageSetup, "LeftMargin", "11"));
  EXPECT_TRUE(Set(PageSetup, "RightMargin", "12"));
  EXPECT_EQ(File(),
            "# mine\n"
            "\n"
            "Loose=1\n"
            "[SOFTWARE\\Lintaro\\Settings\\PageSetup]\n"
            "; margins\n"
            "LeftMargin=11\n"
            "#RightMargin=99\n"
            "what is this?\n"
            "[broken\n"
            "TopMargin=5\n"
            "RightMargin=12\n"
            "\n"
            "# the rest\n"
            "[Other]\n"
            "LeftMargin=77\n");
}

TEST_F(FileStore, A_value_keeps_its_commas_equals_signs_quotes_and_blanks) {
  FileIs(
      "  [SOFTWARE\\Lintaro\\Settings]  \n"
      "  A = 10, 20  \n"
      "B=x=y\n"
      "C=\"q\"\n"
      "D=\n"
      "E  =e\n");
  EXPECT_EQ(Get(General, "A"), " 10, 20  ");
  EXPECT_EQ(Get(General, "B"), "x=y");
  EXPECT_EQ(Get(General, "C"), "\"q\"");
  EXPECT_EQ(Get(General, "D"), "");
  EXPECT_EQ(Get(General, "E"), "e");
  EXPECT_TRUE(Set(General, "A", "1"));
  EXPECT_EQ(File(),
            "  [SOFTWARE\\Lintaro\\Settings]  \n"
            "A=1\n"
            "B=x=y\n"
            "C=\"q\"\n"
            "D=\n"
            "E  =e\n");
}

TEST_F(FileStore, An_escape_that_means_nothing_stays_as_it_stands) {
  FileIs("[SOFTWARE\\Lintaro\\Settings]\nA=C:\\jobs\\\\x\\\nB=a\\tb\\r\\n\\\\n\n");
  EXPECT_EQ(Get(General, "A"), "C:\\jobs\\x\\");
  EXPECT_EQ(Get(General, "B"), "a\\tb\r\n\\n");
}

TEST_F(FileStore, A_file_with_CR_LF_is_read_and_goes_on_with_CR_LF) {
  FileIs("[SOFTWARE\\Lintaro\\Settings]\r\nA=1\r\nB=2\r\n");
  EXPECT_EQ(Get(General, "A"), "1");
  EXPECT_EQ(Get(General, "B"), "2");
  EXPECT_TRUE(Set(General, "A", "3"));
  EXPECT_TRUE(Set(General, "C", "4"));
  EXPECT_TRUE(Set(PageSetup, "LeftMargin", "5"));
  EXPECT_EQ(File(),
            "[SOFTWARE\\Lintaro\\Settings]\r\nA=3\r\nB=2\r\nC=4\r\n\r\n"
            "[SOFTWARE\\Lintaro\\Settings\\PageSetup]\r\nLeftMargin=5\r\n");
}

TEST_F(FileStore, A_lone_CR_ends_a_line_too) {
  FileIs("[SOFTWARE\\Lintaro\\Settings]\rA=1\rB=2");
  EXPECT_EQ(Get(General, "A"), "1");
  EXPECT_EQ(Get(General, "B"), "2");
}

TEST_F(FileStore, A_last_line_without_a_line_end_gets_one_before_another_follows) {
  FileIs("[SOFTWARE\\Lintaro\\Settings]\nA=1");
  EXPECT_EQ(Get(General, "A"), "1");
  EXPECT_TRUE(Set(General, "A", "2"));
  EXPECT_EQ(File(), "[SOFTWARE\\Lintaro\\Settings]\nA=2");
  EXPECT_TRUE(Set(General, "B", "3"));
  EXPECT_EQ(File(), "[SOFTWARE\\Lintaro\\Settings]\nA=2\nB=3\n");
  FileIs("[SOFTWARE\\Lintaro\\Settings]");
  EXPECT_TRUE(Set(General, "A", "1"));
  EXPECT_EQ(File(), "[SOFTWARE\\Lintaro\\Settings]\nA=1\n");
  FileIs("# alone");
  EXPECT_TRUE(Set(General, "A", "1"));
  EXPECT_EQ(File(), "# alone\n\n[SOFTWARE\\Lintaro\\Settings]\nA=1\n");
}

TEST_F(FileStore, A_byte_order_mark_in_front_is_passed_over_and_kept) {
  FileIs("\xEF\xBB\xBF[SOFTWARE\\Lintaro\\Settings]\nA=1\n");
  EXPECT_EQ(Get(General, "A"), "1");
  EXPECT_TRUE(Set(General, "A", "2"));
  EXPECT_TRUE(Set(General, "B", "3"));
  EXPECT_EQ(File(), "\xEF\xBB\xBF[SOFTWARE\\Lintaro\\Settings]\nA=2\nB=3\n");
}

TEST_F(FileStore, A_line_in_Windows_1252_is_read_as_such_and_spoils_no_other) {
  FileIs("[SOFTWARE\\Lintaro\\Settings]\nA=caf\xE9 \x80\nB=caf\xC3\xA9\n# \xFF\n");
  EXPECT_EQ(Get(General, "A"), "caf\xC3\xA9 \xE2\x82\xAC");
  EXPECT_EQ(Get(General, "B"), "caf\xC3\xA9");
  EXPECT_TRUE(Set(General, "C", "\xC3\xBC"));
  EXPECT_EQ(File(),
            "[SOFTWARE\\Lintaro\\Settings]\nA=caf\xE9 \x80\nB=caf\xC3\xA9\nC=\xC3\xBC\n# \xFF\n");
}

TEST_F(FileStore, Of_a_value_that_stands_twice_the_first_counts_and_is_replaced) {
  FileIs("[K]\nA=1\nA=2\n[L]\nA=3\n[K]\nA=4\nB=5\n");
  EXPECT_EQ(Get("K", "A"), "1");
  EXPECT_EQ(Get("K", "B"), "5");
  EXPECT_TRUE(Set("K", "A", "6"));
  EXPECT_TRUE(Set("K", "B", "7"));
  EXPECT_TRUE(Set("K", "C", "8"));
  EXPECT_EQ(File(), "[K]\nA=6\nA=2\nC=8\n[L]\nA=3\n[K]\nA=4\nB=7\n");
}

TEST_F(FileStore, A_section_without_values_takes_them_behind_its_heading) {
  FileIs("[K]\n\n# note\n[L]\n");
  EXPECT_TRUE(Set("K", "A", "1"));
  EXPECT_TRUE(Set("L", "B", "2"));
  EXPECT_EQ(File(), "[K]\nA=1\n\n# note\n[L]\nB=2\n");
}

TEST_F(FileStore, A_key_or_name_that_the_file_cannot_hold_is_refused_and_changes_nothing) {
  const std::string before = "[SOFTWARE\\Lintaro\\Settings]\nA=1\n";
  FileIs(before);
  for (const char* name :
       {"A=B", "=", "A\nB", "A\rB", "#A", ";A", "[A", "[A]", " A", "A ", "\n[K]\nA"}) {
    EXPECT_FALSE(Set(General, name, "2")) << name;
    EXPECT_EQ(Get(General, name), std::nullopt) << name;
  }
  for (const char* key : {"K\n", "K\nA=2", "K\r"}) {
    EXPECT_FALSE(Set(key, "A", "2")) << key;
    EXPECT_EQ(Get(key, "A"), std::nullopt) << key;
  }
  EXPECT_EQ(File(), before);
}

// --- Faults

// What the two operations give for a path: the queried text or "none", then whether it was stored.
std::string Tried(const std::string& path) {
  FileSettings store(path);
  const std::string got = store.Query(Root, General, "A").value_or("none");
  return got + (store.Store(Root, General, "A", "2") ? " stored" : " refused");
}

TEST_F(FileStore, A_file_that_cannot_be_read_or_written_gives_none_and_false_without_an_error) {
  const std::string folder = TempPath("folder");
  std::filesystem::create_directories(folder + "/inside");
  EXPECT_EQ(Tried(folder), "none refused");
  EXPECT_EQ(Tried(TempFile("file", "x") + "/settings.txt"), "none refused");
  // As an ordinary user, who couldn't harm the system's device if the store went wrong.
  EXPECT_EQ(AsOrdinaryUser([] { return Tried("/dev/full"); }), "none refused");
  EXPECT_EQ(Tried(""), "none refused");
  EXPECT_TRUE(std::filesystem::is_directory(folder + "/inside"));
}

TEST_F(FileStore, Without_the_rights_nothing_is_read_stored_or_lost) {
  const auto mode = [](const std::string& name, unsigned bits) {
    std::filesystem::permissions(name, std::filesystem::perms(bits));
  };
  const std::string bytes = "[SOFTWARE\\Lintaro\\Settings]\nA=1\n";
  const std::string open = TempPath("open");
  const std::string shut = TempPath("shut");
  std::filesystem::create_directory(open);
  std::filesystem::create_directory(shut);
  const std::string secret = TempFile("open/secret.txt", bytes);
  const std::string locked = TempFile("open/locked.txt", bytes);
  const std::string inside = TempFile("shut/settings.txt", bytes);
  mode(open, 0777);
  mode(shut, 0555);
  mode(secret, 0);
  mode(locked, 0444);
  EXPECT_EQ(AsOrdinaryUser([&] { return Tried(secret); }), "none refused");
  EXPECT_EQ(AsOrdinaryUser([&] { return Tried(locked); }), "1 refused");
  EXPECT_EQ(AsOrdinaryUser([&] { return Tried(inside); }), "1 refused");
  EXPECT_EQ(AsOrdinaryUser([&] { return Tried(shut + "/new/settings.txt"); }), "none refused");
  mode(secret, 0644);
  mode(shut, 0755);
  for (const std::string& name : {secret, locked, inside}) EXPECT_EQ(BytesOf(name), bytes);
  EXPECT_FALSE(std::filesystem::exists(shut + "/new"));
}

TEST_F(FileStore, Any_bytes_are_read_and_stored_into_without_harm) {
  const std::vector<std::string> files = {std::string("\0\0\0", 3),
                                          "[",
                                          "[]",
                                          "=",
                                          "=x",
                                          "[]\n=x",
                                          "\r",
                                          "\n\n\n",
                                          "\\",
                                          "[a]b",
                                          std::string("\xFF\xFE[\0K", 5),
                                          "]",
                                          "[[K]]\nA=1",
                                          std::string(100000, '['),
                                          std::string(100000, '\r')};
  for (const std::string& bytes : files) {
    FileIs(bytes);
    EXPECT_EQ(Get("K", "A"), std::nullopt);
    EXPECT_TRUE(Set("K", "A", "1"));
    EXPECT_EQ(File().substr(0, bytes.size()), bytes);
    EXPECT_EQ(Get("K", "A"), "1");
  }
}

// --- The user's file

class UserFile : public testing::Test {
 protected:
  ~UserFile() override {
    Put("XDG_CONFIG_HOME", config_);
    Put("HOME", home_);
  }
  static Text Of(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? Text() : Text(value);
  }
  static void Put(const char* name, const Text& value) {
    if (value) {
      setenv(name, value->c_str(), 1);
    } else {
      unsetenv(name);
    }
  }

 private:
  const Text config_ = Of("XDG_CONFIG_HOME");
  const Text home_ = Of("HOME");
};

TEST_F(UserFile, It_lies_in_the_configuration_folder_or_the_home_folder) {
  struct Case {
    Text Config, Home;
    const char* Path;
  };
  const std::vector<Case> cases = {
      {"/cfg", "/home/u", "/cfg/Lintaro/settings.txt"},
      {"/cfg/", "/home/u", "/cfg/Lintaro/settings.txt"},
      {"/cfg", std::nullopt, "/cfg/Lintaro/settings.txt"},
      {std::nullopt, "/home/u", "/home/u/.config/Lintaro/settings.txt"},
      {"", "/home/u", "/home/u/.config/Lintaro/settings.txt"},
      {"cfg", "/home/u", "/home/u/.config/Lintaro/settings.txt"},
      {"./cfg", "/home/u/", "/home/u/.config/Lintaro/settings.txt"},
      {"~/cfg", "/home/u", "/home/u/.config/Lintaro/settings.txt"},
      {"/caf\xC3\xA9", "/home/u", "/caf\xC3\xA9/Lintaro/settings.txt"},
      {std::nullopt, std::nullopt, ""},
      {"", "", ""},
      {"cfg", std::nullopt, ""},
  };
  for (const Case& c : cases) {
    Put("XDG_CONFIG_HOME", c.Config);
    Put("HOME", c.Home);
    EXPECT_EQ(UserSettingsPath(), c.Path) << c.Config.value_or("-") << ' ' << c.Home.value_or("-");
  }
}

}  // namespace
