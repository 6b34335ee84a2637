#include "tools/batch.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <exception>
#include <filesystem>
#include <ostream>
#include <sstream>
#include <string_view>
#include <system_error>

#include "core/catalogue_folder.h"
#include "core/catalogues.h"
#include "core/files.h"
#include "core/model.h"
#include "core/program_folder.h"
#include "core/system_dates.h"
#include "output/catalogue_check.h"
#include "output/design_check_rules.h"
#include "tools/batch_clashes.h"
#include "tools/batch_compare.h"
#include "tools/batch_desktop.h"
#include "tools/batch_exit.h"
#include "tools/batch_import.h"
#include "tools/batch_job.h"
#include "tools/batch_options.h"
#include "tools/batch_platform.h"
#include "tools/batch_workers.h"

namespace orvane {

namespace {

namespace fs = std::filesystem;

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
  const bool rules = LoadCheckRules(CataloguePath(CheckFile));
  loaded = LoadedCatalogues();
  return accessories && sections && rules;
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
  if (!options.Import.empty()) return ImportFault(options);
  if (AsksForPages(options) && !SheetsInThisBuild()) {
    return "--sheets, --svg, --accessory-sheets and --summary are not in this build";
  }
  const std::string fault = JobsFault(options);
  return fault.empty() ? OverwriteFault(options) : fault;
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

std::vector<NamedJob> JobsOf(const BatchOptions& options) {
  const std::vector<std::string> clashes = ClashesOf(options);
  std::vector<NamedJob> jobs;
  for (std::size_t at = 0; at < clashes.size(); ++at) {
    const std::string& name = options.Jobs.at(at);
    jobs.push_back({name, AbsolutePath(name), clashes.at(at)});
  }
  return jobs;
}

// Does the jobs, in their order or several at a time, and gives the highest of their codes.
// What they have for standard output goes there in their order; where that can't be written it is a
// fault.
int DoJobs(const std::vector<NamedJob>& jobs, int workers, JobRunner& runner, Console& console,
           std::ostream& out) {
  const int count = static_cast<int>(jobs.size());
  const auto nameJob = [&](int number) {
    const NamedJob& job = jobs.at(static_cast<std::size_t>(number));
    if (count > 1) console.ShowProgress(number + 1, count, job.Name);
    console.NameJob(job.Name, count > 1);
    return job;
  };
  int worst = ExitDone;
  if (workers == 1) {
    for (int number = 0; number < count; ++number) {
      worst = std::max(worst, runner.Do(nameJob(number)));
      out << runner.TakeOut();
    }
  } else {
    const auto work = [&](int number) {
      std::ostringstream said;
      int code = ExitFault;
      {
        // Where there is no process to be had, this one works, and tells it afterwards.
        const ConsoleRedirection redirected(console, said);
        code = runner.Do(nameJob(number));
      }
      return Worked{code, said.str(), "", runner.TakeOut()};
    };
    DoInWorkers(count, workers, work, [&](int number, const Worked& worked) {
      nameJob(number);
      if (!worked.Died.empty()) console.SayError("its process died: " + worked.Died);
      console.Pass(worked.Said);
      out << worked.Out;
      worst = std::max(worst, worked.Died.empty() ? worked.Code : ExitFault);
    });
  }
  console.ClearProgress();
  return out << std::flush ? worst : std::max(worst, ExitFault);
}

// Tells what is found of the catalogue in that folder, a line for each finding.
int CheckFolder(const BatchOptions& options, Console& console, std::ostream& out) {
  const std::string folder = AbsolutePath(options.CheckedCatalogue);
  if (!IsFolder(folder)) {
    console.SayFault(options.CheckedCatalogue, "there is no such folder");
    return ExitFault;
  }
  const std::vector<CatalogueFinding> findings = CheckCatalogueIn(folder);
  if (!(out << CatalogueFindingsText(findings) << std::flush)) return ExitFault;
  console.Say("Catalogue check complete: " + CatalogueCountLine(findings));
  return FaultsIn(findings) == 0 ? ExitDone : ExitCannotBeMade;
}

int RunBatch(const BatchOptions& options, BatchScreen& screen, Console& console,
             std::ostream& out) {
  const std::vector<NamedJob> jobs = JobsOf(options);
  const std::string resave = AbsolutePath(options.Resave);
  const std::string settingsFile = AbsolutePath(options.SettingsFile);
  BatchDesktop desktop(console, {options.Sleeves, options.Created, settingsFile, options.DateForm});
  InstallDesktop(desktop);
  // A missing setting is its default; a settings file that was named and isn't there is a mistake.
  if (!settingsFile.empty() &&
      !console.Try(options.SettingsFile, [&] { ReadWholeFile(settingsFile); })) {
    return ExitFault;
  }
  // A run on another catalogue than the one that was chosen would make scrap by the hundred.
  if (options.CatalogueFolder.empty() && !UseOfficeFolder()) return ExitFault;
  CatalogueTables catalogues;
  if (!LoadCatalogues(catalogues)) return ExitFault;
  if (!options.Import.empty()) return ImportList(options, catalogues, console);
  if (options.Compare) return CompareFiles(options, catalogues, console, out);
  const std::string outFolder = AbsolutePath(options.OutFolder);
  if (WritesResults(options) && !outFolder.empty() &&
      !console.Try(options.OutFolder, [&] { EnterOutFolder(outFolder); })) {
    return ExitFault;
  }
  FormerSheets former;
  if (options.Svg && !console.Try(outFolder, [&] { former = SheetsInFolder(); })) return ExitFault;
  JobRunner runner(options, resave, catalogues, former, screen, desktop, console);
  return DoJobs(jobs, options.Workers, runner, console, out);
}

}  // namespace

int RunCompanion(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err) {
  CommandLine line = ParseCommandLine(arguments);
  if (line.Wanted == Request::ShowHelp) {
    const std::string& given = line.Options.DateForm;
    const std::string form = given.empty() ? SystemShortDateForm() : given;
    return out << HelpText(form) << std::flush ? ExitDone : ExitFault;
  }
  if (line.Wanted == Request::ShowVersion) {
    return out << "orvane-batch " ORVANE_VERSION "\n" << std::flush ? ExitDone : ExitFault;
  }

  Console console(err, ErrorsOnTerminal());
  try {
    const std::string& catalogues = line.Options.CatalogueFolder;
    ProgramFolder = catalogues.empty() ? OwnCatalogueFolder() : AbsolutePath(catalogues);
    if (line.Fault.empty()) {
      if (!line.Options.Compare) OpenFolders(line.Options.Jobs);
      line.Fault = FaultOf(line.Options);
    }
    if (!line.Fault.empty()) {
      console.SayFault("orvane-batch", line.Fault);
      console.Say("Try orvane-batch --help.");
      return ExitUsage;
    }
    if (!line.Options.CheckedCatalogue.empty()) return CheckFolder(line.Options, console, out);
    BatchScreen screen(console);
    InstallOutputScreen(screen);
    return RunBatch(line.Options, screen, console, out);
  } catch (const std::exception& error) {
    console.SayFault("orvane-batch", error.what());
    return ExitFault;
  }
}

}  // namespace orvane
