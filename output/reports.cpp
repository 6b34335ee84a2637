#include "output/reports.h"

#include <algorithm>
#include <deque>
#include <functional>
#include <numeric>
#include <string>
#include <utility>
#include <vector>

#include "core/dates.h"
#include "core/desktop.h"
#include "core/model.h"
#include "core/numbers.h"
#include "core/runtime_error.h"
#include "core/text.h"
#include "drawing/accessory_sheet.h"
#include "drawing/draw_section.h"
#include "drawing/sheet_frame.h"
#include "holes/hole_list.h"
#include "output/output_screen.h"
#include "output/page_room.h"
#include "output/report_tables.h"
#include "output/sheet_errors.h"
#include "project/accessory_lines.h"
#include "project/changes.h"
#include "project/error_names.h"
#include "project/rules/accessory_rules.h"

namespace orvane {

namespace {

constexpr double FooterPoints = 7;

// The runs of sheets.

// A section made afresh for a run, and its row of Items.
struct RebuiltSection {
  std::int16_t Row = 0;
  Item Section;
};
// What a run has made afresh so far; its elements stay where they are.
using RebuiltSections = std::deque<RebuiltSection>;

// The section as its sheet shows it. What that changes is a copy, so that a run that is called off
// has touched no table.
const Item& SectionOfSheet(std::int16_t row, RebuiltSections& rebuilt) {
  Item& section = rebuilt.emplace_back(RebuiltSection{row, Items.At(row)}).Section;
  MakeHolesAfresh(section);
  return section;
}

// A run leaves the holes that it has drawn in the tables, up to an error too.
void Store(RebuiltSections& rebuilt) {
  Change(ChangeKind::PrintAll, 0, [&] {
    for (RebuiltSection& one : rebuilt) Items.At(one.Row) = std::move(one.Section);
  });
}

// Draws the sheets of these sections; false when the user calls the run off.
bool DrawSheets(PrintSurface& surface, const std::vector<int>& rows, RebuiltSections& rebuilt,
                SheetErrors& errors) {
  const SheetSource present = PresentSource();
  const int last = static_cast<int>(rows.size());
  int done = 0;
  for (const int each : rows) {
    const std::int16_t row = Int16(each);
    SheetSource source = present;
    source.Tell = errors.Of(row);
    ++done;
    if (last > 1) errors.CrossMissingPictures(source, NameOfSection(row));
    InNameOfSection(row, [&] {
      const Item& section = SectionOfSheet(row, rebuilt);
      // The last comes first: a project of a single section only closes its document; its sheet
      // stands on the page that a fresh surface makes by itself.
      const bool close = done == last;
      const bool open = !close && done == 1;
      DrawSection(surface, source, section, open, close);
    });
    // So that a long run keeps the screen alive.
    TheDesktop().ProcessEvents();
    if (!TheOutputScreen().GoesOn(done, last)) return false;
  }
  return true;
}

// The rows of an accessory's sheet. A number off for a size that the catalogue hasn't got would be
// missing from the sheet unseen: "Subscript out of range".
TextRows SheetRows(std::int16_t accessory) {
  const int sizes = AccDefs.At(accessory).ParamNames.UBound();
  for (const AccLine1& line : AccLines1) {
    const bool outside = line.ParamIndex < 0 || line.ParamIndex > sizes;
    if (line.AccIndex == accessory && outside) throw RuntimeError(Failure::SubscriptOutOfRange);
  }
  return AccessoryRows(accessory);
}

// The same for the sheets of these accessories.
bool DrawAccessorySheets(PrintSurface& surface, const std::vector<std::int16_t>& accessories,
                         SheetErrors& errors) {
  const int count = static_cast<int>(accessories.size());
  int done = 0;
  for (const std::int16_t row : accessories) {
    CurrentAcc = row;
    SheetSource source = PresentSource();
    if (count > 1) errors.CrossMissingPictures(source, NameOfAccessory(row));
    InNameOfAccessory(row, {}, [&] {
      const AccessoryType type = IsType1Accessory(row) ? AccessoryType::One : AccessoryType::Two;
      const TextRows rows = SheetRows(row);
      const bool first = done == 0;
      if (!first) surface.NewPage();
      DrawAccessorySheet(surface, source, AccDefs.At(row), type, rows, first, false);
    });
    if (!TheOutputScreen().GoesOn(++done, count)) return false;
  }
  return true;
}

// The contract summary.

// All sections, those without a length or a quantity too: only the export checks them.
void DrawSectionsTable(PrintSurface& surface) {
  std::vector<ReportRow> rows;
  rows.reserve(static_cast<std::size_t>(Items.UBound()));
  for (const Item& item : Items) {
    rows.push_back({item.Mark, item.Product, ShortestText(item.Length), ShortestText(item.Quantity),
                    item.Notes});
  }
  DrawReportTable(surface,
                  {
                      {"Mark", "15mm", CellAlignment::Left},
                      {"Product", "15mm", CellAlignment::Left},
                      {"Length", "15mm", CellAlignment::Right},
                      {"Quantity", "15mm", CellAlignment::Right},
                      {"Notes", "100mm", CellAlignment::Left},
                  },
                  rows);
}

// The accessory report.

// Values and their headings needn't be as many, after a change of the catalogue: what is missing
// stays empty.
std::string TextOrNone(const Table<std::string>& texts, int row) {
  return row >= 1 && row <= texts.UBound() ? texts.At(row) : std::string();
}

void DrawType1Table(PrintSurface& surface) {
  std::vector<ReportRow> rows;
  for (const AccLine1& line : AccLines1) {
    if (line.Qty <= 0) continue;
    InNameOfAccessory(line.AccIndex, {}, [&] {
      const AccDef& accessory = AccDefs.At(line.AccIndex);
      rows.push_back({accessory.Name, accessory.ParamTexts.At(line.ParamIndex),
                      accessory.ParamNames.At(line.ParamIndex), ShortestText(line.Qty)});
    });
  }
  DrawReportTable(surface,
                  {
                      {"Type", "60mm", CellAlignment::Left},
                      {"Description", "65mm", CellAlignment::Left},
                      {"Code", "20mm", CellAlignment::Left},
                      {"No.Off", "15mm", CellAlignment::Right},
                  },
                  rows);
}

// The value columns share what the first three leave of the page, but few of them stay narrow.
int ValueColumnWidth(int valueCount) {
  constexpr int greatest = 20;
  return std::min(static_cast<int>(112.0 / (valueCount + 1) + 0.49), greatest);
}

// The table of lines of one accessory; the first of them settles the number of columns.
void DrawType2Table(PrintSurface& surface, const std::vector<const AccLine2*>& lines) {
  const AccDef& accessory = AccDefs.At(lines.front()->AccIndex);
  const int valueCount = lines.front()->Values.UBound();
  const std::string valueWidth = MillimetreText(ValueColumnWidth(valueCount));
  std::vector<ReportColumn> columns = {
      {"Type", "32mm", CellAlignment::Left},
      {"Mark", "16mm", CellAlignment::Left},
      {"No. Off", "13.5mm", CellAlignment::Right},
  };
  for (int c = 4; c <= 3 + valueCount; ++c) {
    columns.push_back({TextOrNone(accessory.ParamNames, c - 1), valueWidth, CellAlignment::Right});
  }
  std::vector<ReportRow> rows;
  for (const AccLine2* line : lines) {
    ReportRow row = {accessory.Name, line->Mark, ShortestText(line->NoOff)};
    for (int c = 4; c <= 3 + valueCount; ++c) row.push_back(TextOrNone(line->Values, c - 3));
    rows.push_back(std::move(row));
  }
  DrawReportTable(surface, columns, rows);
}

// A table, behind a blank line, for each accessory. Only lines with a mark count, with none off
// too.
void DrawType2Tables(PrintSurface& surface) {
  std::vector<const AccLine2*> lines;
  const auto drawTable = [&] {
    if (lines.empty()) return;
    surface.Paragraph("");
    InNameOfAccessory(lines.front()->AccIndex, {}, [&] { DrawType2Table(surface, lines); });
    lines.clear();
  };
  for (const AccLine2& line : AccLines2) {
    if (Trim(line.Mark).empty()) continue;
    if (!lines.empty() && lines.front()->AccIndex != line.AccIndex) drawTable();
    lines.push_back(&line);
  }
  drawTable();
}

// The report's two halves.

void DrawContractSummary(PrintSurface& surface) {
  surface.StartDoc();
  SetUpReportPages(surface, "Contract Summary");
  DrawProjectTable(surface);
  WriteTitle(surface, "Sections:");
  DrawSectionsTable(surface);
}

void DrawAccessoryReport(PrintSurface& surface) {
  surface.FontSize(ReportTextPoints);
  WriteTitle(surface, "Accessories:");
  if (!AccLines1.Empty()) DrawType1Table(surface);
  if (!AccLines2.Empty()) DrawType2Tables(surface);
  surface.EndDoc();
}

}  // namespace

void PreparePreview(PageSurface& surface) {
  surface.Orientation(PageOrientation::Landscape);
  ApplyPageMargins(surface);
  surface.BeforeHeader = [&surface] { surface.HdrFontSize(ReportHeaderPoints); };
  surface.BeforeFooter = [&surface] { surface.HdrFontSize(FooterPoints); };
}

void PrintCurrentDrawing(std::int16_t ItemIndex) {
  if (ItemIndex < 1) return;
  const auto draw = [&](PrintSurface& surface, Item& section, const PageRoom& room,
                        SheetErrors& errors) {
    SheetSource source = PresentSource();
    source.Tell = errors.Of(ItemIndex);
    InNameOfSection(ItemIndex, [&] {
      if (room.IsNew()) AdjustHoleSpacing(section);
      DrawSection(surface, source, section, true, true);
    });
  };
  DrawOnPreview([&](PrintSurface& surface, SheetErrors& errors) {
    PageRoom room(surface);
    draw(surface, Items.At(ItemIndex), room, errors);
    TheDesktop().ProcessEvents();
    room.Keep();
    errors.Say();
    TheOutputScreen().ShowPreview("sheet of " + NameOfSection(ItemIndex), [&](PrintSurface& other) {
      const PageRoom otherRoom(other);
      Item copy = Items.At(ItemIndex);
      SheetErrors told;
      draw(other, copy, otherRoom, told);
      return true;
    });
  });
}

bool PrintDrawings(const std::vector<int>& rows) {
  bool whole = true;
  DrawOnPreview([&](PrintSurface& surface, SheetErrors& errors) {
    PageRoom room(surface);
    RebuiltSections rebuilt;
    try {
      if (!DrawSheets(surface, rows, rebuilt, errors)) {
        return TheOutputScreen().DropPreview();
      }
    } catch (...) {
      Store(rebuilt);
      throw;
    }
    Store(rebuilt);
    room.Keep();
    whole = !errors.HasMissingPictures();
    errors.Say();
    TheOutputScreen().ShowPreview("sheets", [&](PrintSurface& other) {
      const PageRoom otherRoom(other);
      RebuiltSections copies;
      SheetErrors told;
      return DrawSheets(other, rows, copies, told);
    });
  });
  return whole;
}

bool PrintAllDrawings() {
  if (Items.Empty()) return true;
  std::vector<int> rows(static_cast<std::size_t>(Items.UBound()));
  std::iota(rows.begin(), rows.end(), 1);
  return PrintDrawings(rows);
}

bool PrintAllAccessorySheets() {
  bool whole = true;
  const std::vector<std::int16_t> accessories = AccessoriesInUse();
  if (accessories.empty()) {
    TheDesktop().Message("Nothing to print");
    return whole;
  }
  DrawOnPreview([&](PrintSurface& surface, SheetErrors& errors) {
    const std::int16_t formerAcc = CurrentAcc;
    if (DrawAccessorySheets(surface, accessories, errors)) {
      surface.EndDoc();
      whole = !errors.HasMissingPictures();
      errors.Say();
      return TheOutputScreen().ShowPreview("accessory sheets", [&](PrintSurface& other) {
        SheetErrors told;
        const bool done = DrawAccessorySheets(other, accessories, told);
        CurrentAcc = accessories.back();
        if (done) other.EndDoc();
        return done;
      });
    }
    CurrentAcc = formerAcc;
    TheOutputScreen().DropPreview();
  });
  return whole;
}

void PrintContractSummary() {
  if (Items.Empty()) return;
  DrawOnPreview([](PrintSurface& surface, SheetErrors&) { DrawContractSummary(surface); });
}

void PrintAccessoryReport() {
  DrawOnPreview([](PrintSurface& surface, SheetErrors&) {
    DrawAccessoryReport(surface);
    TheOutputScreen().ShowPreview("contract summary", [](PrintSurface& other) {
      if (!Items.Empty()) DrawContractSummary(other);
      DrawAccessoryReport(other);
      return true;
    });
  });
}

}  // namespace orvane
