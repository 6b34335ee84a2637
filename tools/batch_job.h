// One job of a run: read, checked, exported and printed.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "core/catalogues.h"
#include "project/project_file.h"
#include "tools/batch_desktop.h"
#include "tools/batch_options.h"
#include "tools/batch_sheets.h"

namespace orvane {

// One job as it was named and as it is found from anywhere.
struct NamedJob {
  std::string Name;
  std::string Path;
  std::string Clash;  // why it isn't done; empty for one that is
};

// The SVGs that lay in a folder before a run: the numbers of the sheets of each job's name.
using FormerSheets = std::map<std::string, std::vector<int>>;
// Those of the current folder. Raises the system's error.
FormerSheets SheetsInFolder();

// Tables and values as a fresh start has them, so that no job sees anything of the one before.
void StartAfresh(const CatalogueTables& catalogues, std::int16_t drawingWidth);

// Tells what somebody should know of a job that was read: what is missing in it, or may be. False
// for one that mustn't be taken, since it is cut off or damaged behind its sections; with
// --allow-cut there is none.
bool MayBeTaken(const std::string& name, ProjectContent content, const ProjectNotes& notes,
                bool allowCut, Console& console);

// Does jobs one behind the other, in the folder of the results. All of it lives as long as the run.
class JobRunner {
 public:
  // `resave` is the absolute path to write the job to, or empty.
  JobRunner(const BatchOptions& options, std::string resave, const CatalogueTables& catalogues,
            const FormerSheets& formerSheets, BatchScreen& screen, BatchDesktop& desktop,
            Console& console);

  // Gives the exit code.
  int Do(const NamedJob& job);
  // What the jobs since the last call have for standard output.
  std::string TakeOut() { return std::exchange(out_, {}); }

 private:
  bool Read(const NamedJob& job);
  int WriteSectionList(const NamedJob& job);
  int Check(const NamedJob& job);
  int WriteCuttingList(const NamedJob& job);
  int Export();
  int Print(const NamedJob& job);
  bool PrintSheets(const NamedJob& job);
  bool PrintAccessories(const NamedJob& job);
  bool PrintSummary(const NamedJob& job);
  bool SayComplete(const std::string& said, bool whole);
  void RemoveFormerSvgs(const std::string& job, int last) const;
  DocumentWriter& Writer();

  const BatchOptions& options_;
  std::string resave_;
  const CatalogueTables& catalogues_;
  const FormerSheets& formerSheets_;
  BatchScreen& screen_;
  BatchDesktop& desktop_;
  Console& console_;
  std::string out_;
  std::optional<DocumentWriter> writer_;  // made when something is drawn for the first time
};

}  // namespace orvane
