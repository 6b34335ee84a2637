#include "output/cutting_list.h"

#include <array>
#include <cstdint>
#include <functional>
#include <map>
#include <string_view>
#include <tuple>
#include <utility>

#include "core/csv.h"
#include "core/model.h"
#include "core/numbers.h"
#include "core/runtime_error.h"
#include "core/section_families.h"
#include "core/text.h"
#include "holes/hole_list.h"
#include "output/accessory_blocks.h"
#include "output/accessory_rows.h"
#include "project/error_names.h"

namespace orvane {

namespace {

// Sections without a family's letter stand behind the others.
int OrderOf(std::string_view letter) {
  const int number = FamilyNumber(letter);
  return number > 0 ? number : static_cast<int>(SectionFamilies.size()) + 1;
}

std::string CaptionOf(std::string_view letter) {
  const SectionFamily* family = FamilyOf(letter);
  return std::string(family != nullptr ? family->ButtonCaption : letter);
}

void JoinMark(std::string& marks, std::string_view mark, double quantity) {
  if (!marks.empty()) marks += ", ";
  if (!mark.empty()) marks.append(mark).append(1, ' ');
  marks.append(1, '(').append(ShortestText(quantity)).append(1, ')');
}

// Adds up what is cut and punched.
class Sums {
 public:
  explicit Sums(CuttingList& list) : list_(list) {}

  // False for what isn't counted.
  bool Cut(const std::string& letter, const std::string& product, std::string_view mark,
           double quantity, int length) {
    if (quantity <= 0 || length <= 0) return false;
    CutRow& row = cuts_[{OrderOf(letter), letter, product, -length}];
    row.Section = CaptionOf(letter);
    row.Product = product;
    row.Length = length;
    JoinMark(row.Marks, mark, quantity);
    row.Quantity += quantity;
    row.Millimetres += quantity * length;
    list_.Quantity += quantity;
    list_.Millimetres += quantity * length;
    return true;
  }

  void Punch(float diameter, float slotLength, bool counterSunk, double holes) {
    if (holes <= 0) return;
    const float slot = counterSunk || slotLength <= 0 ? 0 : slotLength;
    PunchRow& row = punches_[{diameter, slot, counterSunk}];
    row.Diameter = diameter;
    row.SlotLength = slot;
    row.CounterSunk = counterSunk;
    row.Holes += holes;
    list_.Holes += holes;
  }

  void Store() {
    for (auto& [key, row] : cuts_) list_.Cuts.push_back(std::move(row));
    for (auto& [key, row] : punches_) list_.Punches.push_back(row);
  }

 private:
  CuttingList& list_;
  std::map<std::tuple<int, std::string, std::string, int>, CutRow> cuts_;
  std::map<std::tuple<float, float, bool>, PunchRow> punches_;
};

// On how many lines it stands, at a gauge or off it.
int LinesOf(const Hole& hole) {
  int lines = 0;
  for (const std::string* line : {&hole.BF, &hole.W1, &hole.W2, &hole.TF}) {
    const std::string_view text = Trim(*line);
    if (!text.empty() && text != "n") ++lines;
  }
  return lines;
}

// An action whose error gets that name in front.
void InNameOf(const std::string& name, const std::function<void()>& action) {
  try {
    action();
  } catch (const RuntimeError& error) {
    throw NamedError(name, error);
  }
}

void AddSections(CuttingList& list, Sums& sums, const JobView& job) {
  for (int row = 1; row <= job.Items.UBound(); ++row) {
    const Item& item = job.Items.At(row);
    const std::string mark(Trim(item.Mark));
    const std::string name = mark.empty() ? "Item " + DecimalText(row) : mark;
    if (!sums.Cut(item.SectionType, item.Product, mark, item.Quantity, item.Length)) {
      list.NotCounted.push_back(name);
      continue;
    }
    const auto punch = [&](const Item& section) {
      for (const Hole& hole : section.Holes) {
        sums.Punch(hole.Diameter, hole.SlotLength, hole.CounterSunk == CounterSunkMark,
                   static_cast<double>(LinesOf(hole)) * item.Quantity);
      }
    };
    if (item.PatternName == CustomPattern) {
      punch(item);
      continue;
    }
    Item section = item;
    InNameOf(name, [&] { RebuildHoles(section, item.PatternName); });
    punch(section);
  }
}

void AddRail(CuttingList& list, Sums& sums, const AccLine2& line, const std::string& letter,
             const RailBlock& block) {
  const double quantity = ParseDouble(block.Quantity);
  if (!sums.Cut(letter, block.Product, Trim(block.Mark), quantity, block.Length)) {
    list.NotCounted.push_back(NameOfAccessory(line.AccIndex, block.Mark));
    return;
  }
  sums.Punch(RailHoleDiameter, 0, false,
             static_cast<double>(block.Holes.size()) * RailHoleLines * quantity);
}

void AddRails(CuttingList& list, Sums& sums, const JobView& job) {
  for (const AccLine2& line : job.AccLines2) {
    InNameOfAccessory(line.AccIndex, line.Mark, [&] {
      if (line.AccIndex == VcrAssemblyRow) {
        for (const RailBlock& block : VcrBlocksOf(line)) AddRail(list, sums, line, "V", block);
      } else if (line.AccIndex == CChannelRow) {
        AddRail(list, sums, line, "C", ChannelBlockOf(line));
      }
    });
  }
}

std::string TextOrNone(const Table<std::string>& texts, int row) {
  return row >= 1 && row <= texts.UBound() ? texts.At(row) : std::string();
}

void AddAccessories(CuttingList& list, const JobView& job) {
  // By row of the catalogue and, of type 1, by size.
  std::map<std::pair<int, int>, AccessoryRow> rows;
  for (const AccLine1& line : job.AccLines1) {
    if (line.Qty <= 0) continue;
    AccessoryRow& row = rows[{line.AccIndex, line.ParamIndex}];
    row.Type = NameOfAccessory(line.AccIndex);
    if (line.AccIndex >= 1 && line.AccIndex <= AccDefs.UBound()) {
      const AccDef& accessory = AccDefs.At(line.AccIndex);
      row.Description = TextOrNone(accessory.ParamTexts, line.ParamIndex);
      row.Marks = TextOrNone(accessory.ParamNames, line.ParamIndex);
    }
    row.NumberOff += line.Qty;
  }
  for (const AccLine2& line : job.AccLines2) {
    if (line.NoOff <= 0) continue;
    AccessoryRow& row = rows[{line.AccIndex, 0}];
    row.Type = NameOfAccessory(line.AccIndex);
    JoinMark(row.Marks, Trim(line.Mark), line.NoOff);
    row.NumberOff += line.NoOff;
  }
  for (auto& [key, row] : rows) list.Accessories.push_back(std::move(row));
}

CsvRow Guarded(CsvRow row) {
  for (std::string& text : row) text = GuardedText(text);
  return row;
}

void AddCuts(std::vector<CsvRow>& rows, const CuttingList& list) {
  if (list.Cuts.empty()) return;
  rows.push_back({"Section", "Product", "Length (mm)", "Quantity", "Metres", "Marks"});
  for (const CutRow& cut : list.Cuts) {
    rows.push_back(Guarded({cut.Section, cut.Product, DecimalText(cut.Length),
                            ShortestText(cut.Quantity), MetresText(cut.Millimetres), cut.Marks}));
  }
  rows.push_back({"Total", "", "", ShortestText(list.Quantity), MetresText(list.Millimetres), ""});
}

void AddPunches(std::vector<CsvRow>& rows, const CuttingList& list) {
  if (list.Punches.empty()) return;
  rows.push_back({""});
  rows.push_back({"Diameter (mm)", "Slot (mm)", "Countersunk", "Holes"});
  for (const PunchRow& punch : list.Punches) {
    rows.push_back({ShortestText(punch.Diameter),
                    punch.SlotLength > 0 ? ShortestText(punch.SlotLength) : "",
                    punch.CounterSunk ? "yes" : "", ShortestText(punch.Holes)});
  }
  rows.push_back({"Total", "", "", ShortestText(list.Holes)});
}

void AddAccessoryRows(std::vector<CsvRow>& rows, const CuttingList& list) {
  if (list.Accessories.empty()) return;
  if (!rows.empty()) rows.push_back({""});
  rows.push_back({"Accessory", "Description", "Code or marks", "No.Off"});
  for (const AccessoryRow& row : list.Accessories) {
    rows.push_back(Guarded({row.Type, row.Description, row.Marks, ShortestText(row.NumberOff)}));
  }
}

void AddNotCounted(std::vector<CsvRow>& rows, const CuttingList& list) {
  if (list.NotCounted.empty()) return;
  if (!rows.empty()) rows.push_back({""});
  rows.push_back({"Not counted: no length or no quantity"});
  for (const std::string& name : list.NotCounted) rows.push_back({GuardedText(name)});
}

}  // namespace

CuttingList CuttingListOf(const JobView& job) {
  CuttingList list;
  Sums sums(list);
  AddSections(list, sums, job);
  AddRails(list, sums, job);
  sums.Store();
  AddAccessories(list, job);
  return list;
}

std::string MetresText(double millimetres) {
  return FormatNumber(millimetres / 1000, 3);
}

std::string CuttingListFile(const CuttingList& list) {
  std::vector<CsvRow> rows;
  AddCuts(rows, list);
  AddPunches(rows, list);
  AddAccessoryRows(rows, list);
  AddNotCounted(rows, list);
  return std::string(Utf8Mark) + CsvText(rows, ',');
}

}  // namespace orvane
