#include "project/rules/section_details.h"

#include <initializer_list>

#include "core/catalogues.h"
#include "core/numbers.h"
#include "core/section_families.h"
#include "core/text.h"
#include "project/changes.h"

namespace orvane {

namespace {

// Diameters of sag-bar holes, mm.
constexpr std::int16_t SpringFixDia = 18;
constexpr std::int16_t ThreadedDia = 14;
constexpr std::int16_t NoSagBars = 0;

// Rows of the list of patterns count from 0.
constexpr int CustomIndex = 0;

Table<std::string> TableOf(std::initializer_list<std::string_view> texts) {
  Table<std::string> table;
  for (const std::string_view text : texts) table.Append(std::string(text));
  return table;
}

// The option of a section with sag bars: whatever isn't a spring fix is threaded.
SagBars OptionOf(const Item& item) {
  return item.SagBarDia == SpringFixDia ? SagBars::SpringFix : SagBars::Threaded;
}

std::int16_t DiameterOf(SagBars choice) {
  if (choice == SagBars::SpringFix) return SpringFixDia;
  return choice == SagBars::Threaded ? ThreadedDia : NoSagBars;
}

std::optional<SagBars> ChoiceOfPattern(const Item& item, std::string_view listText) {
  if (PunchPatterns.Empty()) return std::nullopt;
  // The first row of that name decides, whichever letter it has; "Custom" finds the blank row 0.
  const bool has = PunchPatterns.At(FindPunchPattern(listText)).HasSagBars != False;
  return has ? OptionOf(item) : SagBars::Hidden;
}

}  // namespace

const Table<std::string> Pitches = TableOf({"0", "5", "10", "15", "22.5", "30"});

Table<std::string> SectionProducts(std::string_view letter) {
  Table<std::string> products;
  for (const SectionDim& dims : SectionDims) {
    if (dims.SectionType == letter) products.Append(dims.Product);
  }
  return products;
}

std::optional<std::string> ProductNamed(std::string_view letter, std::string_view text) {
  const std::string_view wanted = Trim(text);
  if (wanted.empty()) return std::nullopt;
  // Not by way of the list, whose copy would cost a job of many rows more than all else.
  for (const SectionDim& dims : SectionDims) {
    if (dims.SectionType == letter && Trim(dims.Product) == wanted) return dims.Product;
  }
  return std::nullopt;
}

std::optional<std::string> PatternNamed(std::string_view letter, std::string_view text) {
  const std::string_view wanted = Trim(text);
  if (wanted.empty()) return std::nullopt;
  if (wanted == CustomPattern) return std::string(CustomPattern);
  for (const PunchPattern& pattern : PunchPatterns) {
    if (pattern.SectionType == letter && Trim(pattern.Name) == wanted) return pattern.Name;
  }
  return std::nullopt;
}

Table<std::string> PatternNames(std::string_view letter) {
  Table<std::string> names = TableOf({CustomPattern});
  for (const PunchPattern& pattern : PunchPatterns) {
    if (pattern.SectionType == letter) names.Append(pattern.Name);
  }
  return names;
}

bool HasPitch(std::string_view letter) {
  const SectionFamily* family = FamilyOf(letter);
  return family != nullptr && family->HasPitch;
}

bool HasJointingPieces(std::string_view letter) {
  const SectionFamily* family = FamilyOf(letter);
  return family != nullptr && family->HasJointingPieces;
}

SagBars ShownSagBars(std::int16_t ItemIndex) {
  const Item& item = Items.At(ItemIndex);
  return item.SagBarDia > 0 ? OptionOf(item) : SagBars::Hidden;
}

void SettleSagBars(std::int16_t ItemIndex) {
  Item& item = Items.At(ItemIndex);
  if (item.SagBarDia > 0) item.SagBarDia = DiameterOf(OptionOf(item));
}

bool RemovesCustomHoles(std::int16_t ItemIndex, int listIndex) {
  const Item& item = Items.At(ItemIndex);
  return item.PatternName == CustomPattern && item.HoleCount() > 0 && listIndex > CustomIndex;
}

void EmptyHoles(std::int16_t ItemIndex) {
  Items.At(ItemIndex).Holes.Clear();
}

void ClearPattern(std::int16_t ItemIndex) {
  Item& item = Items.At(ItemIndex);
  item.PatternName.clear();
  item.SagBarDia = NoSagBars;
}

void SetPattern(std::int16_t ItemIndex, std::string_view listText) {
  if (ItemIndex < 1) return;
  Items.At(ItemIndex).PatternName = Trim(listText);
}

std::optional<SagBars> SagBarsOfPattern(std::int16_t ItemIndex, std::string_view listText) {
  if (ItemIndex < 1) return std::nullopt;
  return ChoiceOfPattern(Items.At(ItemIndex), listText);
}

void SetSagBarsOfPattern(std::int16_t ItemIndex, std::string_view listText) {
  if (ItemIndex >= 1) SetSagBarsOfPattern(Items.At(ItemIndex), listText);
}

void SetSagBarsOfPattern(Item& item, std::string_view listText) {
  const std::optional<SagBars> choice = ChoiceOfPattern(item, listText);
  if (choice) item.SagBarDia = DiameterOf(*choice);
}

void SetSagBars(std::int16_t ItemIndex, int option) {
  if (ItemIndex < 1) return;
  Change(ChangeKind::SagBars, ItemIndex,
         [&] { Items.At(ItemIndex).SagBarDia = option == 1 ? ThreadedDia : SpringFixDia; });
}

void SetPitch(std::int16_t ItemIndex, std::string_view listText) {
  if (ItemIndex < 1) return;
  Change(ChangeKind::Pitch, ItemIndex, [&] { Items.At(ItemIndex).Pitch = Trim(listText); });
}

void SetJointingPieces(std::int16_t ItemIndex, std::string_view text) {
  if (ItemIndex < 1) return;
  const std::int16_t pieces = Whole(Val(text));
  Change(ChangeKind::JointingPieces, ItemIndex,
         [&] { Items.At(ItemIndex).JointingPieces = pieces; });
}

Item CurrentSection;

void ClearCurrentSection(std::string_view letter, const Date& today) {
  CurrentSection = Item{};
  CurrentSection.SectionType = letter;
  CurrentSection.DateText = FullYearText(today);
}

}  // namespace orvane
