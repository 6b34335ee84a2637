// What the printed reports share: the way onto the preview, the set-up of their pages, and their
// tables.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "drawing/print_surface.h"
#include "output/sheet_errors.h"

namespace orvane {

constexpr double ReportHeaderPoints = 10;
constexpr double ReportTextPoints = 9;

// Draws a document on the surface of a preview. What an error leaves of it is not shown, and the
// next command begins a new one.
void DrawOnPreview(const std::function<void(PrintSurface& surface, SheetErrors& errors)>& draw);

struct ReportColumn {
  std::string Heading;
  std::string Width;
  CellAlignment Alignment = CellAlignment::Left;
};

using ReportRow = std::vector<std::string>;

std::string MillimetreText(int width);

// Portrait pages with that title, the job and the page in their header.
void SetUpReportPages(PrintSurface& surface, std::string_view title);

// The project details, without lines.
void DrawProjectTable(PrintSurface& surface);

// A title between two blank lines.
void WriteTitle(PrintSurface& surface, const std::string& title);

// A ruled table under a ruled heading row.
void DrawReportTable(PrintSurface& surface, const std::vector<ReportColumn>& columns,
                     const std::vector<ReportRow>& rows);

}  // namespace orvane
