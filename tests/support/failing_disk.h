// A disk that fails by script: one call, or that one and all behind it.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "core/disk.h"

namespace orvane::test {

// How the disk fails.
struct Fault {
  int Call = 0;        // counted from 1 since the installation; 0 for none
  int Error = 0;       // of the system; 0 for a write or read that carries half of its bytes
  bool Stays = false;  // every later call fails too, but for closing and removing, which a full or
                       // broken disk still does
  // Nothing has failed in the end: the rest of the bytes, and the same call again, go through.
  bool Heals() const;
};

// "call 3, write: Disk full, for good", for the message of a test.
std::string TextOf(const Fault& fault, const class FailingDisk& disk);

// Installed for its life. Nothing is brought to the disk in truth: no test could tell, and it would
// take most of the time.
class FailingDisk : public Disk {
 public:
  explicit FailingDisk(const Fault& fault);
  ~FailingDisk() override;
  FailingDisk(const FailingDisk&) = delete;
  FailingDisk& operator=(const FailingDisk&) = delete;

  bool Struck = false;              // the fault's call was made
  bool MovedBefore = false;         // a file had taken its name when it was
  std::size_t MostTaken = 1 << 20;  // bytes that one write takes at most
  std::vector<std::string> Calls;   // by name

  DiskResult OpenToRead(const std::string& path) override;
  DiskResult Read(std::int64_t file, char* bytes, std::size_t size) override;
  DiskResult OpenOld(const std::string& path) override;
  DiskResult Create(const std::string& path, bool isPrivate) override;
  DiskResult Write(std::int64_t file, std::string_view bytes) override;
  DiskResult CutOff(std::int64_t file) override;
  DiskResult CopyRights(const std::string& from, std::int64_t to) override;
  DiskResult Sync(std::int64_t file) override;
  DiskResult Close(std::int64_t file) override;
  DiskResult Move(const std::string& from, const std::string& to) override;
  DiskResult SyncFolder(const std::string& folder) override;
  DiskResult Remove(const std::string& path) override;

 private:
  // The error of the call that is made now; 0 if it may go on.
  int Due(const std::string& name);
  // The bytes that this call of `size` may carry.
  std::size_t Carried(std::size_t size) const;

  Fault fault_;
  bool strikes_ = false;  // the call that is made now
};

// Every fault that the action can meet, from its first call of the disk to its last, by a full and
// by a broken disk, one that denies, one that is interrupted and one that carries half of the
// bytes, once and for good. `look` is told of each when it is over. Gives their number, which is
// printed.
int ForEachFault(const std::function<void()>& prepare, const std::function<void()>& action,
                 const std::function<void(const Fault& fault, const FailingDisk& disk)>& look);

}  // namespace orvane::test
