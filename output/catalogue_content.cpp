// What the catalogue check finds in the tables once they are read.
#include <algorithm>
#include <array>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "core/catalogues.h"
#include "core/model.h"
#include "core/numbers.h"
#include "core/runtime_error.h"
#include "core/section_families.h"
#include "core/text.h"
#include "holes/hole_coding.h"
#include "output/accessory_rows.h"
#include "output/catalogue_rows.h"

namespace orvane {

namespace {

constexpr std::string_view Dims = "dims.csv";
constexpr std::string_view Punch = "punch.csv";

// Lengths that sections are ordered in, mm; of each family those up to its greatest.
constexpr std::array<std::int16_t, 8> UsualLengths = {1500, 3000, 4500,  6000,
                                                      7500, 9000, 12000, 15000};

// A row of holes of a family: the column of dims.csv that tells where it lies.
struct Gauge {
  double SectionDim::*Dim;
  int Column;
};
constexpr std::array<Gauge, 3> AllGauges = {
    {{&SectionDim::Dim9, 9}, {&SectionDim::Dim10, 10}, {&SectionDim::Dim11, 11}}};
struct GaugesOfFamily {
  bool Takes9, Takes10, Takes11;
};
// A cleader rail has one row, from its bottom, a top hat one in each lip.
constexpr PerFamily<GaugesOfFamily> GaugesOfFamilies = {{
    {"Z", {true, true, true}},
    {"E", {true, true, true}},
    {"C", {true, true, true}},
    {"V", {true, true, true}},
    {"R", {false, false, true}},
    {"T", {true, false, false}},
}};
static_assert(NamesEachFamily(GaugesOfFamilies),
              "GaugesOfFamilies needs one row for each section family");

bool AnyCode(const PunchPattern& pattern, bool CodeFacts::*fact) {
  std::string_view rest = pattern.Codes;
  for (int k = CodeCount(rest); k > 0; --k) {
    if (FactsOf(TakeCode(rest)).*fact) return true;
  }
  return false;
}

// A pattern of the letter that needs the products' spacing of the end pair.
bool TakesPairs(std::string_view letter) {
  return std::any_of(PunchPatterns.begin(), PunchPatterns.end(), [&](const PunchPattern& pattern) {
    return pattern.SectionType == letter && AnyCode(pattern, &CodeFacts::TakesPairSpacing);
  });
}

void CheckSizes(const SectionDim& dim, int row, CheckedCatalogue& checked) {
  const SectionFamily* family = FamilyOf(dim.SectionType);
  if (family == nullptr) return;
  if (!(dim.Dim3 > 0)) {
    checked.Add(CatalogueRule::WithoutDepth, Dims, row, 3,
                dim.Product + " has no depth: its sheet can't be drawn");
  }
  const GaugesOfFamily& gauges = *FactOf(GaugesOfFamilies, dim.SectionType);
  const std::array<bool, 3> takes = {gauges.Takes9, gauges.Takes10, gauges.Takes11};
  for (std::size_t at = 0; at < AllGauges.size(); ++at) {
    if (!takes.at(at) || dim.*AllGauges.at(at).Dim > 0) continue;
    checked.Add(CatalogueRule::WithoutGauge, Dims, row, AllGauges.at(at).Column,
                dim.Product + " has no gauge here: its holes have no place");
  }
  if (!(dim.Dim13 > 0) && TakesPairs(dim.SectionType)) {
    checked.Add(CatalogueRule::WithoutPair, Dims, row, 13,
                dim.Product +
                    " has no spacing of its end pair: both holes of A0 and of A6 "
                    "coincide");
  }
}

bool HasPatterns(std::string_view letter) {
  return std::any_of(PunchPatterns.begin(), PunchPatterns.end(),
                     [&](const PunchPattern& pattern) { return pattern.SectionType == letter; });
}

void CheckFixedProducts(CheckedCatalogue& checked) {
  for (const SectionFamily& family : SectionFamilies) {
    if (family.FixedProduct.empty() || !HasPatterns(family.Letter)) continue;
    if (FindSectionDim(family.FixedProduct) != 0) continue;
    checked.Add(CatalogueRule::FixedProduct, Dims, 0, 0,
                "There is no product " + std::string(family.FixedProduct) +
                    ", which every section of the letter " + std::string(family.Letter) + " is");
  }
}

// The codes one by one, each place that holds none of the table.
void CheckCodes(const PunchPattern& pattern, int row, CheckedCatalogue& checked) {
  std::string_view rest = pattern.Codes;
  for (int k = CodeCount(rest); k > 0; --k) {
    const std::string_view code = TakeCode(rest);
    if (FactsOf(code).IsKnown) continue;
    checked.Add(CatalogueRule::UnknownCode, Punch, row, 3,
                Quoted(code) + " is no hole code: it makes no hole");
  }
}

void CheckSagBars(const PunchPattern& pattern, int row, CheckedCatalogue& checked) {
  const bool takes = AnyCode(pattern, &CodeFacts::TakesSagBars);
  // The first pattern of a name answers for all of that name.
  const int first = FindPunchPattern(pattern.Name);
  const bool chosen = PunchPatterns.At(first).HasSagBars != False;
  if (takes && !chosen) {
    checked.Add(CatalogueRule::SagBarsWithoutSize, Punch, row, 4,
                pattern.Name + " has codes of sag bars, but " +
                    (pattern.HasSagBars == False ? std::string("no S")
                                                 : "its S doesn't count, as row " +
                                                       DecimalText(checked.PatternRows.At(first)) +
                                                       " has the name without one") +
                    ": their holes have no diameter");
  } else if (!takes && pattern.HasSagBars != False) {
    checked.Add(CatalogueRule::SagBarsNowhere, Punch, row, 4,
                pattern.Name + " has an S, but no code that takes sag bars");
  }
}

// Two holes of one place that share a line; the line's name, empty for none.
std::string_view SharedLine(const Hole& a, const Hole& b) {
  if (a.XPos != b.XPos) return {};
  if (a.BF == "y" && b.BF == "y") return "BF";
  if (a.W1 == "y" && b.W1 == "y") return "W1";
  if (a.W2 == "y" && b.W2 == "y") return "W2";
  return a.TF == "y" && b.TF == "y" ? "TF" : std::string_view();
}

// What coincides of the pattern on that section; empty for nothing.
std::string CoincidenceOf(const PunchPattern& pattern, std::string_view product,
                          std::int16_t length) {
  Item item;
  item.SectionType = pattern.SectionType;
  item.Product = product;
  item.Length = length;
  ExpandPattern(pattern.Name, item);
  for (int one = 1; one <= item.Holes.UBound(); ++one) {
    for (int other = 1; other < one; ++other) {
      const std::string_view line = SharedLine(item.Holes.At(other), item.Holes.At(one));
      if (line.empty()) continue;
      std::string text = "Two holes of " + pattern.Name + " lie on each other at ";
      text.append(DecimalText(item.Holes.At(one).XPos)).append(" mm on ").append(line);
      text.append(", ").append(product.empty() ? "" : std::string(product) + " ");
      return text + DecimalText(length) + " mm long";
    }
  }
  return {};
}

// Products of the letter, one for each spacing of the end pair; none of those without it, which are
// told themselves.
std::vector<std::string> ProductsOf(std::string_view letter) {
  std::vector<std::string> products;
  std::set<double> spacings;
  for (const SectionDim& dim : SectionDims) {
    if (dim.SectionType == letter && dim.Dim13 > 0 && spacings.insert(dim.Dim13).second) {
      products.push_back(dim.Product);
    }
  }
  return products;
}

void CheckCoincidence(const PunchPattern& pattern, int row, CheckedCatalogue& checked) {
  const SectionFamily* family = FamilyOf(pattern.SectionType);
  if (family == nullptr) return;
  std::vector<std::string> products = ProductsOf(pattern.SectionType);
  if (products.empty()) {
    if (AnyCode(pattern, &CodeFacts::TakesPairSpacing)) return;
    products.emplace_back();
  }
  for (const std::string& product : products) {
    for (const std::int16_t length : UsualLengths) {
      if (length > family->DefaultMaxLength) continue;
      std::string found;
      try {
        found = CoincidenceOf(pattern, product, length);
      } catch (const RuntimeError&) {
        continue;  // an end pair as long as no section is
      }
      if (found.empty()) continue;
      checked.Add(CatalogueRule::HolesCoincide, Punch, row, 3, found);
      return;
    }
  }
}

// A row of AccDefs that the outputs know by its number, whatever it is called.
struct CountedRow {
  std::int16_t Row;
  int LeastParams;        // columns, or sizes, that are read of it by their number
  std::string_view What;  // it is taken for
  std::string_view Name;  // that it ships with
};
constexpr std::int16_t ApexTieRow = 10;
constexpr std::int16_t SagBarRow = 11;
constexpr auto CountedRows = std::to_array<CountedRow>({
    // clang-format off
    {DeepSleeveRow,   3, "the sleeves of channels 301, 321 and 351 deep, in this order", "Channel sleeves"},
    {HalfSleeveRow,   2, "the half sleeves 90 and 190 long, in this order",              "Half sleeves"},
    {PurlinSleeveRow, 3, "the purlin sleeves, their product in column 3",                "Purlin sleeves"},
    {HeaderOnlyRow,   0, "an accessory that calls for a CAM file",                       "Splice plates"},
    {VcrAssemblyRow,  9, "the VCR assembly with its nine columns",                       "VCR Assembly"},
    {JoinedColumnRow, 5, "the eaves braces, type and two sizes in columns 3 to 5",       "Eaves braces"},
    {ApexTieRow,      5, "the apex ties, their pitch in column 5",                       "Tubular apex ties"},
    {SagBarRow,       5, "the sag bars, their centres in columns 4 and 5",               "Sag bars (screw fix)"},
    {CChannelRow,     8, "the C-channel with its eight columns",                         "C-channel"},
    // clang-format on
});
constexpr int Type1Rows = HalfSleeveRow;

std::string_view FileOfAccessory(int row) {
  return row <= AccType1Count ? "accs1.csv" : "accs2.csv";
}

void CheckCountedRow(const CountedRow& counted, CheckedCatalogue& checked) {
  const std::string number = DecimalText(counted.Row);
  const std::string what(counted.What);
  if (counted.Row > AccDefs.UBound()) {
    checked.Add(CatalogueRule::RowMissing, "accs2.csv", 0, 0,
                "There is no accessory " + number + ", which is " + what);
    return;
  }
  // Its name at another place tells that rows were put in or taken out above it.
  const AccDef& here = AccDefs.At(counted.Row);
  for (int row = 1; row <= AccDefs.UBound(); ++row) {
    if (row == counted.Row || AccDefs.At(row).Name != counted.Name || here.Name == counted.Name) {
      continue;
    }
    checked.Add(CatalogueRule::RowCounted, FileOfAccessory(row), checked.AccessoryRows.At(row), 2,
                AccDefs.At(row).Name + " is accessory " + DecimalText(row) + ", but accessory " +
                    number + " is taken for " + what);
    return;
  }
  if (here.ParamCount() >= counted.LeastParams) return;
  checked.Add(CatalogueRule::RowCounted, FileOfAccessory(counted.Row),
              checked.AccessoryRows.At(counted.Row), 0,
              "Accessory " + number + " is taken for " + what + ", but has only " +
                  DecimalText(here.ParamCount()) + ", Mark and No.Off included where it has them");
}

void CheckCountedRows(CheckedCatalogue& checked) {
  if (AccType1Count != Type1Rows) {
    checked.Add(CatalogueRule::RowCounted, "accs1.csv", 0, 0,
                "The file has " + DecimalText(AccType1Count) +
                    " accessories and must have 5: those of accs2.csv are known by their number "
                    "behind them");
    return;  // every other number is another, too
  }
  for (const CountedRow& counted : CountedRows) CheckCountedRow(counted, checked);
}

}  // namespace

void CheckProducts(CheckedCatalogue& checked) {
  for (int row = 1; row <= SectionDims.UBound(); ++row) {
    const SectionDim& dim = SectionDims.At(row);
    const int first = FindSectionDim(dim.Product);
    if (first < row) {
      checked.Add(CatalogueRule::ProductTwice, Dims, checked.DimRows.At(row), 2,
                  dim.Product + " stands in row " + DecimalText(checked.DimRows.At(first)) +
                      " already: the sizes of this row are never used");
    }
    CheckSizes(dim, checked.DimRows.At(row), checked);
  }
  CheckFixedProducts(checked);
}

void CheckPatterns(CheckedCatalogue& checked) {
  std::set<std::pair<std::string, std::string>> seen;
  for (int at = 1; at <= PunchPatterns.UBound(); ++at) {
    const PunchPattern& pattern = PunchPatterns.At(at);
    const int row = checked.PatternRows.At(at);
    CheckCodes(pattern, row, checked);
    CheckSagBars(pattern, row, checked);
    if (seen.emplace(pattern.SectionType, pattern.Name).second) {
      CheckCoincidence(pattern, row, checked);
    } else {
      checked.Add(CatalogueRule::PatternTwice, Punch, row, 2,
                  pattern.Name +
                      " stands above already under the same letter: the codes of this "
                      "row are never used");
    }
  }
}

void CheckAccessories(const CatalogueSource& source, CheckedCatalogue& checked) {
  for (int row = 1; row <= AccDefs.UBound(); ++row) {
    const AccDef& accessory = AccDefs.At(row);
    if (accessory.DrawingFile == "None") continue;
    const std::string fault = source.PictureFault("\\Drawings\\" + accessory.DrawingFile + ".wmf");
    if (fault.empty()) continue;
    checked.Add(CatalogueRule::PictureMissing, FileOfAccessory(row), checked.AccessoryRows.At(row),
                3, "The picture of " + accessory.Name + " can't be shown: " + fault);
  }
  if (HasPatterns("R")) {
    const std::string fault = source.PictureFault("\\Drawings\\drg015.wmf");
    if (!fault.empty()) {
      checked.Add(CatalogueRule::PictureMissing, "Drawings", 0, 0,
                  "The picture of the cleader rail's detail can't be shown: " + fault);
    }
  }
  if (checked.AccessoriesWhole) CheckCountedRows(checked);
}

}  // namespace orvane
