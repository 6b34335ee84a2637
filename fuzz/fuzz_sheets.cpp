// Any bytes as a project file, and all sheets of the sections that it gives: each is drawn on one
// page whose shapes are all finite, or an error says why it was not.
#include "core/catalogues.h"
#include "core/headless_desktop.h"
#include "core/program_folder.h"
#include "core/settings.h"
#include "drawing/draw_section.h"
#include "drawing/page_surface.h"
#include "drawing/recording_surface.h"
#include "fuzz/fuzz_support.h"
#include "fuzz/shape_check.h"
#include "holes/hole_list.h"
#include "project/project_file.h"

namespace {

using namespace orvane;
using fuzz::Succeeds;

// The catalogues as they ship, read once.
CatalogueTables ShippedCatalogues() {
  ResetModel();
  if (!LoadAccessoryCatalogues() || !LoadSectionCatalogues()) fuzz::Fail("no catalogues");
  return LoadedCatalogues();
}

void StartAfresh(const CatalogueTables& catalogues) {
  ResetModel();
  InstallCatalogues(catalogues);
  LoadPageSetup();
  LoadDrawingSettings();
}

// The surface lives through all the sheets, as the window's does: a sheet that failed half-way must
// not harm the next one.
void DrawSheet(PageSurface& surface, std::int16_t row) {
  const bool drawn = Succeeds([&] { DrawSection(surface, row, true, true); });
  if (drawn && surface.Result().Pages.size() != 1) fuzz::Fail("a sheet of several pages");
  for (const Page& page : surface.Result().Pages) fuzz::CheckPage(page);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  HeadlessDesktop desktop;
  InstallDesktop(desktop);
  ProgramFolder = ORVANE_CATALOGUE;
  static const CatalogueTables catalogues = ShippedCatalogues();
  StartAfresh(catalogues);

  const std::string path = fuzz::InputFile(data, size);
  Succeeds([&] { ReadProjectFile(path); });

  const PlainFontMetrics metrics;
  PageSurface surface(metrics);
  PrepareDrawingWidth(surface);
  if (DrawingWidth <= 0) fuzz::Fail("no room for a drawing");
  for (int index = 1; index <= Items.UBound(); ++index) {
    const std::int16_t row = Int16(index);
    // As the file has its holes, where gaps between them may be any number.
    DrawSheet(surface, row);
    const std::string pattern = Items.At(row).PatternName;
    Succeeds([&] {
      if (pattern == CustomPattern) {
        AdjustHoleSpacing(row);
      } else {
        RebuildHoles(row, pattern);
      }
    });
    DrawSheet(surface, row);
  }
  return 0;
}
