#include "tools/batch_compare.h"

#include <optional>
#include <ostream>
#include <string>

#include "core/files.h"
#include "core/text.h"
#include "core/text_file.h"
#include "output/job_compare.h"
#include "project/project_backup.h"
#include "project/project_file.h"
#include "tools/batch_exit.h"
#include "tools/batch_job.h"

namespace orvane {

namespace {

// A job apart from the tables, with all that it says of itself told; none for one that can't be
// read or mustn't be taken. Half a job would differ in what is merely missing.
std::optional<Job> JobIn(const std::string& name, const BatchOptions& options, Console& console) {
  console.NameJob(name, true);
  ProjectContent content = ProjectContent::Broken;
  ReadJob job;
  const bool read = console.Try(name, [&] {
    const std::string bytes = ReadWholeFile(name);
    content = CheckProjectContent(bytes);
    TextFile file(DecodeText(bytes));
    job = ReadProject(file);
  });
  const bool taken = read && MayBeTaken(name, content, job.Notes, options.AllowCut, console);
  console.NameJob("", false);
  return taken ? std::optional(std::move(job.Records)) : std::nullopt;
}

}  // namespace

int CompareFiles(const BatchOptions& options, const CatalogueTables& catalogues, Console& console,
                 std::ostream& out) {
  const std::string& settings =
      options.SettingsFile.empty() ? options.Jobs.front() : options.SettingsFile;
  if (!console.Try(settings, [&] { StartAfresh(catalogues, options.DrawingWidth); })) {
    return ExitFault;
  }
  const std::optional<Job> before = JobIn(options.Jobs.front(), options, console);
  const std::optional<Job> after = JobIn(options.Jobs.back(), options, console);
  if (!before || !after) return ExitFault;
  JobComparison comparison;
  if (!console.Try(options.Jobs.back(),
                   [&] { comparison = CompareJobs(ViewOf(*before), ViewOf(*after)); })) {
    return ExitFault;
  }
  if (!(out << ComparisonText(comparison) << std::flush)) return ExitFault;
  if (comparison.Lines.empty()) {
    console.Say("No difference");
    return ExitDone;
  }
  console.Say("Different: " + comparison.Words);
  return ExitDifferent;
}

}  // namespace orvane
