#include "ui/platform/printing.h"

#include <QDir>
#include <QFileInfo>
#include <QLineEdit>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinterInfo>
#include <algorithm>
#include <cmath>
#include <utility>

#include "core/runtime_error.h"
#include "ui/platform/document_output.h"
#include "ui/platform/page_painter.h"
#include "ui/platform/progress.h"
#include "ui/platform/qt_text.h"

namespace orvane {

namespace {

constexpr double MmPerInchOfPaper = 25.4;
// Paper that is smaller than the page by no more than that, as a share of it, is the same paper.
constexpr double SamePaper = 0.005;

PrinterChoice& Replacement() {
  static PrinterChoice choice;
  return choice;
}

const Page& PageOf(const Document& document, int number) {
  return document.Pages.at(static_cast<std::size_t>(number) - 1);
}

// The toolkit's own dialog can print to a file without a printer. The others have nothing to show,
// and say nothing.
void RequirePrinter() {
#if defined(Q_OS_WIN) || defined(Q_OS_MACOS)
  if (QPrinterInfo::availablePrinterNames().isEmpty()) {
    throw RuntimeError(SystemErrorBase, "No printer is installed");
  }
#endif
}

// The toolkit's own dialog proposes a file of no name on some desktops; the job's is better. Its
// list of names that fit comes up behind quick fingers, and would take the Enter that is to print.
void ProposeFile(const QPrintDialog& dialog, QString name) {
  auto* file = dialog.findChild<QLineEdit*>("filename");
  if (file == nullptr) return;
  name.replace(": ", "-").replace('/', '-');
  file->setCompleter(nullptr);
  file->setText(QFileInfo(file->text()).dir().filePath(name + ".pdf"));
}

bool AskForPrinter(QPrinter& printer, QWidget* parent) {
  if (Replacement()) return Replacement()(printer, parent);
  RequirePrinter();
  QPrintDialog dialog(&printer, parent);
  dialog.setObjectName("PrintDialog");
  ProposeFile(dialog, printer.docName());
  dialog.setMinMax(1, printer.toPage());
  return dialog.exec() == QDialog::Accepted;
}

void SetUp(QPrinter& printer, const Document& document, const QString& title) {
  printer.setDocName(title);
  printer.setCreator("Orvane Detailing System");
  printer.setFullPage(true);
  // So that the dialog shows the way up that the first page has.
  printer.setPageLayout(PageLayoutOf(document.Pages.front()));
  // All of them until the user says otherwise.
  printer.setFromTo(1, static_cast<int>(document.Pages.size()));
  printer.setPrintRange(QPrinter::AllPages);
}

bool IsSame(double one, double other) {
  return std::fabs(one - other) <= SamePaper * other;
}

// The paper of the printer if it is another than the page's and large enough for sheets.
std::optional<Paper> OtherPaper(const QPrinter& printer, const Page& page) {
  const QSizeF size = printer.pageLayout().pageSize().size(QPageSize::Millimeter);
  const Paper paper{std::min(size.width(), size.height()), std::max(size.width(), size.height())};
  const bool same = IsSame(paper.Width, std::min(page.Width, page.Height)) &&
                    IsSame(paper.Height, std::max(page.Width, page.Height));
  const bool enough = paper.Width >= LeastPaper.Width * (1 - SamePaper) &&
                      paper.Height >= LeastPaper.Height * (1 - SamePaper);
  if (same || !enough) return {};
  return paper;
}

[[noreturn]] void RaisePrinterFailed(const QPrinter& printer) {
  throw RuntimeError(SystemErrorBase, "Can't print on " + FromQt(printer.printerName()));
}

// Pages go on the paper in their true size, or as large as it lets them where the printer hasn't
// got theirs.
double ScaleOn(const QPrinter& printer, const Page& page) {
  const QRectF paper = printer.paperRect(QPrinter::Millimeter);
  const double scale = std::min(paper.width() / page.Width, paper.height() / page.Height);
  return scale > 1 - SamePaper ? 1 : scale;
}

bool PrintToFile(const QString& path, const QString& title, const Document& document,
                 const std::vector<int>& pages, const std::function<bool(int)>& goesOn) {
  PdfOutput pdf(FromQt(path), FromQt(title));
  int done = 0;
  for (const int page : pages) {
    if (!goesOn(done)) return false;
    pdf.Write(PageOf(document, page));
    ++done;
  }
  pdf.Finish();
  return true;
}

}  // namespace

void ReplacePrintDialog(PrinterChoice choice) {
  Replacement() = std::move(choice);
}

std::vector<int> ChosenPages(const QPrinter& printer, int count) {
  std::vector<int> chosen;
  const QPageRanges ranges = printer.pageRanges();
  const bool some = printer.printRange() == QPrinter::PageRange;
  for (int page = 1; page <= count; ++page) {
    const bool inRange = ranges.isEmpty() ? page >= printer.fromPage() &&
                                                (printer.toPage() == 0 || page <= printer.toPage())
                                          : ranges.contains(page);
    if (!some || inRange) chosen.push_back(page);
  }
  if (printer.pageOrder() == QPrinter::LastPageFirst) std::reverse(chosen.begin(), chosen.end());
  // A file is written once, whatever was asked for of the printer before.
  const bool toFile = !printer.outputFileName().isEmpty();
  const int copies = toFile || printer.supportsMultipleCopies() ? 1 : printer.copyCount();
  std::vector<int> pages;
  for (const int page : chosen) {
    const int times = printer.collateCopies() ? 1 : copies;
    pages.insert(pages.end(), static_cast<std::size_t>(times), page);
  }
  const std::vector<int> once = pages;
  for (int copy = 1; printer.collateCopies() && copy < copies; ++copy) {
    pages.insert(pages.end(), once.begin(), once.end());
  }
  return pages;
}

bool PrintPages(QPrinter& printer, const Document& document, const std::vector<int>& pages,
                const std::function<bool(int done)>& goesOn) {
  QPainter painter;
  int done = 0;
  for (const int number : pages) {
    if (!goesOn(done)) {
      printer.abort();
      return false;
    }
    const Page& page = PageOf(document, number);
    // The paper of a page is settled before the page begins.
    printer.setPageLayout(PageLayoutOf(page));
    printer.setFullPage(true);
    if (!(done == 0 ? painter.begin(&printer) : printer.newPage())) RaisePrinterFailed(printer);
    PaintPage(painter, page, QPointF(0, 0),
              printer.resolution() / MmPerInchOfPaper * ScaleOn(printer, page), PaintDevice::Paper);
    ++done;
  }
  if (painter.isActive() && !painter.end()) RaisePrinterFailed(printer);
  return true;
}

bool PrintDocument(const Document& shown, QWidget* parent, const QString& title,
                   const LayOutOn& again) {
  if (shown.Pages.empty()) return false;
  QPrinter printer(QPrinter::HighResolution);
  SetUp(printer, shown, title);
  if (!AskForPrinter(printer, parent)) return false;
  std::optional<Document> other;
  const std::optional<Paper> paper = OtherPaper(printer, shown.Pages.front());
  if (again && paper) {
    other = again(*paper);
    if (!other) return false;
  }
  const Document& document = other ? *other : shown;
  const std::vector<int> pages = ChosenPages(printer, static_cast<int>(document.Pages.size()));
  if (pages.empty()) throw RuntimeError(SystemErrorBase, "There are no such pages");
  ProgressRun run(parent, "Pages printed");
  const auto goesOn = [&](int done) { return run.GoesOn(done, static_cast<int>(pages.size())); };
  const QString file = printer.outputFileName();
  if (!file.isEmpty()) return PrintToFile(file, title, document, pages, goesOn);
  return PrintPages(printer, document, pages, goesOn);
}

}  // namespace orvane
