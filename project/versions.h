// The earlier versions of jobs, in the user's data folder: what a save replaced, and what was left
// unsaved. A folder for each job, and one for all that never had a name; a file for each version,
// whose name tells all that a list of them shows, so that a damaged file is no trouble until it is
// opened. Nobody but the user can read them. No screen, no thread and no table is known here.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "core/dates.h"

namespace orvane {

// The user's data folder, in whose folder "versions" they are kept from now on. With none, as in
// the companion and until the program has said so, none are kept and none are listed.
void KeepVersionsIn(const std::string& dataFolder);
bool KeepsVersions();

enum class VersionKind {
  BeforeSave,  // a save has replaced it
  LeftUnsaved  // it was left without being saved
};

// A version that is to be kept, with all that is needed for it, so that any thread can do it.
struct VersionToKeep {
  std::string Folder;   // of all versions; empty for none
  std::string JobPath;  // absolute; empty for a job without a name
  Moment Time;
  VersionKind Kind = VersionKind::BeforeSave;
  std::string Bytes;  // of a project file, whether it can be read or not
};

// The version of a job that is kept now. `jobPath` may be relative; blanks are no name.
VersionToKeep VersionOf(const std::string& jobPath, VersionKind kind, std::string bytes);

// Keeps it, and brings it to the disk; then what is too much goes. The same bytes as in the job's
// latest version aren't kept twice. An error is raised, and what stood before stands; without a
// folder it is "Path not found". A version that is too much and can't be removed is no error.
void KeepVersion(const VersionToKeep& version);

// The same, behind what the desktop does apart from the windows (Desktop::RunApart). Without a
// folder nothing is done. An error is there to be told later.
void KeepVersionApart(VersionToKeep version);
// What went wrong in that way since it was asked last; empty for nothing.
std::string TakeVersionTrouble();

// Of one job that many versions are kept. Beyond it the oldest goes that another one stands in for:
// one that isn't among the latest ten, and has a later one in the same week if it is older than two
// weeks, of the same day if it is older than a day, of the same hour otherwise. Where each stands
// for itself, the oldest goes.
constexpr std::size_t MostVersions = 30;
// Of all jobs together that many bytes. Beyond them the oldest go, but not the one just kept.
constexpr std::uintmax_t MostVersionBytes = std::uintmax_t{200} << 20;

// Which of a job's versions go, by these rules: their places in `times`, which come in the order in
// which they were kept, the last one just now. A clock may have been set meanwhile: no version is
// taken to be later than one that was kept after it.
std::vector<std::size_t> VersionsTooMany(const std::vector<Moment>& times);

// A version that is there.
struct Version {
  std::string File;  // its path
  Moment Time;
  VersionKind Kind = VersionKind::BeforeSave;
  std::optional<int> Sections;  // none of a content that isn't a job's
  bool IsUntitled = false;      // of a job without a name
};

// The versions of that job, the latest first, and behind them those of all jobs without a name.
// What else stands in their folders is passed over, and a folder that can't be read holds none.
std::vector<Version> VersionsOf(const std::string& jobPath);

// The bytes that were kept in a file. One that is gone raises the system's error; one that isn't as
// it was written raises "Type mismatch" with words of its own.
std::string ReadVersion(const std::string& file);

}  // namespace orvane
