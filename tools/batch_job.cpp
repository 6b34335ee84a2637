#include "tools/batch_job.h"

#include <algorithm>
#include <exception>
#include <filesystem>
#include <functional>
#include <system_error>
#include <utility>

#include "core/file_replacement.h"
#include "core/files.h"
#include "core/model.h"
#include "core/numbers.h"
#include "core/runtime_error.h"
#include "core/settings.h"
#include "core/text.h"
#include "core/text_file.h"
#include "output/cam_export.h"
#include "output/cutting_list.h"
#include "output/design_check.h"
#include "output/list_reports.h"
#include "output/reports.h"
#include "project/accessory_lines.h"
#include "project/job.h"
#include "project/project_backup.h"
#include "project/project_file.h"
#include "project/section_list/section_table.h"
#include "project/section_look.h"
#include "tools/batch_exit.h"

namespace orvane {

namespace {

namespace fs = std::filesystem;

bool UsesAccessories() {
  return !AccessoriesInUse().empty();
}

// Accessory lines that no list will hold, because the job has no flag set for any accessory.
bool HasUnmarkedLines() {
  return (!AccLines1.Empty() || !AccLines2.Empty()) && !UsesAccessories();
}

}  // namespace

void StartAfresh(const CatalogueTables& catalogues, std::int16_t drawingWidth) {
  ResetModel();
  InstallCatalogues(catalogues);
  ForgetSaid();
  RequireStoredNumbers();
  LoadRegistration();
  LoadPageSetup();
  LoadDrawingSettings();
  LoadMaxDims();
  DrawingWidth = drawingWidth;
}

FormerSheets SheetsInFolder() {
  FormerSheets sheets;
  std::error_code error;
  for (const auto& entry : fs::directory_iterator(".", error)) {
    const SvgName name = SvgNameOf(PathText(entry.path().filename()));
    std::error_code unknown;
    const bool ordinary = name.Sheet > 0 && fs::is_regular_file(entry.symlink_status(unknown));
    if (ordinary) sheets[name.Job].push_back(name.Sheet);
  }
  if (error) throw SystemError(error.default_error_condition().value(), ".");
  return sheets;
}

bool MayBeTaken(const std::string& name, ProjectContent content, const ProjectNotes& notes,
                bool allowCut, Console& console) {
  const bool damaged = content == ProjectContent::Cut || content == ProjectContent::Odd;
  if (damaged && !allowCut) {
    console.SayFault(name,
                     "not done, since it is cut off or damaged behind its sections; --allow-cut "
                     "takes it as it is");
    return false;
  }
  if (damaged) {
    console.SayFault(name, "read, but accessory lines or marks may be missing at its end");
  }
  // Marks beyond the catalogue are told by the note.
  if (content == ProjectContent::Old && notes.FlagsBeyond == 0) {
    console.Say("An older job: its accessory marks are not as many as the catalogue's accessories");
  }
  if (!notes.Line().empty()) console.Say(notes.Line());
  return true;
}

JobRunner::JobRunner(const BatchOptions& options, std::string resave,
                     const CatalogueTables& catalogues, const FormerSheets& formerSheets,
                     BatchScreen& screen, BatchDesktop& desktop, Console& console)
    : options_(options),
      resave_(std::move(resave)),
      catalogues_(catalogues),
      formerSheets_(formerSheets),
      screen_(screen),
      desktop_(desktop),
      console_(console) {}

int JobRunner::Do(const NamedJob& job) {
  desktop_.BeginJob(CamFileName(job.Path));
  if (!job.Clash.empty()) {
    console_.SayError(job.Clash);
    return ExitUsage;
  }
  const std::string& settings = options_.SettingsFile.empty() ? job.Name : options_.SettingsFile;
  const auto start = [&] { StartAfresh(catalogues_, options_.DrawingWidth); };
  if (!console_.Try(settings, start) || !Read(job)) return ExitFault;

  int code = ExitDone;
  // Before the export, which makes the holes afresh.
  const auto resave = [&] {
    const std::string note = WriteProjectFile(resave_);
    if (!note.empty()) console_.Say(note);
  };
  if (!resave_.empty() && !console_.Try(options_.Resave, resave)) code = ExitFault;
  if (options_.SectionList) code = std::max(code, WriteSectionList(job));
  if (options_.Check || options_.CheckCsv) code = std::max(code, Check(job));
  if (options_.CuttingList) code = std::max(code, WriteCuttingList(job));
  if (options_.Cam) {
    // The accessory list takes values that were never set for 0 from then on; what is drawn shows
    // what was entered, with an export and without.
    const Table<AccLine2> entered = AccLines2;
    code = std::max(code, Export());
    AccLines2 = entered;
  }
  if (AsksForPages(options_)) code = std::max(code, Print(job));
  return code;
}

// Reads the job, once: what is looked at is what is exported, and a pipe is a job too. Half a list
// of sections would make half a delivery, so a job that can't be read goes no further, nor does one
// that was cut behind them. The program opens such a file without a word; here nobody would see
// what is missing.
bool JobRunner::Read(const NamedJob& job) {
  ProjectContent content = ProjectContent::Broken;
  ProjectNotes notes;
  const bool read = console_.Try(job.Name, [&] {
    const std::string bytes = ReadWholeFile(job.Path);
    content = CheckProjectContent(bytes);
    TextFile file(DecodeText(bytes));
    notes = ReadProjectFile(file);
  });
  if (!read) return false;
  return MayBeTaken(job.Name, content, notes, options_.AllowCut, console_);
}

int JobRunner::WriteSectionList(const NamedJob& job) {
  const std::string file = SectionListFileName(job.Path);
  if (!console_.Try(file, [&] { ReplaceWholeFile(file, SectionListFile()); })) return ExitFault;
  console_.Say("Section list complete");
  return ExitDone;
}

// What a person has accepted stands in that person's data folder, which is nobody's here.
int JobRunner::Check(const NamedJob& job) {
  std::vector<Finding> findings;
  if (!Tell([&] { findings = CheckJob(OpenJob()); })) return ExitFault;
  if (options_.Check) {
    // Of several jobs each line says which one it is of.
    out_ += FindingsText(findings, options_.Jobs.size() > 1 ? FieldText(job.Name) + "\t" : "");
  }
  const std::string file = CheckFileName(job.Path);
  const auto write = [&] { ReplaceWholeFile(file, FindingsCsv(findings)); };
  if (options_.CheckCsv && !console_.Try(file, write)) return ExitFault;
  const int sections = SectionsThatCannotBeMade(findings);
  console_.Say(findings.empty() ? "Check complete: nothing is found"
               : sections == 0
                   ? "Check complete: " +
                         Counted(static_cast<long long>(findings.size()), "finding")
                   : "Check complete: " + Counted(sections, "section") + " can't be made");
  return sections == 0 ? ExitDone : ExitCannotBeMade;
}

// The figures are written where nothing can be drawn, too.
int JobRunner::WriteCuttingList(const NamedJob& job) {
  CuttingList list;
  if (!Tell([&] { list = CuttingListOf(OpenJob()); })) return ExitFault;
  if (list.IsEmpty()) {
    console_.Say("No cutting list: the job has neither sections nor accessories");
    return ExitDone;
  }
  const std::string file = CuttingListFileName(job.Path);
  if (!console_.Try(file, [&] { ReplaceWholeFile(file, CuttingListFile(list)); })) {
    return ExitFault;
  }
  const auto print = [&] {
    screen_.PreviewInto(Writer(), {DocumentTitle(job.Name, "cutting list"),
                                   CuttingListPdfName(job.Path), nullptr, options_.PaperOfPages});
    PrintCuttingList(list);
  };
  if (SheetsInThisBuild() && !Tell(print)) return ExitFault;
  console_.Say("Cutting list complete");
  return ExitDone;
}

int JobRunner::Export() {
  switch (RunExport()) {
    case ExportOutcome::Done:
      if (HasUnmarkedLines()) {
        console_.Say("No accessory list: none of the job's accessories is marked as used");
      }
      return ExitDone;
    case ExportOutcome::Nothing:
      console_.Say("Nothing to export: the job has neither sections nor accessories");
      return ExitDone;
    case ExportOutcome::Refused:
      return ExitRefused;
    case ExportOutcome::ListFailed:
    case ExportOutcome::Cancelled:
    case ExportOutcome::Failed:
      break;
  }
  return ExitFault;
}

// Makes the documents that are asked for; one that fails doesn't keep the others back.
int JobRunner::Print(const NamedJob& job) {
  bool done = true;
  const auto print = [&](bool wanted, const std::function<bool()>& document) {
    bool whole = false;
    if (wanted && !(Tell([&] { whole = document(); }) && whole)) done = false;
  };
  print(options_.Sheets || options_.Svg, [&] { return PrintSheets(job); });
  print(options_.AccessorySheets, [&] { return PrintAccessories(job); });
  print(options_.Summary, [&] { return PrintSummary(job); });
  return done ? ExitDone : ExitFault;
}

// A document whose pictures are missing is written, but it isn't what was asked for.
bool JobRunner::SayComplete(const std::string& said, bool whole) {
  console_.Say(whole ? said : said + ", but for the missing pictures");
  return whole;
}

bool JobRunner::PrintSheets(const NamedJob& job) {
  if (Items.Empty()) return SayComplete("No sheets: the job has no sections", true);
  DocumentFiles files;
  files.Title = DocumentTitle(job.Name, "sheets");
  files.PaperOfPages = options_.PaperOfPages;
  if (options_.Sheets) files.Pdf = SheetsFileName(job.Path);
  int last = 0;
  if (options_.Svg) files.Svg = [&](int sheet) { return SvgFileName(job.Path, last = sheet); };
  screen_.PreviewInto(Writer(), files);
  const bool whole = PrintAllDrawings();
  if (options_.Svg) RemoveFormerSvgs(job.Path, last);
  return SayComplete("Sheets complete", whole);
}

bool JobRunner::PrintAccessories(const NamedJob& job) {
  if (!UsesAccessories()) {
    return SayComplete("No accessory sheets: none of the job's accessories is marked as used",
                       true);
  }
  screen_.PreviewInto(Writer(), {DocumentTitle(job.Name, "accessory sheets"),
                                 AccessoriesFileName(job.Path), nullptr, options_.PaperOfPages});
  const bool whole = PrintAllAccessorySheets();
  return SayComplete("Accessory sheets complete", whole);
}

bool JobRunner::PrintSummary(const NamedJob& job) {
  screen_.PreviewInto(Writer(), {DocumentTitle(job.Name, "contract summary"),
                                 SummaryFileName(job.Path), nullptr, options_.PaperOfPages});
  PrintContractSummary();
  PrintAccessoryReport();
  return SayComplete("Contract summary complete", true);
}

// Removes the SVGs of the job's sheets behind the last one, which a former, longer run left: people
// and machines that take all sheets of a job would take them for sheets of today. A run of as many
// sheets would write over the same files.
void JobRunner::RemoveFormerSvgs(const std::string& job, int last) const {
  const auto former = formerSheets_.find(SvgNameOf(SvgFileName(job, 1)).Job);
  if (former == formerSheets_.end()) return;
  for (const int sheet : former->second) {
    const std::string file = SvgFileName(job, sheet);
    std::error_code error;
    if (sheet > last && !fs::remove(NativePath(file), error) && error) {
      throw SystemError(error.default_error_condition().value(), file);
    }
  }
}

DocumentWriter& JobRunner::Writer() {
  if (!writer_) writer_.emplace();
  return *writer_;
}

}  // namespace orvane
