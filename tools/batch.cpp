#include "tools/batch.h"

#include <algorithm>
#include <array>
#include <exception>
#include <filesystem>
#include <functional>
#include <ostream>
#include <string_view>
#include <system_error>

#include "core/catalogues.h"
#include "core/files.h"
#include "core/model.h"
#include "core/runtime_error.h"
#include "core/settings.h"
#include "output/accessory_list.h"
#include "output/cam_export.h"
#include "project/project_file.h"
#include "tools/batch_desktop.h"
#include "tools/batch_options.h"
#include "tools/batch_platform.h"

namespace orvane {

namespace {

namespace fs = std::filesystem;

fs::path NativePath(const std::string& path) {
  return {std::u8string(path.begin(), path.end())};
}

std::string Text(const fs::path& path) {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
}

// A path as it is meant now; the current folder is about to change. Empty stays empty.
std::string Absolute(const std::string& path) {
  return path.empty() ? path : Text(fs::absolute(NativePath(path)));
}

[[noreturn]] void Raise(const std::error_code& error, const std::string& path) {
  throw SystemError(error.default_error_condition().value(), path);
}

// The catalogues, kept while the tables are reset between two jobs.
struct Catalogues {
  Table<SectionDim> Dims;
  Table<PunchPattern> Patterns;
  Table<AccDef> Accessories;
  std::int16_t Type1Count = 0;
  std::int16_t Type2Count = 0;
};

// The folder that holds the catalogues when none is named: the program's own, as installed, or the
// folder "catalogue" in it.
std::string OwnCatalogueFolder() {
  constexpr std::array<std::string_view, 4> Names = {"\\dims.csv", "\\punch.csv", "\\accs1.csv",
                                                     "\\accs2.csv"};
  ProgramFolder = ExecutableFolder();
  const bool installed = std::any_of(Names.begin(), Names.end(), [](std::string_view name) {
    return IsRegularFile(ProgramPath(name));
  });
  const std::string folder = ProgramPath("\\catalogue");
  std::error_code unknown;
  return !installed && fs::is_directory(NativePath(folder), unknown) ? folder : ProgramFolder;
}

// Reads the catalogues as the start-up does; false if any was not read whole. The program would go
// on with what it has, but a factory file made without its products and patterns is scrap.
bool LoadCatalogues(Catalogues& loaded) {
  ResetModel();
  const bool accessories = LoadAccessoryCatalogues();
  const bool sections = LoadSectionCatalogues();
  loaded = {SectionDims, PunchPatterns, AccDefs, AccType1Count, AccType2Count};
  return accessories && sections;
}

// Tables and values as a fresh start has them, so that no job sees anything of the one before.
void StartAfresh(const Catalogues& catalogues, std::int16_t drawingWidth) {
  ResetModel();
  SectionDims = catalogues.Dims;
  PunchPatterns = catalogues.Patterns;
  AccDefs = catalogues.Accessories;
  AccType1Count = catalogues.Type1Count;
  AccType2Count = catalogues.Type2Count;
  AccUsed.Resize(AccType1Count + AccType2Count);
  LoadRegistration();
  LoadPageSetup();
  LoadDrawingSettings();
  LoadMaxDims();
  DrawingWidth = drawingWidth;
}

int ExportJob(Console& console, const BatchDesktop& desktop) {
  const int before = desktop.Messages();
  switch (RunExport()) {
    case ExportOutcome::Done:
      // The closing message stands alone, unless the accessory list, whose failure doesn't stop
      // the export, had one of its own.
      return desktop.Messages() > before + 1 ? ExitFault : ExitDone;
    case ExportOutcome::Nothing:
      console.Say("Nothing to export: the job has neither sections nor accessories");
      return ExitDone;
    case ExportOutcome::Refused:
      return ExitRefused;
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

// `resave` is the absolute path to write the job to, or empty.
int DoJob(const Job& job, const BatchOptions& options, const std::string& resave,
          const Catalogues& catalogues, BatchDesktop& desktop, Console& console) {
  desktop.ChooseFile(CamFileName(job.Path));
  // Half a job would make half a delivery: what can't be read whole goes no further.
  const bool read = Try(console, job.Name, [&] {
    StartAfresh(catalogues, options.DrawingWidth);
    ReadProjectFile(job.Path);
  });
  if (!read) return ExitFault;

  int code = ExitDone;
  // Before the export, which makes the holes afresh.
  if (!resave.empty() && !Try(console, options.Resave, [&] { WriteProjectFile(resave); })) {
    code = ExitFault;
  }
  if (options.Cam) code = std::max(code, ExportJob(console, desktop));
  return code;
}

// A path without its detours, to compare it with another.
fs::path Resolved(const fs::path& path) {
  std::error_code error;
  const fs::path resolved = fs::weakly_canonical(path, error);
  return error ? fs::absolute(path).lexically_normal() : resolved;
}

// Whether the export of the job would write over one of the files.
bool Overwrites(const std::string& job, const fs::path& outFolder, const std::string& file) {
  const std::string cam = CamFileName(job);
  const fs::path target = Resolved(NativePath(file));
  return target == Resolved(outFolder / NativePath(cam)) ||
         target == Resolved(outFolder / NativePath(AccListPath(cam)));
}

// Says which file of the command line the export would write over; empty if there is none.
std::string OverwriteFault(const BatchOptions& options) {
  std::vector<std::string> given = options.Jobs;
  if (!options.SettingsFile.empty()) given.push_back(options.SettingsFile);
  if (!options.Resave.empty()) given.push_back(options.Resave);
  const fs::path out = options.OutFolder.empty() ? fs::path(".") : NativePath(options.OutFolder);
  for (const std::string& job : options.Jobs) {
    for (const std::string& file : given) {
      if (!Overwrites(job, out, file)) continue;
      std::string fault = "the factory files of ";
      return fault.append(job).append(" would overwrite ").append(file);
    }
  }
  return "";
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

int RunBatch(const BatchOptions& options, Console& console) {
  std::vector<Job> jobs;
  for (const std::string& job : options.Jobs) jobs.push_back({job, Absolute(job)});
  const std::string resave = Absolute(options.Resave);
  const std::string settingsFile = Absolute(options.SettingsFile);
  ProgramFolder =
      options.CatalogueFolder.empty() ? OwnCatalogueFolder() : Absolute(options.CatalogueFolder);

  BatchDesktop desktop(console, {options.Sleeves, options.Created, settingsFile});
  InstallDesktop(desktop);
  // A missing setting is its default; a settings file that was named and isn't there is a mistake.
  if (!settingsFile.empty() &&
      !Try(console, options.SettingsFile, [&] { ReadWholeFile(settingsFile); })) {
    return ExitFault;
  }
  Catalogues catalogues;
  if (!LoadCatalogues(catalogues)) return ExitFault;
  if (options.Cam && !options.OutFolder.empty() &&
      !Try(console, options.OutFolder, [&] { EnterOutFolder(Absolute(options.OutFolder)); })) {
    return ExitFault;
  }

  int worst = ExitDone;
  int number = 0;
  for (const Job& job : jobs) {
    if (jobs.size() > 1) {
      console.ShowProgress(++number, static_cast<int>(jobs.size()), job.Name);
      console.NameJob(job.Name);
    }
    worst = std::max(worst, DoJob(job, options, resave, catalogues, desktop, console));
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
    if (line.Fault.empty() && line.Options.Cam) line.Fault = OverwriteFault(line.Options);
    if (!line.Fault.empty()) {
      console.SayFault("orvane-batch", line.Fault);
      console.Say("Try orvane-batch --help.");
      return ExitUsage;
    }
    BatchScreen screen(console);
    InstallOutputScreen(screen);
    return RunBatch(line.Options, console);
  } catch (const std::exception& error) {
    console.SayFault("orvane-batch", error.what());
    return ExitFault;
  }
}

}  // namespace orvane
