#include "tests/support/golden.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "core/numbers.h"
#include "tests/support/fixture.h"

namespace orvane::test {

namespace {

constexpr std::size_t Context = 3;      // lines shown about a change
constexpr std::size_t MostShown = 100;  // lines of a difference
constexpr double NoiseOfFloats = 1e-6;  // mm or twips
const std::string NoLineEnd = "\n\\ no line feed at the end";

// The words of a line; a text in quotes is one word.
std::vector<std::string> WordsOf(const std::string& line) {
  std::vector<std::string> words(1);
  bool quoted = false;
  for (const char letter : line) {
    if (letter == '"') quoted = !quoted;
    if (letter == ' ' && !quoted) {
      words.emplace_back();
    } else {
      words.back() += letter;
    }
  }
  return words;
}

bool SameWord(std::string ours, std::string golden) {
  if (ours == golden) return true;
  const auto takeUnit = [](std::string& word) {
    const bool millimetres = word.ends_with("mm");
    if (millimetres) word.resize(word.size() - 2);
    return millimetres;
  };
  if (takeUnit(ours) != takeUnit(golden)) return false;
  if (!IsNumber(ours) || !IsNumber(golden)) return false;
  return std::abs(ParseDouble(ours) - ParseDouble(golden)) <= NoiseOfFloats;
}

std::string Number(std::size_t number) {
  return DecimalText(static_cast<long long>(number));
}

// The lines between what both begin and end with, by their longest common part.
void AppendMiddle(std::vector<DifferentLine>& lines, const GoldenLines& golden,
                  const GoldenLines& ours, const SameLines& same) {
  const std::size_t rows = golden.size();
  const std::size_t columns = ours.size();
  // How many lines both have from there on.
  std::vector<std::vector<std::size_t>> common(rows + 1, std::vector<std::size_t>(columns + 1, 0));
  std::vector<std::vector<bool>> equal(rows, std::vector<bool>(columns, false));
  for (std::size_t row = rows; row-- > 0;) {
    for (std::size_t column = columns; column-- > 0;) {
      equal[row][column] = same(ours[column], golden[row]);
      common[row][column] = equal[row][column]
                                ? common[row + 1][column + 1] + 1
                                : std::max(common[row + 1][column], common[row][column + 1]);
    }
  }
  std::size_t row = 0;
  std::size_t column = 0;
  while (row < rows || column < columns) {
    if (row < rows && column < columns && equal[row][column]) {
      lines.push_back({' ', golden[row++]});
      ++column;
    } else if (row < rows &&
               (column == columns || common[row + 1][column] >= common[row][column + 1])) {
      lines.push_back({'-', golden[row++]});
    } else {
      lines.push_back({'+', ours[column++]});
    }
  }
}

}  // namespace

bool EqualLines(const std::string& ours, const std::string& golden) {
  return ours == golden;
}

bool EqualButForNoise(const std::string& ours, const std::string& golden) {
  if (ours == golden) return true;
  const std::vector<std::string> one = WordsOf(ours);
  const std::vector<std::string> other = WordsOf(golden);
  return std::equal(one.begin(), one.end(), other.begin(), other.end(), SameWord);
}

GoldenLines LinesOf(const std::string& text) {
  GoldenLines lines;
  std::size_t at = 0;
  while (at < text.size()) {
    const std::size_t end = text.find('\n', at);
    if (end == std::string::npos) {
      lines.push_back(text.substr(at) + NoLineEnd);
      break;
    }
    lines.push_back(text.substr(at, end - at));
    at = end + 1;
  }
  return lines;
}

std::vector<DifferentLine> LinesOfBoth(const GoldenLines& golden, const GoldenLines& ours,
                                       const SameLines& same) {
  std::size_t front = 0;
  const std::size_t shorter = std::min(golden.size(), ours.size());
  while (front < shorter && same(ours[front], golden[front])) ++front;
  std::size_t back = 0;
  while (front + back < shorter &&
         same(ours[ours.size() - 1 - back], golden[golden.size() - 1 - back])) {
    ++back;
  }
  std::vector<DifferentLine> lines;
  for (std::size_t at = 0; at < front; ++at) lines.push_back({' ', golden[at]});
  const auto middle = [front, back](const GoldenLines& all) {
    return GoldenLines(all.begin() + static_cast<std::ptrdiff_t>(front),
                       all.end() - static_cast<std::ptrdiff_t>(back));
  };
  AppendMiddle(lines, middle(golden), middle(ours), same);
  for (std::size_t at = golden.size() - back; at < golden.size(); ++at) {
    lines.push_back({' ', golden[at]});
  }
  return lines;
}

std::string Difference(const GoldenLines& golden, const GoldenLines& ours, const SameLines& same) {
  const std::vector<DifferentLine> lines = LinesOfBoth(golden, ours, same);
  std::vector<bool> shown(lines.size(), false);
  for (std::size_t at = 0; at < lines.size(); ++at) {
    if (lines[at].Kind == ' ') continue;
    const std::size_t end = std::min(lines.size(), at + Context + 1);
    for (std::size_t near = at - std::min(at, Context); near < end; ++near) shown[near] = true;
  }
  std::string text;
  std::size_t goldenLine = 1;
  std::size_t ourLine = 1;
  std::size_t written = 0;
  std::size_t left = 0;
  for (std::size_t at = 0; at < lines.size(); ++at) {
    if (shown[at] && written < MostShown) {
      if (at == 0 || !shown[at - 1])
        text += "@@ -" + Number(goldenLine) + " +" + Number(ourLine) + " @@\n";
      text += lines[at].Kind + lines[at].Text + "\n";
      ++written;
    } else if (lines[at].Kind != ' ') {
      ++left;
    }
    if (lines[at].Kind != '+') ++goldenLine;
    if (lines[at].Kind != '-') ++ourLine;
  }
  if (left > 0) text += "and " + Number(left) + " more lines gone or new\n";
  return text;
}

std::string CompareWithGolden(const std::string& path, const std::string& bytes,
                              const SameLines& same, bool promote) {
  const bool isThere = std::filesystem::exists(path);
  const std::string difference =
      Difference(isThere ? LinesOf(BytesOf(path)) : GoldenLines(), LinesOf(bytes), same);
  // An empty golden would be met by nothing at all.
  if (isThere && difference.empty() && !bytes.empty()) return "";
  if (!promote) {
    return (isThere ? "differs from " : "there is no ") + path +
           " (- golden, + ours; ORVANE_PROMOTE=1 rewrites it)\n" + difference;
  }
  std::ofstream file(path, std::ios::binary);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  file.close();
  return (file.good() ? "promoted " : "couldn't write ") + path + ":\n" + difference;
}

std::string GoldenPath(const std::string& name) {
  return ORVANE_SOURCE_DIR "/tests/goldens/" + name;
}

bool Promotes() {
  const char* value = std::getenv("ORVANE_PROMOTE");
  return value != nullptr && std::string(value) == "1";
}

void ExpectGolden(const std::string& name, const GoldenLines& lines, const SameLines& same) {
  std::string bytes;
  for (const std::string& line : lines) bytes += line + "\n";
  const std::string failure = CompareWithGolden(GoldenPath(name), bytes, same, Promotes());
  if (!failure.empty()) ADD_FAILURE() << failure;
}

void ExpectGoldenBytes(const std::string& name, const std::string& bytes) {
  const std::string failure = CompareWithGolden(GoldenPath(name), bytes, EqualLines, Promotes());
  if (!failure.empty()) ADD_FAILURE() << failure;
}

}  // namespace orvane::test
