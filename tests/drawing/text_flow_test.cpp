#include "drawing/text_flow.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "drawing/text_fit.h"

namespace orvane::test {

namespace {

// Every letter is a millimetre wide; counts the letters that it measures.
class CountingMetrics : public FontMetrics {
 public:
  mutable std::size_t Measured = 0;

  double Width(const Font&, std::string_view text) const override {
    Measured += text.size();
    return 56.7 * static_cast<double>(text.size());
  }
  double Height(const Font&) const override { return 200; }
  double Ascent(const Font&) const override { return 150; }
};

constexpr std::size_t Long = 300000;
constexpr double Room = 100 * 56.7 + 1;  // a hundred letters

std::string Repeated(std::string_view piece, std::size_t size) {
  std::string text;
  while (text.size() < size) text += piece;
  return text;
}

// A prefix is measured for each of a line's words: at most fifty of them, on the average half a
// line.
TEST(TextFlow, A_text_of_any_length_is_measured_in_a_time_that_grows_with_it_alone) {
  const std::vector<std::string> texts = {
      std::string(Long, 'x'),
      Repeated("words of a note ", Long),
      Repeated("a ", Long),
      "short " + std::string(Long, 'x') + " short",
      Repeated(std::string(150, 'x') + " y ", Long),
      std::string(Long, ' ') + "x",
      "x" + std::string(Long, ' ') + "x",
  };
  for (const std::string& text : texts) {
    const CountingMetrics metrics;
    std::vector<std::string_view> lines;
    AddWrappedLines(lines, metrics, Font{}, text, Room);
    EXPECT_LE(metrics.Measured, 40 * text.size()) << text.substr(0, 20);
    std::size_t letters = 0;
    for (const std::string_view line : lines) letters += line.size();
    EXPECT_LE(letters, text.size());
  }
}

TEST(TextFlow, A_word_of_any_length_is_got_into_its_room_in_a_few_looks) {
  const CountingMetrics metrics;
  TextShape shape;
  shape.Text = std::string(Long, 'x');
  FitText(shape, metrics, 100);
  EXPECT_LT(shape.Text.size(), 1000U);
  EXPECT_LE(metrics.Measured, 40 * Long);
}

TEST(TextFlow, Line_ends_of_every_kind_become_one_blank_each) {
  EXPECT_EQ(OneLine("a\r\nb\rc\nd\n\re\r\n"), "a b c d  e ");
  EXPECT_EQ(OneLine("\r\r\n\n"), "   ");
  EXPECT_EQ(OneLine(""), "");
  EXPECT_EQ(OneLine("plain"), "plain");
}

}  // namespace

}  // namespace orvane::test
