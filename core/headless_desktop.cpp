#include "core/headless_desktop.h"

namespace orvane {

Answer HeadlessDesktop::ShowMessageBox(const std::string& /*text*/, const std::string& /*title*/,
                                       Buttons buttons, Icon /*icon*/) {
  switch (buttons) {
    case Buttons::Ok:
      return Answer::Ok;
    case Buttons::YesNo:
      return Answer::No;
    case Buttons::YesNoCancel:
      break;
  }
  return Answer::Cancel;
}

int HeadlessDesktop::Choose(const std::string& /*text*/, const std::string& /*title*/,
                            const std::vector<std::string>& answers) {
  return static_cast<int>(answers.size()) - 1;
}

std::optional<std::string> HeadlessDesktop::ShowOpenDialog(const FileDialog& /*dialog*/) {
  return std::nullopt;
}

std::optional<std::string> HeadlessDesktop::ShowSaveDialog(const FileDialog& /*dialog*/) {
  return std::nullopt;
}

std::string HeadlessDesktop::ShortDateForm() const {
  return "dd/MM/yyyy";
}

void HeadlessDesktop::ShowHelp(const std::string& /*file*/) {}

Moment HeadlessDesktop::Now() const {
  return {{2024, 3, 5}, 14, 7, 9};
}

}  // namespace orvane
