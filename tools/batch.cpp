#include "tools/batch.h"

#include <algorithm>
#include <array>
#include <exception>
#include <filesystem>
#include <functional>
#include <optional>
#include <ostream>
#include <string_view>
#include <system_error>

#include "core/catalogues.h"
#include "core/files.h"
#include "core/model.h"
#include "core/program_folder.h"
#include "core/runtime_error.h"
#include "core/settings.h"
#include "output/accessory_list.h"
#include "output/cam_export.h"
#include "output/reports.h"
#include "project/project_backup.h"
#include "project/project_file.h"
#include "project/section_look.h"
#include "tools/batch_desktop.h"
#include "tools/batch_options.h"
#include "tools/batch_platform.h"
#include "tools/batch_sheets.h"

namespace orvane {

namespace {

namespace fs = std::filesystem;

// A path as it is meant now; the current folder is about to change. Empty stays empty.
std::string Absolute(const std::string& path) {
  return path.empty() ? path : PathText(fs::absolute(NativePath(path)));
}

[[noreturn]] void Raise(const std::error_code& error, const std::string& path) {
  throw SystemError(error.default_error_condition().value(), path);
}

constexpr std::array<std::string_view, 4> CatalogueNames = {DimsFile, PunchFile, Accs1File,
                                                            Accs2File};

// The folder that holds the catalogues when none is named: the program's own, as installed, or the
// folder "catalogue" in it.
std::string OwnCatalogueFolder() {
  ProgramFolder = ExecutableFolder();
  const bool installed =
      std::any_of(CatalogueNames.begin(), CatalogueNames.end(),
                  [](std::string_view name) { return IsRegularFile(ProgramPath(name)); });
  const std::string folder = ProgramPath("\\catalogue");
  std::error_code unknown;
  return !installed && fs::is_directory(NativePath(folder), unknown) ? folder : ProgramFolder;
}

// Reads the catalogues as the start-up does; false if any was not read whole. The program would go
// on with what it has, but a factory file made without its products and patterns is scrap.
bool LoadCatalogues(CatalogueTables& loaded) {
  ResetModel();
  const bool accessories = LoadAccessoryCatalogues();
  const bool sections = LoadSectionCatalogues();
  loaded = LoadedCatalogues();
  return accessories && sections;
}

// Tables and values as a fresh start has them, so that no job sees anything of the one before.
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

bool UsesAccessories() {
  return std::any_of(AccUsed.begin(), AccUsed.end(), [](Boolean flag) { return flag != False; });
}

// Accessory lines that no list will hold, because the job has no flag set for any accessory.
bool HasUnmarkedLines() {
  return (!AccLines1.Empty() || !AccLines2.Empty()) && !UsesAccessories();
}

int ExportJob(Console& console) {
  switch (RunExport()) {
    case ExportOutcome::Done:
      if (HasUnmarkedLines()) {
        console.Say("No accessory list: none of the job's accessories is marked as used");
      }
      return ExitDone;
    case ExportOutcome::Nothing:
      console.Say("Nothing to export: the job has neither sections nor accessories");
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

// One job as it was named and as it is found from anywhere.
struct Job {
  std::string Name;
  std::string Path;
};

// Does one step with a file; false, with the fault told under the file's name, if it failed.
bool Try(Console& console, const std::string& file, const std::function<void()>& step) {
  try {
    step();
    return true;
  } catch (const std::exception& error) {
    console.SayFault(file, error.what());
    return false;
  }
}

// What prints a job: the program's commands, their previews on the way into files.
struct Printer {
  DocumentWriter& Writer;
  BatchScreen& Screen;
  Console& Said;
};

// Removes the SVGs of the job's sheets behind the last one, which a former, longer run left: people
// and machines that take all sheets of a job would take them for sheets of today. A run of as many
// sheets would write over the same files.
void RemoveFormerSvgs(const std::string& job, int last) {
  std::vector<fs::path> former;
  std::error_code error;
  for (const auto& entry : fs::directory_iterator(".", error)) {
    std::error_code unknown;
    const bool ordinary = fs::is_regular_file(entry.symlink_status(unknown));
    if (ordinary && SvgSheetOf(job, PathText(entry.path().filename())) > last) {
      former.push_back(entry.path());
    }
  }
  if (error) Raise(error, ".");
  for (const fs::path& file : former) {
    if (!fs::remove(file, error) && error) Raise(error, PathText(file.filename()));
  }
}

// A document whose pictures are missing is written, but it isn't what was asked for.
bool SayComplete(Console& console, const std::string& said, bool whole) {
  console.Say(whole ? said : said + ", but for the missing pictures");
  return whole;
}

bool PrintSheets(const Job& job, const BatchOptions& options, const Printer& printer) {
  if (Items.Empty()) return SayComplete(printer.Said, "No sheets: the job has no sections", true);
  DocumentFiles files;
  files.Title = DocumentTitle(job.Name, "sheets");
  if (options.Sheets) files.Pdf = SheetsFileName(job.Path);
  int last = 0;
  if (options.Svg) files.Svg = [&](int sheet) { return SvgFileName(job.Path, last = sheet); };
  printer.Screen.PreviewInto(printer.Writer, files);
  const bool whole = PrintAllDrawings();
  if (options.Svg) RemoveFormerSvgs(job.Path, last);
  return SayComplete(printer.Said, "Sheets complete", whole);
}

bool PrintAccessories(const Job& job, const Printer& printer) {
  if (!UsesAccessories()) {
    printer.Said.Say("No accessory sheets: none of the job's accessories is marked as used");
    return true;
  }
  printer.Screen.PreviewInto(printer.Writer, {DocumentTitle(job.Name, "accessory sheets"),
                                              AccessoriesFileName(job.Path), nullptr});
  const bool whole = PrintAllAccessorySheets();
  return SayComplete(printer.Said, "Accessory sheets complete", whole);
}

bool PrintSummary(const Job& job, const Printer& printer) {
  printer.Screen.PreviewInto(printer.Writer, {DocumentTitle(job.Name, "contract summary"),
                                              SummaryFileName(job.Path), nullptr});
  PrintContractSummary();
  PrintAccessoryReport();
  return SayComplete(printer.Said, "Contract summary complete", true);
}

// Makes the documents that are asked for; one that fails doesn't keep the others back.
int PrintJob(const Job& job, const BatchOptions& options, const Printer& printer) {
  bool done = true;
  const auto print = [&](bool wanted, const std::function<bool()>& document) {
    bool whole = false;
    if (wanted && !(Try(printer.Said, job.Name, [&] { whole = document(); }) && whole))
      done = false;
  };
  print(options.Sheets || options.Svg, [&] { return PrintSheets(job, options, printer); });
  print(options.AccessorySheets, [&] { return PrintAccessories(job, printer); });
  print(options.Summary, [&] { return PrintSummary(job, printer); });
  return done ? ExitDone : ExitFault;
}

// `resave` is the absolute path to write the job to, or empty; `writer` is null when nothing drawn
// is asked for.
int DoJob(const Job& job, const BatchOptions& options, const std::string& resave,
          const CatalogueTables& catalogues, DocumentWriter* writer, BatchScreen& screen,
          BatchDesktop& desktop, Console& console) {
  desktop.BeginJob(CamFileName(job.Path));
  const std::string& settings = options.SettingsFile.empty() ? job.Name : options.SettingsFile;
  const bool fresh = Try(console, settings, [&] { StartAfresh(catalogues, options.DrawingWidth); });
  if (!fresh) return ExitFault;

  // Half a list of sections would make half a delivery: a job that can't be read goes no further.
  // Behind the sections the program opens a file however it ends; here that is said.
  const bool read = Try(console, job.Name, [&] {
    ReadProjectFile(job.Path);
    if (CheckProjectContent(ReadWholeFile(job.Path)) == ProjectContent::PerhapsCut) {
      console.SayFault(job.Name, "read, but accessory lines or marks may be missing at its end");
    }
  });
  if (!read) return ExitFault;

  int code = ExitDone;
  // Before the export, which makes the holes afresh.
  if (!resave.empty() && !Try(console, options.Resave, [&] { WriteProjectFile(resave); })) {
    code = ExitFault;
  }
  if (options.Cam) {
    // The accessory list takes values that were never set for 0 from then on; what is drawn shows
    // what was entered, with an export and without.
    const Table<AccLine2> entered = AccLines2;
    code = std::max(code, ExportJob(console));
    AccLines2 = entered;
  }
  if (writer != nullptr) {
    code = std::max(code, PrintJob(job, options, {*writer, screen, console}));
  }
  return code;
}

// A path without its detours, to compare it with another.
fs::path Resolved(const fs::path& path) {
  std::error_code error;
  const fs::path resolved = fs::weakly_canonical(path, error);
  return error ? fs::absolute(path).lexically_normal() : resolved;
}

// Whether the results of the job would be written over one of the files.
bool Overwrites(const std::vector<std::string>& results, const fs::path& outFolder,
                const std::string& file) {
  const fs::path target = Resolved(NativePath(file));
  return std::any_of(results.begin(), results.end(), [&](const std::string& result) {
    return target == Resolved(outFolder / NativePath(result));
  });
}

// Says what the job, written again, would destroy; empty if nothing. Over its own file it may be
// written: that is a save.
std::string ResaveFault(const BatchOptions& options) {
  if (options.Resave.empty()) return "";
  const fs::path target = Resolved(NativePath(options.Resave));
  std::vector<std::string> kept;
  if (!options.SettingsFile.empty()) kept.push_back(options.SettingsFile);
  for (const std::string_view name : CatalogueNames) kept.push_back(ProgramPath(name));
  for (const std::string& file : kept) {
    if (Resolved(NativePath(file)) == target) return "--resave would overwrite " + file;
  }
  // A save keeps the former file as its backup, which would be the job itself.
  for (const std::string& job : options.Jobs) {
    if (Resolved(NativePath(job)) == Resolved(NativePath(options.Resave + ".bak"))) {
      return "--resave would overwrite " + job + ", the backup of its file";
    }
  }
  return "";
}

// Says which file of the command line the results would be written over; empty if there is none.
std::string OverwriteFault(const BatchOptions& options) {
  std::vector<std::string> given = options.Jobs;
  if (!options.SettingsFile.empty()) given.push_back(options.SettingsFile);
  if (!options.Resave.empty()) given.push_back(options.Resave);
  const fs::path out = options.OutFolder.empty() ? fs::path(".") : NativePath(options.OutFolder);
  for (const std::string& job : options.Jobs) {
    for (const std::string& file : given) {
      std::vector<std::string> results = ResultNames(options, job);
      if (options.Svg && SvgSheetOf(job, FileName(file)) > 0) results.push_back(FileName(file));
      if (!Overwrites(results, out, file)) continue;
      std::string fault = "the factory files of ";
      return fault.append(job).append(" would overwrite ").append(file);
    }
  }
  return "";
}

// Puts in the place of each folder the jobs that lie in it, by name. One without any stays, and is
// told as a job that can't be read.
void OpenFolders(std::vector<std::string>& jobs) {
  std::vector<std::string> found;
  for (const std::string& job : jobs) {
    std::vector<std::string> inside;
    std::error_code error;
    for (const auto& entry : fs::directory_iterator(NativePath(job), error)) {
      const std::string path = PathText(entry.path());
      if (IsJobName(path) && IsRegularFile(path)) inside.push_back(path);
    }
    if (inside.empty()) inside.push_back(job);
    std::sort(inside.begin(), inside.end());
    found.insert(found.end(), inside.begin(), inside.end());
  }
  jobs = found;
}

// Why the jobs can't be done; empty if they can.
std::string FaultOf(const BatchOptions& options) {
  if (AsksForPages(options) && !SheetsInThisBuild()) {
    return "--sheets, --svg, --accessory-sheets and --summary are not in this build";
  }
  std::string fault = JobsFault(options);
  if (fault.empty()) fault = ResaveFault(options);
  if (fault.empty()) fault = OverwriteFault(options);
  return fault;
}

// Makes the folder of the results if it is missing, and goes there. The accessory list's name ends
// at the first point of its path; inside the folder that path is the bare file name, so that a
// point in a folder's name does no harm.
void EnterOutFolder(const std::string& folder) {
  std::error_code error;
  fs::create_directories(NativePath(folder), error);
  if (!error) fs::current_path(NativePath(folder), error);
  if (error) Raise(error, folder);
}

int RunBatch(const BatchOptions& options, BatchScreen& screen, Console& console) {
  std::vector<Job> jobs;
  for (const std::string& job : options.Jobs) jobs.push_back({job, Absolute(job)});
  const std::string resave = Absolute(options.Resave);
  const std::string settingsFile = Absolute(options.SettingsFile);
  BatchDesktop desktop(console, {options.Sleeves, options.Created, settingsFile});
  InstallDesktop(desktop);
  // A missing setting is its default; a settings file that was named and isn't there is a mistake.
  if (!settingsFile.empty() &&
      !Try(console, options.SettingsFile, [&] { ReadWholeFile(settingsFile); })) {
    return ExitFault;
  }
  CatalogueTables catalogues;
  if (!LoadCatalogues(catalogues)) return ExitFault;
  const bool drawn = AsksForPages(options);
  if ((options.Cam || drawn) && !options.OutFolder.empty() &&
      !Try(console, options.OutFolder, [&] { EnterOutFolder(Absolute(options.OutFolder)); })) {
    return ExitFault;
  }

  std::optional<DocumentWriter> writer;
  if (drawn) writer.emplace();
  int worst = ExitDone;
  int number = 0;
  for (const Job& job : jobs) {
    if (jobs.size() > 1) {
      console.ShowProgress(++number, static_cast<int>(jobs.size()), job.Name);
      console.NameJob(job.Name);
    }
    worst = std::max(worst, DoJob(job, options, resave, catalogues, writer ? &*writer : nullptr,
                                  screen, desktop, console));
  }
  console.ClearProgress();
  return worst;
}

}  // namespace

int RunCompanion(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err) {
  CommandLine line = ParseCommandLine(arguments);
  if (line.Wanted == Request::ShowHelp) {
    return out << HelpText() << std::flush ? ExitDone : ExitFault;
  }
  if (line.Wanted == Request::ShowVersion) {
    return out << "orvane-batch " ORVANE_VERSION "\n" << std::flush ? ExitDone : ExitFault;
  }

  Console console(err, ErrorsOnTerminal());
  try {
    const std::string& catalogues = line.Options.CatalogueFolder;
    ProgramFolder = catalogues.empty() ? OwnCatalogueFolder() : Absolute(catalogues);
    if (line.Fault.empty()) {
      OpenFolders(line.Options.Jobs);
      line.Fault = FaultOf(line.Options);
    }
    if (!line.Fault.empty()) {
      console.SayFault("orvane-batch", line.Fault);
      console.Say("Try orvane-batch --help.");
      return ExitUsage;
    }
    BatchScreen screen(console);
    InstallOutputScreen(screen);
    return RunBatch(line.Options, screen, console);
  } catch (const std::exception& error) {
    console.SayFault("orvane-batch", error.what());
    return ExitFault;
  }
}

}  // namespace orvane
