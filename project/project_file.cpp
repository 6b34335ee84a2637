#include "project/project_file.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <exception>
#include <string_view>
#include <utility>

#include "core/desktop.h"
#include "core/files.h"
#include "core/numbers.h"
#include "core/text.h"
#include "core/text_file.h"
#include "project/project_backup.h"
#include "project/project_layout.h"

namespace orvane {

namespace {

// The version stamp is written and never compared with anything: reading drops as many characters
// as it has, whatever they are.
constexpr std::string_view VersionStamp = "v1.07:";
constexpr std::size_t VersionStampLength = VersionStamp.size();

// The layout's visitor that builds the file's text.
class ProjectWriter {
 public:
  void OrvaneNumber(const std::string& text) {
    Plain(std::string(VersionStamp).append(Trim(text)));
  }
  void Detail(const std::string& text) { lines_.QuotedLine(Trim(text)); }
  void ProjectDate(const Date& date) { Plain(ProjectDateText(date, TheDesktop().ShortDateForm())); }

  // A line end inside a plain text would add a line and make the file unreadable; it becomes a
  // blank. A quoted text keeps its own, since a quoted field may span lines.
  void Plain(const std::string& text) {
    const auto isLineEnd = [](char c) { return c == '\r' || c == '\n'; };
    if (std::none_of(text.begin(), text.end(), isLineEnd)) {
      lines_.Line(text);
    } else {
      std::string line = text;
      std::replace_if(line.begin(), line.end(), isLineEnd, ' ');
      lines_.Line(line);
    }
  }
  void Quoted(const std::string& text) { lines_.QuotedLine(text); }
  void Sign(const std::string& text) { Plain(text); }

  void Number(std::int16_t field) { lines_.NumberLine(field); }
  void Number(float field) { lines_.NumberLine(field); }
  void Number(double field) { lines_.NumberLine(field); }
  void Flag(Boolean flag) { lines_.NumberLine(ToBoolean(flag != False)); }

  template <class List>
  int Count(const List& table) {
    lines_.NumberLine(Int16(table.UBound()));
    return table.UBound();
  }

  template <class List>
  void Size(const List&, int) {}

  template <class List>
  void Rows(const List& table, int first, int last) {
    for (int row = first; row <= last; ++row) Describe(*this, table.At(row));
  }

  std::string TakeText() { return lines_.TakeText(); }

 private:
  LineWriter lines_;
};

// The layout's visitor that reads a file into the records of a job.
class ProjectReader {
 public:
  explicit ProjectReader(TextFile& file) : file_(file) {}

  // A line no longer than the stamp has no number to give, and leaves the one before.
  void OrvaneNumber(std::string& text) {
    const std::string_view line = file_.ReadField();
    if (CharCount(line) > VersionStampLength) {
      text = line.substr(FirstChars(line, VersionStampLength).size());
    }
  }
  void Detail(std::string& text) { text = file_.ReadField(); }
  void ProjectDate(Date& date) {
    const std::string_view text = file_.ReadField();
    const std::optional<Date> read = ParseProjectDate(text, TheDesktop().ShortDateForm());
    if (!read) notes_.UnreadDate = text;
    date = read ? *read : TheDesktop().Now().Day;
  }

  void Plain(std::string& text) { text = file_.ReadField(); }
  void Quoted(std::string& text) { text = file_.ReadField(); }
  void Sign(std::string& text) { Plain(text); }

  void Number(std::int16_t& field) { field = file_.ReadInt16(); }
  void Number(float& field) { field = file_.ReadFloat(); }
  void Number(double& field) { field = file_.ReadDouble(); }
  void Flag(Boolean& flag) { flag = ToBoolean(file_.ReadDouble() != 0); }

  template <class Row>
  int Count(const Table<Row>&) {
    return file_.ReadInt16();
  }

  // A count that is refused leaves the table as it was.
  template <class Row>
  void Size(Table<Row>& table, int count) {
    Table<Row> sized;
    sized.Resize(count);
    table = std::move(sized);
  }

  template <class Row>
  void Rows(Table<Row>& table, int first, int last) {
    for (int row = first; row <= last; ++row) Describe(*this, table.At(row));
  }

  const ProjectNotes& Notes() const { return notes_; }

 private:
  TextFile& file_;
  ProjectNotes notes_;
};

ProjectNotes ReadRecords(TextFile& file, JobRecords job) {
  ProjectReader reader(file);
  DescribeSections(reader, job);

  job.AccLines2.Clear();
  try {
    DescribeType2Lines(reader, job);
    DescribeFlags(reader, job);
  } catch (const std::exception&) {
    // The whole of the handling of old files: they end in front of the type 2 lines or the flags.
  }
  return reader.Notes();
}

}  // namespace

std::string ProjectText() {
  return ProjectText(OpenJob());
}

std::string ProjectText(const JobView& job) {
  ProjectWriter writer;
  DescribeSections(writer, job);
  DescribeType2Lines(writer, job);
  DescribeFlags(writer, job);
  return writer.TakeText();
}

void WriteProjectFile(const std::string& path) {
  const std::string text = ProjectText();
  KeepProjectBackup(path);
  WriteWholeFile(path, text);
}

std::string ProjectNotes::Line() const {
  return UnreadDate ? "The date \"" + *UnreadDate + "\" can't be read; today's is in its place"
                    : "";
}

ProjectNotes ReadProjectFile(const std::string& path) {
  if (Trim(path).empty()) return {};
  TextFile file = TextFile::Open(path);
  return ReadProjectFile(file);
}

ProjectNotes ReadProjectFile(TextFile& file) {
  return ReadRecords(file, OpenJobRecords());
}

ReadJob ReadProject(TextFile& file) {
  ReadJob read;
  read.Records.AccUsed.Resize(AccType1Count + AccType2Count);
  read.Notes = ReadRecords(file, RecordsOf(read.Records));
  return read;
}

}  // namespace orvane
