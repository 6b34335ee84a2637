// Findings that were accepted with a word: what they are known by, and the file that keeps them.
#include "output/design_accepted.h"

#include <filesystem>

#include "tests/output/design_check_fixture.h"

namespace orvane {

namespace {

using namespace test;
namespace fs = std::filesystem;

class AcceptedTest : public DesignCheckTest {
 protected:
  AcceptedTest() {
    folder_ = TempPath("data");
    KeepAcceptedIn(folder_);
    // Two holes that are close to the ends, and an overlap.
    AddHoles(AddPurlin(), {OnLines(20, "nyyn"), OnLines(1000, "nyyn"), OnLines(1010, "nyyn"),
                           OnLines(5980, "nyyn")});
  }
  ~AcceptedTest() override { KeepAcceptedIn(""); }

  static Texts Words() {
    Texts words;
    for (const Finding& finding : CheckSection(OpenJob(), 1)) words.push_back(finding.Accepted);
    return words;
  }
  static Finding Nth(std::size_t at) { return CheckSection(OpenJob(), 1).at(at); }

  std::string folder_;
};

TEST_F(AcceptedTest, A_finding_that_is_accepted_bears_its_word_and_isnt_open) {
  EXPECT_EQ(Rules(CheckSection(OpenJob(), 1)),
            (Texts{"holes-overlap", "end-distance", "end-distance"}));
  EXPECT_TRUE(IsOpenFault(Nth(0)));
  AcceptFinding(OpenJob(), Nth(0), "  one slot, burnt by hand ");
  EXPECT_EQ(Words(), (Texts{"one slot, burnt by hand", "", ""}));
  EXPECT_FALSE(IsOpenFault(Nth(0)));
  EXPECT_EQ(SectionsThatCannotBeMade(CheckJob(OpenJob())), 0);
  // The other of one rule is another finding.
  AcceptFinding(OpenJob(), Nth(2), "agreed");
  EXPECT_EQ(Words(), (Texts{"one slot, burnt by hand", "", "agreed"}));
  AcceptFinding(OpenJob(), Nth(0), "another word");
  EXPECT_EQ(Words(), (Texts{"another word", "", "agreed"}));
  ForgetAcceptance(OpenJob(), Nth(0));
  EXPECT_EQ(Words(), (Texts{"", "", "agreed"}));
  EXPECT_TRUE(IsOpenFault(Nth(0)));
}

TEST_F(AcceptedTest, It_is_open_again_as_soon_as_the_section_is_another) {
  AcceptFinding(OpenJob(), Nth(0), "agreed");
  const auto isAccepted = [] { return !Nth(0).Accepted.empty(); };
  EXPECT_TRUE(isAccepted());
  Items.At(1).Notes = "galvanised";
  EXPECT_FALSE(isAccepted());
  Items.At(1).Notes.clear();
  EXPECT_TRUE(isAccepted());
  Items.At(1).Quantity = 7;  // how many there are changes nothing of it
  EXPECT_TRUE(isAccepted());
  Items.At(1).Mark = "P9";
  EXPECT_FALSE(isAccepted());
}

TEST_F(AcceptedTest, Findings_beside_other_sections_are_accepted_too) {
  AddPurlin().Mark = "P1";
  AccLines2.Append(MakeLine2(6, "S1", 1, {"Z16512"}));
  std::vector<Finding> findings = CheckAcross(OpenJob());
  EXPECT_EQ(Rules(findings), (Texts{"mark-twice", "mark-twice", "sleeve-without-product"}));
  AcceptFinding(OpenJob(), findings.at(0), "two phases");
  AcceptFinding(OpenJob(), findings.at(2), "spare");
  findings = CheckAcross(OpenJob());
  EXPECT_EQ(findings.at(0).Accepted, "two phases");
  EXPECT_EQ(findings.at(1).Accepted, "");
  EXPECT_EQ(findings.at(2).Accepted, "spare");
}

TEST_F(AcceptedTest, The_next_start_knows_them) {
  AcceptFinding(OpenJob(), Nth(0), "he said \"yes\", twice");
  KeepAcceptedIn("");
  EXPECT_EQ(Words(), (Texts{"", "", ""}));
  KeepAcceptedIn(folder_);
  EXPECT_EQ(Words(), (Texts{"he said \"yes\", twice", "", ""}));
}

TEST_F(AcceptedTest, What_another_program_has_accepted_meanwhile_stays) {
  AcceptFinding(OpenJob(), Nth(0), "ours");
  const std::string ours = BytesOf(folder_ + "/accepted.csv");
  AcceptFinding(OpenJob(), Nth(1), "theirs");
  const std::string theirs = BytesOf(folder_ + "/accepted.csv");
  // This program was started before.
  TempFile("data/accepted.csv", ours);
  KeepAcceptedIn(folder_);
  TempFile("data/accepted.csv", theirs);
  AcceptFinding(OpenJob(), Nth(2), "ours too");
  EXPECT_EQ(Words(), (Texts{"ours", "theirs", "ours too"}));
}

TEST_F(AcceptedTest, While_another_program_writes_nothing_is_written_and_that_is_told) {
  desktop.LaysLocks = true;
  AcceptFinding(OpenJob(), Nth(0), "agreed");
  EXPECT_TRUE(desktop.Locks->empty());
  const std::string file = folder_ + "/accepted.csv";
  const std::string before = BytesOf(file);
  desktop.LockHolders[file + ".lock"] = {"anna", desktop.ThisComputer, "orvane", 0};
  EXPECT_EQ(ErrorOf([] { AcceptFinding(OpenJob(), Nth(1), "me too"); }),
            "Another program is just writing what was accepted: try again");
  EXPECT_EQ(BytesOf(file), before);
  EXPECT_EQ(Words(), (Texts{"agreed", "", ""}));
}

TEST_F(AcceptedTest, A_file_that_cant_be_read_is_told_and_never_written_over) {
  AcceptFinding(OpenJob(), Nth(0), "agreed");
  const std::string file = folder_ + "/accepted.csv";
  TempFile("data/accepted.csv", "holes-overlap,P1,\"no end");
  EXPECT_NE(ErrorOf([this] { KeepAcceptedIn(folder_); }), "");
  EXPECT_EQ(Words(), (Texts{"", "", ""}));
  EXPECT_NE(ErrorOf([] { AcceptFinding(OpenJob(), Nth(0), "again"); }), "");
  EXPECT_EQ(BytesOf(file), "holes-overlap,P1,\"no end");
}

TEST_F(AcceptedTest, Without_a_folder_or_a_word_nothing_is_accepted) {
  EXPECT_EQ(ErrorOf([] { AcceptFinding(OpenJob(), Nth(0), "  "); }), "Type mismatch");
  KeepAcceptedIn("");
  EXPECT_EQ(ErrorOf([] { AcceptFinding(OpenJob(), Nth(0), "agreed"); }), "Path not found");
  EXPECT_EQ(Words(), (Texts{"", "", ""}));
  EXPECT_FALSE(fs::exists(folder_ + "/accepted.csv"));
}

}  // namespace

}  // namespace orvane
