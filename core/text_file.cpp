#include "core/text_file.h"

#include <algorithm>
#include <utility>

#include "core/files.h"
#include "core/numbers.h"
#include "core/runtime_error.h"
#include "core/text.h"

namespace orvane {

namespace {

bool IsLineEnd(char c) {
  return c == '\r' || c == '\n';
}

// The place of the next comma or line end from `at` on, or the text's end.
std::size_t FieldEnd(std::string_view text, std::size_t at) {
  while (at < text.size() && text[at] != ',' && !IsLineEnd(text[at])) ++at;
  return at;
}

int LineEndsIn(std::string_view text) {
  int count = 0;
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (text.compare(at, 2, "\r\n") == 0) ++at;
    if (IsLineEnd(text[at])) ++count;
  }
  return count;
}

}  // namespace

TextFile TextFile::Open(const std::string& path) {
  return TextFile(DecodeText(ReadWholeFile(path)));
}

TextFile TextFile::Over(std::string_view bytes) {
  const std::string_view text = bytes.substr(bytes.starts_with(Utf8Mark) ? Utf8Mark.size() : 0);
  if (!IsUtf8(text)) return TextFile(DecodeText(std::string(bytes)));
  return TextFile(InPlace{text});
}

std::string_view TextFile::ReadField() {
  if (AtEnd()) throw RuntimeError(Failure::InputPastEndOfFile);
  fieldRow_ = row_;
  fieldColumn_ = ++column_;
  while (!AtEnd() && text_[at_] == ' ') ++at_;

  std::string_view field;
  if (!AtEnd() && text_[at_] == '"') {
    const std::size_t close = std::min(text_.find('"', at_ + 1), text_.size());
    field = text_.substr(at_ + 1, close - at_ - 1);
    row_ += LineEndsIn(field);
    at_ = FieldEnd(text_, close);
  } else {
    const std::size_t end = FieldEnd(text_, at_);
    field = text_.substr(at_, end - at_);
    at_ = end;
  }

  rowEnded_ = AtEnd() || text_[at_] != ',';
  if (rowEnded_) {
    ConsumeLineEnd();
  } else {
    ++at_;
  }
  return field;
}

std::int16_t TextFile::ReadInt16() {
  return ParseInt16(ReadField());
}
float TextFile::ReadFloat() {
  return ParseFloat(ReadField());
}
double TextFile::ReadDouble() {
  return ParseDouble(ReadField());
}

std::string_view TextFile::ReadRestOfLine() {
  if (std::exchange(rowEnded_, false)) return {};
  std::size_t end = at_;
  while (end < text_.size() && !IsLineEnd(text_[end])) ++end;
  const std::string_view rest = text_.substr(at_, end - at_);
  at_ = end;
  ConsumeLineEnd();
  return rest;
}

void TextFile::ConsumeLineEnd() {
  if (AtEnd()) return;
  const bool pair = text_[at_] == '\r' && at_ + 1 < text_.size() && text_[at_ + 1] == '\n';
  at_ += pair ? 2 : 1;
  ++row_;
  column_ = 0;
}

void LineWriter::NumberLine(double value) {
  AppendFileNumber(text_, value);
  text_.append("\r\n");
}
void LineWriter::NumberLine(float value) {
  AppendFileNumber(text_, value);
  text_.append("\r\n");
}
void LineWriter::NumberLine(std::int16_t value) {
  AppendFileNumber(text_, value);
  text_.append("\r\n");
}

}  // namespace orvane
