#include "tools/batch_sheets.h"

#include <QGuiApplication>
#include <array>
#include <iostream>
#include <optional>

#include "core/model.h"
#include "core/numbers.h"
#include "drawing/draw_section.h"
#include "drawing/page_surface.h"
#include "holes/hole_list.h"
#include "ui/platform/document_output.h"
#include "ui/platform/qt_font_metrics.h"

namespace orvane {

namespace {

// What the toolkit misses on a machine without a desktop is no message of a job.
void TellTheWorst(QtMsgType type, const QMessageLogContext&, const QString& text) {
  if (type == QtFatalMsg) std::cerr << text.toStdString() << std::endl;
}

}  // namespace

// The toolkit keeps references to its arguments.
struct SheetWriter::Toolkit {
  std::string Name = "orvane-batch";
  std::string Option = "-platform";
  std::string Platform = "offscreen";
  int Count = 3;
  std::array<char*, 4> Arguments = {Name.data(), Option.data(), Platform.data(), nullptr};
  QGuiApplication Application{Count, Arguments.data()};
};

bool SheetsInThisBuild() {
  return true;
}

SheetWriter::SheetWriter() {
  qInstallMessageHandler(TellTheWorst);
  toolkit_ = std::make_unique<Toolkit>();
}

SheetWriter::~SheetWriter() = default;

void SheetWriter::Write(const SheetFiles& files) {
  std::optional<PdfOutput> pdf;
  if (!files.Pdf.empty()) pdf.emplace(files.Pdf, files.Title);
  int sheets = 0;
  PageSurface surface(SheetMetrics());
  surface.PageDone = [&](const Page& page) {
    ++sheets;
    if (pdf) pdf->Write(page);
    if (files.Svg) WriteSvg(files.Svg(sheets), page, files.Title);
  };

  PrepareDrawingWidth(surface);
  const std::int16_t last = Int16(Items.UBound());
  for (std::int16_t row = 1; row <= last; ++row) {
    const Item& item = Items.At(row);
    if (item.PatternName == CustomPattern) {
      AdjustHoleSpacing(row);
    } else {
      RebuildHoles(row, item.PatternName);
    }
    DrawSection(surface, row, row == 1, row == last);
  }
  if (pdf) pdf->Finish();
}

}  // namespace orvane
