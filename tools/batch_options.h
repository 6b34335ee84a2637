// The companion's command line: what may stand on it and what it means.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/dates.h"
#include "drawing/papers.h"

namespace orvane {

// All texts are UTF-8; paths stand as they were given.
struct BatchOptions {
  std::vector<std::string> Jobs;  // project files, or folders of them, in the order given
  bool Cam = false;               // write each job's CAM file and accessory list
  bool Sheets = false;            // write the sheets of each job's sections as a PDF
  bool Svg = false;               // write them as SVG, one file a sheet
  bool AccessorySheets = false;   // write the sheets of each job's accessories as a PDF
  bool Summary = false;           // write each job's contract summary as a PDF
  bool SectionList = false;       // write the list of each job's sections
  bool CuttingList = false;       // write what each job is to buy, cut and punch, PDF and CSV
  bool Check = false;             // tell what of each job can't be made or is worth a look
  bool CheckCsv = false;          // write that as a file
  bool Compare = false;           // tell how the second job differs from the first
  std::string Resave;             // write the one job again to this file; empty for not
  std::string Import;             // make this list of sections a job; empty for not
  std::string ImportTo;           // that job
  bool SkipRefused = false;       // of its rows take those that aren't refused
  bool Replace = false;           // write over a job that is there already
  std::string CheckedCatalogue;   // tell what is wrong with this folder's catalogue; empty for not
  std::string CatalogueFolder;    // empty for the program's own
  std::string OutFolder;          // where the results go; empty for the current folder
  std::string SettingsFile;       // empty for the defaults
  std::optional<Moment> Created;  // the moment to work at; none for the present one
  bool Sleeves = false;           // the answer to each question about missing sleeves
  bool AllowCut = false;          // take a job that is cut off behind its sections as it is
  int Workers = 1;                // jobs worked on at a time
  std::string DateForm;           // of the jobs' dates; empty for the system's
  Paper PaperOfPages;             // of everything that is drawn
  std::int16_t DrawingWidth = 0;  // room for the elevation on a sheet, mm; 0 before any drawing
};

enum class Request { Run, ShowHelp, ShowVersion };

struct CommandLine {
  Request Wanted = Request::Run;
  BatchOptions Options;
  std::string Fault;  // why the command line can't be followed; empty for a good one
};

// Reads the arguments behind the program's name. An option stands at most once, its value behind
// it; all other arguments are jobs, and so is everything behind "--". "--help" and "--version" end
// the reading.
CommandLine ParseCommandLine(const std::vector<std::string>& arguments);

// What "--help" shows; `dateForm` is the short date form that dates have.
std::string HelpText(const std::string& dateForm);

// True for the name of a project file, which ends in ".ovd".
bool IsJobName(const std::string& name);

// The CAM file of a job, without a folder: the job's file name with ".xov" in the place of ".ovd".
// A name that doesn't end in ".ovd" keeps its whole.
std::string CamFileName(const std::string& job);

// In the same way the PDFs of a job's sheets, "JOB-sheets.pdf", of its accessories' sheets,
// "JOB-accessories.pdf", and of its contract summary, "JOB-summary.pdf"; the list of its sections,
// "JOB-sections.csv"; its cutting list, "JOB-cutting-list.pdf" and ".csv"; and the SVG of one
// sheet, counted from 1, "JOB-sheet-001.svg".
std::string SheetsFileName(const std::string& job);
std::string AccessoriesFileName(const std::string& job);
std::string SummaryFileName(const std::string& job);
std::string SectionListFileName(const std::string& job);
// What the design check has found, "JOB-check.csv".
std::string CheckFileName(const std::string& job);
std::string CuttingListFileName(const std::string& job);
std::string CuttingListPdfName(const std::string& job);
std::string SvgFileName(const std::string& job, int sheet);

// What viewers show over such a document: the job's file name without its ending, and which of the
// documents it is.
std::string DocumentTitle(const std::string& job, std::string_view document);

// The job, without its extension, and the sheet whose SVG has exactly that name; sheet 0 for any
// other name.
struct SvgName {
  std::string Job;
  int Sheet = 0;
};
SvgName SvgNameOf(const std::string& name);

// Whether the options ask for anything that can only be drawn; a cutting list is a file of figures
// too.
bool AsksForPages(const BatchOptions& options);
// Whether they ask for anything that is written into the folder of the results.
bool WritesResults(const BatchOptions& options);

// The names of the files that the options make of a job, without a folder; of the SVGs the first.
std::vector<std::string> ResultNames(const BatchOptions& options, const std::string& job);

// Why the jobs can't be done together: a resave has several. Empty if they can.
std::string JobsFault(const BatchOptions& options);

}  // namespace orvane
