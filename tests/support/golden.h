// Whole outputs compared with files of tests/goldens, which were worked out by hand; the README
// beside them tells how.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace orvane::test {

using GoldenLines = std::vector<std::string>;
// Whether a line of ours says the same as a line of the golden.
using SameLines = std::function<bool(const std::string& ours, const std::string& golden)>;

bool EqualLines(const std::string& ours, const std::string& golden);
// Equal words, or numbers of one form (millimetres or bare) that differ by no more than the noise
// of floats, 1e-6: far less than a twip, so whole twips have to be equal. A text in quotes is one
// word.
bool EqualButForNoise(const std::string& ours, const std::string& golden);

// Fails the test with the difference unless the lines are those of tests/goldens/NAME, each of them
// ended by a line feed there. With ORVANE_PROMOTE=1 in the environment a golden that differs (or
// isn't there) is rewritten instead; the test fails then too, with what was changed, so that nobody
// takes a promotion for a pass.
void ExpectGolden(const std::string& name, const GoldenLines& lines,
                  const SameLines& same = EqualLines);
// The same for the bytes of a file, with the line ends it has.
void ExpectGoldenBytes(const std::string& name, const std::string& bytes);

// For the tests of the comparison itself.

// What ExpectGolden does with a golden of that path: empty if it agrees, else what the failure
// says.
std::string CompareWithGolden(const std::string& path, const std::string& bytes,
                              const SameLines& same, bool promote);
// The lines of a text; a last one without a line feed says so.
GoldenLines LinesOf(const std::string& text);
// The path of a golden, and whether goldens are to be rewritten.
std::string GoldenPath(const std::string& name);
bool Promotes();

// One line of a difference: ' ' for what both have, '-' for the golden's, '+' for ours.
struct DifferentLine {
  char Kind;
  std::string Text;
};
// All lines of both, the fewest possible of them gone and new.
std::vector<DifferentLine> LinesOfBoth(const GoldenLines& golden, const GoldenLines& ours,
                                       const SameLines& same);
// The difference in the usual unified form, with three lines about each change; empty if there is
// none. Changes beyond the first hundred lines are only counted.
std::string Difference(const GoldenLines& golden, const GoldenLines& ours, const SameLines& same);

}  // namespace orvane::test
