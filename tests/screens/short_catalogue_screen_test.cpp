// A job of accessories that the catalogue hasn't got, in the window.
#include <filesystem>

#include "core/catalogues.h"
#include "core/files.h"
#include "tests/screens/sections_fixture.h"
#include "ui/accessory_chooser.h"
#include "ui/controls/eliding_label.h"

namespace orvane::test {
namespace {

class ShortCatalogueScreen : public SectionsTest {
 protected:
  // As after a start at which accs1.csv couldn't be read, so that accs2.csv wasn't either.
  void SetUp() override {
    SectionsTest::SetUp();
    AccDefs.Clear();
    AccType1Count = AccType2Count = 0;
    ClearUsedFlags();
    Find<AccessoryChooser>("lstAccessories").FillAccessoryList();
  }

  // The lines of a file behind its sections, whose holes a window spaces for its sheets: the
  // accessory lines and the flags.
  static std::vector<std::string> LinesBehindSections(const std::string& path) {
    const std::string bytes = BytesOf(path);
    std::vector<std::string> lines;
    for (std::size_t at = 0; at < bytes.size();) {
      const std::size_t end = bytes.find("\r\n", at);
      lines.push_back(bytes.substr(at, end - at));
      at = end + 2;
    }
    int behind = 1 + 4 * AccLines1.UBound() + 1 + 22;
    for (const AccLine2& line : AccLines2) behind += 4 + line.Values.UBound();
    EXPECT_LT(behind, static_cast<int>(lines.size()));
    lines.erase(lines.begin(), lines.end() - behind);
    return lines;
  }
};

TEST_F(ShortCatalogueScreen, Opening_and_saving_gives_the_job_back) {
  const std::string sample = std::string(ORVANE_SOURCE_DIR) + "/samples/cladding.ovd";
  const std::string job = TempPath("cladding.ovd");
  std::filesystem::copy_file(sample, job);
  platform.Chosen.push_back(job);
  Press(Qt::Key_O, Qt::ControlModifier);
  Settle();
  const int lines = AccLines1.UBound() + AccLines2.UBound();
  ASSERT_GT(lines, 1);
  const auto& note = Find<ElidingLabel>("lblJobNote");
  EXPECT_TRUE(note.isVisible());
  EXPECT_EQ(FromQt(note.toolTip()),
            "22 accessory marks and " + std::to_string(lines) +
                " accessory lines of this job aren't in the catalogue: they are kept, but can't "
                "be shown or edited");
  Press(Qt::Key_S, Qt::ControlModifier);
  Settle();
  const std::vector<std::string> expected = LinesBehindSections(sample);
  EXPECT_EQ(expected.front(), " " + std::to_string(AccLines1.UBound()) + " ");
  EXPECT_EQ(LinesBehindSections(job), expected);
}

}  // namespace
}  // namespace orvane::test
