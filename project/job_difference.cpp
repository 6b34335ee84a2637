#include "project/job_difference.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>
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
  void Plain(const std::string& text) {
    if (&text != mark_) Add(PlainLine(text));
  }
  void Quoted(const std::string& text) {
    if (&text != mark_) Add(text);
  }
  void Sign(const std::string& text) { Add(Trim(text)); }

  void Number(const std::int16_t& field) {
    if (&field != workedOut_) AppendFileNumber(text_, field);
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

  // Values stand under their headings.
  void Rows(const Table<std::string>& values, int first, int last) {
    for (int row = first; row <= last; ++row) Add(TextOf(values.At(row)));
  }
  void Rows(const Table<Notch>& notches, int, int) { AddInAnyOrder(notches); }
  // Element 0 stands for the section's end.
  void Rows(const Table<Hole>& holes, int, int) { AddInAnyOrder(holes); }

  template <class Row>
  static std::string TextOf(const Row& record) {
    EnteredText text;
    Describe(text, record);
    return std::move(text.text_);
  }
  // A section's or a line's but for its mark.
  static std::string TextOf(const Item& item) {
    EnteredText text;
    text.mark_ = &item.Mark;
    text.workedOut_ = &item.CustomHoleCount;
    Describe(text, item);
    return std::move(text.text_);
  }
  static std::string TextOf(const AccLine2& line) {
    EnteredText text;
    text.mark_ = &line.Mark;
    Describe(text, line);
    return std::move(text.text_);
  }

 private:
  static bool IsEntered(const Notch&) { return true; }
  static bool IsEntered(const Hole& hole) { return hole.Kind == CustomKind; }

  template <class Row>
  void AddInAnyOrder(const Table<Row>& rows) {
    std::vector<std::string> texts;
    for (const Row& row : rows) {
      if (IsEntered(row)) texts.push_back(TextOf(row));
    }
    std::sort(texts.begin(), texts.end());
    for (const std::string& text : texts) Add(text);
  }

  void Add(std::string_view text) {
    text_.append(DecimalText(static_cast<long long>(text.size()))).append(1, ':').append(text);
  }

  std::string text_;
  const std::string* mark_ = nullptr;        // left out of the text
  const std::int16_t* workedOut_ = nullptr;  // too
};

std::string KeyOf(const Item& item) {
  return item.Mark;
}
// A line of type 1 has no mark: the accessory's size stands for it.
std::string KeyOf(const AccLine1& line) {
  return DecimalText(line.AccIndex) + " " + DecimalText(line.ParamIndex);
}
std::string KeyOf(const AccLine2& line) {
  return DecimalText(line.AccIndex) + " " + line.Mark;
}

// Of a table, or of sections that stand in none.
template <class Rows>
std::vector<PairEntry> EntriesOf(const Rows& rows) {
  std::vector<PairEntry> entries;
  entries.reserve(static_cast<std::size_t>(rows.UBound()));
  for (int row = 1; row <= rows.UBound(); ++row) {
    const auto& record = rows.At(row);
    entries.push_back({row, KeyOf(record), EnteredText::TextOf(record)});
  }
  return entries;
}

template <class Rows>
std::vector<RowPair> PairsOfRows(const Rows& before, const Rows& after) {
  return PairsOf(EntriesOf(before), EntriesOf(after));
}

std::vector<int> DifferentDetails(const JobView& before, const JobView& after) {
  std::vector<int> details;
  if (OrvaneNumberLine(before.Details.at(0)) != OrvaneNumberLine(after.Details.at(0))) {
    details.push_back(0);
  }
  for (int at = 1; at < DateDetail; ++at) {
    const auto detail = static_cast<std::size_t>(at);
    if (Trim(before.Details.at(detail)) != Trim(after.Details.at(detail))) details.push_back(at);
  }
  if (before.ProjectDate != after.ProjectDate) details.push_back(DateDetail);
  return details;
}

std::vector<int> DifferentFlags(const Table<Boolean>& before, const Table<Boolean>& after) {
  const auto isSet = [](const Table<Boolean>& flags, int row) {
    return row <= flags.UBound() && flags.At(row) != False;
  };
  std::vector<int> rows;
  for (int row = 1; row <= std::max(before.UBound(), after.UBound()); ++row) {
    if (isSet(before, row) != isSet(after, row)) rows.push_back(row);
  }
  return rows;
}

int CountOf(const std::vector<RowPair>& pairs, Paired what) {
  return static_cast<int>(std::count_if(pairs.begin(), pairs.end(),
                                        [=](const RowPair& pair) { return pair.What == what; }));
}

// The noun is told once: "1 section added, 2 changed".
std::string DescribedSections(const JobDifference& difference) {
  std::string words;
  for (const auto& [count, verb] : {std::pair(difference.SectionsAdded, " added"),
                                    std::pair(difference.SectionsChanged, " changed"),
                                    std::pair(difference.SectionsRenamed, " renamed"),
                                    std::pair(difference.SectionsRemoved, " removed")}) {
    if (count == 0) continue;
    words += words.empty() ? Counted(count, "section") : ", " + DecimalText(count);
    words += verb;
  }
  return words;
}

}  // namespace

JobPairs PairsOf(const JobView& before, const JobView& after) {
  return {PairsOfRows(before.Items, after.Items), PairsOfRows(before.AccLines1, after.AccLines1),
          PairsOfRows(before.AccLines2, after.AccLines2), DifferentDetails(before, after),
          DifferentFlags(before.AccUsed, after.AccUsed)};
}

JobDifference DifferenceOf(const JobPairs& pairs) {
  JobDifference difference;
  difference.SectionsAdded = CountOf(pairs.Sections, Paired::Added);
  difference.SectionsChanged = CountOf(pairs.Sections, Paired::Changed);
  difference.SectionsRenamed = CountOf(pairs.Sections, Paired::Renamed);
  difference.SectionsRemoved = CountOf(pairs.Sections, Paired::Removed);
  difference.Details = !pairs.Details.empty();
  difference.AccessoryLines = static_cast<int>(pairs.Lines1.size() + pairs.Lines2.size());
  difference.AccessoryFlags = !pairs.Flags.empty();
  return difference;
}

JobDifference DifferenceOf(const JobView& before, const JobView& after) {
  return DifferenceOf(PairsOf(before, after));
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
