// The files in samples/: the project files are what the builders give, and the program makes the
// factory files from them to the byte. The factory files were worked out by hand from the job
// sheets in samples/README.md; nothing here writes them.
#include "tests/samples/sample_jobs.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "core/catalogues.h"
#include "core/files.h"
#include "output/cam_export.h"
#include "output/validation.h"
#include "project/project_file.h"
#include "tests/support/fixture.h"

namespace orvane::test {
namespace {

bool Promoting() {
  const char* wish = std::getenv("ORVANE_PROMOTE_SAMPLES");
  return wish != nullptr && std::string_view(wish) == "1";
}

// The lines of a text whose every line ends in CR LF.
std::vector<std::string> LinesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::size_t from = 0;
  for (std::size_t end = 0; (end = text.find("\r\n", from)) != std::string::npos; from = end + 2) {
    lines.push_back(text.substr(from, end - from));
  }
  EXPECT_EQ(from, text.size()) << "the last line has no end";
  return lines;
}

class SampleFiles : public SystemTest, public ::testing::WithParamInterface<SampleJob> {
 protected:
  void SetUp() override { LoadShippedCatalogues(); }

  std::string Committed(const std::string& extension) const {
    return BytesOf(SamplePath(GetParam().Name, extension));
  }
};

INSTANTIATE_TEST_SUITE_P(Samples, SampleFiles, ::testing::ValuesIn(SampleJobs),
                         [](const auto& info) {
                           std::string name = info.param.Name;
                           for (char& c : name) c = c == '-' ? '_' : c;
                           return name;
                         });

TEST_P(SampleFiles, Catalogues_without_the_accessories_give_the_project_file_back_as_it_is) {
  AccDefs.Clear();
  AccType1Count = AccType2Count = 0;
  ClearUsedFlags();
  ReadProjectFile(SamplePath(GetParam().Name, ".ovd"));
  // Reading gives up the blank of a countersink that is none.
  std::vector<std::string> expected = LinesOf(Committed(".ovd"));
  std::replace(expected.begin(), expected.end(), std::string(" "), std::string());
  EXPECT_EQ(LinesOf(ProjectText()), expected);
}

TEST_P(SampleFiles, The_project_file_is_what_the_builder_gives) {
  GetParam().Build();
  const std::string text = ProjectText();
  if (Promoting()) WriteWholeFile(SamplePath(GetParam().Name, ".ovd"), text);
  EXPECT_EQ(Committed(".ovd"), text);
}

TEST_P(SampleFiles, A_project_file_read_and_saved_loses_only_the_blank_of_plain_holes) {
  ReadProjectFile(SamplePath(GetParam().Name, ".ovd"));
  const std::vector<std::string> saved = LinesOf(ProjectText());
  const std::vector<std::string> committed = LinesOf(Committed(".ovd"));

  // The one blank of a punched hole that isn't countersunk is a line of its own, and comes back as
  // empty text: leading blanks of a field are skipped.
  ASSERT_EQ(saved.size(), committed.size());
  int lost = 0;
  for (std::size_t i = 0; i < saved.size(); ++i) {
    if (saved[i] == committed[i]) continue;
    ++lost;
    EXPECT_EQ(committed[i], " ") << "line " << i + 1;
    EXPECT_EQ(saved[i], "") << "line " << i + 1;
  }

  GetParam().Build();
  int plainHoles = 0;
  for (const Item& item : Items) {
    for (const Hole& hole : item.Holes) plainHoles += hole.CounterSunk == " " ? 1 : 0;
  }
  EXPECT_GT(plainHoles, 0);
  EXPECT_EQ(lost, plainHoles);
}

TEST_P(SampleFiles, A_second_reading_and_saving_changes_nothing_more) {
  ReadProjectFile(SamplePath(GetParam().Name, ".ovd"));
  const std::string once = ProjectText();
  ReadProjectFile(TempFile("once.ovd", once));
  EXPECT_EQ(ProjectText(), once);
}

TEST_P(SampleFiles, The_export_check_passes_without_a_question) {
  ReadProjectFile(SamplePath(GetParam().Name, ".ovd"));
  ASSERT_FALSE(Items.Empty());
  EXPECT_TRUE(CheckExportData());
  EXPECT_TRUE(ExportErrors.Empty());
  EXPECT_TRUE(desktop.Boxes.empty());
}

TEST_P(SampleFiles, The_export_gives_the_expected_factory_files) {
  ReadProjectFile(SamplePath(GetParam().Name, ".ovd"));
  desktop.Present = {{2026, 3, 2}, 8, 15, 0};
  desktop.Chosen = {TempPath(GetParam().Name + ".xov")};

  EXPECT_EQ(RunExport(), ExportOutcome::Done);

  EXPECT_EQ(BytesOf(TempPath(GetParam().Name + ".xov")), Committed(".xov"));
  EXPECT_EQ(BytesOf(TempPath(GetParam().Name + ".xac")), Committed(".xac"));
  ASSERT_EQ(desktop.Boxes.size(), 1U);
  // What the check says of them, section by section, stands in sample_check_test.
  const std::map<std::string, std::string> lines = {
      {"portal-shed", "4 sections"}, {"mezzanine", "2 sections"}, {"cladding", "1 section"}};
  EXPECT_EQ(desktop.Boxes[0].Text, "CAM export complete\r" + TempPath(GetParam().Name + ".xov") +
                                       "\r" + TempPath(GetParam().Name + ".xac") + "\r" +
                                       lines.at(GetParam().Name) + " can't be made: see Check");
}

}  // namespace
}  // namespace orvane::test
