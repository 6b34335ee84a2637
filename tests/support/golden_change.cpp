#include "tests/support/golden_change.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <fstream>

#include "core/numbers.h"
#include "tests/support/fixture.h"

namespace orvane::test {

namespace {

// One change of a patch: the lines that stand there (kept and gone ones) and those that stand there
// afterwards (kept and new ones).
struct Hunk {
  GoldenLines Before;
  GoldenLines After;
  std::size_t KeptBehind = 0;  // kept lines behind the last change
};

// What a patch makes of a recording, or why it makes nothing of it.
struct Outcome {
  GoldenLines Lines;
  std::string Failure;
};

std::vector<Hunk> HunksOf(const GoldenLines& patch) {
  std::vector<Hunk> hunks;
  for (const std::string& line : patch) {
    const char kind = line.empty() ? '#' : line.front();
    if (kind == '#') continue;
    if (kind == '@') {
      hunks.emplace_back();
      continue;
    }
    Hunk& hunk = hunks.at(hunks.size() - 1);
    if (kind != '+') hunk.Before.push_back(line.substr(1));
    if (kind != '-') hunk.After.push_back(line.substr(1));
    hunk.KeptBehind = kind == ' ' ? hunk.KeptBehind + 1 : 0;
  }
  return hunks;
}

std::vector<std::size_t> PlacesOf(const GoldenLines& part, const GoldenLines& lines,
                                  std::size_t from, const SameLines& same) {
  std::vector<std::size_t> places;
  for (std::size_t at = from; at + part.size() <= lines.size(); ++at) {
    const auto begin = lines.begin() + static_cast<std::ptrdiff_t>(at);
    if (std::equal(part.begin(), part.end(), begin,
                   [&](const auto& golden, const auto& ours) { return same(ours, golden); })) {
      places.push_back(at);
    }
  }
  return places;
}

// Where the most lines of the part stand, the first one that doesn't.
std::string BestGuess(const GoldenLines& part, const GoldenLines& lines, const SameLines& same) {
  std::size_t best = 0;
  std::string found;
  for (std::size_t at = 0; at < lines.size(); ++at) {
    std::size_t count = 0;
    while (count < part.size() && at + count < lines.size() &&
           same(lines[at + count], part[count])) {
      ++count;
    }
    if (count <= best || count == part.size()) continue;
    best = count;
    found = "-" + part[count] + "\n+" + (at + count < lines.size() ? lines[at + count] : "(end)") +
            "\n";
  }
  return found;
}

Outcome Patched(const GoldenLines& before, const std::vector<Hunk>& hunks, const SameLines& same) {
  Outcome outcome;
  std::size_t done = 0;
  const auto at = [&before](std::size_t line) {
    return before.begin() + static_cast<std::ptrdiff_t>(line);
  };
  for (const Hunk& hunk : hunks) {
    const std::vector<std::size_t> places = PlacesOf(hunk.Before, before, done, same);
    if (places.size() != 1) {
      outcome.Failure = DecimalText(static_cast<long long>(places.size())) +
                        " places for the hunk that begins with " +
                        (hunk.Before.empty() ? "a new line" : hunk.Before.front()) +
                        "; where it fits best (- patch, + recorded):\n" +
                        BestGuess(hunk.Before, before, same);
      return outcome;
    }
    outcome.Lines.insert(outcome.Lines.end(), at(done), at(places.front()));
    outcome.Lines.insert(outcome.Lines.end(), hunk.After.begin(),
                         hunk.After.end() - static_cast<std::ptrdiff_t>(hunk.KeptBehind));
    done = places.front() + hunk.Before.size() - hunk.KeptBehind;
  }
  outcome.Lines.insert(outcome.Lines.end(), at(done), before.end());
  return outcome;
}

// The opening remarks of the former patch, then the hunks, each with as many kept lines about it as
// make its place the only one.
GoldenLines PatchOf(const GoldenLines& former, const GoldenLines& before, const GoldenLines& after,
                    const SameLines& same) {
  GoldenLines head;
  for (const std::string& line : former) {
    if (line.empty() || line.front() != '#') break;
    head.push_back(line);
  }
  // Lines alike in a sheet may need many about them.
  GoldenLines patch;
  const std::vector<DifferentLine> lines = LinesOfBoth(before, after, same);
  for (std::size_t context = 3; context <= before.size(); ++context) {
    std::vector<bool> taken(lines.size(), false);
    for (std::size_t at = 0; at < lines.size(); ++at) {
      if (lines[at].Kind == ' ') continue;
      const std::size_t end = std::min(lines.size(), at + context + 1);
      for (std::size_t near = at - std::min(at, context); near < end; ++near) taken[near] = true;
    }
    patch = head;
    for (std::size_t at = 0; at < lines.size(); ++at) {
      if (!taken[at]) continue;
      if (at == 0 || !taken[at - 1]) patch.emplace_back("@@");
      patch.push_back(lines[at].Kind + lines[at].Text);
    }
    if (Patched(before, HunksOf(patch), same).Failure.empty()) break;
  }
  return patch;
}

}  // namespace

std::string CompareWithPatch(const std::string& path, const GoldenLines& before,
                             const GoldenLines& after, const SameLines& same, bool promote) {
  const bool isThere = std::filesystem::exists(path);
  const GoldenLines patch = isThere ? LinesOf(BytesOf(path)) : GoldenLines();
  const std::vector<Hunk> hunks = HunksOf(patch);
  const Outcome expected = Patched(before, hunks, same);
  const std::string difference =
      expected.Failure.empty() ? Difference(expected.Lines, after, same) : expected.Failure;
  // A patch without a hunk, and an edit that changes nothing, would meet each other.
  if (!hunks.empty() && difference.empty() && before != after) return "";
  if (!promote) {
    return (isThere ? "differs from " : "there is no ") + path +
           " (- patched, + ours; ORVANE_PROMOTE=1 rewrites it)\n" + difference;
  }
  std::ofstream file(path, std::ios::binary);
  for (const std::string& line : PatchOf(patch, before, after, same)) file << line << "\n";
  file.close();
  return (file.good() ? "promoted " : "couldn't write ") + path + ":\n" + difference;
}

void ExpectGoldenChange(const std::string& name, const GoldenLines& before,
                        const GoldenLines& after, const SameLines& same) {
  const std::string failure = CompareWithPatch(GoldenPath(name), before, after, same, Promotes());
  if (!failure.empty()) ADD_FAILURE() << failure;
}

}  // namespace orvane::test
