#include "ui/platform/document_output.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QPageLayout>
#include <QPageSize>
#include <QSaveFile>

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

[[noreturn]] void RaiseFor(const QFileDevice& file, const std::string& path) {
  if (file.error() == QFileDevice::PermissionsError) throw RuntimeError(Failure::PermissionDenied);
  if (!QFileInfo(ToQt(path)).absoluteDir().exists()) throw RuntimeError(Failure::PathNotFound);
  if (file.error() == QFileDevice::ResourceError) throw RuntimeError(Failure::DiskFull);
  throw RuntimeError(SystemErrorBase, FromQt(file.errorString()));
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

PdfOutput::PdfOutput(const std::string& path, const std::string& title) : path_(path) {
  // A device must not give way to a file of its name.
  if (!QFileInfo::exists(ToQt(path)) || IsRegularFile(path)) {
    file_ = std::make_unique<QSaveFile>(ToQt(path));
  } else {
    file_ = std::make_unique<QFile>(ToQt(path));
  }
  if (!file_->open(QIODevice::WriteOnly)) RaiseFor(*file_, path);
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
  if (!begun) RaiseFor(*file_, path_);
  ++pageCount_;
  PaintPage(painter_, page, QPointF(0, 0), PdfResolution / MmPerInch, PaintDevice::Paper);
  if (file_->error() != QFileDevice::NoError) RaiseFor(*file_, path_);
}

void PdfOutput::Finish() {
  const bool ended = !painter_.isActive() || painter_.end();
  writer_.reset();
  auto* replacing = qobject_cast<QSaveFile*>(file_.get());
  const bool written = replacing != nullptr ? replacing->commit() : file_->flush();
  if (!ended || !written || file_->error() != QFileDevice::NoError) RaiseFor(*file_, path_);
}

void WriteSvg(const std::string& path, const Page& page, const std::string& title) {
  ReplaceWholeFile(path, SvgOfPage(page, title, SheetMetrics()));
}

}  // namespace orvane
