#include "core/catalogue_folder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "core/catalogues.h"
#include "core/program_folder.h"
#include "core/settings.h"
#include "tests/support/fixture.h"

namespace orvane {

namespace {

using Names = std::vector<std::string>;

// The program's folder "program" with every file, and the office's, "office", with what a test
// puts there; each holds its own path, but for the catalogue files that are read.
class CatalogueFolders : public test::SystemTest {
 protected:
  CatalogueFolders() {
    for (const char* name : {"dims.csv", "punch.csv", "accs1.csv", "accs2.csv", "check.csv",
                             "Drawings/acc01.wmf", "Drawings/acc02.wmf"}) {
      Put("program", name);
    }
    ProgramFolder = TempPath("program");
    std::filesystem::create_directories(TempPath("office"));
  }
  ~CatalogueFolders() override { OfficeFolder.clear(); }

  void Put(const std::string& folder, const std::string& name) {
    const std::string path = folder + "/" + name;
    std::filesystem::create_directories(std::filesystem::path(TempPath(path)).parent_path());
    TempFile(path, path);
  }
  std::string Office() { return TempPath("office"); }
  // What is used from the office's folder.
  Names OfficesOwn() {
    Names names;
    for (const CatalogueFileInUse& file : CatalogueFilesOf(Office())) {
      if (file.From == CatalogueOrigin::Office) names.push_back(file.Name);
    }
    return names;
  }
};

TEST_F(CatalogueFolders, Without_a_folder_of_the_office_all_is_the_programs) {
  EXPECT_EQ(CataloguePath(DimsFile), ProgramPath(DimsFile));
  EXPECT_EQ(CataloguePath("\\drawings\\ACC01.wmf"), ProgramPath("\\Drawings\\acc01.wmf"));
  EXPECT_FALSE(IsOfficesOwn(DimsFile));
  const std::vector<CatalogueFileInUse> files = CatalogueFilesOf("");
  ASSERT_EQ(files.size(), 7U);
  EXPECT_EQ(files[0].Name, "dims.csv");
  EXPECT_EQ(files[0].Path, TempPath("program/dims.csv"));
  EXPECT_EQ(files[6].Name, "Drawings/acc02.wmf");
  for (const CatalogueFileInUse& file : files) EXPECT_EQ(file.From, CatalogueOrigin::Program);
}

TEST_F(CatalogueFolders, Products_patterns_rules_and_pictures_come_each_by_itself) {
  Put("office", "PUNCH.csv");
  Put("office", "drawings/Acc02.wmf");
  Put("office", "drawings/acc99.wmf");
  OfficeFolder = Office();
  EXPECT_EQ(CataloguePath(PunchFile), TempPath("office/PUNCH.csv"));
  EXPECT_EQ(CataloguePath("\\Drawings\\acc02.wmf"), TempPath("office/drawings/Acc02.wmf"));
  EXPECT_EQ(CataloguePath("\\Drawings\\acc01.wmf"), TempPath("program/Drawings/acc01.wmf"));
  EXPECT_EQ(CataloguePath(DimsFile), TempPath("program/dims.csv"));
  EXPECT_EQ(OfficesOwn(), (Names{"punch.csv", "Drawings/Acc02.wmf", "Drawings/acc99.wmf"}));
}

TEST_F(CatalogueFolders, The_two_accessory_files_count_as_a_pair_alone) {
  Put("office", "accs2.csv");
  EXPECT_EQ(OfficesOwn(), Names{});
  const std::vector<CatalogueFileInUse> files = CatalogueFilesOf(Office());
  EXPECT_TRUE(files.at(3).Unpaired);
  EXPECT_FALSE(files.at(2).Unpaired);
  EXPECT_EQ(files.at(3).Path, TempPath("program/accs2.csv"));
  Put("office", "accs1.csv");
  EXPECT_EQ(OfficesOwn(), (Names{"accs1.csv", "accs2.csv"}));
  EXPECT_FALSE(CatalogueFilesOf(Office()).at(3).Unpaired);
}

TEST_F(CatalogueFolders, A_file_that_is_nowhere_is_told_so) {
  std::filesystem::remove(TempPath("program/check.csv"));
  const CatalogueFileInUse check = CatalogueFilesOf(Office()).at(4);
  EXPECT_EQ(check.Name, "check.csv");
  EXPECT_EQ(check.From, CatalogueOrigin::Nowhere);
  EXPECT_EQ(check.Path, "");
}

TEST_F(CatalogueFolders, The_setting_names_the_folder_and_a_look_at_another_changes_nothing) {
  EXPECT_EQ(CatalogueFolder(), "");
  EXPECT_TRUE(UseOfficeFolder());
  EXPECT_EQ(OfficeFolder, "");
  StoreCatalogueFolder(Office());
  EXPECT_EQ(desktop.Settings().Query(SettingsRoot::LocalMachine, SettingsKey + "\\Settings",
                                     "Catalogue folder"),
            Office());
  EXPECT_EQ(OfficeFolder, "");
  EXPECT_TRUE(UseOfficeFolder());
  EXPECT_EQ(OfficeFolder, Office());
  CatalogueFilesOf("");
  EXPECT_EQ(OfficeFolder, Office());
  EXPECT_TRUE(desktop.Boxes.empty());
}

TEST_F(CatalogueFolders, A_folder_that_has_vanished_is_told_and_the_setting_stays) {
  const std::string gone = TempPath("gone");
  StoreCatalogueFolder(gone);
  OfficeFolder = Office();
  EXPECT_FALSE(UseOfficeFolder());
  EXPECT_EQ(OfficeFolder, "");
  EXPECT_EQ(CatalogueFolder(), gone);
  ASSERT_EQ(desktop.Boxes.size(), 1U);
  EXPECT_EQ(desktop.Boxes.at(0).Text,
            "The catalogue folder can't be found: " + gone +
                "\rThe catalogue that ships with the program is used until the next start. The "
                "setting stays.");
  EXPECT_EQ(desktop.Boxes.at(0).Title, "Orvane Detailing System");
  EXPECT_EQ(desktop.Boxes.at(0).Sign, Icon::Stop);
  // A file isn't a folder.
  StoreCatalogueFolder(TempPath("program/dims.csv"));
  EXPECT_FALSE(UseOfficeFolder());
}

}  // namespace

}  // namespace orvane
