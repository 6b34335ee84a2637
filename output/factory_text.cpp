#include "output/factory_text.h"

#include <algorithm>
#include <array>

#include "core/file_replacement.h"
#include "core/files.h"
#include "core/model.h"
#include "core/numbers.h"
#include "core/text.h"

namespace orvane {

namespace {

// A character that is one byte, the same one, in both encodings: nearly all that a file holds.
bool IsPlain(char c) {
  return c >= ' ' && c <= '~';
}

struct JobLine {
  std::string_view Label;
  std::size_t Entry;  // of txtProject
};

constexpr std::array<JobLine, 4> JobLines = {{
    {"Job Number: ", 1},
    {"Customer:   ", 2},
    {"Project:    ", 3},
    {"Designer:   ", 4},
}};

}  // namespace

void WriteFactoryFile(const std::string& path, const FactoryFile& file) {
  if (file.Error) throw ErrorInFile(path, *file.Error);
  ReplaceWholeFile(path, file.Text);
}

FactoryWriter& FactoryWriter::Text(std::string_view text) {
  const std::size_t start = bytes_.size();
  for (const char c : text) {
    if (!IsPlain(c)) {
      bytes_.replace(start, std::string::npos, FactoryText(text));
      break;
    }
    bytes_ += c;
  }
  return *this;
}

FactoryWriter& FactoryWriter::Column(std::string_view text, std::size_t width) {
  bytes_.append(PadRight(FactoryText(text), width));
  return *this;
}

FactoryWriter& FactoryWriter::Position(double position) {
  constexpr std::size_t width = 10;
  return Text(FormatNumber(position, 0)).Fit(width);
}

FactoryWriter& FactoryWriter::NotchCode(std::string_view code) {
  constexpr std::size_t width = 5;
  return Column(code, width);
}

FactoryWriter& FactoryWriter::Fit(std::size_t width) {
  bytes_.resize(lineStart_ + width, ' ');
  return *this;
}

void FactoryWriter::EndLine() {
  bytes_.append("\r\n");
  lineStart_ = bytes_.size();
}

std::string FactoryWriter::TakeLines() {
  bytes_.resize(lineStart_);
  lineStart_ = 0;
  return std::exchange(bytes_, {});
}

FactoryFile BuildFactoryFile(const std::function<void(FactoryWriter&)>& write) {
  FactoryWriter writer;
  FactoryFile file;
  try {
    write(writer);
  } catch (const RuntimeError& error) {
    file.Error = error;
  }
  file.Text = writer.TakeLines();
  return file;
}

void WriteJobLines(FactoryWriter& out, std::string_view lead) {
  for (const JobLine& line : JobLines) {
    out.Text(lead).Text(line.Label).Line(txtProject.at(line.Entry));
  }
  out.Text(lead).Text("Date:       ").Line(ShortYearText(DTPicker1));
}

void WriteCreatedLine(FactoryWriter& out, std::string_view lead, const Moment& created) {
  out.Text(lead).Text("Created:    ").Line(CreatedText(created));
}

}  // namespace orvane
