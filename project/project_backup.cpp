#include "project/project_backup.h"

#include <cstdint>
#include <exception>
#include <filesystem>
#include <system_error>

#include "core/file_replacement.h"
#include "core/files.h"
#include "core/runtime_error.h"
#include "core/text.h"
#include "core/text_file.h"
#include "project/job.h"
#include "project/project_layout.h"

namespace orvane {

namespace {

// The layout's visitor that reads a file to see whether it can be read. Counts land in records of
// its own; the tables of the open project stay as they are.
class FileCheck {
 public:
  explicit FileCheck(TextFile& file) : file_(file) {}

  void OrvaneNumber(const std::string&) { file_.ReadField(); }
  void Detail(const std::string&) { file_.ReadField(); }
  void Plain(const std::string&) { file_.ReadField(); }
  void Quoted(const std::string&) { file_.ReadField(); }
  void Sign(const std::string&) { file_.ReadField(); }
  void ProjectDate(const Date&) { file_.ReadField(); }

  void Number(std::int16_t& field) { field = file_.ReadInt16(); }
  void Number(float& field) { field = file_.ReadFloat(); }
  void Number(double& field) { field = file_.ReadDouble(); }

  template <class Row>
  int Count(const Table<Row>&) {
    return file_.ReadInt16();
  }

  template <class Row>
  void Size(const Table<Row>&, int count) {
    if (count < 0) throw RuntimeError(Failure::SubscriptOutOfRange);
  }

  template <class Row>
  void Rows(const Table<Row>&, int first, int last) {
    Row scratch;
    for (int row = first; row <= last; ++row) Describe(*this, scratch);
  }

 private:
  TextFile& file_;
};

// What the flags, up to the end of the file, say of it.
ProjectContent ContentByFlags(TextFile& file) {
  const int all = AccType1Count + AccType2Count;
  int flags = 0;
  bool odd = false;
  for (; !file.AtEnd(); ++flags) {
    try {
      const double flag = file.ReadDouble();
      if (flag != True && flag != False) odd = true;
    } catch (const RuntimeError&) {
      return flags < all ? ProjectContent::Cut : ProjectContent::Odd;
    }
  }
  if (odd) return ProjectContent::Odd;
  return flags == all ? ProjectContent::Whole : ProjectContent::Old;
}

// The text without blank lines at its end, which an editor may have left there; the end of the last
// line stays.
std::string_view WithoutBlankEnd(std::string_view bytes) {
  const std::size_t last = bytes.find_last_not_of(" \t\r\n");
  if (last == std::string_view::npos) return bytes;
  const std::size_t end = bytes.find_first_of("\r\n", last);
  if (end == std::string_view::npos) return bytes;
  return bytes.substr(0, end + (bytes.compare(end, 2, "\r\n") == 0 ? 2 : 1));
}

// Whether the last line has its line end. A carriage return is one only in a file that has no line
// feeds: elsewhere it is the half of a line end that was cut.
bool EndsItsLastLine(const std::string& bytes) {
  if (bytes.empty()) return false;
  return bytes.back() == '\n' || (bytes.back() == '\r' && bytes.find('\n') == std::string::npos);
}

bool IsWorthKeeping(const std::string& bytes, const std::string& backup) {
  switch (CheckProjectContent(bytes)) {
    case ProjectContent::Whole:
    case ProjectContent::Old:
    case ProjectContent::Odd:
      return true;
    case ProjectContent::Cut:
      return !IsRegularFile(backup);
    case ProjectContent::Broken:
      break;
  }
  return false;
}

// What stands under the backup's name and is no file; empty where there is nothing or a file.
// Whoever put a link there, in a folder of many, would have the job written where it leads.
std::string Obstacle(const std::string& backup) {
  using Kind = std::filesystem::file_type;
  std::error_code unknown;
  switch (std::filesystem::symlink_status(NativePath(backup), unknown).type()) {
    case Kind::regular:
    case Kind::not_found:
      return {};
    case Kind::symlink:
      return "a link has that name";
    case Kind::directory:
      return "a folder has that name";
    default:
      return "what has that name is no file";
  }
}

}  // namespace

ProjectContent CheckProjectContent(const std::string& bytes) {
  TextFile file = TextFile::Over(WithoutBlankEnd(bytes));
  FileCheck check(file);
  Job counted;  // stays empty but for its counts
  try {
    DescribeSections(check, counted);
  } catch (const RuntimeError&) {
    return ProjectContent::Broken;
  }
  if (!EndsItsLastLine(bytes)) return ProjectContent::Cut;
  if (file.AtEnd()) return ProjectContent::Old;
  try {
    DescribeType2Lines(check, counted);
    return ContentByFlags(file);
  } catch (const RuntimeError&) {
    return ProjectContent::Cut;
  }
}

FormerContent ReadFormerContent(const std::string& path) {
  FormerContent former;
  try {
    if (IsRegularFile(path)) former.Bytes = ReadWholeFile(path);
  } catch (const std::exception& error) {
    former.Trouble = error.what();
  }
  return former;
}

bool MakesBackup(const std::string& path, const std::string& bytes) {
  const std::string backup = path + std::string(BackupEnding);
  return IsWorthKeeping(bytes, backup) && Obstacle(backup).empty();
}

void KeepFormerContent(const std::string& path, FormerContent& former) {
  try {
    if (!former.Bytes) return;
    const std::string backup = path + std::string(BackupEnding);
    if (!IsWorthKeeping(*former.Bytes, backup)) return;
    former.Trouble = Obstacle(backup);
    if (!former.Trouble.empty()) return;
    ReplaceWholeFile(backup, *former.Bytes, path);
    former.KeptAs = backup;
  } catch (const std::exception& error) {
    former.Trouble = error.what();
  }
}

}  // namespace orvane
