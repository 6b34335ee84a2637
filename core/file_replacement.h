// A file that is written beside the one whose place it takes, so that an error, a full disk or a
// power cut leaves the former file whole; and what is left where that can't be done.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "core/runtime_error.h"

namespace orvane {

// The folder doesn't let a file be made in it, or take the place of one that may itself be written.
class NoFileBeside : public RuntimeError {
 public:
  explicit NoFileBeside(const RuntimeError& error) : RuntimeError(error) {}
};

// Each step raises the system's error, under the path as it was given. Whoever doesn't come to the
// end of Commit leaves the former file, or none where there was none, and nothing new. Killed on
// the way, a program leaves NAME.PID.tmp behind, PID its process's number; of a name too long for
// that only the beginning. A disk is installed for as long as a replacement lives (core/disk).
class FileReplacement {
 public:
  // Begins a new file beside `path`. A link is followed, and the file that it leads to is replaced.
  // The former file must be one that may be written, since its folder alone would let it be
  // replaced; what is no ordinary file, such as a pipe or a device, is refused and not waited for.
  // The new file gets the permissions of `rightsOf`, or, if that is empty, those of the former one.
  explicit FileReplacement(const std::string& path, const std::string& rightsOf = {});
  ~FileReplacement();
  FileReplacement(const FileReplacement&) = delete;
  FileReplacement& operator=(const FileReplacement&) = delete;

  // Adds to the new file.
  void Write(std::string_view bytes);

  // Brings the new file to the disk, gives it its permissions, the owner and group where the system
  // lets, and its name, and brings the folder to the disk. An error of this last step is raised
  // although the new file stands: a power cut may still bring the former one back.
  void Commit();

 private:
  void CreateFresh();
  void WriteThrough(std::string_view bytes);
  void Check(int error) const;
  void CheckPlace(int error) const;
  void CloseOld();

  std::string path_;      // as it was given
  std::string target_;    // the same, links followed
  std::string rightsOf_;  // empty for the usual ones
  std::string fresh_;     // the new file; empty once it bears its name
  std::int64_t old_ = -1;
  std::int64_t file_ = -1;
  std::string buffer_;
};

// Replaces `path` by these bytes as one step: on an error the former file stands whole, or none if
// there was none, and nothing new is left behind. What is no ordinary file is refused.
// `rightsOf` is as above.
void ReplaceWholeFile(const std::string& path, std::string_view bytes,
                      const std::string& rightsOf = {});

// How a file was written over in its own place.
struct Overwriting {
  std::optional<RuntimeError> Error;  // none when all went well
  bool HoldsFormer = true;            // after an error: the file holds what it held before
};

// Writes these bytes over what a file that stands there holds, for one that must keep its place:
// killed on the way, a program leaves a file that is half of each. On an error what it held before,
// `former`, is written back.
Overwriting OverwriteWholeFile(const std::string& path, std::string_view bytes,
                               std::string_view former);

// Brings the name of a new folder to the disk, which stands in the one above it.
void BringNameToDisk(const std::string& folder);

// Whether other names lead to the same file, which would keep the old one if it were replaced.
bool HasOtherNames(const std::string& path);

// Removes what programs that were killed have left beside `path`, or beside PATH`ending`: files of
// the user's own, called as above by a number that no program of this computer has, and used by
// none of another. What can't be removed stays.
void SweepLeftovers(const std::string& path, std::string_view ending = {});

}  // namespace orvane
