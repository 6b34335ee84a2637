#include "tools/batch_options.h"

#include <array>
#include <cstddef>
#include <string_view>

#include "core/files.h"
#include "core/numbers.h"
#include "core/runtime_error.h"
#include "core/text.h"
#include "output/accessory_list.h"

namespace orvane {

namespace {

bool SetSleeves(BatchOptions& options, const std::string& value) {
  options.Sleeves = value == "yes";
  return value == "yes" || value == "no";
}

bool SetCreated(BatchOptions& options, const std::string& value) {
  options.Created = ParseMoment(value);
  return options.Created.has_value();
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

constexpr std::array<ValueOption, 7> ValueOptions = {{
    {"--catalogue", "a folder", SetText<&BatchOptions::CatalogueFolder>},
    {"--out", "a folder", SetText<&BatchOptions::OutFolder>},
    {"--created", "a moment of the form YYYY-MM-DDTHH:MM:SS", SetCreated},
    {"--sleeves", "yes or no", SetSleeves},
    {"--drawing-width", "a number of millimetres from 0 to 32767", SetDrawingWidth},
    {"--settings", "a file", SetText<&BatchOptions::SettingsFile>},
    {"--resave", "a file", SetText<&BatchOptions::Resave>},
}};

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

// Two jobs that would write one file; empty if there are none.
std::string OutputClash(const std::vector<std::string>& jobs) {
  for (std::size_t later = 1; later < jobs.size(); ++later) {
    const std::string laterCam = CamFileName(jobs.at(later));
    for (std::size_t earlier = 0; earlier < later; ++earlier) {
      const std::string cam = CamFileName(jobs.at(earlier));
      std::string clash;
      if (SameName(AccListPath(cam), AccListPath(laterCam))) clash = AccListPath(laterCam);
      if (SameName(cam, laterCam)) clash = laterCam;
      if (clash.empty()) continue;
      return jobs.at(earlier) + " and " + jobs.at(later) + " would both write " + clash;
    }
  }
  return "";
}

// What can only be seen when the whole command line has been read.
std::string FaultOfWhole(const BatchOptions& options) {
  if (options.Jobs.empty()) return "no job is named";
  if (!options.Cam && options.Resave.empty()) return "neither --cam nor --resave is given";
  if (!options.Resave.empty() && options.Jobs.size() > 1) return "--resave takes one job";
  return options.Cam ? OutputClash(options.Jobs) : "";
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
    } else if (argument == "--cam") {
      line.Options.Cam = true;
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
  line.Fault = FaultOfWhole(line.Options);
  return line;
}

std::string CamFileName(const std::string& job) {
  constexpr std::string_view Extension = ".ovd";
  std::string name = FileName(job);
  if (name.size() > Extension.size() &&
      SameName(name.substr(name.size() - Extension.size()), std::string(Extension))) {
    name.resize(name.size() - Extension.size());
  }
  return name + ".xov";
}

std::string HelpText() {
  return R"(Usage: orvane-batch [OPTION]... --cam JOB.ovd...
       orvane-batch [OPTION]... --resave FILE JOB.ovd

The companion of the Orvane Detailing System: turns project files into their factory files without
a screen. Messages and questions go to standard error.

  --cam                  check each job and write its CAM file (JOB.xov) and accessory list (JOB.xac)
  --resave FILE          write the one job again, as it would be saved; with or without --cam
  --out DIR              where the factory files go, made if missing (default: the current folder)
  --catalogue DIR        the folder of dims.csv, punch.csv, accs1.csv and accs2.csv (default: the
                         program's own folder, or "catalogue" in it)
  --sleeves yes|no       the answer when a sleeved purlin has no sleeves (default: no)
  --created MOMENT       the moment of export, YYYY-MM-DDTHH:MM:SS (default: now)
  --drawing-width MM     the room for the elevation on a sheet, as if a section had been drawn
                         (default: 0, nothing drawn yet)
  --settings FILE        read the settings from this file (default: every setting's default)
  --help, --version      show this text, or the version, and end

Exit: 0 done; 1 refused by the check; 2 a command line that can't be followed; 3 a file that can't be
read or written. With more than one job all are tried, and the highest of their codes is returned.
)";
}

}  // namespace orvane
