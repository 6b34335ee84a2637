#include "project/project_file.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <exception>
#include <string_view>
#include <utility>

#include "core/desktop.h"
#include "core/file_replacement.h"
#include "core/files.h"
#include "core/numbers.h"
#include "core/text.h"
#include "core/text_file.h"
#include "project/accessory_lines.h"
#include "project/project_layout.h"
#include "project/unfit_texts.h"
#include "project/versions.h"

namespace orvane {

namespace {

constexpr std::size_t VersionStampLength = VersionStamp.size();

bool IsLineEnd(char c) {
  return c == '\r' || c == '\n';
}

// The layout's visitor that builds the file's text.
class ProjectWriter {
 public:
  void OrvaneNumber(const std::string& text) { lines_.Line(OrvaneNumberLine(text)); }
  void Detail(const std::string& text) { lines_.QuotedLine(Trim(text)); }
  void ProjectDate(const Date& date) { Plain(ProjectDateText(date, TheDesktop().ShortDateForm())); }

  void Plain(const std::string& text) {
    if (std::none_of(text.begin(), text.end(), IsLineEnd)) {
      lines_.Line(text);
    } else {
      lines_.Line(PlainLine(text));
    }
  }
  void Quoted(const std::string& text) { lines_.QuotedLine(text); }
  void Sign(const std::string& text) { Plain(text); }

  void Number(std::int16_t field) { lines_.NumberLine(field); }
  void Number(float field) { lines_.NumberLine(field); }
  void Number(double field) { lines_.NumberLine(field); }
  void Flag(Boolean flag) { lines_.NumberLine(ToBoolean(flag != False)); }
  void FlagsBehind(const Table<Boolean>& flags, int count) {
    for (int row = count + 1; row <= flags.UBound(); ++row) Flag(flags.At(row));
  }

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
  void FlagsBehind(Table<Boolean>& flags, int) {
    while (!file_.AtEnd()) {
      Boolean flag = False;
      Flag(flag);
      flags.Append(flag);
    }
  }

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

template <class Line>
int LinesBeyondCatalogue(const Table<Line>& lines) {
  return static_cast<int>(std::count_if(lines.begin(), lines.end(),
                                        [](const Line& line) { return IsBeyondCatalogue(line); }));
}

ProjectNotes ReadRecords(TextFile& file, JobRecords job) {
  ProjectReader reader(file);
  DescribeSections(reader, job);

  job.AccLines2.Clear();
  // Of the flags of the project before, those that the catalogues have stay where a file has none.
  const int accessories = AccType1Count + AccType2Count;
  job.AccUsed.Resize(std::min(job.AccUsed.UBound(), accessories));
  try {
    DescribeType2Lines(reader, job);
    DescribeFlags(reader, job);
  } catch (const std::exception&) {
    // The whole of the handling of old files: they end in front of the type 2 lines or the flags.
  }
  ProjectNotes notes = reader.Notes();
  notes.FlagsBeyond = std::max(job.AccUsed.UBound() - accessories, 0);
  notes.LinesBeyond = LinesBeyondCatalogue(job.AccLines1) + LinesBeyondCatalogue(job.AccLines2);
  return notes;
}

// What the catalogues lack of a job, by how much; empty for nothing.
std::string BeyondText(int flags, int lines) {
  if (flags == 0 && lines == 0) return {};
  std::string what;
  if (flags > 0) what = Counted(flags, "accessory mark");
  if (flags > 0 && lines > 0) what += " and ";
  if (lines > 0) what += Counted(lines, "accessory line");
  const bool one = flags + lines == 1;
  return what + " of this job " + (one ? "isn't" : "aren't") +
         " in the catalogue: " + (one ? "it is" : "they are") +
         " kept, but can't be shown or edited";
}

}  // namespace

std::string PlainLine(const std::string& text) {
  std::string line = text;
  std::replace_if(line.begin(), line.end(), IsLineEnd, ' ');
  return line;
}

std::string OrvaneNumberLine(const std::string& number) {
  return PlainLine(std::string(VersionStamp).append(Trim(number)));
}

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

std::string WriteProjectFile(const std::string& path) {
  const std::string text = ProjectText();
  if (FitOf(text, OpenJob()) != FileFit::Same) {
    throw ErrorInFile(path, RuntimeError(Failure::TypeMismatch,
                                         "The project file can't hold these texts as they are:" +
                                             Described(UnfitTexts())));
  }
  return WriteProjectText(path, text);
}

namespace {

// What is told of a job that was saved.
std::string LineOf(const FormerContent& former, const std::string& path) {
  if (!former.Trouble.empty()) {
    return "Saved, but the version before is not kept as " + FileName(path) +
           ".bak: " + former.Trouble;
  }
  // It may be that of a save before, which went on apart from it.
  const std::string trouble = TakeVersionTrouble();
  return trouble.empty() ? "" : "Saved, but an earlier version is not kept: " + trouble;
}

// Where a person finds what a job holds that is to be written over in its place: in the backup, or
// else among the earlier versions, where it is put on the spot. Without such a place the error is
// raised.
std::string PlaceOfFormer(const std::string& path, const FormerContent& former,
                          const std::string& why) {
  if (!former.KeptAs.empty()) return former.KeptAs;
  std::string trouble = former.Trouble.empty() ? "it doesn't read back whole" : former.Trouble;
  if (former.Bytes && KeepsVersions()) {
    try {
      KeepVersion(VersionOf(path, VersionKind::BeforeSave, *former.Bytes));
      return "Tools, Earlier versions";
    } catch (const RuntimeError& error) {
      trouble += "; as an earlier version: " + error.Description();
    }
  }
  throw ErrorInFile(path, RuntimeError(Failure::PermissionDenied,
                                       why +
                                           ". It can only be written in its place, and what it "
                                           "holds now is not kept first: " +
                                           trouble + ".\rSave under another name."));
}

// Writes over the job in its place, which must not begin before what it holds stands elsewhere.
void WriteInPlace(const std::string& path, const std::string& text, const FormerContent& former,
                  const std::string& why) {
  const std::string place = PlaceOfFormer(path, former, why);
  const Overwriting done = OverwriteWholeFile(path, text, former.Bytes.value_or(""));
  if (!done.Error) return;
  if (done.HoldsFormer) throw *done.Error;
  throw ErrorInFile(
      path, RuntimeError(done.Error->Number(),
                         done.Error->Description() + "\r" + FileName(path) +
                             " is only half written. What it held before stands in " + place));
}

}  // namespace

std::string WriteProjectText(const std::string& path, const std::string& text) {
  return WriteProjectText(path, text, ReadFormerContent(path));
}

std::string WriteProjectText(const std::string& path, const std::string& text,
                             FormerContent former) {
  SweepLeftovers(path, BackupEnding);
  KeepFormerContent(path, former);
  if (HasOtherNames(path)) {
    WriteInPlace(path, text, former, "The file has other names on the disk");
  } else {
    try {
      ReplaceWholeFile(path, text);
    } catch (const NoFileBeside& refused) {
      WriteInPlace(path, text, former, refused.Description());
    }
  }
  if (former.Bytes && KeepsVersions()) {
    KeepVersionApart(VersionOf(path, VersionKind::BeforeSave, std::move(*former.Bytes)));
  }
  return LineOf(former, path);
}

std::string ProjectNotes::Line() const {
  const std::string beyond = BeyondText(FlagsBeyond, LinesBeyond);
  if (!UnreadDate) return beyond;
  const std::string date =
      "The date \"" + *UnreadDate + "\" can't be read; today's is in its place";
  return beyond.empty() ? date : date + ". " + beyond;
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
