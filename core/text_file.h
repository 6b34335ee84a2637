// The two reading operations that all text files of the system are read by, and the writer of their
// lines.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace orvane {

// A text file being read field by field. CR LF, LF and a lone CR each end a line; the file is at
// its end when no byte is left.
class TextFile {
 public:
  // Takes a file's content as UTF-8 text.
  explicit TextFile(std::string text) : kept_(std::move(text)), text_(kept_) {}
  // Reads where the bytes stand, as DecodeText would have them: they must stay as long as this
  // object does. They are copied only where they aren't UTF-8.
  static TextFile Over(std::string_view bytes);
  TextFile(const TextFile&) = delete;
  TextFile& operator=(const TextFile&) = delete;

  // Reads the whole file named by `path`; its bytes may be UTF-8 or Windows-1252. A file that can't
  // be read raises the system's error.
  static TextFile Open(const std::string& path);

  bool AtEnd() const { return at_ == text_.size(); }

  // Read-field: skips leading blanks, and gives the text up to the next comma or line end, which is
  // consumed. A field that begins with a double quote runs to the closing one (to the end of the
  // file if there is none), commas and line ends included; the quotes are dropped, and so is what
  // stands between the closing quote and the next comma or line end. An empty line is one empty
  // field. At the end of the file, "Input past end of file". The view stays good as long as this
  // object does.
  std::string_view ReadField();

  // Read-field into the number types of the records, by the strict conversions of core/numbers.
  std::int16_t ReadInt16();
  float ReadFloat();
  double ReadDouble();

  // Read-rest-of-line: what is left of the row, its line end consumed but not given back. Behind a
  // field that ended its line, and at the end of the file, nothing is left: it gives empty text and
  // moves nowhere.
  std::string_view ReadRestOfLine();

  // Where the last field began: its line in the file and its place among the fields of that line,
  // both counted from 1; 0 before the first field.
  int Row() const { return fieldRow_; }
  int Column() const { return fieldColumn_; }

 private:
  struct InPlace {
    std::string_view Text;
  };
  explicit TextFile(InPlace text) : text_(text.Text) {}

  void ConsumeLineEnd();

  const std::string kept_;  // empty where the text is read in place
  const std::string_view text_;
  std::size_t at_ = 0;
  bool rowEnded_ = false;  // the last field consumed its line's end
  int row_ = 1;
  int column_ = 0;  // fields of the present line that have been read
  int fieldRow_ = 0;
  int fieldColumn_ = 0;
};

// Lines of a text file being built in memory, each ended by carriage return and line feed.
class LineWriter {
 public:
  // Plain text as it stands.
  void Line(std::string_view text = {}) { text_.append(text).append("\r\n"); }

  // A double quote, the text, a double quote; nothing is escaped.
  void QuotedLine(std::string_view text) { text_.append(1, '"').append(text).append("\"\r\n"); }

  // A number in the number form of project files.
  void NumberLine(double value);
  void NumberLine(float value);
  void NumberLine(std::int16_t value);

  const std::string& Text() const { return text_; }
  std::string TakeText() { return std::move(text_); }

 private:
  std::string text_;
};

}  // namespace orvane
