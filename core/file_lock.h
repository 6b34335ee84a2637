// A lock as a file that other programs, and those of other computers, see. The platform lays it
// (Desktop::LayLock).
#pragma once

#include <memory>
#include <optional>
#include <string>

namespace orvane {

// A lock that was laid; it goes when this does.
class FileLock {
 public:
  virtual ~FileLock() = default;
};

// Who holds a lock, as far as that can be told: empty, or 0, where it can't.
struct LockHolder {
  std::string User;
  std::string Computer;
  std::string Program;
  long long Seconds = 0;  // since it was laid
};

// A lock that was laid, or who holds it instead; neither where none can be laid.
struct LaidLock {
  std::unique_ptr<FileLock> Lock;
  std::optional<LockHolder> Holder;
};

// Whether a lock is to be laid where another computer's stands.
enum class LockOfOthers {
  Stands,   // it stands
  Replaced  // it goes: nobody here can tell whether its program still runs, and a person has said
            // that it isn't to be heeded
};

}  // namespace orvane
