#include "project/job_difference.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

#include "core/numbers.h"
#include "core/text.h"
#include "project/project_layout.h"

namespace orvane {

namespace {

// The layout's visitor that puts what was entered in a record into one text, so that equal texts
// are equal contents. Each text of the record has its length in front: it may hold anything.
class EnteredText {
 public:
  void Plain(const std::string& text) { Add(PlainLine(text)); }
  void Quoted(const std::string& text) {
    if (section_ == nullptr || &text != &section_->Mark) Add(text);
  }
  void Sign(const std::string& text) { Add(Trim(text)); }

  void Number(const std::int16_t& field) {
    if (section_ == nullptr || &field != &section_->CustomHoleCount) AppendFileNumber(text_, field);
  }
  void Number(float field) { AppendFileNumber(text_, field); }
  // A record's 64-bit floats are the gaps of a hole.
  void Number(double) {}

  // The rows tell their number themselves.
  template <class Row>
  int Count(const Table<Row>& table) {
    return table.UBound();
  }
  template <class Row>
  void Size(const Table<Row>&, int) {}

  template <class Row>
  void Rows(const Table<Row>& table, int first, int last) {
    for (int row = first; row <= last; ++row) Add(TextOf(table.At(row)));
  }
  // Element 0 stands for the section's end.
  void Rows(const Table<Hole>& holes, int, int) {
    std::vector<std::string> byHand;
    for (const Hole& hole : holes) {
      if (hole.Kind == CustomKind) byHand.push_back(TextOf(hole));
    }
    std::sort(byHand.begin(), byHand.end());
    for (const std::string& hole : byHand) Add(hole);
  }

  template <class Row>
  static std::string TextOf(const Row& record) {
    EnteredText text;
    Describe(text, record);
    return std::move(text.text_);
  }
  // A section's but for its mark.
  static std::string TextOf(const Item& item) {
    EnteredText text;
    text.section_ = &item;
    Describe(text, item);
    return std::move(text.text_);
  }

 private:
  void Add(std::string_view text) {
    text_.append(DecimalText(static_cast<long long>(text.size()))).append(1, ':').append(text);
  }

  std::string text_;
  const Item* section_ = nullptr;  // that is looked at; none outside the sections
};

// What is compared: a section, or a line, which has no mark.
struct Entry {
  int Row = 0;
  std::string Mark;
  std::string Content;
};
using Entries = std::vector<Entry>;

Entries SectionsOf(const JobView& job) {
  Entries entries;
  entries.reserve(static_cast<std::size_t>(job.Items.UBound()));
  for (int row = 1; row <= job.Items.UBound(); ++row) {
    const Item& item = job.Items.At(row);
    entries.push_back({row, item.Mark, EnteredText::TextOf(item)});
  }
  return entries;
}

template <class Line>
Entries LinesOf(const Table<Line>& lines) {
  Entries entries;
  for (const Line& line : lines) entries.push_back({0, {}, EnteredText::TextOf(line)});
  return entries;
}

// Takes one of each out for as long as both have entries of one key, in their order; gives the
// number of those pairs.
template <class KeyOf>
int PairOff(Entries& before, Entries& after, const KeyOf& keyOf) {
  const auto comesFirst = [&](const Entry& a, const Entry& b) {
    return std::tuple(keyOf(a), a.Row) < std::tuple(keyOf(b), b.Row);
  };
  std::sort(before.begin(), before.end(), comesFirst);
  std::sort(after.begin(), after.end(), comesFirst);
  Entries left;
  Entries right;
  int pairs = 0;
  auto one = before.begin();
  auto other = after.begin();
  while (one != before.end() && other != after.end()) {
    if (keyOf(*one) < keyOf(*other)) {
      left.push_back(std::move(*one++));
    } else if (keyOf(*other) < keyOf(*one)) {
      right.push_back(std::move(*other++));
    } else {
      ++pairs;
      ++one;
      ++other;
    }
  }
  std::move(one, before.end(), std::back_inserter(left));
  std::move(other, after.end(), std::back_inserter(right));
  before = std::move(left);
  after = std::move(right);
  return pairs;
}

int Left(const Entries& entries) {
  return static_cast<int>(entries.size());
}

std::string_view MarkOf(const Entry& entry) {
  return entry.Mark;
}
std::string_view ContentOf(const Entry& entry) {
  return entry.Content;
}

void CompareSections(const JobView& before, const JobView& after, JobDifference& difference) {
  Entries gone = SectionsOf(before);
  Entries came = SectionsOf(after);
  PairOff(gone, came,
          [](const Entry& entry) { return std::pair(MarkOf(entry), ContentOf(entry)); });
  difference.SectionsChanged = PairOff(gone, came, MarkOf);
  difference.SectionsChanged += PairOff(gone, came, ContentOf);
  difference.SectionsAdded = Left(came);
  difference.SectionsRemoved = Left(gone);
}

// Of a line that holds something else one has gone and one has come.
template <class Line>
int DifferentLines(const Table<Line>& before, const Table<Line>& after) {
  Entries gone = LinesOf(before);
  Entries came = LinesOf(after);
  PairOff(gone, came, ContentOf);
  return std::max(Left(gone), Left(came));
}

bool SameDetails(const JobView& before, const JobView& after) {
  if (OrvaneNumberLine(before.Details.at(0)) != OrvaneNumberLine(after.Details.at(0))) return false;
  for (std::size_t at = 1; at < before.Details.size(); ++at) {
    if (Trim(before.Details.at(at)) != Trim(after.Details.at(at))) return false;
  }
  return before.ProjectDate == after.ProjectDate;
}

bool SameFlags(const Table<Boolean>& before, const Table<Boolean>& after) {
  return std::equal(before.begin(), before.end(), after.begin(), after.end(),
                    [](Boolean a, Boolean b) { return (a != False) == (b != False); });
}

// The noun is told once: "1 section added, 2 changed".
std::string DescribedSections(const JobDifference& difference) {
  std::string words;
  for (const auto& [count, verb] : {std::pair(difference.SectionsAdded, " added"),
                                    std::pair(difference.SectionsChanged, " changed"),
                                    std::pair(difference.SectionsRemoved, " removed")}) {
    if (count == 0) continue;
    words += words.empty() ? Counted(count, "section") : ", " + DecimalText(count);
    words += verb;
  }
  return words;
}

}  // namespace

JobDifference DifferenceOf(const JobView& before, const JobView& after) {
  JobDifference difference;
  CompareSections(before, after, difference);
  difference.Details = !SameDetails(before, after);
  difference.AccessoryLines = DifferentLines(before.AccLines1, after.AccLines1) +
                              DifferentLines(before.AccLines2, after.AccLines2);
  difference.AccessoryFlags = !SameFlags(before.AccUsed, after.AccUsed);
  return difference;
}

std::string Described(const JobDifference& difference) {
  std::string words = DescribedSections(difference);
  const auto add = [&](const std::string& part) { words += (words.empty() ? "" : "; ") + part; };
  if (difference.Details) add("project details");
  if (difference.AccessoryLines > 0) {
    add(Counted(difference.AccessoryLines, "accessory line"));
  } else if (difference.AccessoryFlags) {
    add("marks of the accessory list");
  }
  return words.empty() ? "nothing" : words;
}

}  // namespace orvane
