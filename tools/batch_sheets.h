// Documents of a job as files, for a companion that was built with the toolkit.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "drawing/papers.h"
#include "drawing/print_surface.h"

namespace orvane {

// False in a companion that was built without the toolkit, which draws nothing.
bool SheetsInThisBuild();

// Where the pages of a document go: into one PDF, into SVG files by the number of the page, from 1,
// or both.
struct DocumentFiles {
  std::string Title;
  std::string Pdf;                      // empty for none
  std::function<std::string(int)> Svg;  // none for none
  Paper PaperOfPages;
};

// Starts the toolkit without a screen and keeps it for its life; one at a time.
class DocumentWriter {
 public:
  DocumentWriter();
  ~DocumentWriter();
  DocumentWriter(const DocumentWriter&) = delete;
  DocumentWriter& operator=(const DocumentWriter&) = delete;

  // Begins a document: the surface that it is drawn on, as the program's preview begins. Each page
  // is written as it ends. An error of a file is raised, here or from the surface.
  PrintSurface& Begin(const DocumentFiles& files);
  // Completes the files. The surface is gone then.
  void Finish();
  // Forgets a document that was begun, if there is one: no new PDF is left, and a former one stays.
  void Drop();

 private:
  struct Toolkit;
  struct Job;
  std::unique_ptr<Toolkit> toolkit_;
  std::unique_ptr<Job> job_;
};

}  // namespace orvane
