// The lock that shows others that a job is open: a file beside the job, laid by TheDesktop. It is
// advice, not force: who is told of it may go on. Where no file can be made there is none, and
// nobody is asked; nor does it matter to the companion, which has the desktop without locks.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "core/file_lock.h"

namespace orvane {

// The lock file of a job: .NAME.lock in the folder of the file that a link leads to, since there
// all who have that job open meet. It must be a name beside the job, not in a folder of the user's
// own, for others to see it; the point in front hides it where the platform hides such names, and
// the ending keeps it out of lists of jobs.
std::string LockPathOf(const std::string& job);

// A job's lock. Without Lock it couldn't be laid, or somebody else's stands there.
struct JobLock {
  std::string Path;  // of the lock file; empty for no job
  std::unique_ptr<FileLock> Lock;
};

enum class OpenAs { Job, Copy, Nothing };

// What comes of a job that is about to be opened.
struct LockedOpening {
  OpenAs As = OpenAs::Job;
  JobLock Lock;  // to be held once the job is open
};

// Lays the lock of a job before it is opened; if somebody else has it open, asks what to do. What
// is open in this window already is its own. What isn't an ordinary file gets no lock.
LockedOpening LockToOpen(const std::string& job);

// Lays the lock of a file before the open job is saved as that. None if somebody else has it open
// and it is to be left alone; whoever has opened the job all the same isn't asked again.
std::optional<JobLock> LockToSave(const std::string& job);

// That lock is the open job's now, and the former one goes. The one that is held already stays.
void HoldJobLock(JobLock lock);

// The open job has none any more.
void DropJobLock();

// The job is open again after its lock was dropped: lays it. False if somebody else has taken it
// meanwhile; nobody is asked then, but at the next save.
bool LayJobLockAgain(const std::string& job);

}  // namespace orvane
