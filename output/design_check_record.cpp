// What the check says of the section as a whole, and of its mitres.
#include <algorithm>

#include "core/numbers.h"
#include "core/section_families.h"
#include "output/design_check_section.h"

namespace orvane {

namespace {

// A name as it is told: one that is missing has no quotes to stand in.
std::string Named(std::string_view kind, std::string_view name) {
  return name.empty() ? "no " + std::string(kind) : std::string(kind) + " " + std::string(name);
}

double MaximumOf(const Item& item) {
  const int family = FamilyNumber(item.SectionType);
  return family == 0 || family > MaxDims.UBound() ? 0 : MaxDims.At(family);
}

}  // namespace

void CheckRecord(const CheckedSection& section, FindingList& findings) {
  const Item& item = section.Section;
  if (!section.ProductKnown) {
    findings.Add(DesignRule::ProductUnknown, Named("product", item.Product),
                 "a product of the catalogue");
  }
  if (!section.PatternKnown) {
    findings.Add(DesignRule::PatternUnknown,
                 Named("pattern", item.PatternName) + ", whose holes are left out",
                 "a pattern of the family in the catalogue");
  }
  if (item.Length <= 0) {
    findings.Add(DesignRule::LengthNotAboveZero, "length " + DecimalText(item.Length) + " mm",
                 "above 0");
  }
  const double maximum = MaximumOf(item);
  if (maximum > 0 && item.Length > maximum) {
    findings.Add(DesignRule::LengthOverMaximum, "length " + DecimalText(item.Length) + " mm",
                 "at most " + InMm(maximum));
  }
  if (item.Quantity <= 0) {
    findings.Add(DesignRule::QuantityNotAboveZero, "quantity " + DecimalText(item.Quantity),
                 "above 0");
  }
  const bool noPattern = item.PatternName.empty() || item.PatternName == CustomPattern;
  if (noPattern && item.Holes.Empty()) {
    findings.Add(DesignRule::NoHoles, "neither a pattern nor a hole", "");
  }
}

void CheckMitres(const CheckedSection& section, FindingList& findings) {
  const EndCut& left = section.LeftEnd;
  const EndCut& right = section.RightEnd;
  if (section.Section.Length <= 0 || section.Height <= 0) return;
  if (!left.IsMitre && !right.IsMitre) return;
  const double bottom = right.AtBottom - left.AtBottom;
  const double top = right.AtTop - left.AtTop;
  if (std::min(bottom, top) > CheckSlack) return;
  // What the cuts take of the edge where they meet.
  const double taken = section.Section.Length - std::min(bottom, top);
  Finding& finding = findings.Add(
      DesignRule::MitresMeet,
      std::string("the mitres leave nothing of the ") + (bottom < top ? "bottom" : "top"),
      "a length above " + InMm(taken));
  finding.Place = 0;
  finding.PlaceEnd = section.Section.Length;
}

}  // namespace orvane
