#include "project/sections.h"

#include <algorithm>
#include <numeric>
#include <string>
#include <tuple>
#include <unordered_set>
#include <utility>
#include <vector>

#include "core/catalogues.h"
#include "core/runtime_error.h"
#include "core/section_families.h"
#include "core/text.h"
#include "holes/hole_coding.h"
#include "holes/hole_list.h"
#include "project/changes.h"
#include "project/marks.h"

namespace orvane {

namespace {

// The number of the row that is appended next; "Overflow" when it has none in 16 bits.
std::int16_t NextRow() {
  return Int16(Items.UBound() + 1);
}

// The holes of a section turned end for end. Lines and off-gauge distances stay: top stays top.
void MirrorHoles(const Item& source, Item& hand) {
  const int last = source.Holes.UBound();
  for (int row = 1; row <= last; ++row) {
    const Hole& from = source.Holes.At(row);
    Hole& to = hand.Holes.At(last - row + 1);
    to.BF = from.BF;
    to.W1 = from.W1;
    to.W2 = from.W2;
    to.TF = from.TF;
    to.CounterSunk = from.CounterSunk;
    to.Diameter = from.Diameter;
    to.SlotLength = from.SlotLength;
    to.Kind = from.Kind;
    to.XPos = Int16(source.Length - from.XPos);
  }
}

// What becomes of a notch's position.
enum class Position { Cleared, Kept, Mirrored };

struct MirroredCode {
  std::string_view Code;
  std::string_view NewCode;
  Position Size3;
};

// A corner notch has its position cleared, since its code says where it is; an end notch keeps it,
// which is its height in the web; a notch along the length is mirrored with the section.
constexpr MirroredCode MirroredCodes[] = {
    {"TL1", "TR1", Position::Cleared}, {"TR1", "TL1", Position::Cleared},
    {"T2", "T2", Position::Mirrored},  {"L3", "R3", Position::Kept},
    {"R3", "L3", Position::Kept},      {"BL1", "BR1", Position::Cleared},
    {"BR1", "BL1", Position::Cleared}, {"B2", "B2", Position::Mirrored},
};

// The notch as the mirrored section has it; a code that isn't known keeps neither code nor
// position.
Notch MirrorNotch(const Notch& source, std::int16_t length) {
  Notch hand;
  hand.Size1 = source.Size1;
  hand.Size2 = source.Size2;
  for (const MirroredCode& mirrored : MirroredCodes) {
    if (mirrored.Code != source.Code) continue;
    hand.Code = mirrored.NewCode;
    if (mirrored.Size3 == Position::Kept) hand.Size3 = source.Size3;
    if (mirrored.Size3 == Position::Mirrored) {
      hand.Size3 = Float32(length - static_cast<double>(source.Size3));
    }
  }
  return hand;
}

void MirrorNotches(const Item& source, Item& hand) {
  hand.Notches.Clear();
  for (const Notch& notch : source.Notches) {
    hand.Notches.Append(MirrorNotch(notch, source.Length));
  }
}

auto HoleFields(const Hole& hole) {
  return std::make_tuple(hole.XPos, hole.BF, hole.W1, hole.W2, hole.TF, hole.Diameter,
                         hole.SlotLength, hole.CounterSunk);
}

// The pattern holes without their order: two at one position may come either way round.
auto PatternHoles(const Item& item) {
  std::vector<decltype(HoleFields(Hole()))> holes;
  for (const Hole& hole : item.Holes) {
    if (hole.Kind != CustomKind) holes.push_back(HoleFields(hole));
  }
  std::sort(holes.begin(), holes.end());
  return holes;
}

// The first mark behind that one which no section bears; empty where none can be counted up.
std::string FreeMarkBehind(std::string_view mark) {
  std::unordered_set<std::string_view> marks;
  for (const Item& item : Items) marks.insert(Trim(item.Mark));
  return NextFreeMark(Trim(mark), [&](const std::string& next) { return !marks.contains(next); });
}

template <class Field>
std::vector<int> SortItemsBy(Field Item::*key) {
  std::vector<int> rows(static_cast<std::size_t>(Items.UBound()));
  std::iota(rows.begin(), rows.end(), 1);
  std::stable_sort(rows.begin(), rows.end(),
                   [key](int a, int b) { return Items.At(a).*key < Items.At(b).*key; });
  Table<Item> sorted;
  sorted.Reserve(Items.UBound());
  sorted.At(0) = Items.At(0);
  for (const int row : rows) sorted.Append(std::move(Items.At(row)));
  Items = std::move(sorted);
  return rows;
}

}  // namespace

std::int16_t AddSectionRow(std::string_view SectionType) {
  const std::int16_t row = NextRow();
  Change(ChangeKind::AddSection, row, [&] {
    Item item;
    item.SectionType = SectionType;
    if (const SectionFamily* family = FamilyOf(SectionType)) item.Product = family->FixedProduct;
    Items.Append(std::move(item));
  });
  return row;
}

std::int16_t NextSectionRow(std::int16_t ItemIndex) {
  if (ItemIndex < 1) return 0;
  const std::int16_t row = NextRow();
  Change(ChangeKind::NextSection, row, [&] {
    const Item& source = Items.At(ItemIndex);
    Item next;
    next.SectionType = source.SectionType;
    next.Product = source.Product;
    next.Length = source.Length;
    next.PatternName = source.PatternName;
    next.SagBarDia = source.SagBarDia;
    next.Pitch = source.Pitch;
    next.Mark = FreeMarkBehind(source.Mark);
    Items.Append(std::move(next));
  });
  return row;
}

std::int16_t DuplicateRow(std::int16_t ItemIndex) {
  if (ItemIndex < 1) return 0;
  const std::int16_t row = NextRow();
  Change(ChangeKind::Duplicate, row, [&] { MakeDuplicate(Items.Append(Items.At(ItemIndex))); });
  return row;
}

std::int16_t CreateOppHandRow(std::int16_t ItemIndex) {
  if (ItemIndex < 1) return 0;
  const std::int16_t row = NextRow();
  Change(ChangeKind::OppositeHand, row, [&] {
    const Item source = Items.At(ItemIndex);
    MakeOppositeHand(source, Items.Append(source));
  });
  return row;
}

void MakeDuplicate(Item& copy) {
  copy.Serial = 0;
  copy.Mark += "A";
  SortHoles(copy);
  AdjustHoleSpacing(copy);
}

void MakeOppositeHand(const Item& source, Item& copy) {
  copy.Serial = 0;
  MirrorHoles(source, copy);
  // Swapped and negated, which keeps the shape of each cut; a square end bears no minus sign.
  copy.MitreLeft = Float32(source.MitreRight * -1.0 + 0.0);
  copy.MitreRight = Float32(source.MitreLeft * -1.0 + 0.0);
  MirrorNotches(source, copy);
  copy.Mark = source.Mark + "X";
  SortHoles(copy);
  AdjustHoleSpacing(copy);
}

bool ShowsMirroredPattern(std::int16_t ItemIndex) {
  if (ItemIndex < 1) return false;
  const auto shown = PatternHoles(Items.At(ItemIndex));
  Item afresh = Items.At(ItemIndex);
  try {
    RemoveStandardHoles(afresh);
    ExpandPattern(afresh.PatternName, afresh);
    return PatternHoles(afresh) != shown;
  } catch (const RuntimeError&) {
    return false;  // positions that don't fit: its rebuild tells
  }
}

void DeleteItemRow(std::int16_t ItemIndex) {
  Change(ChangeKind::Delete, ItemIndex, [&] { Items.Remove(ItemIndex); });
}

std::vector<int> SortItemRows(SortKey Key) {
  std::vector<int> formerRows;
  Change(ChangeKind::Sort, 0, [&] {
    switch (Key) {
      case SortKey::Mark:
        formerRows = SortItemsBy(&Item::Mark);
        break;
      case SortKey::Product:
        formerRows = SortItemsBy(&Item::Product);
        break;
      case SortKey::Length:
        formerRows = SortItemsBy(&Item::Length);
        break;
    }
  });
  return formerRows;
}

void NewProjectTables(const Date& today) {
  Items.Clear();
  txtProject = {};
  DTPicker1 = today;
  CurrentItem = 0;
  ProjectFileName.clear();
  AccLines1.Clear();
  AccLines2.Clear();
  // So do the flags of a job with more accessories than the catalogues have.
  ClearUsedFlags();
}

}  // namespace orvane
