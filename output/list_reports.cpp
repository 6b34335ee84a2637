#include "output/list_reports.h"

#include <algorithm>
#include <functional>
#include <string_view>
#include <vector>

#include "core/desktop.h"
#include "core/numbers.h"
#include "output/output_screen.h"
#include "output/report_tables.h"

namespace orvane {

namespace {

constexpr CellAlignment Left = CellAlignment::Left;
constexpr CellAlignment Right = CellAlignment::Right;

// Draws a report and shows its preview, in which it may be laid out for other paper.
void ShowReport(const std::string& document, const std::function<void(PrintSurface&)>& draw) {
  DrawOnPreview([&](PrintSurface& surface, SheetErrors&) {
    draw(surface);
    TheOutputScreen().ShowPreview(document, [&](PrintSurface& other) {
      draw(other);
      return true;
    });
  });
}

// The cutting list.

// The rows of one product, and its sum where they are more than one.
void AddProduct(std::vector<ReportRow>& rows, const CuttingList& list, std::size_t first,
                std::size_t last) {
  double quantity = 0;
  double millimetres = 0;
  for (std::size_t at = first; at <= last; ++at) {
    const CutRow& cut = list.Cuts.at(at);
    rows.push_back({cut.Section, cut.Product, DecimalText(cut.Length), ShortestText(cut.Quantity),
                    MetresText(cut.Millimetres), cut.Marks});
    quantity += cut.Quantity;
    millimetres += cut.Millimetres;
  }
  if (first == last) return;
  rows.push_back({"", list.Cuts.at(first).Product, "All", ShortestText(quantity),
                  MetresText(millimetres), ""});
}

void DrawCuts(PrintSurface& surface, const CuttingList& list) {
  if (list.Cuts.empty()) return;
  std::vector<ReportRow> rows;
  std::size_t first = 0;
  for (std::size_t at = 0; at < list.Cuts.size(); ++at) {
    const bool isLast = at + 1 == list.Cuts.size() ||
                        list.Cuts.at(at + 1).Section != list.Cuts.at(first).Section ||
                        list.Cuts.at(at + 1).Product != list.Cuts.at(first).Product;
    if (!isLast) continue;
    AddProduct(rows, list, first, at);
    first = at + 1;
  }
  rows.push_back({"Total", "", "", ShortestText(list.Quantity), MetresText(list.Millimetres), ""});
  WriteTitle(surface, "Sections to cut:");
  DrawReportTable(surface,
                  {{"Section", "16mm", Left},
                   {"Product", "20mm", Left},
                   {"Length", "15mm", Right},
                   {"Quantity", "16mm", Right},
                   {"Metres", "20mm", Right},
                   {"Marks", "73mm", Left}},
                  rows);
}

void DrawPunches(PrintSurface& surface, const CuttingList& list) {
  if (list.Punches.empty()) return;
  std::vector<ReportRow> rows;
  for (const PunchRow& punch : list.Punches) {
    rows.push_back({ShortestText(punch.Diameter),
                    punch.SlotLength > 0 ? ShortestText(punch.SlotLength) : "",
                    punch.CounterSunk ? "yes" : "", ShortestText(punch.Holes)});
  }
  rows.push_back({"Total", "", "", ShortestText(list.Holes)});
  WriteTitle(surface, "Holes to punch:");
  DrawReportTable(surface,
                  {{"Diameter", "20mm", Right},
                   {"Slot", "20mm", Right},
                   {"Countersunk", "22mm", Left},
                   {"Holes", "20mm", Right}},
                  rows);
}

void DrawAccessories(PrintSurface& surface, const CuttingList& list) {
  if (list.Accessories.empty()) return;
  std::vector<ReportRow> rows;
  for (const AccessoryRow& row : list.Accessories) {
    rows.push_back({row.Type, row.Description, row.Marks, ShortestText(row.NumberOff)});
  }
  WriteTitle(surface, "Accessories:");
  DrawReportTable(surface,
                  {{"Type", "45mm", Left},
                   {"Description", "45mm", Left},
                   {"Code or marks", "55mm", Left},
                   {"No.Off", "15mm", Right}},
                  rows);
}

void DrawNotCounted(PrintSurface& surface, const CuttingList& list) {
  if (list.NotCounted.empty()) return;
  std::vector<ReportRow> rows;
  for (const std::string& name : list.NotCounted) rows.push_back({name});
  WriteTitle(surface, "Not counted, without a length or a quantity:");
  DrawReportTable(surface, {{"Mark", "160mm", Left}}, rows);
}

void DrawCuttingList(PrintSurface& surface, const CuttingList& list) {
  surface.StartDoc();
  SetUpReportPages(surface, "Cutting List");
  DrawProjectTable(surface);
  DrawCuts(surface, list);
  DrawPunches(surface, list);
  DrawAccessories(surface, list);
  DrawNotCounted(surface, list);
  surface.EndDoc();
}

// The revision list.

void DrawRevisions(PrintSurface& surface, const JobComparison& comparison, ComparedThing of,
                   const std::string& title, std::string_view heading) {
  std::vector<ReportRow> rows;
  for (const ComparedLine& line : comparison.Lines) {
    if (line.Of != of) continue;
    rows.push_back({line.Name, std::string(WordOf(line.What)), line.Field, line.Old, line.New});
  }
  if (rows.empty()) return;
  WriteTitle(surface, title);
  DrawReportTable(surface,
                  {{std::string(heading), "32mm", Left},
                   {"Change", "17mm", Left},
                   {"What", "28mm", Left},
                   {"Was", "42mm", Left},
                   {"Is", "42mm", Left}},
                  rows);
}

void DrawRevisionList(PrintSurface& surface, const JobComparison& comparison,
                      const std::string& before, const std::string& after) {
  surface.StartDoc();
  SetUpReportPages(surface, "Revision List");
  DrawProjectTable(surface);
  surface.Paragraph("");
  surface.Paragraph("From:  " + before);
  surface.Paragraph("To:  " + after);
  surface.Paragraph("Different:  " + comparison.Words);
  DrawRevisions(surface, comparison, ComparedThing::Project, "Project:", "Project");
  DrawRevisions(surface, comparison, ComparedThing::Section, "Sections:", "Mark");
  DrawRevisions(surface, comparison, ComparedThing::Accessory, "Accessories:", "Accessory");
  surface.EndDoc();
}

}  // namespace

void PrintCuttingList() {
  PrintCuttingList(CuttingListOf(OpenJob()));
}

void PrintCuttingList(const CuttingList& list) {
  if (list.IsEmpty()) return TheDesktop().Message("Nothing to print");
  ShowReport("cutting list", [&](PrintSurface& surface) { DrawCuttingList(surface, list); });
}

void PrintRevisionList(const JobComparison& comparison, const std::string& before,
                       const std::string& after) {
  ShowReport("revision list",
             [&](PrintSurface& surface) { DrawRevisionList(surface, comparison, before, after); });
}

}  // namespace orvane
