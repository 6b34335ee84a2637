#include "project/project_backup.h"

#include <cstdint>
#include <exception>

#include "core/files.h"
#include "core/runtime_error.h"
#include "core/text.h"
#include "core/text_file.h"
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
  void ProjectDate(const Date&) { file_.ReadField(); }

  void Number(std::int16_t& field) { field = file_.ReadInt16(); }
  void Number(float& field) { field = file_.ReadFloat(); }
  void Number(double& field) { field = file_.ReadDouble(); }
  void Flag(int) { file_.ReadDouble(); }

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

// Whether the last line has its line end. A carriage return is one only in a file that has no line
// feeds: elsewhere it is the half of a line end that was cut.
bool EndsItsLastLine(const std::string& bytes) {
  if (bytes.empty()) return false;
  return bytes.back() == '\n' || (bytes.back() == '\r' && bytes.find('\n') == std::string::npos);
}

}  // namespace

ProjectContent CheckProjectContent(const std::string& bytes) {
  TextFile file(DecodeText(bytes));
  FileCheck check(file);
  try {
    DescribeSections(check);
  } catch (const RuntimeError&) {
    return ProjectContent::Broken;
  }
  try {
    DescribeType2Lines(check);
    DescribeFlags(check);
  } catch (const RuntimeError&) {
    return ProjectContent::PerhapsCut;
  }
  // Without a catalogue nothing tells how many flags the file should have.
  const bool flagsKnown = AccType1Count + AccType2Count > 0;
  return flagsKnown && EndsItsLastLine(bytes) ? ProjectContent::Whole : ProjectContent::PerhapsCut;
}

void KeepProjectBackup(const std::string& path) {
  try {
    if (!IsRegularFile(path)) return;
    const std::string bytes = ReadWholeFile(path);
    const std::string backup = path + ".bak";
    switch (CheckProjectContent(bytes)) {
      case ProjectContent::Whole:
        ReplaceWholeFile(backup, bytes);
        break;
      case ProjectContent::PerhapsCut:
        if (!IsRegularFile(backup)) ReplaceWholeFile(backup, bytes);
        break;
      case ProjectContent::Broken:
        break;
    }
  } catch (const std::exception&) {
    // Saving goes on without a backup.
  }
}

}  // namespace orvane
