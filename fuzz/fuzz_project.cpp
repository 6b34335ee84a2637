// Any bytes as a project file: it is read whole, or an error says why it was not. What was read can
// be made into a project file and factory files again, or an error says why not.
#include "core/catalogues.h"
#include "core/headless_desktop.h"
#include "fuzz/fuzz_support.h"
#include "holes/hole_list.h"
#include "output/accessory_list.h"
#include "output/cam_export.h"
#include "project/project_file.h"

namespace {

using namespace orvane;
using fuzz::Succeeds;

// A few products, patterns and accessories for the names that the seeds use.
void FillCatalogues() {
  SectionDim dim;
  dim.SectionType = "Z";
  dim.Product = "Z20018";
  dim.Dim13 = 75;
  SectionDims.Append(dim);
  PunchPattern pattern;
  pattern.SectionType = "Z";
  pattern.Name = "P1";
  pattern.Codes = "A0 F3 A6";
  PunchPatterns.Append(pattern);
  for (int row = 1; row <= 21; ++row) {
    AccDef accessory;
    accessory.Name = "Accessory " + std::to_string(row);
    accessory.ParamTexts.Resize(3);
    accessory.ParamNames.Resize(3);
    AccDefs.Append(accessory);
    AccUsed.Append(False);
  }
  AccType1Count = 5;
  AccType2Count = 16;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  HeadlessDesktop desktop;
  InstallDesktop(desktop);
  ResetModel();
  FillCatalogues();
  DrawingWidth = 180;
  MinHoleSep = 4;

  const std::string path = fuzz::InputFile(data, size);
  Succeeds([&] { ReadProjectFile(path); });
  if (AccUsed.UBound() < 21) fuzz::Fail("flags of the catalogue's accessories are missing");
  Succeeds([] { ProjectText(); });
  for (int row = 1; row <= Items.UBound(); ++row) {
    Succeeds([row] {
      const auto index = Int16(row);
      RebuildHoles(index, Items.At(row).PatternName);
    });
  }
  CamFile(desktop.Now());
  AccListFile(desktop.Now());
  return 0;
}
