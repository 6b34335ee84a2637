#include "tools/batch_sheets.h"

#include <QGuiApplication>
#include <array>
#include <iostream>
#include <optional>

#include "drawing/page_surface.h"
#include "output/reports.h"
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
struct DocumentWriter::Toolkit {
  std::string Name = "orvane-batch";
  std::string Option = "-platform";
  std::string Platform = "offscreen";
  int Count = 3;
  std::array<char*, 4> Arguments = {Name.data(), Option.data(), Platform.data(), nullptr};
  QGuiApplication Application{Count, Arguments.data()};
};

// The document in work.
struct DocumentWriter::Job {
  explicit Job(const DocumentFiles& files)
      : Files(files), Surface(SheetMetrics(), files.PaperOfPages) {
    if (!Files.Pdf.empty()) Pdf.emplace(Files.Pdf, Files.Title);
    PreparePreview(Surface);
    Surface.PageDone = [this](const Page& page) { Write(page); };
  }

  void Write(const Page& page) {
    ++Pages;
    if (Pdf) Pdf->Write(page);
    if (Files.Svg) WriteSvg(Files.Svg(Pages), page, Files.Title);
  }

  DocumentFiles Files;
  std::optional<PdfOutput> Pdf;
  int Pages = 0;
  PageSurface Surface;
};

bool SheetsInThisBuild() {
  return true;
}

DocumentWriter::DocumentWriter() {
  qInstallMessageHandler(TellTheWorst);
  toolkit_ = std::make_unique<Toolkit>();
}

DocumentWriter::~DocumentWriter() = default;

PrintSurface& DocumentWriter::Begin(const DocumentFiles& files) {
  job_ = std::make_unique<Job>(files);
  return job_->Surface;
}

void DocumentWriter::Finish() {
  if (!job_) return;
  if (job_->Pdf) job_->Pdf->Finish();
  job_.reset();
}

void DocumentWriter::Drop() {
  job_.reset();
}

}  // namespace orvane
