#include "tests/samples/job_sheet.h"

#include <stdexcept>
#include <utility>

#include "holes/hole_list.h"
#include "project/accessory_lines.h"
#include "project/sections.h"

namespace orvane::test {

namespace {

// The pattern name of holes placed by hand.
const std::string Custom = "Custom";

// The sheet that one section of each job has been drawn on.
constexpr std::int16_t SheetWidth = 203;  // room for the elevation, mm
constexpr double SheetHoleSep = 4;        // least separation of holes on paper, mm

struct Punching {
  std::string Pattern;
  std::int16_t SagBarDia = 0;
};

std::int16_t AddSection(std::string_view letter, const std::string& mark,
                        const std::string& product, std::int16_t length, std::int16_t quantity,
                        const Punching& punching) {
  const std::int16_t row = AddSectionRow(letter);
  Item& item = Items.At(row);
  item.Mark = mark;
  item.Product = product;
  item.Length = length;
  item.Quantity = quantity;
  item.PatternName = punching.Pattern;
  item.SagBarDia = punching.SagBarDia;
  RebuildHoles(row, punching.Pattern);
  // A pattern name that the catalogue doesn't know would punch nothing without a word.
  if (punching.Pattern != Custom && Items.At(row).HoleCount() == 0) {
    throw std::logic_error("no holes from " + punching.Pattern);
  }
  return row;
}

void AddHoleByHand(std::int16_t row, Hole hole) {
  Item& item = Items.At(row);
  hole.Kind = "C";
  item.Holes.Append(std::move(hole));
  item.CustomHoleCount = Int16(item.CustomHoleCount + 1);
  SortHoles(row);
  AdjustHoleSpacing(row);
}

std::int16_t RowOf(Acc accessory) {
  return static_cast<std::int16_t>(accessory);
}

}  // namespace

void StartJob(const std::string& orvaneNumber, const std::string& jobNumber,
              const std::string& customer, const std::string& project, const std::string& designer,
              const Date& date) {
  NewProjectTables(date);
  txtProject = {orvaneNumber, jobNumber, customer, project, designer};
}

std::int16_t AddPurlin(const std::string& mark, const std::string& product, std::int16_t length,
                       std::int16_t quantity, const std::string& pattern, std::int16_t sagBarDia) {
  return AddSection("Z", mark, product, length, quantity, {pattern, sagBarDia});
}

std::int16_t AddEavesBeam(const std::string& mark, const std::string& product, std::int16_t length,
                          std::int16_t quantity, const std::string& pattern,
                          const std::string& pitch, std::int16_t sagBarDia) {
  const std::int16_t row = AddSection("E", mark, product, length, quantity, {pattern, sagBarDia});
  Items.At(row).Pitch = pitch;
  return row;
}

std::int16_t AddChannel(const std::string& mark, const std::string& product, std::int16_t length,
                        std::int16_t quantity, const std::string& pattern, std::int16_t sagBarDia) {
  return AddSection("C", mark, product, length, quantity, {pattern, sagBarDia});
}

std::int16_t AddVcr(const std::string& mark, std::int16_t length, std::int16_t quantity,
                    const std::string& pattern) {
  return AddSection("V", mark, "VCR", length, quantity, {pattern});
}

std::int16_t AddCleader(const std::string& mark, std::int16_t length, std::int16_t quantity,
                        const std::string& pattern, std::int16_t jointingPieces) {
  const std::int16_t row = AddSection("R", mark, "CLR", length, quantity, {pattern});
  Items.At(row).JointingPieces = jointingPieces;
  return row;
}

std::int16_t AddTopHat(const std::string& mark, const std::string& product, std::int16_t length,
                       std::int16_t quantity, const std::string& pattern) {
  return AddSection("T", mark, product, length, quantity, {pattern});
}

std::int16_t AddOppositeHand(std::int16_t row) {
  return CreateOppHandRow(row);
}

void SetNote(std::int16_t row, const std::string& note) {
  Items.At(row).Notes = note;
}

void SetMitres(std::int16_t row, double left, double right) {
  Items.At(row).MitreLeft = Float32(left);
  Items.At(row).MitreRight = Float32(right);
}

void AddNotch(std::int16_t row, const std::string& code, double depth, double width,
              double position) {
  Item& item = Items.At(row);
  item.Notches.Append({code, Float32(depth), Float32(width), Float32(position)});
}

void ConvertToCustom(std::int16_t row) {
  ConvertHolesToCustom(row);
  Items.At(row).PatternName = Custom;
  Items.At(row).SagBarDia = 0;
}

void AddCustomHole(std::int16_t row, std::int16_t x, std::string_view lines, double diameter,
                   double slot, const std::string& countersunk) {
  Hole hole;
  hole.XPos = x;
  hole.BF = lines.substr(0, 1);
  hole.W1 = lines.substr(1, 1);
  hole.W2 = lines.substr(2, 1);
  hole.TF = lines.substr(3, 1);
  hole.Diameter = Float32(diameter);
  hole.SlotLength = Float32(slot);
  hole.CounterSunk = countersunk;
  AddHoleByHand(row, hole);
}

void AddOffGaugeHole(std::int16_t row, std::int16_t x, Gauge gauge, const std::string& distance,
                     double diameter, double slot) {
  Hole hole;
  hole.XPos = x;
  hole.BF = gauge == Gauge::BottomFlange ? distance : "n";
  hole.W1 = gauge == Gauge::Web ? distance : "n";
  hole.W2 = "n";
  hole.TF = gauge == Gauge::TopFlange ? distance : "n";
  hole.Diameter = Float32(diameter);
  hole.SlotLength = Float32(slot);
  AddHoleByHand(row, hole);
}

void DrawOnSheet(std::int16_t row) {
  const std::int16_t width = std::exchange(DrawingWidth, SheetWidth);
  const double separation = std::exchange(MinHoleSep, SheetHoleSep);
  AdjustHoleSpacing(row);
  DrawingWidth = width;
  MinHoleSep = separation;
}

void AddLine1(Acc accessory, const std::string& code, std::int16_t quantity) {
  const AccDef& definition = AccDefs.At(RowOf(accessory));
  std::int16_t param = 1;
  while (definition.ParamNames.At(param) != code) ++param;
  AccLines1.Append({RowOf(accessory), param, quantity, 0});
  if (quantity > 0) AccUsed.At(RowOf(accessory)) = True;
}

void AddLine2(Acc accessory, const std::string& mark, std::int16_t noOff,
              const std::vector<std::string>& values) {
  AccLine2 line;
  line.AccIndex = RowOf(accessory);
  line.Mark = mark;
  line.NoOff = noOff;
  for (const std::string& value : values) line.Values.Append(value);
  if (line.ValueCount() != AccDefs.At(line.AccIndex).ParamCount() - 2) {
    throw std::logic_error("a value for each column of " + mark);
  }
  AccLines2.Append(std::move(line));
  AccUsed.At(RowOf(accessory)) = True;
}

void EndJob() {
  SortAccLines(1);
  SortAccLines(2);
}

}  // namespace orvane::test
