#include "output/sheet_errors.h"

#include <algorithm>
#include <utility>

#include "core/runtime_error.h"
#include "drawing/pictures.h"
#include "project/error_names.h"
#include "project/section_serial.h"

namespace orvane {

Teller SheetErrors::Of(std::int16_t row) {
  errors_.push_back({NameOfSection(row), {}, SerialOf(row)});
  return [&errors = errors_.back()](const std::string& description) { errors.Add(description); };
}

void SheetErrors::CrossMissingPictures(SheetSource& source, const std::string& sheet) {
  source.LoadPicture = [this, sheet,
                        load = std::move(source.LoadPicture)](std::string_view suffix) {
    try {
      return load(suffix);
    } catch (const RuntimeError& error) {
      AddMissing(error.Description(), sheet);
      return CrossedBox(suffix);
    }
  };
}

// A picture that many sheets want is told once, with all of them.
void SheetErrors::AddMissing(const std::string& description, const std::string& sheet) {
  const auto known = std::find_if(
      missing_.begin(), missing_.end(),
      [&](const MissingPicture& picture) { return picture.Description == description; });
  MissingPicture& picture =
      known != missing_.end() ? *known : missing_.emplace_back(MissingPicture{description, {}});
  if (picture.Sheets.empty() || picture.Sheets.back() != sheet) picture.Sheets.push_back(sheet);
}

void SheetErrors::Say() const {
  std::string text;
  const auto add = [&text](const std::string& lines) {
    if (!text.empty() && !lines.empty()) text += '\r';
    text += lines;
  };
  for (const SectionErrors& errors : errors_) add(ErrorsNotYetSaid(errors));
  for (const MissingPicture& picture : missing_) {
    std::string sheets;
    for (const std::string& sheet : picture.Sheets) {
      if (!sheets.empty()) sheets += ", ";
      sheets += sheet;
    }
    add(sheets + ": " + picture.Description);
  }
  if (!text.empty()) TheDesktop().ShowError({}, text);
}

}  // namespace orvane
