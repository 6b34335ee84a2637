#include "output/cam_export.h"

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "core/desktop.h"
#include "core/files.h"
#include "core/model.h"
#include "core/numbers.h"
#include "core/settings.h"
#include "holes/hole_list.h"
#include "output/accessory_blocks.h"
#include "output/accessory_list.h"
#include "output/accessory_rows.h"
#include "output/design_check.h"
#include "output/output_screen.h"
#include "output/section_blocks.h"
#include "output/validation.h"
#include "project/changes.h"
#include "project/error_names.h"
#include "project/job.h"

namespace orvane {

namespace {

// Whether the accessories alone call for a CAM file. Vertical cladding rails don't, as
// the line doesn't make them; the accessory of HeaderOnlyRow does, for its header.
bool ForcesCamFile() {
  const auto forces1 = [](const AccLine1& line) {
    return line.AccIndex == DeepSleeveRow || line.AccIndex == HalfSleeveRow;
  };
  const auto forces2 = [](const AccLine2& line) {
    return line.AccIndex == PurlinSleeveRow || line.AccIndex == HeaderOnlyRow ||
           line.AccIndex == CChannelRow;
  };
  return std::any_of(AccLines1.begin(), AccLines1.end(), forces1) ||
         std::any_of(AccLines2.begin(), AccLines2.end(), forces2);
}

// The dialog's open form, which lets a new name be typed and replaces an existing file without a
// question.
std::optional<std::string> AskForFile() {
  FileDialog dialog;
  dialog.Title = "CAM File Export";
  dialog.Filter = "CAM Files|*.xov";
  dialog.DefaultExtension = ".xov";
  dialog.InitialFolder = CamDirectory();
  dialog.FirstFolder = FolderOfPath(ProjectFileName);
  return TheDesktop().ShowOpenDialog(dialog);
}

void RebuildPatternHoles() {
  for (int row = 1; row <= Items.UBound(); ++row) {
    if (Items.At(row).PatternName == CustomPattern) continue;
    InNameOfSection(Int16(row), [row] { RebuildHoles(Int16(row), Items.At(row).PatternName); });
  }
}

// About the size of the CAM file, nearly all of which is hole lines.
std::size_t LikelySize() {
  constexpr std::size_t HoleLine = 43, RestOfBlock = 100;
  std::size_t size = 4 * RestOfBlock;
  for (const Item& item : Items) {
    size += RestOfBlock + HoleLine * static_cast<std::size_t>(item.Holes.UBound());
  }
  return size;
}

// The last message: how it ended, and each file that was written, with its folder.
std::string EndText(const std::vector<std::string>& written, ListOutcome list) {
  std::string text = list != ListOutcome::Failed ? "CAM export complete"
                     : written.empty()           ? "Accessory list failed"
                                                 : "CAM file written, accessory list failed";
  for (const std::string& file : written) text.append(1, '\r').append(AbsolutePath(file));
  return text;
}

// Behind the files: what nobody should carry to the machine unseen. It asks nothing, since the
// check is there to be looked at before.
std::string CheckLine() {
  const int sections = SectionsThatCannotBeMade(CheckJob(OpenJob()));
  return sections == 0 ? "" : "\r" + Counted(sections, "section") + " can't be made: see Check";
}

ExportOutcome ExportSteps() {
  if (!CheckExportData()) {
    TheOutputScreen().ShowExportErrors();
    return ExportOutcome::Refused;
  }
  const bool forceCamFile = ForcesCamFile();
  if (Items.Empty() && AccLines1.Empty() && AccLines2.Empty()) return ExportOutcome::Nothing;

  const std::optional<std::string> path = AskForFile();
  if (!path) return ExportOutcome::Cancelled;
  StoreCamDirectory(FolderOfPath(*path));
  if (path->empty()) return ExportOutcome::Cancelled;

  std::vector<std::string> written;
  if (!Items.Empty() || forceCamFile) {
    Change(ChangeKind::Export, 0, RebuildPatternHoles);
    WriteFactoryFile(*path, CamFile(TheDesktop().Now()));
    written.push_back(*path);
  }
  ListOutcome list = ListOutcome::NotNeeded;
  if (!AccLines1.Empty() || !AccLines2.Empty()) list = ExportAccList(*path);
  if (list == ListOutcome::Written) written.push_back(AccListPath(*path));
  TheDesktop().Message(EndText(written, list) + CheckLine());
  return list == ListOutcome::Failed ? ExportOutcome::ListFailed : ExportOutcome::Done;
}

}  // namespace

void ExportCAM() {
  RunExport();
}

ExportOutcome RunExport() {
  ExportOutcome outcome = ExportOutcome::Failed;
  Tell([&] { outcome = ExportSteps(); });
  return outcome;
}

FactoryFile CamFile(const Moment& created) {
  return BuildFactoryFile([&created](FactoryWriter& out) {
    out.Reserve(LikelySize());
    out.Line("COLDCAM 5.3");
    WriteJobLines(out, "* ");
    out.Line("*");
    WriteCreatedLine(out, "* ", created);
    out.Line();
    for (int row = 1; row <= Items.UBound(); ++row) {
      InNameOfSection(Int16(row), [&] { WriteSectionBlock(out, Items.At(row)); });
    }
    WriteAccessoryBlocks(out);
  });
}

}  // namespace orvane
