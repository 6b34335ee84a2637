#include "project/versions.h"

#include <algorithm>
#include <chrono>
#include <exception>
#include <filesystem>
#include <memory>
#include <mutex>
#include <string_view>
#include <system_error>
#include <tuple>
#include <utility>

#include "core/desktop.h"
#include "core/disk.h"
#include "core/file_replacement.h"
#include "core/files.h"
#include "core/numbers.h"
#include "core/text.h"
#include "core/text_file.h"

namespace orvane {

namespace {

namespace fs = std::filesystem;

std::string keptIn;  // the folder of them all

// What the last failures told, from whatever thread.
std::mutex troubleLock;
std::string trouble;

constexpr std::string_view UntitledFolder = "untitled";
constexpr std::string_view Ending = ".version";
// In each folder: the path of the job. Its rights are those of the versions beside it.
constexpr std::string_view PathFile = "job.txt";
// What a version begins with, the check of its bytes and a line end behind it.
constexpr std::string_view FirstWords = "Orvane version 1 ";

// Hours, days and weeks in seconds.
constexpr long long Hour = 3600;
constexpr long long Day = 24 * Hour;
constexpr long long Week = 7 * Day;

// A number of which two texts hardly ever have the same: FNV-1a, without its sign.
long long CheckOf(std::string_view bytes) {
  std::uint64_t check = 14695981039346656037U;
  for (const char byte : bytes) {
    check = (check ^ static_cast<unsigned char>(byte)) * 1099511628211U;
  }
  return static_cast<long long>(check >> 1U);
}

// Seconds since a Monday long ago, by the clock on the wall.
long long SecondsOf(const Moment& moment) {
  namespace chrono = std::chrono;
  const chrono::sys_days day = chrono::year(moment.Day.Year) /
                               chrono::month(static_cast<unsigned>(moment.Day.Month)) /
                               chrono::day(static_cast<unsigned>(moment.Day.Day));
  const chrono::sys_days monday = chrono::year(1899) / chrono::month(1) / chrono::day(2);
  return (day - monday).count() * Day + moment.Hour * Hour + moment.Minute * 60LL + moment.Second;
}

// --- Names of files

// A version that is there, with what its name tells only of its place among the others.
struct KeptVersion {
  long long Number = 0;  // counts the versions of a job
  Version Shown;
};

std::string NameOf(const KeptVersion& kept) {
  const Moment& time = kept.Shown.Time;
  // The number of the program keeps two of them apart that keep the same job at once.
  return PaddedText(kept.Number, 8) + "-" + PaddedText(time.Day.Year, 4) +
         PaddedText(time.Day.Month, 2) + PaddedText(time.Day.Day, 2) + "T" +
         PaddedText(time.Hour, 2) + PaddedText(time.Minute, 2) + PaddedText(time.Second, 2) + "-" +
         DecimalText(ProcessId()) + "-" +
         (kept.Shown.Kind == VersionKind::LeftUnsaved ? "unsaved" : "saved") + "-" +
         (kept.Shown.Sections ? DecimalText(*kept.Shown.Sections) : "x") + std::string(Ending);
}

// Takes a text off the front; false if it doesn't stand there.
bool Take(std::string_view& rest, std::string_view text) {
  if (!rest.starts_with(text)) return false;
  rest.remove_prefix(text.size());
  return true;
}

// What such a name tells; none of another name.
std::optional<KeptVersion> VersionNamed(std::string_view name) {
  constexpr std::size_t MostDigits = 9;
  KeptVersion kept;
  Moment& time = kept.Shown.Time;
  kept.Number = TakeDigits(name, MostDigits);
  if (kept.Number < 0 || !Take(name, "-")) return std::nullopt;
  time.Day.Year = TakeDigits(name, 4);
  time.Day.Month = TakeDigits(name, 2);
  time.Day.Day = TakeDigits(name, 2);
  if (!IsDate(time.Day) || !Take(name, "T")) return std::nullopt;
  time.Hour = TakeDigits(name, 2);
  time.Minute = TakeDigits(name, 2);
  time.Second = TakeDigits(name, 2);
  const bool isTime = std::min({time.Hour, time.Minute, time.Second}) >= 0 && time.Hour < 24 &&
                      time.Minute < 60 && time.Second < 60;
  if (!isTime || !Take(name, "-") || TakeDigits(name, MostDigits) < 0 || !Take(name, "-")) {
    return std::nullopt;
  }
  if (Take(name, "unsaved-")) {
    kept.Shown.Kind = VersionKind::LeftUnsaved;
  } else if (!Take(name, "saved-")) {
    return std::nullopt;
  }
  const int sections = TakeDigits(name, MostDigits);
  if (sections >= 0) {
    kept.Shown.Sections = sections;
  } else if (!Take(name, "x")) {
    return std::nullopt;
  }
  return name == Ending ? std::optional(kept) : std::nullopt;
}

std::string InFolder(const std::string& folder, std::string_view name) {
  return PathText(NativePath(folder) / NativePath(std::string(name)));
}

// The folder of a job's versions. Should two paths ever have one number, they share the folder, and
// each sees the other's versions too.
std::string FolderOf(const std::string& all, const std::string& jobPath) {
  return InFolder(all,
                  jobPath.empty() ? std::string(UntitledFolder) : DecimalText(CheckOf(jobPath)));
}

// The job's path as it names a folder: absolute, and empty for a job without a name.
std::string NamingPath(const std::string& jobPath) {
  if (Trim(jobPath).empty()) return {};
  return PathText(NativePath(AbsolutePath(jobPath)).lexically_normal());
}

// --- Folders

// The names in a folder; none of one that can't be read.
std::vector<std::string> NamesIn(const std::string& folder) {
  std::vector<std::string> names;
  std::error_code error;
  fs::directory_iterator entries(NativePath(folder), error);
  for (; !error && entries != fs::directory_iterator(); entries.increment(error)) {
    names.push_back(PathText(entries->path().filename()));
  }
  return names;
}

// The versions in a folder, in the order in which they were kept.
std::vector<KeptVersion> KeptVersionsIn(const std::string& folder) {
  std::vector<KeptVersion> versions;
  for (const std::string& name : NamesIn(folder)) {
    std::optional<KeptVersion> kept = VersionNamed(name);
    if (!kept) continue;
    kept->Shown.File = InFolder(folder, name);
    std::error_code unknown;
    const bool isFile =
        fs::symlink_status(NativePath(kept->Shown.File), unknown).type() == fs::file_type::regular;
    if (isFile) versions.push_back(*kept);
  }
  std::sort(versions.begin(), versions.end(), [](const KeptVersion& a, const KeptVersion& b) {
    return std::pair(a.Number, a.Shown.File) < std::pair(b.Number, b.Shown.File);
  });
  return versions;
}

// Makes what a job's versions need in its folder, and gives the file whose rights they get.
std::string MakeReady(const std::string& folder, const std::string& jobPath) {
  const std::string pathFile = InFolder(folder, PathFile);
  if (IsRegularFile(pathFile)) return pathFile;
  MakePrivateFolder(folder);
  // A version may be all that is left of a job: a power cut mustn't take the folders.
  BringNameToDisk(folder);
  BringNameToDisk(PathText(NativePath(folder).parent_path()));
  ReplaceWholeFile(pathFile, jobPath + "\n");
  std::error_code unknownHere;
  fs::permissions(NativePath(pathFile), fs::perms::owner_read | fs::perms::owner_write,
                  unknownHere);
  return pathFile;
}

// Removes what programs that were killed have left beside the versions.
void Sweep(const std::string& folder) {
  for (const std::string& name : NamesIn(folder)) {
    const std::size_t ending = name.find(Ending);
    if (ending == std::string::npos || name.ends_with(Ending)) continue;
    SweepLeftovers(InFolder(folder, name.substr(0, ending + Ending.size())));
  }
}

// --- Contents

// The number of sections that a project file tells; none of what isn't one.
std::optional<int> SectionsIn(std::string_view bytes) {
  constexpr std::size_t HeadLength = 65536;  // its details, however long
  constexpr int LinesBefore = 6;
  TextFile file(DecodeText(std::string(bytes.substr(0, HeadLength))));
  try {
    for (int line = 0; line < LinesBefore; ++line) file.ReadField();
    const std::int16_t sections = file.ReadInt16();
    return sections < 0 ? std::nullopt : std::optional<int>(sections);
  } catch (const RuntimeError&) {
    return std::nullopt;
  }
}

std::string Packed(const std::string& bytes) {
  return std::string(FirstWords) + DecimalText(CheckOf(bytes)) + "\n" +
         TheDesktop().Compress(bytes);
}

// The bytes again; none if they aren't those that were packed.
std::optional<std::string> Unpacked(std::string_view packed) {
  const std::size_t lineEnd = packed.find('\n');
  if (!Take(packed, FirstWords) || lineEnd == std::string_view::npos) return std::nullopt;
  const std::size_t length = lineEnd - FirstWords.size();
  const std::string_view check = packed.substr(0, length);
  try {
    std::string bytes = TheDesktop().Decompress(packed.substr(length + 1));
    return check == DecimalText(CheckOf(bytes)) ? std::optional(std::move(bytes)) : std::nullopt;
  } catch (const RuntimeError&) {
    return std::nullopt;
  }
}

bool Holds(const std::string& file, const std::string& bytes) {
  try {
    return ReadVersion(file) == bytes;
  } catch (const RuntimeError&) {
    return false;
  }
}

// --- What is too much

void Remove(const std::string& file) {
  (void)Again([&] { return TheDisk().Remove(file); });
}

void ThinOut(const std::vector<KeptVersion>& versions) {
  std::vector<Moment> times;
  for (const KeptVersion& kept : versions) times.push_back(kept.Shown.Time);
  for (const std::size_t at : VersionsTooMany(times)) Remove(versions.at(at).Shown.File);
}

struct StoredVersion {
  long long Time = 0;
  long long Number = 0;
  std::string File;
  std::uintmax_t Bytes = 0;
};

// Of all jobs, the oldest first. A time that is still to come is the present one.
std::vector<StoredVersion> AllVersions(const std::string& all, const Moment& now) {
  std::vector<StoredVersion> versions;
  for (const std::string& name : NamesIn(all)) {
    for (const KeptVersion& kept : KeptVersionsIn(InFolder(all, name))) {
      std::error_code error;
      const std::uintmax_t bytes = fs::file_size(NativePath(kept.Shown.File), error);
      if (error) continue;
      versions.push_back({std::min(SecondsOf(kept.Shown.Time), SecondsOf(now)), kept.Number,
                          kept.Shown.File, bytes});
    }
  }
  std::sort(versions.begin(), versions.end(), [](const StoredVersion& a, const StoredVersion& b) {
    return std::tie(a.Time, a.Number, a.File) < std::tie(b.Time, b.Number, b.File);
  });
  return versions;
}

void ThinOutAll(const std::string& all, const Moment& now, const std::string& justKept) {
  const std::vector<StoredVersion> versions = AllVersions(all, now);
  std::uintmax_t bytes = 0;
  for (const StoredVersion& version : versions) bytes += version.Bytes;
  for (const StoredVersion& version : versions) {
    if (bytes <= MostVersionBytes) return;
    if (version.File == justKept) continue;
    Remove(version.File);
    bytes -= version.Bytes;
  }
}

// Whether two moments, in seconds, are such that the later one stands in for the other, which is
// `age` seconds old.
bool StandsIn(long long later, long long earlier, long long age) {
  const long long span = age > 2 * Week ? Week : age > Day ? Day : Hour;
  return later / span == earlier / span;
}

}  // namespace

void KeepVersionsIn(const std::string& dataFolder) {
  keptIn = dataFolder.empty() ? std::string() : InFolder(dataFolder, "versions");
}

bool KeepsVersions() {
  return !keptIn.empty();
}

VersionToKeep VersionOf(const std::string& jobPath, VersionKind kind, std::string bytes) {
  return {keptIn, NamingPath(jobPath), TheDesktop().Now(), kind, std::move(bytes)};
}

void KeepVersion(const VersionToKeep& version) {
  static std::mutex oneAtATime;  // or two threads would give one number twice
  const std::lock_guard lock(oneAtATime);
  if (version.Folder.empty()) throw RuntimeError(Failure::PathNotFound);
  MakePrivateFolder(version.Folder);
  const std::string folder = FolderOf(version.Folder, version.JobPath);
  const std::string rightsOf = MakeReady(folder, version.JobPath);
  Sweep(folder);
  std::vector<KeptVersion> versions = KeptVersionsIn(folder);
  if (!versions.empty() && Holds(versions.back().Shown.File, version.Bytes)) return;

  KeptVersion kept;
  kept.Number = versions.empty() ? 1 : versions.back().Number + 1;
  kept.Shown.Time = version.Time;
  kept.Shown.Kind = version.Kind;
  kept.Shown.Sections = SectionsIn(version.Bytes);
  kept.Shown.File = InFolder(folder, NameOf(kept));
  ReplaceWholeFile(kept.Shown.File, Packed(version.Bytes), rightsOf);
  versions.push_back(kept);
  ThinOut(versions);
  ThinOutAll(version.Folder, version.Time, kept.Shown.File);
}

void KeepVersionApart(VersionToKeep version) {
  if (version.Folder.empty()) return;
  const auto shared = std::make_shared<const VersionToKeep>(std::move(version));
  TheDesktop().RunApart([shared] {
    try {
      KeepVersion(*shared);
    } catch (const std::exception& error) {
      const std::lock_guard lock(troubleLock);
      trouble = error.what();
    }
  });
}

std::string TakeVersionTrouble() {
  const std::lock_guard lock(troubleLock);
  return std::exchange(trouble, {});
}

std::vector<std::size_t> VersionsTooMany(const std::vector<Moment>& times) {
  constexpr std::size_t LatestOnes = 10;  // that no other stands in for
  struct Left {
    std::size_t Place;
    long long Time;
  };
  std::vector<Left> left(times.size());
  for (std::size_t at = times.size(); at-- > 0;) {
    const long long time = SecondsOf(times[at]);
    left[at] = {at, at + 1 < times.size() ? std::min(time, left[at + 1].Time) : time};
  }
  std::vector<std::size_t> tooMany;
  while (left.size() > MostVersions) {
    std::size_t goes = 0;
    for (std::size_t at = 0; at + LatestOnes < left.size(); ++at) {
      if (!StandsIn(left[at + 1].Time, left[at].Time, left.back().Time - left[at].Time)) continue;
      goes = at;
      break;
    }
    tooMany.push_back(left[goes].Place);
    left.erase(left.begin() + static_cast<std::ptrdiff_t>(goes));
  }
  return tooMany;
}

std::vector<Version> VersionsOf(const std::string& jobPath) {
  std::vector<Version> shown;
  if (!KeepsVersions()) return shown;
  const auto add = [&](const std::string& path) {
    const std::vector<KeptVersion> versions = KeptVersionsIn(FolderOf(keptIn, path));
    for (auto kept = versions.rbegin(); kept != versions.rend(); ++kept) {
      shown.push_back(kept->Shown);
      shown.back().IsUntitled = path.empty();
    }
  };
  const std::string path = NamingPath(jobPath);
  if (!path.empty()) add(path);
  add({});
  return shown;
}

std::string ReadVersion(const std::string& file) {
  std::optional<std::string> bytes = Unpacked(ReadWholeFile(file));
  if (!bytes) {
    throw ErrorInFile(
        file, RuntimeError(Failure::TypeMismatch, "This version is damaged and can't be opened"));
  }
  return std::move(*bytes);
}

}  // namespace orvane
