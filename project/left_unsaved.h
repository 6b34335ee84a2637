// What is lost of a changed job when another one takes its place, or the system goes.
#pragma once

#include <string>

namespace orvane {

// Keeps what the job's file lacks as an earlier version of `jobPath`, "left unsaved"
// (project/versions), apart from the windows; nothing of a job that isn't changed since it was
// saved. Asked before the tables change. A job that can't be written down is none.
void KeepUnsaved(const std::string& jobPath);

// The job as it stands has been kept in another way: left so, it isn't kept again.
void MarkCopied();

}  // namespace orvane
