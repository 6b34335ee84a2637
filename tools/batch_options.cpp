#include "tools/batch_options.h"

#include <array>
#include <cstddef>
#include <string_view>

#include "core/dates.h"
#include "core/files.h"
#include "core/numbers.h"
#include "core/runtime_error.h"
#include "core/text.h"
#include "output/accessory_list.h"

namespace orvane {

namespace {

constexpr std::string_view Extension = ".ovd";

bool SetSleeves(BatchOptions& options, const std::string& value) {
  options.Sleeves = value == "yes";
  return value == "yes" || value == "no";
}

bool SetCreated(BatchOptions& options, const std::string& value) {
  options.Created = ParseMoment(value);
  return options.Created.has_value();
}

bool SetWorkers(BatchOptions& options, const std::string& value) {
  constexpr int most = 256;
  std::string_view digits = value;
  options.Workers = TakeDigits(digits, 3);
  return digits.empty() && options.Workers >= 1 && options.Workers <= most;
}

bool SetDateForm(BatchOptions& options, const std::string& value) {
  options.DateForm = value;
  return CanBeProjectDateForm(value);
}

bool SetPaper(BatchOptions& options, const std::string& value) {
  const std::optional<Paper> paper = PaperNamed(value);
  options.PaperOfPages = paper.value_or(Paper());
  return paper.has_value();
}

bool SetDrawingWidth(BatchOptions& options, const std::string& value) {
  try {
    options.DrawingWidth = ParseInt16(value);
    return options.DrawingWidth >= 0;
  } catch (const RuntimeError&) {
    return false;
  }
}

template <std::string BatchOptions::*Field>
bool SetText(BatchOptions& options, const std::string& value) {
  options.*Field = value;
  return true;
}

struct ValueOption {
  std::string_view Name;
  std::string_view Form;  // what its value must be
  bool (*Set)(BatchOptions& options, const std::string& value);
};

constexpr std::array<ValueOption, 13> ValueOptions = {{
    {"--catalogue", "a folder", SetText<&BatchOptions::CatalogueFolder>},
    {"--check-catalogue", "a folder", SetText<&BatchOptions::CheckedCatalogue>},
    {"--out", "a folder", SetText<&BatchOptions::OutFolder>},
    {"--created", "a moment of the form YYYY-MM-DDTHH:MM:SS", SetCreated},
    {"--sleeves", "yes or no", SetSleeves},
    {"--drawing-width", "a number of millimetres from 0 to 32767", SetDrawingWidth},
    {"--paper", "A4, A3, Letter or Tabloid", SetPaper},
    {"--settings", "a file", SetText<&BatchOptions::SettingsFile>},
    {"--resave", "a file", SetText<&BatchOptions::Resave>},
    {"--import", "a file", SetText<&BatchOptions::Import>},
    {"--to", "a file", SetText<&BatchOptions::ImportTo>},
    {"--jobs", "a number from 1 to 256", SetWorkers},
    {"--date-form", "a form of day, month and year in figures, such as dd.MM.yyyy", SetDateForm},
}};

struct FlagOption {
  std::string_view Name;
  bool BatchOptions::*Flag;
};

constexpr std::array<FlagOption, 13> FlagOptions = {{
    {"--cam", &BatchOptions::Cam},
    {"--sheets", &BatchOptions::Sheets},
    {"--svg", &BatchOptions::Svg},
    {"--accessory-sheets", &BatchOptions::AccessorySheets},
    {"--summary", &BatchOptions::Summary},
    {"--section-list", &BatchOptions::SectionList},
    {"--cutting-list", &BatchOptions::CuttingList},
    {"--check", &BatchOptions::Check},
    {"--check-csv", &BatchOptions::CheckCsv},
    {"--compare", &BatchOptions::Compare},
    {"--skip-refused", &BatchOptions::SkipRefused},
    {"--replace", &BatchOptions::Replace},
    {"--allow-cut", &BatchOptions::AllowCut},
}};

// Sets the flag of that name; false if there is none.
bool SetFlag(BatchOptions& options, std::string_view name) {
  for (const FlagOption& option : FlagOptions) {
    if (option.Name != name) continue;
    options.*option.Flag = true;
    return true;
  }
  return false;
}

// The index of an option in ValueOptions; their number for any other text.
std::size_t FindOption(std::string_view name) {
  std::size_t at = 0;
  while (at < ValueOptions.size() && ValueOptions.at(at).Name != name) ++at;
  return at;
}

bool IsOption(std::string_view argument) {
  return argument.size() > 1 && argument.front() == '-';
}

// Whether two files of one folder would be the same. Letter case is no difference: where the
// factory files go to in the end, it often is none.
bool SameName(const std::string& a, const std::string& b) {
  return UpperCase(a) == UpperCase(b);
}

// What can only be seen when the whole command line has been read.
std::string FaultOfWhole(const BatchOptions& options) {
  const bool asks = WritesResults(options) || options.Check || !options.Resave.empty();
  if (!options.CheckedCatalogue.empty()) {
    const bool other = asks || options.Compare || !options.Import.empty() ||
                       !options.ImportTo.empty() || !options.Jobs.empty();
    return other ? "--check-catalogue goes with nothing else that is to be done" : "";
  }
  if (!options.Import.empty()) {
    if (options.Compare) return "--compare goes with nothing else that is to be done";
    if (options.ImportTo.empty()) return "--import takes --to with the job to be made";
    if (!options.Jobs.empty()) return "--import takes no job but that behind --to";
    return asks ? "--import goes with nothing else that is to be done" : "";
  }
  if (!options.ImportTo.empty() || options.SkipRefused || options.Replace) {
    return "--to, --skip-refused and --replace go with --import alone";
  }
  if (options.Compare) {
    if (asks) return "--compare goes with nothing else that is to be done";
    return options.Jobs.size() == 2 ? "" : "--compare takes two jobs, the earlier one first";
  }
  if (options.Jobs.empty()) return "no job is named";
  if (!asks) {
    return "none of --cam, --sheets, --svg, --accessory-sheets, --summary, --section-list, "
           "--cutting-list, --check, --check-csv, --check-catalogue, --compare, --resave and "
           "--import "
           "is given";
  }
  return JobsFault(options);
}

// The file name of a job without its extension.
std::string JobName(const std::string& job) {
  std::string name = FileName(job);
  if (IsJobName(name)) name.resize(name.size() - Extension.size());
  return name;
}

constexpr std::string_view SvgMiddle = "-sheet-";

// `name` is a job's without its extension.
std::string NameOfSvg(const std::string& name, int sheet) {
  constexpr std::size_t width = 3;  // so that the sheets of most jobs sort by name
  return name + std::string(SvgMiddle) + PaddedText(sheet, width) + ".svg";
}

CommandLine Faulty(const std::string& fault) {
  CommandLine line;
  line.Fault = fault;
  return line;
}

}  // namespace

CommandLine ParseCommandLine(const std::vector<std::string>& arguments) {
  CommandLine line;
  std::array<bool, ValueOptions.size()> given{};
  bool onlyJobs = false;
  for (std::size_t at = 0; at < arguments.size(); ++at) {
    const std::string& argument = arguments.at(at);
    if (argument.empty()) return Faulty("an argument is empty");
    if (onlyJobs || !IsOption(argument)) {
      line.Options.Jobs.push_back(argument);
    } else if (argument == "--") {
      onlyJobs = true;
    } else if (SetFlag(line.Options, argument)) {
      continue;
    } else if (argument == "--help" || argument == "-h") {
      line.Wanted = Request::ShowHelp;
      return line;
    } else if (argument == "--version") {
      line.Wanted = Request::ShowVersion;
      return line;
    } else {
      const std::size_t option = FindOption(argument);
      if (option == ValueOptions.size()) return Faulty("unknown option " + argument);
      if (given.at(option)) return Faulty(argument + " is given twice");
      given.at(option) = true;
      // A forgotten value must not swallow the option behind it; a path that really begins so can
      // be given as "./--name".
      ++at;
      const bool missing = at == arguments.size() || arguments.at(at).empty() ||
                           arguments.at(at).substr(0, 2) == "--";
      if (missing || !ValueOptions.at(option).Set(line.Options, arguments.at(at))) {
        return Faulty(argument + " takes " + std::string(ValueOptions.at(option).Form));
      }
    }
  }
  // Both settle the room for the elevation.
  if (given.at(FindOption("--paper")) && given.at(FindOption("--drawing-width"))) {
    return Faulty("--paper and --drawing-width exclude each other");
  }
  line.Fault = FaultOfWhole(line.Options);
  return line;
}

bool IsJobName(const std::string& name) {
  const std::string file = FileName(name);
  return file.size() > Extension.size() &&
         SameName(file.substr(file.size() - Extension.size()), std::string(Extension));
}

std::string CamFileName(const std::string& job) {
  return JobName(job) + ".xov";
}

std::string SheetsFileName(const std::string& job) {
  return JobName(job) + "-sheets.pdf";
}

std::string AccessoriesFileName(const std::string& job) {
  return JobName(job) + "-accessories.pdf";
}

std::string SummaryFileName(const std::string& job) {
  return JobName(job) + "-summary.pdf";
}

std::string SectionListFileName(const std::string& job) {
  return JobName(job) + "-sections.csv";
}

std::string CheckFileName(const std::string& job) {
  return JobName(job) + "-check.csv";
}

std::string CuttingListFileName(const std::string& job) {
  return JobName(job) + "-cutting-list.csv";
}

std::string CuttingListPdfName(const std::string& job) {
  return JobName(job) + "-cutting-list.pdf";
}

std::string DocumentTitle(const std::string& job, std::string_view document) {
  return JobName(job).append(": ").append(document);
}

std::string SvgFileName(const std::string& job, int sheet) {
  return NameOfSvg(JobName(job), sheet);
}

SvgName SvgNameOf(const std::string& name) {
  constexpr std::size_t mostDigits = 9;
  const std::size_t middle = name.rfind(SvgMiddle);
  if (middle == std::string::npos) return {};
  std::string_view number = std::string_view(name).substr(middle + SvgMiddle.size());
  const int sheet = TakeDigits(number, mostDigits);
  const std::string job = name.substr(0, middle);
  return sheet > 0 && name == NameOfSvg(job, sheet) ? SvgName{job, sheet} : SvgName{};
}

bool AsksForPages(const BatchOptions& options) {
  return options.Sheets || options.Svg || options.AccessorySheets || options.Summary;
}

bool WritesResults(const BatchOptions& options) {
  return options.Cam || options.SectionList || options.CuttingList || options.CheckCsv ||
         AsksForPages(options);
}

std::vector<std::string> ResultNames(const BatchOptions& options, const std::string& job) {
  std::vector<std::string> names;
  if (options.Cam) {
    names.push_back(CamFileName(job));
    names.push_back(AccListPath(names.back()));
  }
  if (options.Sheets) names.push_back(SheetsFileName(job));
  if (options.Svg) names.push_back(SvgFileName(job, 1));
  if (options.AccessorySheets) names.push_back(AccessoriesFileName(job));
  if (options.Summary) names.push_back(SummaryFileName(job));
  if (options.SectionList) names.push_back(SectionListFileName(job));
  if (options.CheckCsv) names.push_back(CheckFileName(job));
  if (options.CuttingList) {
    names.push_back(CuttingListFileName(job));
    names.push_back(CuttingListPdfName(job));
  }
  return names;
}

std::string JobsFault(const BatchOptions& options) {
  const std::vector<std::string>& jobs = options.Jobs;
  if (!options.Resave.empty() && jobs.size() > 1) return "--resave takes one job";
  return "";
}

std::string HelpText(const std::string& dateForm) {
  std::string text = R"(Usage: orvane-batch [OPTION]... --cam JOB.ovd...
       orvane-batch [OPTION]... --sheets JOB.ovd...
       orvane-batch [OPTION]... --svg JOB.ovd...
       orvane-batch [OPTION]... --accessory-sheets JOB.ovd...
       orvane-batch [OPTION]... --summary JOB.ovd...
       orvane-batch [OPTION]... --section-list JOB.ovd...
       orvane-batch [OPTION]... --cutting-list JOB.ovd...
       orvane-batch [OPTION]... --check JOB.ovd...
       orvane-batch [OPTION]... --compare OLD.ovd NEW.ovd
       orvane-batch [OPTION]... --resave FILE JOB.ovd
       orvane-batch [OPTION]... --import LIST --to JOB.ovd
       orvane-batch [OPTION]... --check-catalogue DIR

The companion of the Orvane Detailing System: turns project files into their factory files, sheets and
reports without a screen. Messages and questions go to standard error. A folder in the place of a job
stands for all the jobs in it.

  --cam                  check each job and write its CAM file (JOB.xov) and accessory list (JOB.xac)
  --sheets               write the sheets of each job's sections into one PDF (JOB-sheets.pdf)
  --svg                  write them as pictures, one file a sheet (JOB-sheet-001.svg), and remove those
                         that a longer run left behind the last
  --accessory-sheets     write the sheets of each job's accessories into one PDF (JOB-accessories.pdf)
  --summary              write each job's contract summary as a PDF (JOB-summary.pdf)
  --section-list         write the list of each job's sections (JOB-sections.csv)
  --cutting-list         write what each job is to buy, cut and punch (JOB-cutting-list.pdf and .csv)
  --check                tell on standard output what of each job can't be made or is worth a look
  --check-csv            write that as a file (JOB-check.csv)
  --check-catalogue DIR  tell on standard output what of the catalogue in DIR isn't read as it looks or
                         can't work; a file that isn't there is the program's
  --compare              tell on standard output how the second of two jobs differs from the first
  --resave FILE          write the one job again, as it would be saved; alone or with the others
  --import LIST          make a new job of a list of sections; each row that the program would refuse
                         or ask about is told, and nothing is written then
  --to JOB.ovd           the job that --import makes
  --skip-refused         let --import leave such rows out and write the job of the others
  --replace              let --import write over a job that is there already
  --out DIR              where the results go, made if missing (default: the current folder)
  --catalogue DIR        the folder of dims.csv, punch.csv, accs1.csv, accs2.csv and check.csv (default: the
                         program's own folder, or "catalogue" in it)
  --sleeves yes|no       the answer when a sleeved purlin has no sleeves (default: no)
  --created MOMENT       the moment of export, YYYY-MM-DDTHH:MM:SS (default: now)
  --drawing-width MM     the room for the elevation on a sheet, as if a section had been drawn
                         (default: 0, nothing drawn yet)
  --paper PAPER          A4, A3, Letter or Tabloid, for all that is drawn (default: A4); not together
                         with --drawing-width
  --settings FILE        read the settings from this file (default: every setting's default)
  --jobs N               work on that many jobs at a time (default: 1)
  --allow-cut            take a job that is cut off behind its sections as it is
  --date-form FORM       how the jobs' dates are written (default: as the system's country writes
                         them; here DATE-FORM)
  --help, --version      show this text, or the version, and end

Exit: 0 done; 1 refused by the check; 2 a command line that can't be followed, or jobs that would write
one file; 3 a file that can't be read or written, or a list with refused rows; 4 what was checked can't be
made, or a catalogue with faults; 5 two jobs that differ.
With more than one job all are tried, and the highest of their codes is returned.
)";
  const std::string_view place = "DATE-FORM";
  return text.replace(text.find(place), place.size(), ProjectDateForm(dateForm));
}

}  // namespace orvane
