// The few calls of the operating system by which files are read and take the place of others,
// behind one interface: the system's own answer them, unless somebody stands in for a disk that
// fails.
#pragma once

#include <cerrno>
#include <cstdint>
#include <string>
#include <string_view>

namespace orvane {

// How a call ended: 0, or the system's number of the error (errno); behind it what the call gives.
// EINTR is a call that a signal has interrupted and that is to be made again: Again does. Paths are
// UTF-8 text.
struct DiskResult {
  int Error = 0;
  std::int64_t Value = 0;
};

// Makes a call of the disk, and again for as long as it is merely interrupted; not for ever, since
// a disk that never does anything else is broken.
template <class Call>
DiskResult Again(const Call& call) {
  constexpr int MostInterruptions = 1000;
  DiskResult result = call();
  for (int at = 0; result.Error == EINTR && at < MostInterruptions; ++at) result = call();
  return result;
}

// The error of opening something that is neither a file nor a folder: a pipe, a socket, a device.
// No error of the system bears it.
constexpr int NoFileError = -1;

class Disk {
 public:
  virtual ~Disk() = default;

  // Opens a file, a pipe or a device for reading, and gives its handle.
  virtual DiskResult OpenToRead(const std::string& path);
  // Reads what comes next into `bytes`, which has room for `size`; gives the number of bytes read,
  // 0 at the end.
  virtual DiskResult Read(std::int64_t file, char* bytes, std::size_t size);

  // Opens a file that stands there for writing, gives its handle and leaves its content as it is.
  // What is no ordinary file is an error, a folder too, and none of them is waited for.
  virtual DiskResult OpenOld(const std::string& path);
  // Makes a new file, and gives its handle; EEXIST where the name is taken, by a link that leads
  // nowhere too. A private one can be read by nobody else until it gets its rights.
  virtual DiskResult Create(const std::string& path, bool isPrivate);
  // Writes behind what was written; gives the number of bytes taken, which may be fewer.
  virtual DiskResult Write(std::int64_t file, std::string_view bytes);
  // Cuts a file off behind what was written.
  virtual DiskResult CutOff(std::int64_t file);
  // Gives a file the permissions of another, and its owner and group as far as the system lets. A
  // disk that knows no permissions is no error.
  virtual DiskResult CopyRights(const std::string& from, std::int64_t to);
  // Brings a file to the disk; what has nothing to bring is no error.
  virtual DiskResult Sync(std::int64_t file);
  // The handle is gone, whatever the result; so an interruption is none here.
  virtual DiskResult Close(std::int64_t file);
  // Gives a file the name of another one, which goes, in one step.
  virtual DiskResult Move(const std::string& from, const std::string& to);
  // Brings the names of a folder to the disk; empty for the current folder. One that may not be
  // read, and a disk that has nothing to bring, are no errors.
  virtual DiskResult SyncFolder(const std::string& folder);
  virtual DiskResult Remove(const std::string& path);
};

// The disk that files are written to, application-wide: the system's own until another is
// installed, which is kept alive by who installs it until it is uninstalled.
void InstallDisk(Disk& disk);
void UninstallDisk();
Disk& TheDisk();

// Whether Windows takes the last part of a path for a device (CON, PRN, AUX, NUL, COM1 to COM9,
// LPT1 to LPT9, with any ending): what is written there has gone. Its disk refuses them.
bool NamesDevice(std::string_view path);

// The path from the root on, as the system means it in the current folder.
std::string WholePath(const std::string& path);

// A number that no other running program has, for names that must not meet.
long long ProcessId();
// Whether a program of that number runs on this computer.
bool IsRunning(long long processId);
// Whether a file is the user's own and open in no program that writes it, on this computer or
// another one, as far as its disk can tell.
bool IsAbandoned(const std::string& path);

}  // namespace orvane
