#include "project/pairing.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <tuple>
#include <utility>

namespace orvane {

namespace {

using Entries = std::vector<PairEntry>;
using Both = std::pair<int, int>;  // rows of a pair

// Takes one of each out for as long as both have entries of one key, in their order; gives their
// rows.
template <class KeyOf>
std::vector<Both> PairOff(Entries& before, Entries& after, const KeyOf& keyOf) {
  const auto comesFirst = [&](const PairEntry& a, const PairEntry& b) {
    return std::tuple(keyOf(a), a.Row) < std::tuple(keyOf(b), b.Row);
  };
  std::sort(before.begin(), before.end(), comesFirst);
  std::sort(after.begin(), after.end(), comesFirst);
  Entries left;
  Entries right;
  std::vector<Both> pairs;
  auto one = before.begin();
  auto other = after.begin();
  while (one != before.end() && other != after.end()) {
    if (keyOf(*one) < keyOf(*other)) {
      left.push_back(std::move(*one++));
    } else if (keyOf(*other) < keyOf(*one)) {
      right.push_back(std::move(*other++));
    } else {
      pairs.emplace_back((one++)->Row, (other++)->Row);
    }
  }
  std::move(one, before.end(), std::back_inserter(left));
  std::move(other, after.end(), std::back_inserter(right));
  before = std::move(left);
  after = std::move(right);
  return pairs;
}

std::string_view KeyOf(const PairEntry& entry) {
  return entry.Key;
}
std::string_view ContentOf(const PairEntry& entry) {
  return entry.Content;
}

}  // namespace

std::vector<RowPair> PairsOf(std::vector<PairEntry> before, std::vector<PairEntry> after) {
  std::vector<RowPair> pairs;
  const auto add = [&pairs](Paired what, const std::vector<Both>& rows) {
    for (const auto& [earlier, later] : rows) pairs.push_back({what, earlier, later});
  };
  PairOff(before, after,
          [](const PairEntry& entry) { return std::pair(KeyOf(entry), ContentOf(entry)); });
  add(Paired::Changed, PairOff(before, after, KeyOf));
  add(Paired::Renamed, PairOff(before, after, ContentOf));
  for (const PairEntry& entry : after) pairs.push_back({Paired::Added, 0, entry.Row});
  for (const PairEntry& entry : before) pairs.push_back({Paired::Removed, entry.Row, 0});
  std::sort(pairs.begin(), pairs.end(), [](const RowPair& a, const RowPair& b) {
    return std::tuple(a.After == 0, a.After, a.Before) <
           std::tuple(b.After == 0, b.After, b.Before);
  });
  return pairs;
}

}  // namespace orvane
