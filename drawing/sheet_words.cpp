#include "drawing/sheet_words.h"

#include "core/numbers.h"
#include "core/section_families.h"

namespace orvane {

namespace {

// "no holes", "1 hole", "12 holes".
std::string Counted(int count, const std::string& one, const std::string& several) {
  return (count == 0 ? "no" : DecimalText(count)) + " " + (count == 1 ? one : several);
}

}  // namespace

std::string SheetWords(const Item& section) {
  const SectionFamily* family = FamilyOf(section.SectionType);
  std::string words = family == nullptr ? section.SectionType : std::string(family->SheetTitle);
  words += " " + section.Mark + ", " + section.Product + ", " + DecimalText(section.Length) +
           " mm, " + DecimalText(section.Quantity) + " off, ";
  if (!section.PatternName.empty()) words += section.PatternName + ", ";
  words += Counted(section.Holes.UBound(), "hole", "holes") + ", " +
           Counted(section.Notches.UBound(), "notch", "notches") + ", ";
  if (section.MitreLeft == 0 && section.MitreRight == 0) return words + "square ends";
  return words + "mitres " + ShortestText(section.MitreLeft) + " and " +
         ShortestText(section.MitreRight) + " degrees";
}

}  // namespace orvane
