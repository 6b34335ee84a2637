#include "project/copied_sections.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <map>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "core/catalogues.h"
#include "core/numbers.h"
#include "core/runtime_error.h"
#include "core/section_families.h"
#include "core/text.h"
#include "project/changes.h"
#include "project/packed_records.h"

namespace orvane {

namespace {

// What such bytes begin with.
constexpr std::string_view Heading = "Orvane sections\n";

// Figures of a length that stands in front of what it is the length of.
constexpr std::size_t LengthFigures = 8;

// Marks that a line names; the others are counted.
constexpr std::size_t MostNamed = 5;
constexpr std::size_t MostLines = 10;

void AppendPart(std::string& bytes, std::string_view part) {
  bytes.append(PaddedText(static_cast<long long>(part.size()), LengthFigures)).append(part);
}

[[noreturn]] void Refuse() {
  throw RuntimeError(Failure::TypeMismatch,
                     "The sections on the clipboard can't be read: they were copied by another "
                     "version of the program, or not copied whole");
}

std::string_view CutOff(std::string_view& rest, std::size_t length) {
  if (length > rest.size()) Refuse();
  const std::string_view cut = rest.substr(0, length);
  rest.remove_prefix(length);
  return cut;
}

std::string_view TakePart(std::string_view& rest) {
  std::string_view figures = CutOff(rest, LengthFigures);
  const int length = TakeDigits(figures, LengthFigures);
  if (length < 0 || !figures.empty()) Refuse();
  return CutOff(rest, static_cast<std::size_t>(length));
}

// A section that is packed otherwise wherever the form of packed sections is another: each field
// has a value of its own.
std::string FormOfSections() {
  Item probe;
  Hole hole;
  Notch notch;
  int next = 0;
  const auto text = [&next] { return DecimalText(++next); };
  const auto number = [&next] { return Int16(++next); };
  const auto fraction = [&next] { return Float32(++next + 0.5); };
  hole.XPos = number();
  hole.Kind = text();
  hole.BF = text();
  hole.W1 = text();
  hole.W2 = text();
  hole.TF = text();
  hole.Diameter = fraction();
  hole.SlotLength = fraction();
  hole.RelX = ++next + 0.25;
  hole.DrawGap = ++next + 0.25;
  hole.CounterSunk = text();
  notch.Code = text();
  notch.Size1 = fraction();
  notch.Size2 = fraction();
  notch.Size3 = fraction();
  probe.Mark = text();
  probe.SectionType = text();
  probe.Product = text();
  probe.Length = number();
  probe.Quantity = number();
  probe.DateText = text();
  probe.Notes = text();
  probe.MitreLeft = fraction();
  probe.MitreRight = fraction();
  probe.Holes.Append(hole);
  probe.Notches.Append(notch);
  probe.PatternName = text();
  probe.CustomHoleCount = number();
  probe.Pitch = text();
  probe.JointingPieces = number();
  probe.SagBarDia = number();
  return *PackSection(probe);
}

// A number that none of the program's roads lets in would stop a drawing, or a save.
bool HoldsNumbers(const Item& item) {
  const auto isGap = [](const Hole& hole) {
    return std::isfinite(hole.Diameter) && std::isfinite(hole.SlotLength) &&
           std::isfinite(hole.RelX) && std::isfinite(hole.DrawGap);
  };
  const auto isSize = [](const Notch& notch) {
    return std::isfinite(notch.Size1) && std::isfinite(notch.Size2) && std::isfinite(notch.Size3);
  };
  return std::isfinite(item.MitreLeft) && std::isfinite(item.MitreRight) &&
         isGap(item.Holes.At(0)) && std::all_of(item.Holes.begin(), item.Holes.end(), isGap) &&
         std::all_of(item.Notches.begin(), item.Notches.end(), isSize);
}

// Marks as rules compare them, with those that come in one by one. What has been tried for a mark
// isn't tried again, so that thousands of sections of one mark don't try one another's.
class FreeMarks {
 public:
  FreeMarks() {
    for (const Item& item : Items) used_.emplace(Trim(item.Mark));
  }

  std::string Take(const std::string& mark) {
    if (Trim(mark).empty()) return mark;
    std::string& tried = tried_.try_emplace(mark, mark).first->second;
    while (!used_.emplace(Trim(tried)).second) tried += 'A';
    return tried;
  }

 private:
  std::unordered_set<std::string> used_;
  std::unordered_map<std::string, std::string> tried_;
};

// What the catalogue lacks, with the marks of the sections that have it.
using LackingNames = std::map<std::string, std::vector<std::string>>;

void NoteLacking(LackingNames& lacking, const std::string& name, const Item& item) {
  lacking[name].push_back(Trim(item.Mark).empty() ? "a section without a mark" : item.Mark);
}

bool IsProductKnown(const Item& item) {
  if (Trim(item.Product).empty() || FindSectionDim(item.Product) > 0) return true;
  const SectionFamily* family = FamilyOf(item.SectionType);
  return family != nullptr && item.Product == family->FixedProduct;
}

bool IsPatternKnown(const Item& item) {
  const std::string_view name = Trim(item.PatternName);
  return name.empty() || name == CustomPattern || FindPunchPattern(name) > 0;
}

// "3 more", "of P1, P2 and 3 more"
std::string Named(const std::vector<std::string>& marks) {
  std::string text;
  for (std::size_t at = 0; at < marks.size() && at < MostNamed; ++at) {
    text += (at == 0 ? "" : ", ") + marks[at];
  }
  if (marks.size() <= MostNamed) return text;
  return text + " and " + DecimalText(static_cast<long long>(marks.size() - MostNamed)) + " more";
}

std::string LackingText(const std::vector<Item>& sections) {
  LackingNames lacking;
  // Hundreds of sections share a product: each is looked up once.
  std::map<std::pair<std::string, std::string>, bool> products;
  std::map<std::string, bool> patterns;
  for (const Item& item : sections) {
    const auto product = products.try_emplace({item.SectionType, item.Product}, false);
    if (product.second) product.first->second = IsProductKnown(item);
    if (!product.first->second) NoteLacking(lacking, "product " + item.Product, item);
    const auto pattern = patterns.try_emplace(item.PatternName, false);
    if (pattern.second) pattern.first->second = IsPatternKnown(item);
    if (!pattern.first->second) NoteLacking(lacking, "pattern " + item.PatternName, item);
  }
  if (lacking.empty()) return {};
  std::string text = "Not in this program's catalogue, and left as pasted:";
  std::size_t lines = 0;
  for (const auto& [name, marks] : lacking) {
    if (++lines > MostLines) break;
    text += "\r" + name + " (" + Named(marks) + ")";
  }
  if (lacking.size() <= MostLines) return text;
  return text + "\rand " + DecimalText(static_cast<long long>(lacking.size() - MostLines)) +
         " more";
}

}  // namespace

std::string CopiedSections(const std::vector<int>& rows) {
  std::string bytes(Heading);
  AppendPart(bytes, FormOfSections());
  for (const int row : rows) AppendPart(bytes, *PackSection(Items.At(row)));
  // Bytes that were cut off between two sections would pass for fewer.
  AppendPart(bytes, DecimalText(static_cast<long long>(rows.size())));
  return bytes;
}

std::vector<Item> ReadCopiedSections(const std::string& bytes) {
  std::string_view rest = bytes;
  if (CutOff(rest, Heading.size()) != Heading || TakePart(rest) != FormOfSections()) Refuse();
  std::vector<Item> sections;
  std::string_view part = TakePart(rest);
  while (!rest.empty()) {
    try {
      sections.push_back(UnpackSection(part));
    } catch (const RuntimeError&) {
      Refuse();
    }
    sections.back().Serial = 0;
    if (!HoldsNumbers(sections.back())) Refuse();
    part = TakePart(rest);
  }
  if (part != DecimalText(static_cast<long long>(sections.size()))) Refuse();
  return sections;
}

PastedSections PasteSectionRows(std::vector<Item> sections) {
  if (sections.empty()) return {};
  PastedSections pasted;
  pasted.Row = Int16(Items.UBound() + 1);
  Int16(Items.UBound() + static_cast<long long>(sections.size()));
  FreeMarks marks;
  for (Item& section : sections) section.Mark = marks.Take(section.Mark);
  pasted.Lacking = LackingText(sections);
  Change(ChangeKind::PasteSections, pasted.Row, [&] {
    for (Item& section : sections) Items.Append(std::move(section));
  });
  return pasted;
}

}  // namespace orvane
