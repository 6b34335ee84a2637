#include "tools/batch_clashes.h"
#include "output/design_check_rules.h"

#include <cstddef>
#include <filesystem>
#include <map>
#include <system_error>
#include <unordered_map>
#include <utility>

#include "core/catalogue_folder.h"
#include "core/catalogues.h"
#include "core/files.h"
#include "core/text.h"

namespace orvane {

namespace {

namespace fs = std::filesystem;

// A path without its detours, to compare it with another.
fs::path Resolved(const fs::path& path) {
  std::error_code error;
  const fs::path resolved = fs::weakly_canonical(path, error);
  return error ? fs::absolute(path).lexically_normal() : resolved;
}

fs::path Resolved(const std::string& path) {
  return Resolved(NativePath(path));
}

fs::path OutFolderOf(const BatchOptions& options) {
  return Resolved(options.OutFolder.empty() ? fs::path(".") : NativePath(options.OutFolder));
}

// Where a result of that name is written to. Only a link in the folder leads out of it.
fs::path PlaceOf(const fs::path& outFolder, const std::string& name) {
  const fs::path path = outFolder / NativePath(name);
  std::error_code unknown;
  return fs::is_symlink(path, unknown) ? Resolved(path) : path;
}

// Where the results of the jobs would be written, and by which job.
class Results {
 public:
  explicit Results(const BatchOptions& options) : out_(OutFolderOf(options)) {
    for (const std::string& job : options.Jobs) {
      for (const std::string& name : ResultNames(options, job)) {
        jobs_.emplace(PlaceOf(out_, name), job);
      }
      if (options.Svg) svgJobs_.emplace(FileName(SvgFileName(job, 1)), job);
    }
  }

  // The job that would write over the file; empty for none. Any sheet of a job may be there.
  std::string JobOver(const std::string& file) const {
    const fs::path target = Resolved(file);
    const auto found = jobs_.find(target);
    if (found != jobs_.end()) return found->second;
    const SvgName svg = SvgNameOf(FileName(file));
    const auto drawn = svgJobs_.find(svg.Sheet > 0 ? SvgFileName(svg.Job, 1) : "");
    const bool here = drawn != svgJobs_.end() && target == PlaceOf(out_, FileName(file));
    return here ? drawn->second : "";
  }

 private:
  fs::path out_;
  std::map<fs::path, std::string> jobs_;
  std::unordered_map<std::string, std::string> svgJobs_;  // by the name of the first sheet
};

// Says what the job, written again, would destroy; empty if nothing. Over its own file it may be
// written: that is a save.
std::string ResaveFault(const BatchOptions& options) {
  if (options.Resave.empty()) return "";
  const fs::path target = Resolved(options.Resave);
  std::vector<std::string> kept;
  if (!options.SettingsFile.empty()) kept.push_back(options.SettingsFile);
  for (const std::string_view name : {DimsFile, PunchFile, Accs1File, Accs2File, CheckFile}) {
    kept.push_back(CataloguePath(name));
  }
  for (const std::string& file : kept) {
    if (Resolved(file) == target) return "--resave would overwrite " + file;
  }
  // A save keeps the former file as its backup, which would be the job itself.
  const fs::path backup = Resolved(options.Resave + ".bak");
  for (const std::string& job : options.Jobs) {
    if (Resolved(job) == backup) {
      return "--resave would overwrite " + job + ", the backup of its file";
    }
  }
  return "";
}

}  // namespace

std::vector<std::string> ClashesOf(const BatchOptions& options) {
  const std::vector<std::string>& jobs = options.Jobs;
  const fs::path outFolder = OutFolderOf(options);
  const auto place = [&outFolder](const std::string& name) {
    return UpperCase(PathText(PlaceOf(outFolder, name)));
  };
  std::unordered_map<std::string, std::vector<std::size_t>> writers;
  for (std::size_t job = 0; job < jobs.size(); ++job) {
    for (const std::string& name : ResultNames(options, jobs.at(job))) {
      writers[place(name)].push_back(job);
    }
  }
  std::vector<std::string> clashes(jobs.size());
  for (std::size_t job = 0; job < jobs.size(); ++job) {
    for (const std::string& name : ResultNames(options, jobs.at(job))) {
      const std::vector<std::size_t>& all = writers.at(place(name));
      if (all.size() < 2 || !clashes.at(job).empty()) continue;
      const std::size_t other = all.front() == job ? all.at(1) : all.front();
      clashes.at(job) = "not done, since " + jobs.at(other) + " would write " + name + " too";
    }
  }
  return clashes;
}

std::string OverwriteFault(const BatchOptions& options) {
  std::string fault = ResaveFault(options);
  if (!fault.empty()) return fault;
  std::vector<std::string> given = options.Jobs;
  if (!options.SettingsFile.empty()) given.push_back(options.SettingsFile);
  if (!options.Resave.empty()) given.push_back(options.Resave);
  const Results results(options);
  for (const std::string& file : given) {
    const std::string job = results.JobOver(file);
    if (job.empty()) continue;
    fault = "the factory files of ";
    return fault.append(job).append(" would overwrite ").append(file);
  }
  return "";
}

}  // namespace orvane
