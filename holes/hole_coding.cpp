#include "holes/hole_coding.h"

#include <array>
#include <cstddef>
#include <optional>

#include "core/catalogues.h"
#include "core/text.h"

namespace orvane {

namespace {

// How far the holes at a section's ends stand from them, mm.
constexpr double EndDistance = 32;
// Half the spacing of a pair of holes about its station, mm.
constexpr double HalfPair = 35;

// Where a code's digit stands along a section of length L: Times * L / Parts + Offset. It is
// multiplied first, so that halves, quarters and sixths come out exactly and only a true half is
// rounded as one.
struct Station {
  double Times;
  double Parts;
  double Offset;  // mm
};

// The stations of the digits 0 to 8.
constexpr std::array<Station, 9> Stations = {{
    {0, 1, EndDistance},   // 0: from the left-hand end
    {1, 4, 0},             // 1: L / 4
    {1, 3, 0},             // 2: L / 3
    {1, 2, 0},             // 3: L / 2
    {2, 3, 0},             // 4: 2 L / 3
    {3, 4, 0},             // 5: 3 L / 4
    {1, 1, -EndDistance},  // 6: from the right-hand end
    {1, 6, 0},             // 7: L / 6
    {5, 6, 0},             // 8: 5 L / 6
}};

// A diameter to be taken from the item's sag-bar choice.
constexpr std::int16_t SagBar = -1;

// One hole of a code: at its station + Offset + PairSpacings times the product's Dim13.
struct HoleOfCode {
  std::string_view Lines;   // "y" or "n" for BF, W1, W2, TF; empty for no hole
  double Offset = 0;        // mm
  double PairSpacings = 0;  // how many times Dim13
};

// A letter with the digits it exists for, and the holes of each such code in order of creation. A
// letter whose two ends mirror each other has a row for each.
struct Family {
  char Letter;
  std::string_view Digits;
  std::int16_t Diameter;    // mm, or SagBar
  std::int16_t SlotLength;  // mm
  HoleOfCode First, Second;
};

// The table of the 41 hole codes.
constexpr std::array<Family, 14> Families = {{
    {'A', "0", 18, 0, {"nyyn"}, {"nyyn", 0, +1}},
    {'A', "6", 18, 0, {"nyyn", 0, -1}, {"nyyn"}},
    {'B', "06", 18, 0, {"nyyn"}, {}},
    {'C', "3", 18, 0, {"nyyn", -HalfPair}, {"nyyn", +HalfPair}},
    {'D', "1234578", SagBar, 0, {"nyyn"}, {}},
    {'E', "1234578", SagBar, 0, {"nyyn", -HalfPair}, {"nyyn", +HalfPair}},
    {'F', "012345678", 18, 0, {"yyyn"}, {}},
    {'G', "12345", 18, 0, {"ynnn"}, {}},
    {'H', "234", SagBar, 0, {"nynn"}, {}},
    {'I', "3", 18, 0, {"yyyn", -HalfPair}, {"yyyn", +HalfPair}},
    // The slots have their own end distance, 35 mm.
    {'S', "0", 18, 28, {"nnny", 35 - EndDistance}, {}},
    {'S', "6", 18, 28, {"nnny", EndDistance - 35}, {}},
    // The flange holes stand 72 mm from the end.
    {'T', "0", 14, 0, {"nyyn"}, {"ynny", 72 - EndDistance}},
    {'T', "6", 14, 0, {"nyyn"}, {"ynny", EndDistance - 72}},
}};

// The pattern that the item takes: the first of its section letter and that name.
const PunchPattern* PatternOf(std::string_view sectionType, std::string_view name) {
  for (const PunchPattern& pattern : PunchPatterns) {
    if (pattern.SectionType == sectionType && Trim(pattern.Name) == name) return &pattern;
  }
  return nullptr;
}

// The spacing of the pair of holes at an end of that product, mm; 0 for a product without
// dimensions.
double PairSpacing(std::string_view product) {
  const int row = FindSectionDim(product);
  return row == 0 ? 0 : SectionDims.At(row).Dim13;
}

// The table row of a code; none for a text that is no code.
const Family* CodeFamilyOf(std::string_view code) {
  if (code.size() != 2) return nullptr;
  for (const Family& family : Families) {
    if (family.Letter == code[0] && family.Digits.find(code[1]) != std::string_view::npos) {
      return &family;
    }
  }
  return nullptr;
}

}  // namespace

void ExpandPattern(std::string_view PatternName, std::int16_t ItemIndex) {
  ExpandPattern(PatternName, Items.At(ItemIndex));
}

void ExpandPattern(std::string_view PatternName, Item& item) {
  const double length = item.Length;
  const std::int16_t sagBarDia = item.SagBarDia;
  const PunchPattern* pattern = PatternOf(item.SectionType, PatternName);
  if (pattern == nullptr || pattern->Codes.empty()) return;

  std::optional<double> pairSpacing;  // looked up at the first hole that needs it
  std::string_view rest = pattern->Codes;
  const int codes = CodeCount(rest);
  for (int k = 1; k <= codes; ++k) {
    const std::string_view code = TakeCode(rest);
    const Family* family = CodeFamilyOf(code);
    if (family == nullptr) continue;

    const Station& station = Stations.at(static_cast<std::size_t>(code[1] - '0'));
    const double position = station.Times * length / station.Parts + station.Offset;
    const std::int16_t diameter = family->Diameter == SagBar ? sagBarDia : family->Diameter;
    for (const HoleOfCode& hole : {family->First, family->Second}) {
      if (hole.Lines.empty()) continue;
      double distance = position + hole.Offset;
      if (hole.PairSpacings != 0) {
        if (!pairSpacing) pairSpacing = PairSpacing(item.Product);
        distance += hole.PairSpacings * *pairSpacing;
      }
      const std::int16_t x = Whole(distance);  // rounded once, behind every sum
      AddHole(item, x, PatternKind, hole.Lines.substr(0, 1), hole.Lines.substr(1, 1),
              hole.Lines.substr(2, 1), hole.Lines.substr(3, 1), diameter, family->SlotLength,
              pattern->Starred);
    }
  }
}

int CodeCount(std::string_view codes) {
  return Whole(static_cast<double>(CharCount(codes) + 1) / 3);
}

std::string_view TakeCode(std::string_view& codes) {
  const std::string_view code = FirstChars(codes, 2);
  codes.remove_prefix(FirstChars(codes, 3).size());  // the separator goes by position, unseen
  return code;
}

CodeFacts FactsOf(std::string_view code) {
  const Family* family = CodeFamilyOf(code);
  if (family == nullptr) return {};
  const bool pair = family->First.PairSpacings != 0 || family->Second.PairSpacings != 0;
  return {true, family->Diameter == SagBar, pair};
}

std::int16_t AddHole(std::int16_t ItemIndex, std::int16_t X, std::string_view Kind,
                     std::string_view BF, std::string_view W1, std::string_view W2,
                     std::string_view TF, std::int16_t Diameter, std::int16_t SlotLength,
                     Boolean Starred) {
  return AddHole(Items.At(ItemIndex), X, Kind, BF, W1, W2, TF, Diameter, SlotLength, Starred);
}

std::int16_t AddHole(Item& item, std::int16_t X, std::string_view Kind, std::string_view BF,
                     std::string_view W1, std::string_view W2, std::string_view TF,
                     std::int16_t Diameter, std::int16_t SlotLength, Boolean Starred) {
  const std::int16_t count = Int16(item.Holes.UBound() + 1);
  item.Holes.Resize(count);  // a blank record, made in place
  Hole& hole = item.Holes.At(count);
  hole.XPos = X;
  hole.Kind = Kind;
  hole.BF = BF;
  hole.W1 = W1;
  hole.W2 = W2;
  hole.TF = TF;
  hole.Diameter = Diameter;
  hole.SlotLength = SlotLength;
  // One blank, never empty text: the empty form belongs to holes placed by hand.
  hole.CounterSunk = Starred != False ? CounterSunkMark : " ";
  return X;
}

}  // namespace orvane
