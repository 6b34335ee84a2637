// Copies of the jobs that are worked on, by which nothing is lost but the last seconds when a
// program dies. In the user's data folder "recovery" holds a folder for each running program, and
// one for each job that was left although its save came to nothing: in it the job, as a project
// file, and beside it the path that it is saved under. Paths are UTF-8 text; errors of the disk are
// raised.
#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "core/dates.h"
#include "project/job_states.h"

namespace orvane {

// A job of which a copy was left.
struct LeftJob {
  std::string Folder;                             // of the copy
  std::string File;                               // the copy, a project file
  std::string Path;                               // that the job is saved under; empty for none
  std::chrono::system_clock::time_point Written;  // when the copy was made
  bool IsOlder = false;                           // than the job's own file
  // The job's own file isn't what it was when the job was read from there or saved.
  bool IsChanged = false;
};

// Makes a new folder for copies, which is called by that moment: "2024-03-05-140709", and with -2,
// -3 behind it where that name is taken, by a link too. The data folder must stand there.
std::string MakeRecoveryFolder(const std::string& dataFolder, const Moment& now);

// The folders in a data folder, in the order of their names; none of those that can't be listed.
std::vector<std::string> RecoveryFolders(const std::string& dataFolder);

// Puts a copy of the job into the folder and takes the one before away, in such an order that one
// with its own path stands there at every moment.
// `known` tells what the job's own file held when it was read or saved (MarkText); empty where
// there was none.
void KeepCopy(const std::string& folder, const std::string& path, const std::string& known,
              const std::string& text);

// Takes the copy away. What can't be removed stays.
void DropCopy(const std::string& folder);

// The copy in a folder; none where there is none. The job's own file is read for it.
std::optional<LeftJob> CopyIn(const std::string& folder);

// Removes a folder with all that it holds. What can't be removed stays.
void RemoveRecoveryFolder(const std::string& folder);

// The project file's text of a state; the same as ProjectText of the tables that it was taken from.
// Touches no table, and can be called on any thread. `between` is called before each section.
std::string TextOfState(const JobState& state, const std::function<void()>& between = nullptr);

// Puts the open project into a folder of its own in the user's data folder, for one that is about
// to be left although the save that was asked for came to nothing. `path` and `known` are as in
// KeepCopy. Asks and tells nothing; gives the path of the copy, empty if something went wrong, or
// if what was kept wouldn't open.
std::string KeepUnsavedProject(const std::string& path, const std::string& known);

}  // namespace orvane
