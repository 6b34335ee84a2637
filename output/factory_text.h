// What the two factory files share: their text and the error that cut it short, their header lines,
// and how they reach the disk.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "core/dates.h"
#include "core/runtime_error.h"

namespace orvane {

// A factory file built in memory, in the factory's single-byte code page with CR LF behind each
// line. When a value stopped the writer, Error says why, and Text holds what came before it, which
// shows the place; such a file never reaches the disk.
struct FactoryFile {
  std::string Text;
  std::optional<RuntimeError> Error;
};

// Puts the text in the place of what the file held, as one step. The error that cut it short, if
// any, is raised instead, and so is one of the file system: the line must never take half a file
// for a whole one, so after an error the former file stands, or none.
void WriteFactoryFile(const std::string& path, const FactoryFile& file);

// The lines of a factory file. Texts are UTF-8 and encoded on their way in, so that from then on
// one byte is one column.
class FactoryWriter {
 public:
  // Room for that many bytes, so that a large file isn't moved about as it grows.
  void Reserve(std::size_t size) { bytes_.reserve(size); }

  // Puts a text behind what the present line holds.
  FactoryWriter& Text(std::string_view text);
  FactoryWriter& Blank() {
    bytes_ += ' ';
    return *this;
  }
  // The same, followed by blanks and then cut to exactly `width` columns.
  FactoryWriter& Column(std::string_view text, std::size_t width);
  // The columns that hole and notch lines of every block begin with: a position in mm in the form
  // "0", which starts a line, and a notch's code.
  FactoryWriter& Position(double position);
  FactoryWriter& NotchCode(std::string_view code);
  // Follows the present line by blanks and cuts it to exactly `width` columns.
  FactoryWriter& Fit(std::size_t width);
  void EndLine();
  // A line of its own.
  void Line(std::string_view text = {}) { Text(text).EndLine(); }

  // All lines that were ended, given away; one that an error broke off in the middle is dropped.
  std::string TakeLines();

 private:
  std::string bytes_;
  std::size_t lineStart_ = 0;
};

// Runs `write` and gives what it wrote, with the RuntimeError that stopped it, if any.
FactoryFile BuildFactoryFile(const std::function<void(FactoryWriter&)>& write);

// The five header lines of the job, "Job Number: " to "Date:       ", from the project details;
// `lead` stands in front of each.
void WriteJobLines(FactoryWriter& out, std::string_view lead);
// The header line "Created:    ", in the same way.
void WriteCreatedLine(FactoryWriter& out, std::string_view lead, const Moment& created);

}  // namespace orvane
