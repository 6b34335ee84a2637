#include "drawing/text_flow.h"

#include <algorithm>
#include <cstddef>

#include "core/numbers.h"

namespace orvane {

namespace {

constexpr char Blank = ' ';

std::string_view WithoutBlanksAtEnd(std::string_view text) {
  return text.substr(0, text.find_last_not_of(Blank) + 1);
}

std::string_view WithoutBlanksInFront(std::string_view text) {
  return text.substr(std::min(text.find_first_not_of(Blank), text.size()));
}

// Where the line that `text` begins with ends: behind the last word that fits, or behind the first
// one where not even that does.
std::size_t WholeWords(const FontMetrics& metrics, const Font& font, std::string_view text,
                       double room) {
  std::size_t end = 0;
  while (end < text.size()) {
    const std::size_t word = std::min(text.find_first_not_of(Blank, end), text.size());
    const std::size_t next = std::min(text.find(Blank, word), text.size());
    if (end > 0 && TextTwips(metrics, font, text.substr(0, next)) > room) break;
    end = next;
  }
  return end;
}

}  // namespace

std::string OneLine(std::string_view text) {
  std::string line;
  line.reserve(text.size());
  for (std::size_t at = 0; at < text.size(); ++at) {
    // A carriage return and line feed together are one line end.
    if (text.substr(at, 2) == "\r\n") continue;
    const bool ends = text[at] == '\r' || text[at] == '\n';
    line += ends ? Blank : text[at];
  }
  return line;
}

double TextTwips(const FontMetrics& metrics, const Font& font, std::string_view text) {
  return Nearest(metrics.Width(font, text));
}

double LineTwips(const FontMetrics& metrics, const Font& font) {
  return Nearest(metrics.Height(font));
}

void AddWrappedLines(std::vector<std::string_view>& lines, const FontMetrics& metrics,
                     const Font& font, std::string_view text, double room) {
  std::string_view rest = WithoutBlanksAtEnd(text);
  if (rest.empty() || TextTwips(metrics, font, rest) <= room) return lines.push_back(rest);
  while (!rest.empty()) {
    const std::size_t end = WholeWords(metrics, font, rest, room);
    lines.push_back(rest.substr(0, end));
    rest = WithoutBlanksInFront(rest.substr(end));
  }
}

}  // namespace orvane
