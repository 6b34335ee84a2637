#include "tests/support/failing_disk.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <iostream>

namespace orvane::test {

FailingDisk::FailingDisk(const Fault& fault) : fault_(fault) {
  InstallDisk(*this);
}

FailingDisk::~FailingDisk() {
  UninstallDisk();
}

int FailingDisk::Due(const std::string& name) {
  Calls.push_back(name);
  const int call = static_cast<int>(Calls.size());
  strikes_ = call == fault_.Call;
  if (strikes_) {
    Struck = true;
    MovedBefore = std::find(Calls.begin(), Calls.end() - 1, "move") != Calls.end() - 1;
  }
  const bool still = fault_.Stays && Struck && name != "close" && name != "remove";
  strikes_ = strikes_ || still;
  return strikes_ ? fault_.Error : 0;
}

std::size_t FailingDisk::Carried(std::size_t size) const {
  return strikes_ && fault_.Error == 0 ? (size + 1) / 2 : std::min(size, MostTaken);
}

DiskResult FailingDisk::OpenToRead(const std::string& path) {
  if (const int error = Due("open to read")) return {error};
  return Disk::OpenToRead(path);
}

DiskResult FailingDisk::Read(std::int64_t file, char* bytes, std::size_t size) {
  if (const int error = Due("read")) return {error};
  return Disk::Read(file, bytes, Carried(size));
}

DiskResult FailingDisk::OpenOld(const std::string& path) {
  if (const int error = Due("open")) return {error};
  return Disk::OpenOld(path);
}

DiskResult FailingDisk::Create(const std::string& path, bool isPrivate) {
  if (const int error = Due("create")) return {error};
  return Disk::Create(path, isPrivate);
}

DiskResult FailingDisk::Write(std::int64_t file, std::string_view bytes) {
  if (const int error = Due("write")) return {error};
  return Disk::Write(file, bytes.substr(0, Carried(bytes.size())));
}

DiskResult FailingDisk::CutOff(std::int64_t file) {
  if (const int error = Due("cut off")) return {error};
  return Disk::CutOff(file);
}

DiskResult FailingDisk::CopyRights(const std::string& from, std::int64_t to) {
  if (const int error = Due("rights")) return {error};
  return Disk::CopyRights(from, to);
}

DiskResult FailingDisk::Sync(std::int64_t) {
  return {Due("sync")};
}

DiskResult FailingDisk::Close(std::int64_t file) {
  const int error = Due("close");
  const DiskResult closed = Disk::Close(file);
  return error != 0 && error != EINTR ? DiskResult{error} : closed;
}

DiskResult FailingDisk::Move(const std::string& from, const std::string& to) {
  if (const int error = Due("move")) return {error};
  return Disk::Move(from, to);
}

DiskResult FailingDisk::SyncFolder(const std::string&) {
  return {Due("sync folder")};
}

DiskResult FailingDisk::Remove(const std::string& path) {
  if (const int error = Due("remove")) return {error};
  return Disk::Remove(path);
}

bool Fault::Heals() const {
  return Error == 0 || (Error == EINTR && !Stays);
}

std::string TextOf(const Fault& fault, const FailingDisk& disk) {
  return "call " + std::to_string(fault.Call) + ", " +
         disk.Calls.at(static_cast<std::size_t>(fault.Call - 1)) + ": " +
         (fault.Error == 0 ? "half of the bytes" : std::strerror(fault.Error)) +
         (fault.Stays ? ", for good" : "");
}

int ForEachFault(const std::function<void()>& prepare, const std::function<void()>& action,
                 const std::function<void(const Fault&, const FailingDisk&)>& look) {
  int met = 0;
  for (const int error : {ENOSPC, EIO, EACCES, EINTR, 0}) {
    for (const bool stays : {false, true}) {
      for (int call = 1;; ++call) {
        prepare();
        const Fault fault{call, error, stays};
        FailingDisk disk(fault);
        action();
        if (!disk.Struck) break;
        look(fault, disk);
        ++met;
      }
    }
  }
  EXPECT_GT(met, 10);
  ::testing::Test::RecordProperty("faults", met);
  std::cout << met << " faults\n";
  return met;
}

}  // namespace orvane::test
