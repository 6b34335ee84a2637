// What the tests of the printing commands share: a job that can be drawn, and a preview of pages.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "drawing/page_surface.h"
#include "output/output_screen.h"
#include "tests/output/output_test.h"

namespace orvane::test {

using TextList = std::vector<std::string>;

// Lays each preview out, on a fresh surface for each command, and keeps what was shown last.
class PagedScreen : public OutputScreen {
 public:
  std::optional<Document> ShownDocument;
  // Lays each document out on that paper too, before it is closed.
  std::optional<Paper> OtherPaper;
  std::optional<Document> OtherDocument;

  void ShowExportErrors() override {}
  PrintSurface& PreviewSurface() override;
  void ShowPreview(const std::string& document, const LayOutAgain& again) override;
  void DropPreview() override { surface_.reset(); }
  bool GoesOn(int, int) override { return true; }

 private:
  PlainFontMetrics metrics_;
  std::unique_ptr<PageSurface> surface_;
};

// The project of OutputTest; margins of 10 mm, a product "X20018" of depth 200 whose purlins have
// the pattern "Pair", two holes beside the middle. On a landscape page the room for the elevation
// is whole(16840 / 56.7 - 55 - 10 - 4) = 228 mm.
class PrintTest : public OutputTest {
 protected:
  PrintTest();
  ~PrintTest() override;

  // A purlin of that pattern without holes, and one of the pattern "Custom" with holes at those
  // places, their gaps not worked out yet.
  static void AddPurlin(const std::string& mark, std::int16_t length);
  static void AddCustomPurlin(const std::string& mark, std::int16_t length,
                              const std::vector<std::int16_t>& holes);
  // An accessory with lines, of type 1 up to row 5. Accessories have no picture.
  static void UseAccessory(int row);

  // What was drawn on the previews since the last call.
  TextList Drawn();
  // What `draw` draws on a recording surface of its own.
  static TextList DrawnBy(const std::function<void(PrintSurface& surface)>& draw);
  static std::size_t CountOf(const TextList& lines, const std::string& line);

 private:
  std::shared_ptr<const Picture> logo_;
};

// The texts on a page, in the order in which they were laid out.
TextList TextsOn(const Page& page);

}  // namespace orvane::test
