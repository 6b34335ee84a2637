// The project file: one value a line, no keys, the reader depending on the order. One description
// of the layout (project_layout.h) drives the writer and the reader.
#pragma once

#include <optional>
#include <string>

#include "core/model.h"
#include "core/text_file.h"
#include "project/job.h"
#include "project/project_backup.h"

namespace orvane {

// The whole text of the open project, UTF-8 without a mark, lines ended by CR LF. A number that its
// line can't hold, or more rows than 16 bits count, raise "Overflow"; an item or line that holds
// fewer rows than its count raises "Subscript out of range".
std::string ProjectText();
// The same of any job. The flags are as many as the present catalogues have accessories, or more
// where the job has more.
std::string ProjectText(const JobView& job);

// The disk's half of SaveProject: keeps the former content (KeepFormerContent), then puts a new
// file with this text, ProjectText, in the place of the former one in one step, with its
// permissions; a link stays one. On an error, which is raised, the former file stands whole. Only a
// file that has other names, or whose folder takes no file, is written in its place, and only once
// its content is kept, in the backup or else as an earlier version; an error then brings that back,
// or says where it stands. What dead programs have left beside the file is swept. Once the job is
// written, its former content, whatever it was, becomes an earlier version (KeepVersionApart).
// Gives a line that tells of a former content that wasn't kept although it could be; empty for
// nothing.
std::string WriteProjectText(const std::string& path, const std::string& text);
// The same by who has read the former content already.
std::string WriteProjectText(const std::string& path, const std::string& text,
                             FormerContent former);

// Builds the text of the open project and writes it, for who has nobody to ask: a text that would
// come back otherwise is an error that names its places, and touches no file.
std::string WriteProjectFile(const std::string& path);

// What is worth a quiet line of a project that was read.
struct ProjectNotes {
  // A date line that no form fits. The date of such a project is today's: a date is soon typed, and
  // a job that can't be opened is lost.
  std::optional<std::string> UnreadDate;

  // Flags of AccUsed, and accessory lines, of accessories that the present catalogues haven't got:
  // another catalogue than the job was made with, or one that couldn't be read to its end. They
  // stand in the tables, so that saving writes them back, but nothing shows them.
  int FlagsBeyond = 0;
  int LinesBeyond = 0;

  // The line; empty for nothing.
  std::string Line() const;
};

// The table half of OpenFile: reads a project into the model. An error up to the end of the type 1
// accessory lines is raised, and the model then holds what was read until then. Behind them an
// error, end of file above all, ends the reading without a word: files from before type 2
// accessories end there. ProjectFileName and ProjectDirty stay; the command sets them.
ProjectNotes ReadProjectFile(TextFile& file);
// The same of a file named by its path; a path of blanks does nothing. A file that can't be opened
// raises the system's error, and leaves the model as it is.
ProjectNotes ReadProjectFile(const std::string& path);

// A job that was read apart from the open one.
struct ReadJob {
  Job Records;
  ProjectNotes Notes;
};

// The same reading into records of their own, which start empty; no table changes.
ReadJob ReadProject(TextFile& file);

}  // namespace orvane
