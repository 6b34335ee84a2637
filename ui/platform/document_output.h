// Documents as files: PDF, written page by page as the pages come, and SVG, one file a page. Both
// need the toolkit's application to be there: one is painted by it, the other's texts are measured
// by it. A file that can't be written raises a RuntimeError.
#pragma once

#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>
#include <memory>
#include <string>

#include "drawing/document.h"

namespace orvane {

// The page's paper without margins, its way up included; the sizes of the trade under their own
// names.
QPageLayout PageLayoutOf(const Page& page);

// Writes a PDF. Nothing of a page is kept once it is written, so that a document of any length
// takes the same memory. The file takes its name when it is finished and complete; until then, and
// if it never is, what stood under that name stays. What is no ordinary file is refused.
class PdfOutput {
 public:
  // `path` and `title` are UTF-8.
  PdfOutput(const std::string& path, const std::string& title);
  ~PdfOutput();
  PdfOutput(const PdfOutput&) = delete;
  PdfOutput& operator=(const PdfOutput&) = delete;

  // Adds a page, on paper of its own size. Text stays text, in fonts that the file contains.
  void Write(const Page& page);
  // Ends the file, which needs one page at least.
  void Finish();

  int PageCount() const { return pageCount_; }

 private:
  class File;

  std::string path_;
  std::unique_ptr<File> file_;
  std::unique_ptr<QPdfWriter> writer_;
  QPainter painter_;
  int pageCount_ = 0;
};

// Writes one page as an SVG file. Text stays text in Arial, or what has its metrics.
void WriteSvg(const std::string& path, const Page& page, const std::string& title);

}  // namespace orvane
