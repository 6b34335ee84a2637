#include "project/rules/accessory_rules.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "core/section_families.h"
#include "core/text.h"
#include "project/accessory_lines.h"
#include "project/changes.h"

namespace orvane {

namespace {

// Columns of a type 1 row.
constexpr int QuantityColumn = 1;
constexpr int ParamColumn = 2;

// Columns of a type 2 row; the values follow.
constexpr int MarkColumn = 1;
constexpr int NoOffColumn = 2;

// Accessories with rules of their own, known by their row of AccDefs.
constexpr std::int16_t VcrAssembly = 8;
constexpr std::int16_t TubularApexTies = 10;
constexpr std::int16_t ScrewFixSagBars = 11;

// A VCR assembly is a section of this family with cleats on it, and as long as one at most.
constexpr std::string_view VcrLetter = "V";

constexpr double SteepestApexTie = 25;  // degrees

// A row that is shorter than the table is empty from there on.
std::string_view CellText(const Table<std::string>& row, int column) {
  return column <= row.UBound() ? std::string_view(row.At(column)) : std::string_view();
}

double CellValue(const Table<std::string>& row, int column) {
  return Val(CellText(row, column));
}

TextRows Type1Rows(std::int16_t accIndex) {
  const AccDef& accessory = AccDefs.At(accIndex);
  const bool hasParam = accessory.HasParamColumn != False;
  TextRows rows;
  rows.Resize(accessory.ParamCount());
  for (Table<std::string>& row : rows) row.Resize(hasParam ? ParamColumn : QuantityColumn);
  for (const AccLine1& line : AccLines1) {
    if (line.AccIndex != accIndex) continue;
    if (line.ParamIndex < 1 || line.ParamIndex > rows.UBound()) continue;
    Table<std::string>& row = rows.At(line.ParamIndex);
    row.At(QuantityColumn) = ShortestText(line.Qty);
    if (hasParam) row.At(ParamColumn) = ShortestText(line.Param);
  }
  return rows;
}

TextRows Type2Rows(std::int16_t accIndex) {
  const int columns = AccDefs.At(accIndex).ParamCount();
  TextRows rows;
  for (const AccLine2& line : AccLines2) {
    if (line.AccIndex != accIndex) continue;
    Table<std::string>& row = rows.Append({});
    row.Append(line.Mark);
    row.Append(ShortestText(line.NoOff));
    for (const std::string& value : line.Values) row.Append(value);
    row.Resize(columns);
  }
  return rows;
}

AccLine2 Type2Line(std::int16_t accIndex, const Table<std::string>& row) {
  AccLine2 line;
  line.AccIndex = accIndex;
  line.Mark = Trim(CellText(row, MarkColumn));
  line.NoOff = Whole(CellValue(row, NoOffColumn));
  const int columns = AccDefs.At(accIndex).ParamCount();
  for (int column = NoOffColumn + 1; column <= columns; ++column) {
    line.Values.Append(std::string(CellText(row, column)));
  }
  return line;
}

// The accessory's lines are replaced at one go, so that an error on the way here has lost nothing.
template <class Line>
void ReplaceLines(std::int16_t type, std::int16_t accIndex, std::vector<Line> lines,
                  Table<Line>& all) {
  Change(ChangeKind::EditAccessory, accIndex, [&] {
    ClearAccLines(type, accIndex);
    AccUsed.At(accIndex) = ToBoolean(!lines.empty());
    for (Line& line : lines) all.Append(std::move(line));
    SortAccLines(type);
  });
}

// What is wrong with one row of the accessory's table.

using RowRefusal = std::optional<AccessoryRefusal>;

RowRefusal VcrAssemblyRefusal(const Table<std::string>& row) {
  const double required = CellValue(row, NoOffColumn);
  const double asDrawn = CellValue(row, 3);
  const double oppHand = CellValue(row, 4);
  if (asDrawn + oppHand != required) {
    return AccessoryRefusal{0, 0, "VCR Assembly",
                            "'No. Rqd' should equal 'No. As Drawn' + 'No. Opp. Hand'"};
  }
  const double maximum = MaxDims.At(FamilyNumber(VcrLetter));
  const double length = CellValue(row, 5);
  if (length > maximum) {
    return AccessoryRefusal{0, 0, "VCR Assembly",
                            "Maximum length for VCR section is " + FormatNumber(maximum, 0)};
  }
  return std::nullopt;
}

RowRefusal TubularApexTieRefusal(const Table<std::string>& row) {
  constexpr int Pitch = 5;
  if (CellValue(row, Pitch) <= SteepestApexTie) return std::nullopt;
  return AccessoryRefusal{0, Pitch, "Tubular apex ties",
                          "Tubular apex ties only suitable if pitch <= 25deg"};
}

RowRefusal ScrewFixSagBarRefusal(const Table<std::string>& row) {
  constexpr int PurlinCentres = 4;
  constexpr int RailCentres = 5;
  if (CellValue(row, PurlinCentres) <= 0 || CellValue(row, RailCentres) <= 0) return std::nullopt;
  return AccessoryRefusal{0, PurlinCentres, "Sag bars (screw fix)",
                          "Please enter EITHER purlin OR rail centres"};
}

struct RowRule {
  std::int16_t AccIndex;
  RowRefusal (*Check)(const Table<std::string>& row);
};

constexpr RowRule RowRules[] = {
    {VcrAssembly, VcrAssemblyRefusal},
    {TubularApexTies, TubularApexTieRefusal},
    {ScrewFixSagBars, ScrewFixSagBarRefusal},
};

}  // namespace

bool IsType1Accessory(std::int16_t AccIndex) {
  return AccIndex >= 1 && AccIndex <= AccType1Count;
}

TextRows AccessoryRows(std::int16_t AccIndex) {
  return IsType1Accessory(AccIndex) ? Type1Rows(AccIndex) : Type2Rows(AccIndex);
}

void StoreType1Lines(std::int16_t AccIndex, const TextRows& rows) {
  const bool hasParam = AccDefs.At(AccIndex).HasParamColumn != False;
  std::vector<AccLine1> lines;
  for (int i = 1; i <= rows.UBound(); ++i) {
    const Table<std::string>& row = rows.At(i);
    AccLine1 line;
    line.AccIndex = AccIndex;
    line.ParamIndex = Int16(i);
    line.Qty = Whole(CellValue(row, QuantityColumn));
    if (line.Qty <= 0) continue;
    if (hasParam) line.Param = Whole(CellValue(row, ParamColumn));
    lines.push_back(line);
  }
  ReplaceLines(1, AccIndex, std::move(lines), AccLines1);
}

void StoreType2Lines(std::int16_t AccIndex, const TextRows& rows) {
  std::vector<AccLine2> lines;
  for (const Table<std::string>& row : rows) {
    // A row without a mark is dropped, whatever else it holds.
    if (Trim(CellText(row, MarkColumn)).empty()) continue;
    lines.push_back(Type2Line(AccIndex, row));
  }
  ReplaceLines(2, AccIndex, std::move(lines), AccLines2);
}

void ClearAccessory(std::int16_t AccIndex) {
  Change(ChangeKind::ClearAccessory, AccIndex,
         [&] { ClearAccLines(IsType1Accessory(AccIndex) ? 1 : 2, AccIndex); });
}

std::optional<AccessoryRefusal> ValidateAccessory(std::int16_t AccIndex, const TextRows& rows) {
  const auto* rule =
      std::find_if(std::begin(RowRules), std::end(RowRules),
                   [AccIndex](const RowRule& each) { return each.AccIndex == AccIndex; });
  if (rule == std::end(RowRules)) return std::nullopt;
  // Rows without a mark are checked too.
  for (int row = 1; row <= rows.UBound(); ++row) {
    if (RowRefusal refusal = rule->Check(rows.At(row))) {
      refusal->Row = row;
      return refusal;
    }
  }
  return std::nullopt;
}

}  // namespace orvane
