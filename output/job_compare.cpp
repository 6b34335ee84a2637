#include "output/job_compare.h"

#include <algorithm>
#include <array>
#include <utility>

#include "core/dates.h"
#include "core/model.h"
#include "core/numbers.h"
#include "core/section_families.h"
#include "core/text.h"
#include "project/error_names.h"
#include "project/project_layout.h"
#include "project/section_list/list_columns.h"

namespace orvane {

namespace {

using Lines = std::vector<ComparedLine>;

// The fields of a section.

std::string FamilyText(const Item& item) {
  const SectionFamily* family = FamilyOf(item.SectionType);
  return family != nullptr ? std::string(family->SheetTitle) : PlainLine(item.SectionType);
}
std::string SagBarsText(const Item& item) {
  return item.SagBarDia != 0 ? ShortestText(item.SagBarDia) : std::string();
}
// All places of an angle that a job may hold, not only the one that is entered.
std::string MitreLeftText(const Item& item) {
  return ShortestText(item.MitreLeft);
}
std::string MitreRightText(const Item& item) {
  return ShortestText(item.MitreRight);
}
std::string JointingText(const Item& item) {
  return ShortestText(item.JointingPieces);
}
std::string DateOf(const Item& item) {
  return item.DateText;
}

struct ComparedField {
  int Column;                // of section lists, which call it and show it; 0 for one of our own
  std::string_view Heading;  // of our own
  std::string (*Text)(const Item& item);  // none for the list's
  ComparedPart Part;
};

constexpr std::array<ComparedField, 13> Fields = {{
    // clang-format off
    {MarkColumn,       "",                nullptr,        ComparedPart::Whole},
    {0,                "Section",         FamilyText,     ComparedPart::Whole},
    {ProductColumn,    "",                nullptr,        ComparedPart::Whole},
    {LengthColumn,     "",                nullptr,        ComparedPart::Length},
    {QuantityColumn,   "",                nullptr,        ComparedPart::Whole},
    {NotesColumn,      "",                nullptr,        ComparedPart::Whole},
    {PunchingColumn,   "",                nullptr,        ComparedPart::Whole},
    {SagBarsColumn,    "",                SagBarsText,    ComparedPart::Whole},
    {PitchColumn,      "",                nullptr,        ComparedPart::Whole},
    {MitreLeftColumn,  "",                MitreLeftText,  ComparedPart::MitreLeft},
    {MitreRightColumn, "",                MitreRightText, ComparedPart::MitreRight},
    {0,                "Jointing pieces", JointingText,   ComparedPart::Whole},
    {0,                "Date",            DateOf,         ComparedPart::Whole},
    // clang-format on
}};

std::string HeadingOf(const ComparedField& field) {
  return std::string(field.Column > 0 ? ListHeading(field.Column) : field.Heading);
}

std::string TextOf(const ComparedField& field, const Item& item) {
  return field.Text != nullptr ? field.Text(item) : ListText(item, field.Column);
}

// A comma in front of each text but the first.
void Join(std::string& texts, std::string_view text) {
  if (!texts.empty()) texts += ", ";
  texts += text;
}

std::string OffText(std::int16_t quantity) {
  return ShortestText(quantity) + " off";
}

std::string SectionText(const Item& item) {
  std::string text(Trim(item.Product).empty() ? FamilyText(item) : PlainLine(item.Product));
  Join(text, ShortestText(item.Length) + " mm");
  Join(text, OffText(item.Quantity));
  return text;
}

// Holes placed by hand, and notches: each by its place, and that with what is there.

constexpr std::string_view Between = ": ";

void AddEntry(std::vector<PairEntry>& entries, int row, const std::string& place,
              const std::string& text) {
  entries.push_back({row, place, std::string(place).append(Between).append(text)});
}

// A hole on no line is "n" there.
void JoinHoleLine(std::string& text, std::string_view name, const std::string& value) {
  if (value == "n") return;
  Join(text, name);
  if (value != "y") text.append(" at ").append(value.empty() ? "?" : value);
}

std::string HoleText(const Hole& hole) {
  std::string text;
  JoinHoleLine(text, "BF", hole.BF);
  JoinHoleLine(text, "W1", hole.W1);
  JoinHoleLine(text, "W2", hole.W2);
  JoinHoleLine(text, "TF", hole.TF);
  Join(text, "dia " + ShortestText(hole.Diameter));
  if (hole.SlotLength != 0) Join(text, "slot " + ShortestText(hole.SlotLength));
  const std::string_view sign = Trim(hole.CounterSunk);
  if (sign == CounterSunkMark) {
    Join(text, "countersunk");
  } else if (!sign.empty()) {
    Join(text, sign);
  }
  return text;
}

// Rows of holes placed by hand.
std::vector<int> RowsByHand(const Item& item) {
  std::vector<int> rows;
  for (int row = 1; row <= item.Holes.UBound(); ++row) {
    if (item.Holes.At(row).Kind == CustomKind) rows.push_back(row);
  }
  return rows;
}

bool IsSameHole(const Hole& a, const Hole& b) {
  return a.XPos == b.XPos && a.BF == b.BF && a.W1 == b.W1 && a.W2 == b.W2 && a.TF == b.TF &&
         a.Diameter == b.Diameter && a.SlotLength == b.SlotLength && a.CounterSunk == b.CounterSunk;
}

std::vector<PairEntry> EntriesOfHoles(const Item& item, const std::vector<int>& rows) {
  std::vector<PairEntry> entries;
  for (const int row : rows) {
    const Hole& hole = item.Holes.At(row);
    AddEntry(entries, row, "Hole at " + ShortestText(hole.XPos), HoleText(hole));
  }
  return entries;
}

// Both sections' holes by hand, without those alike at the beginning and at the end of both lists:
// as a rule that is nearly all of them, and their texts would cost most of a large comparison.
std::pair<std::vector<PairEntry>, std::vector<PairEntry>> HolesByHand(const Item& before,
                                                                      const Item& after) {
  std::vector<int> earlier = RowsByHand(before);
  std::vector<int> later = RowsByHand(after);
  const auto isSame = [&](int a, int b) {
    return IsSameHole(before.Holes.At(a), after.Holes.At(b));
  };
  const auto [one, other] =
      std::mismatch(earlier.begin(), earlier.end(), later.begin(), later.end(), isSame);
  earlier.erase(earlier.begin(), one);
  later.erase(later.begin(), other);
  while (!earlier.empty() && !later.empty() && isSame(earlier.back(), later.back())) {
    earlier.pop_back();
    later.pop_back();
  }
  return {EntriesOfHoles(before, earlier), EntriesOfHoles(after, later)};
}

std::string NotchText(const Notch& notch) {
  return "depth " + ShortestText(notch.Size1) + ", width " + ShortestText(notch.Size2);
}

std::vector<PairEntry> NotchesOf(const Item& item) {
  std::vector<PairEntry> entries;
  for (int row = 1; row <= item.Notches.UBound(); ++row) {
    const Notch& notch = item.Notches.At(row);
    std::string place = "Notch " + PlainLine(notch.Code);
    if (notch.Size3 != 0) place += " at " + ShortestText(notch.Size3);
    AddEntry(entries, row, place, NotchText(notch));
  }
  return entries;
}

const PairEntry* EntryOfRow(const std::vector<PairEntry>& entries, int row) {
  const auto found = std::find_if(entries.begin(), entries.end(),
                                  [row](const PairEntry& entry) { return entry.Row == row; });
  return found == entries.end() ? nullptr : &*found;
}

// The holes or the notches in which two sections differ that are one. Entries of equal content have
// equal places, so that none is told as renamed.
void AddParts(Lines& lines, const ComparedLine& section, ComparedPart part,
              const std::vector<PairEntry>& before, const std::vector<PairEntry>& after) {
  for (const RowPair& pair : PairsOf(before, after)) {
    ComparedLine line = section;
    line.Part = part;
    line.PartBefore = pair.Before;
    line.PartAfter = pair.After;
    for (const auto& [entry, text] : {std::pair(EntryOfRow(before, pair.Before), &line.Old),
                                      std::pair(EntryOfRow(after, pair.After), &line.New)}) {
      if (entry == nullptr) continue;
      line.Field = entry->Key;
      *text = entry->Content.substr(entry->Key.size() + Between.size());
    }
    lines.push_back(std::move(line));
  }
}

std::string NameOfItem(const Item& item, int row) {
  const std::string mark(Trim(item.Mark));
  return mark.empty() ? "Item " + DecimalText(row) : mark;
}

void AddSection(Lines& lines, const RowPair& pair, const JobView& before, const JobView& after) {
  ComparedLine line;
  line.Of = ComparedThing::Section;
  line.What = pair.What;
  line.Before = pair.Before;
  line.After = pair.After;
  if (pair.What == Paired::Added || pair.What == Paired::Removed) {
    const bool added = pair.What == Paired::Added;
    const int row = added ? pair.After : pair.Before;
    const Item& item = (added ? after : before).Items.At(row);
    line.Name = NameOfItem(item, row);
    (added ? line.New : line.Old) = SectionText(item);
    lines.push_back(std::move(line));
    return;
  }
  const Item& earlier = before.Items.At(pair.Before);
  const Item& later = after.Items.At(pair.After);
  line.Name = NameOfItem(later, pair.After);
  for (const ComparedField& field : Fields) {
    ComparedLine difference = line;
    difference.Old = TextOf(field, earlier);
    difference.New = TextOf(field, later);
    if (difference.Old == difference.New) continue;
    difference.Field = HeadingOf(field);
    difference.Part = field.Part;
    lines.push_back(std::move(difference));
  }
  const auto [holesBefore, holesAfter] = HolesByHand(earlier, later);
  AddParts(lines, line, ComparedPart::Hole, holesBefore, holesAfter);
  AddParts(lines, line, ComparedPart::Notch, NotchesOf(earlier), NotchesOf(later));
}

// Accessory lines.

bool IsOf(const Table<std::string>& texts, int row) {
  return row >= 1 && row <= texts.UBound();
}

const AccDef* AccessoryOf(std::int16_t accessory) {
  return accessory >= 1 && accessory <= AccDefs.UBound() ? &AccDefs.At(accessory) : nullptr;
}

struct NamedValue {
  std::string Name;
  std::string Text;
};

std::string NameOfLine(const AccLine1& line) {
  const AccDef* accessory = AccessoryOf(line.AccIndex);
  const bool known = accessory != nullptr && IsOf(accessory->ParamNames, line.ParamIndex);
  return NameOfAccessory(line.AccIndex, known ? accessory->ParamNames.At(line.ParamIndex)
                                              : "size " + ShortestText(line.ParamIndex));
}
std::string NameOfLine(const AccLine2& line) {
  return NameOfAccessory(line.AccIndex, line.Mark);
}

std::vector<NamedValue> ValuesOf(const AccLine1& line) {
  return {{"No.Off", ShortestText(line.Qty)}, {"Param", ShortestText(line.Param)}};
}
std::vector<NamedValue> ValuesOf(const AccLine2& line) {
  std::vector<NamedValue> values = {{"Mark", PlainLine(line.Mark)},
                                    {"No.Off", ShortestText(line.NoOff)}};
  const AccDef* accessory = AccessoryOf(line.AccIndex);
  for (int row = 1; row <= line.Values.UBound(); ++row) {
    // Mark and number off have the first two headings.
    const bool known = accessory != nullptr && IsOf(accessory->ParamNames, row + 2);
    values.push_back({known ? accessory->ParamNames.At(row + 2) : "Value " + DecimalText(row),
                      line.Values.At(row)});
  }
  return values;
}

std::string LineText(const AccLine1& line) {
  return OffText(line.Qty);
}
std::string LineText(const AccLine2& line) {
  std::string text = OffText(line.NoOff);
  const std::vector<NamedValue> values = ValuesOf(line);
  for (std::size_t at = 2; at < values.size(); ++at) {
    if (!values.at(at).Text.empty()) Join(text, values.at(at).Name + " " + values.at(at).Text);
  }
  return text;
}

// What a value of no line is called and holds: a line with fewer values than the other has none.
NamedValue ValueAt(const std::vector<NamedValue>& values, std::size_t at) {
  return at < values.size() ? values.at(at) : NamedValue();
}

template <class Line>
void AddLine(Lines& lines, const RowPair& pair, const Table<Line>& before,
             const Table<Line>& after) {
  ComparedLine line;
  line.Of = ComparedThing::Accessory;
  line.What = pair.What;
  line.Before = pair.Before;
  line.After = pair.After;
  line.Name = NameOfLine(pair.After > 0 ? after.At(pair.After) : before.At(pair.Before));
  if (pair.What == Paired::Added || pair.What == Paired::Removed) {
    if (pair.Before > 0) line.Old = LineText(before.At(pair.Before));
    if (pair.After > 0) line.New = LineText(after.At(pair.After));
    lines.push_back(std::move(line));
    return;
  }
  const std::vector<NamedValue> earlier = ValuesOf(before.At(pair.Before));
  const std::vector<NamedValue> later = ValuesOf(after.At(pair.After));
  const std::size_t count = std::max(earlier.size(), later.size());
  for (std::size_t at = 0; at < count; ++at) {
    const NamedValue one = ValueAt(earlier, at);
    const NamedValue other = ValueAt(later, at);
    if (one.Text == other.Text && one.Name.empty() == other.Name.empty()) continue;
    ComparedLine difference = line;
    difference.Field = other.Name.empty() ? one.Name : other.Name;
    difference.Old = one.Text;
    difference.New = other.Text;
    lines.push_back(std::move(difference));
  }
}

template <class Line>
void AddLines(Lines& lines, const std::vector<RowPair>& pairs, const Table<Line>& before,
              const Table<Line>& after, std::vector<int>& accessories) {
  for (const RowPair& pair : pairs) {
    AddLine(lines, pair, before, after);
    if (pair.Before > 0) accessories.push_back(before.At(pair.Before).AccIndex);
    if (pair.After > 0) accessories.push_back(after.At(pair.After).AccIndex);
  }
}

// `accessories` are those of lines that differ.
void AddFlags(Lines& lines, const std::vector<int>& flags, const JobView& after,
              const std::vector<int>& accessories) {
  for (const int row : flags) {
    if (std::find(accessories.begin(), accessories.end(), row) != accessories.end()) continue;
    const bool isUsed = row <= after.AccUsed.UBound() && after.AccUsed.At(row) != False;
    ComparedLine line;
    line.Of = ComparedThing::Accessory;
    line.Name = NameOfAccessory(Int16(row));
    line.Field = "Marked as used";
    line.Old = isUsed ? "no" : "yes";
    line.New = isUsed ? "yes" : "no";
    lines.push_back(std::move(line));
  }
}

void AddDetails(Lines& lines, const std::vector<int>& details, const JobView& before,
                const JobView& after) {
  for (const int detail : details) {
    ComparedLine line;
    line.Name = "Project details";
    if (detail == DateDetail) {
      line.Field = "Date";
      line.Old = FullYearText(before.ProjectDate);
      line.New = FullYearText(after.ProjectDate);
    } else {
      const auto at = static_cast<std::size_t>(detail);
      line.Field = DetailNames.at(at);
      line.Old = before.Details.at(at);
      line.New = after.Details.at(at);
    }
    lines.push_back(std::move(line));
  }
}

std::string_view WordOf(ComparedThing thing) {
  switch (thing) {
    case ComparedThing::Project:
      return "project";
    case ComparedThing::Section:
      return "section";
    case ComparedThing::Accessory:
      break;
  }
  return "accessory";
}

}  // namespace

JobComparison CompareJobs(const JobView& before, const JobView& after) {
  const JobPairs pairs = PairsOf(before, after);
  JobComparison comparison;
  comparison.Words = Described(DifferenceOf(pairs));
  Lines& lines = comparison.Lines;
  AddDetails(lines, pairs.Details, before, after);
  for (const RowPair& pair : pairs.Sections) AddSection(lines, pair, before, after);
  std::vector<int> accessories;
  AddLines(lines, pairs.Lines1, before.AccLines1, after.AccLines1, accessories);
  AddLines(lines, pairs.Lines2, before.AccLines2, after.AccLines2, accessories);
  AddFlags(lines, pairs.Flags, after, accessories);
  return comparison;
}

std::string_view WordOf(Paired what) {
  switch (what) {
    case Paired::Added:
      return "added";
    case Paired::Renamed:
      return "renamed";
    case Paired::Removed:
      return "removed";
    case Paired::Changed:
      break;
  }
  return "changed";
}

std::string ComparisonText(const JobComparison& comparison) {
  std::string text;
  for (const ComparedLine& line : comparison.Lines) {
    text.append(WordOf(line.Of)).append(1, '\t').append(WordOf(line.What));
    for (const std::string* field : {&line.Name, &line.Field, &line.Old, &line.New}) {
      text.append(1, '\t').append(FieldText(*field));
    }
    text += '\n';
  }
  return text;
}

}  // namespace orvane
