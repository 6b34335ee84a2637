// What the tests of the export command share: a user whose screen is written down.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "output/cam_export.h"
#include "output/output_screen.h"
#include "tests/output/output_test.h"

namespace orvane::test {

using TextList = std::vector<std::string>;

// Write down what the user saw, in order.

class TracingDesktop : public ScriptedDesktop {
 public:
  explicit TracingDesktop(TextList& trace) : trace_(trace) {}
  Answer ShowMessageBox(const std::string& text, const std::string& title, Buttons buttons,
                        Icon icon) override;
  std::optional<std::string> ShowOpenDialog(const FileDialog& dialog) override;
  std::optional<std::string> ShowSaveDialog(const FileDialog& dialog) override;

 private:
  TextList& trace_;
};

class TracingScreen : public ScriptedOutputScreen {
 public:
  explicit TracingScreen(TextList& trace) : trace_(trace) {}
  void ShowExportErrors() override;

 private:
  TextList& trace_;
};

class ExportRunTest : public OutputTest {
 protected:
  ExportRunTest();

  // Runs the export with that answer of the file dialog; the trace starts afresh.
  ExportOutcome Export(const std::optional<std::string>& chosen);

  static void AddChannel();
  // An accessory that the CAM file doesn't know.
  static void AddListedAccessory();

  std::string CamDirectorySetting();
  // The names in the test's folder, sorted.
  TextList Files();

  TextList trace;
  TracingDesktop user{trace};
  TracingScreen window{trace};

  // The last message's line of the trace, with those files of the test's folder below it.
  std::string Complete(const TextList& names);
  // The same when the list failed and "a.xov" was written.
  std::string ListFailed();
  // What AddChannel and AddListedAccessory write.
  const std::string ChannelBlock =
      Lines({"C-SECTION", "C1", "X20018", "1", "900", "0", "0.0 0.0", "0", ""});
  const std::string ListBlock =
      Lines({"", ListRow({"Accessory 1", "Mark", "Quantity"}), ListRow({"Size Two", "STwo", "7"})});
};

}  // namespace orvane::test
