// What the design check says of the sample jobs, each finding looked at as a detailer.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/settings.h"
#include "output/design_check.h"
#include "project/job.h"
#include "project/project_file.h"
#include "tests/samples/sample_jobs.h"
#include "tests/support/fixture.h"

namespace orvane::test {
namespace {

class SampleCheck : public SystemTest {
 protected:
  std::vector<std::string> FoundIn(const std::string& name) {
    LoadShippedCatalogues();
    LoadMaxDims();
    ReadProjectFile(SamplePath(name, ".ovd"));
    std::vector<std::string> lines;
    for (const Finding& finding : CheckJob(OpenJob())) {
      lines.push_back(std::string(finding.Rule) + ": " + FindingLine(finding));
    }
    return lines;
  }
};

using Lines = std::vector<std::string>;

// Mitres take the ends of patterns that were made for square ones. P5, 190 deep, has its upper row
// at 145: 30 degrees cut it at 145 tan 30 = 83.7, and 9 / cos 30 = 10.4 of hole stand behind
// that, 94.1; 12.5 degrees at the other end leave 4525 - 32.1 - 9.2 = 4483.6. SR2, as deep: 145 tan
// 15 = 38.9 and 9.3 are 48.2. EB1 is cut at the bottom, with its lower row 45 high: (230 - 45) tan
// 10 = 32.6 and 9.1 are 41.8. SR3's notches are 18 deep in 140, and its upper row is 40 from the
// top, as its lower row is from the bottom: 22 mm between them.
TEST_F(SampleCheck, Of_the_shed_the_holes_in_the_cuts_of_mitres_and_two_close_to_notches_are_told) {
  const std::string practice = " (at least 27 mm, 1.5 times the hole; own practice)";
  EXPECT_EQ(
      FoundIn("portal-shed"),
      (Lines{
          "hole-in-mitre: P5 at 32 mm: 18 mm hole lies in the left-hand mitre (from 94.1 mm on; "
          "the section)",
          "hole-in-mitre: P5 at 92 mm: 18 mm hole lies in the left-hand mitre (from 94.1 mm on; "
          "the section)",
          "hole-in-mitre: P5 at 4493 mm: 18 mm hole lies in the right-hand mitre (up to 4483.6 "
          "mm; the section)",
          "hole-in-mitre: SR2 at 32 mm: 18 mm hole lies in the left-hand mitre (from 48.2 mm on; "
          "the section)",
          "hole-in-mitre: SR2X at 5393 mm: 18 mm hole lies in the right-hand mitre (up to 5376.8 "
          "mm; the section)",
          "end-distance: SR3 at 32 mm: 18 mm hole is 22 mm from notch T2" + practice,
          "end-distance: SR3 at 2968 mm: 18 mm hole is 22 mm from notch B2" + practice,
          "hole-in-mitre: EB1 at 32 mm: 18 mm hole lies in the left-hand mitre (from 41.8 mm on; "
          "the section)",
          "hole-in-mitre: EB1 at 7218 mm: 18 mm hole lies in the right-hand mitre (up to 7208.2 "
          "mm; the section)"}));
}

// J1 is notched 42.5 deep and 50 wide at its upper corners: its upper row, 45 from the top, reaches
// up to 36. B1's lower corners are cut 60 deep and 100 wide, with the flange and the lower row
// at 32. ST1 is ordered plain.
TEST_F(SampleCheck, Of_the_floor_the_holes_in_corner_notches_and_a_plain_section_are_told) {
  EXPECT_EQ(
      FoundIn("mezzanine"),
      (Lines{
          "hole-in-notch: J1 at 32 mm: 18 mm hole lies in notch TL1 (clear of 0 to 50 mm; the "
          "section)",
          "hole-in-notch: J1 at 4768 mm: 18 mm hole lies in notch TR1 (clear of 4750 to 4800 mm; "
          "the section)",
          "hole-in-notch: B1 at 32 mm: 18 mm hole lies in notch BL1 (clear of 0 to 100 mm; the "
          "section)",
          "hole-in-notch: B1 at 7173 mm: 18 mm hole lies in notch BR1 (clear of 7105 to 7205 mm; "
          "the section)",
          "no-holes: ST1: neither a pattern nor a hole (the section)"}));
}

// TH2 is 40 + 70 + 40 and twice 100 tan 10 = 35.3 high, 185.3; the holes of its upper lip are 20
// lower. 12.25 degrees cut them at 165.3 tan 12.25 = 35.9, and 7 / cos 12.25 = 7.2 behind that.
TEST_F(SampleCheck, Of_the_cladding_the_holes_in_a_top_hats_mitres_are_told) {
  EXPECT_EQ(
      FoundIn("cladding"),
      (Lines{"hole-in-mitre: TH2 at 25 mm: 14 mm hole lies in the left-hand mitre (from 43 mm "
             "on; the section)",
             "hole-in-mitre: TH2 at 2360 mm: 14 mm hole lies in the right-hand mitre (up to "
             "2342 mm; the section)"}));
}

}  // namespace
}  // namespace orvane::test
