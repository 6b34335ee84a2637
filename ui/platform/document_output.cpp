#include "ui/platform/document_output.h"

#include <QIODevice>
#include <QPageLayout>
#include <QPageSize>
#include <optional>

#include "core/file_replacement.h"
#include "core/files.h"
#include "core/runtime_error.h"
#include "drawing/svg_page.h"
#include "ui/platform/page_painter.h"
#include "ui/platform/qt_font_metrics.h"
#include "ui/platform/qt_text.h"

namespace orvane {

namespace {

constexpr char Creator[] = "Orvane Detailing System";
constexpr int PdfResolution = 1200;  // dots to the inch
constexpr double MmPerInch = 25.4;

// The toolkit's writer says that something failed, and not what.
[[noreturn]] void RaiseNotWritten(const std::string& path) {
  throw ErrorInFile(path, RuntimeError(SystemErrorBase, "The PDF can't be written"));
}

}  // namespace

QPageLayout PageLayoutOf(const Page& page) {
  const bool wide = page.Width > page.Height;
  const QSizeF upright(wide ? page.Height : page.Width, wide ? page.Width : page.Height);
  QPageLayout layout(QPageSize(upright, QPageSize::Millimeter),
                     wide ? QPageLayout::Landscape : QPageLayout::Portrait, QMarginsF());
  layout.setMode(QPageLayout::FullPageMode);
  return layout;
}

// The new file as the toolkit's PDF writer knows files. The first error is kept; the writer itself
// would go on without a word.
class PdfOutput::File : public QIODevice {
 public:
  explicit File(const std::string& path) : replacement_(path) {
    open(QIODevice::WriteOnly | QIODevice::Unbuffered);
  }

  void RaiseError() const {
    if (error_) throw RuntimeError(*error_);
  }
  void Commit() {
    RaiseError();
    replacement_.Commit();
  }

 protected:
  qint64 readData(char*, qint64) override { return -1; }
  qint64 writeData(const char* bytes, qint64 count) override {
    if (error_) return -1;
    try {
      replacement_.Write({bytes, static_cast<std::size_t>(count)});
      return count;
    } catch (const RuntimeError& error) {
      error_ = error;
      return -1;
    }
  }

 private:
  FileReplacement replacement_;
  std::optional<RuntimeError> error_;
};

PdfOutput::PdfOutput(const std::string& path, const std::string& title)
    : path_(path), file_(std::make_unique<File>(path)) {
  writer_ = std::make_unique<QPdfWriter>(file_.get());
  writer_->setResolution(PdfResolution);
  writer_->setTitle(ToQt(title));
  writer_->setCreator(Creator);
}

PdfOutput::~PdfOutput() {
  // The writer closes what it has begun; the file, never finished, goes with it.
  if (painter_.isActive()) painter_.end();
}

void PdfOutput::Write(const Page& page) {
  // The paper of a page is settled before the page begins.
  writer_->setPageLayout(PageLayoutOf(page));
  const bool begun = pageCount_ == 0 ? painter_.begin(writer_.get()) : writer_->newPage();
  file_->RaiseError();
  if (!begun) RaiseNotWritten(path_);
  ++pageCount_;
  PaintPage(painter_, page, QPointF(0, 0), PdfResolution / MmPerInch, PaintDevice::Paper);
  file_->RaiseError();
}

void PdfOutput::Finish() {
  const bool ended = !painter_.isActive() || painter_.end();
  writer_.reset();
  file_->RaiseError();
  if (!ended) RaiseNotWritten(path_);
  file_->Commit();
}

void WriteSvg(const std::string& path, const Page& page, const std::string& title) {
  ReplaceWholeFile(path, SvgOfPage(page, title, SheetMetrics()));
}

}  // namespace orvane
