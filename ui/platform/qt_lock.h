// Locks on files, on the toolkit.
#pragma once

#include <string>

#include "core/file_lock.h"

namespace orvane {

// As Desktop::LayLock.
LaidLock LayLockFile(const std::string& path, LockOfOthers others);

}  // namespace orvane
