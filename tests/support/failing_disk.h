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
  int Error = 0;       // of the system
  bool Stays = false;  // every later call fails too, but for closing and removing, which a full or
                       // broken disk still does
};

// Installed for its life.
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

  DiskResult OpenOld(const std::string& path) override;
  DiskResult Create(const std::string& path, bool isPrivate) override;
  DiskResult Write(std::int64_t file, std::string_view bytes) override;
  DiskResult CopyRights(std::int64_t from, std::int64_t to) override;
  DiskResult Sync(std::int64_t file) override;
  DiskResult Close(std::int64_t file) override;
  DiskResult Move(const std::string& from, const std::string& to) override;
  DiskResult SyncFolder(const std::string& folder) override;
  DiskResult Remove(const std::string& path) override;

 private:
  // The error of the call that is made now; 0 if it may go on.
  int Due(const std::string& name);

  Fault fault_;
};

// Every fault that the action can meet, from its first call of the disk to its last, by a full and
// by a broken disk and one that denies, once and for good. `look` is told of each when it is over.
void ForEachFault(const std::function<void()>& prepare, const std::function<void()>& action,
                  const std::function<void(const Fault& fault, const FailingDisk& disk)>& look);

}  // namespace orvane::test
