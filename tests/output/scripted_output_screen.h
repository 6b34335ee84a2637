// An output screen that answers by script and keeps what it was shown.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "drawing/recording_surface.h"
#include "output/output_screen.h"

namespace orvane::test {

class ScriptedOutputScreen : public OutputScreen {
  PlainFontMetrics metrics_;

 public:
  std::vector<std::vector<std::string>> ErrorLists;  // the lines at each showing
  void ShowExportErrors() override;

  // What was drawn on the previews, operation by operation, all documents one behind the other.
  RecordingSurface Preview{metrics_};
  int Shown = 0;                           // previews shown
  std::string ShownName;                   // what the last of them is of the job
  int Dropped = 0;                         // and dropped
  std::vector<std::pair<int, int>> Steps;  // what was told of the progress
  int CalledOffAfter = -1;                 // the run is called off at that step; -1 for never
  PrintSurface& PreviewSurface() override { return Preview; }
  void ShowPreview(const std::string& document, const LayOutAgain&) override {
    ++Shown;
    ShownName = document;
  }
  void DropPreview() override { ++Dropped; }
  bool GoesOn(int done, int count) override;
};

}  // namespace orvane::test
