// A file that is written beside the one whose place it takes, so that an error, a full disk or a
// power cut leaves the former file whole.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "core/runtime_error.h"

namespace orvane {

// Each step raises the system's error, under the path as it was given. Whoever doesn't come to the
// end of Commit leaves the former file, or none where there was none, and nothing new. Killed on
// the way, a program leaves NAME.PID.tmp behind, PID its process's number; of a name too long for
// that only the beginning. A disk is installed for as long as a replacement lives (core/disk).
class FileReplacement {
 public:
  // Begins a new file beside `path`. A link is followed, and the file that it leads to is replaced.
  // The former file must be one that may be written, since its folder alone would let it be
  // replaced; what is no ordinary file, such as a pipe or a device, is refused and not waited for.
  explicit FileReplacement(const std::string& path);
  ~FileReplacement();
  FileReplacement(const FileReplacement&) = delete;
  FileReplacement& operator=(const FileReplacement&) = delete;

  // Adds to the new file.
  void Write(std::string_view bytes);

  // Brings the new file to the disk, gives it the former one's permissions, its owner and group
  // where the system lets, and its name, and brings the folder to the disk. An error of this last
  // step is raised although the new file stands: a power cut may still bring the former one back.
  void Commit();

 private:
  void CreateFresh();
  void WriteThrough(std::string_view bytes);
  void Check(int error) const;
  void CloseOld();

  std::string path_;    // as it was given
  std::string target_;  // the same, links followed
  std::string fresh_;   // the new file; empty once it bears its name
  std::int64_t old_ = -1;
  std::int64_t file_ = -1;
  std::string buffer_;
};

// Replaces `path` by these bytes as one step: on an error the former file stands whole, or none if
// there was none, and nothing new is left behind. What is no ordinary file is refused.
void ReplaceWholeFile(const std::string& path, std::string_view bytes);

}  // namespace orvane
