#include "tools/batch_desktop.h"

#include <algorithm>
#include <cstddef>
#include <exception>
#include <ostream>
#include <stdexcept>

#include "core/files.h"
#include "core/numbers.h"
#include "core/system_dates.h"
#include "output/validation.h"
#include "tools/batch_platform.h"

namespace orvane {

namespace {

// Without its control characters: the bytes below the blank, the one at the end of the seven-bit
// range, and the upper set, which UTF-8 writes as C2 80 to C2 9F.
std::string Printable(std::string text) {
  char before = ' ';
  for (char& letter : text) {
    const auto code = static_cast<unsigned char>(letter);
    const bool upper = before == '\xc2' && code >= 0x80 && code <= 0x9f;
    before = letter;
    if (code < 0x20 || code == 0x7f) letter = ' ';
    if (upper) letter = '\xa0';  // which makes the pair a blank of its own
  }
  return text;
}

}  // namespace

void Console::Say(std::string_view text) {
  WriteLines(several_ ? job_ + ": " : "", text);
}

void Console::SayError(std::string_view text) {
  WriteLines(job_.empty() ? "" : job_ + ": ", text);
}

void Console::SayFault(const std::string& file, std::string_view description) {
  WriteLine(file + ": ", description);
}

void Console::Pass(std::string_view lines) {
  ClearProgress();
  *stream_ << lines << std::flush;
}

bool Console::Try(const std::string& file, const std::function<void()>& step) {
  try {
    step();
    return true;
  } catch (const std::exception& error) {
    SayFault(file, error.what());
    return false;
  }
}

void Console::ShowProgress(int job, int jobs, const std::string& name) {
  if (!terminal_) return;
  ClearProgress();
  *stream_ << Printable("Job " + FormatNumber(static_cast<double>(job), 0) + " of " +
                        FormatNumber(static_cast<double>(jobs), 0) + ": " + name)
           << std::flush;
  progressShown_ = true;
}

void Console::ClearProgress() {
  // Back to the line's start, and erase it to its end.
  if (progressShown_) *stream_ << "\r\x1b[K" << std::flush;
  progressShown_ = false;
}

void Console::WriteLines(const std::string& front, std::string_view text) {
  for (;;) {
    const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
    WriteLine(front, text.substr(0, end));
    if (end == text.size()) return;
    text.remove_prefix(text.substr(end, 2) == "\r\n" ? end + 2 : end + 1);
  }
}

void Console::WriteLine(const std::string& front, std::string_view text) {
  ClearProgress();
  *stream_ << Printable(front + std::string(text)) << std::endl;
}

BatchSettings::BatchSettings(const std::string& file) {
  if (!file.empty()) file_.emplace(file);
}

std::optional<std::string> BatchSettings::Query(SettingsRoot root, const std::string& key,
                                                const std::string& name) {
  std::optional<std::string> text = stored_.Query(root, key, name);
  if (!text && file_) text = file_->Query(root, key, name);
  return text;
}

bool BatchSettings::Store(SettingsRoot root, const std::string& key, const std::string& name,
                          const std::string& text) {
  return stored_.Store(root, key, name, text);
}

void BatchDesktop::BeginJob(const std::string& chosenFile) {
  chosenFile_ = chosenFile;
  told_.clear();
}

void BatchDesktop::ShowError(const std::string& file, const std::string& description) {
  if (file.empty()) {
    if (told_.insert("\n" + description).second) console_.SayError(description);
  } else if (told_.insert(file + "\n" + description).second) {
    console_.SayFault(AbsolutePath(file), description);
  }
}

Answer BatchDesktop::ShowMessageBox(const std::string& text, const std::string& title,
                                    Buttons buttons, Icon) {
  if (buttons == Buttons::Ok && !told_.insert(title + "\n" + text).second) return Answer::Ok;
  if (!title.empty()) console_.Say(title);
  switch (buttons) {
    case Buttons::Ok:
      console_.Say(text);
      return Answer::Ok;
    case Buttons::YesNo:
      console_.Say(text + (answers_.Sleeves ? " Yes" : " No"));
      return answers_.Sleeves ? Answer::Yes : Answer::No;
    case Buttons::YesNoCancel:
      break;
  }
  console_.Say(text + " Cancel");
  return Answer::Cancel;
}

std::string BatchDesktop::ShortDateForm() const {
  return answers_.DateForm.empty() ? SystemShortDateForm() : answers_.DateForm;
}

Moment BatchDesktop::Now() const {
  return answers_.Created ? *answers_.Created : LocalMoment();
}

void BatchScreen::ShowExportErrors() {
  console_.SayError("Validation Errors");
  for (const std::string& line : ExportErrors) console_.SayError(line);
}

void BatchScreen::PreviewInto(DocumentWriter& writer, const DocumentFiles& files) {
  writer_ = &writer;
  files_ = files;
}

PrintSurface& BatchScreen::PreviewSurface() {
  if (writer_ == nullptr) throw std::logic_error("the companion has no files for a preview");
  if (surface_ == nullptr) surface_ = &writer_->Begin(files_);
  return *surface_;
}

void BatchScreen::ShowPreview(const std::string&, const LayOutAgain&) {
  surface_ = nullptr;
  if (writer_ != nullptr) writer_->Finish();
}

void BatchScreen::DropPreview() {
  surface_ = nullptr;
  if (writer_ != nullptr) writer_->Drop();
}

}  // namespace orvane
