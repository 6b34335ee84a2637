#include "tests/support/scripted_desktop.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace orvane::test {

Answer ScriptedDesktop::ShowMessageBox(const std::string& text, const std::string& title,
                                       Buttons buttons, Icon icon) {
  Boxes.push_back({text, title, buttons, icon});
  if (buttons == Buttons::Ok) return Answer::Ok;
  if (Answers.empty()) {
    ADD_FAILURE() << "unforeseen question: " << text;
    return HeadlessDesktop::ShowMessageBox(text, title, buttons, icon);
  }
  const Answer answer = Answers.front();
  Answers.pop_front();
  return answer;
}

int ScriptedDesktop::Choose(const std::string& text, const std::string& title,
                            const std::vector<std::string>& answers) {
  ChoiceBoxes.push_back({text, title, answers});
  const std::string answer = Choices.empty() ? "(none was foreseen)" : Choices.front();
  if (!Choices.empty()) Choices.pop_front();
  const auto found = std::find(answers.begin(), answers.end(), answer);
  if (found == answers.end()) {
    ADD_FAILURE() << "unforeseen question: " << text << "\nwithout the answer " << answer;
    return HeadlessDesktop::Choose(text, title, answers);
  }
  return static_cast<int>(found - answers.begin());
}

std::optional<std::string> ScriptedDesktop::ShowOpenDialog(const FileDialog& dialog) {
  OpenDialogs.push_back(dialog);
  return NextChosen(Chosen);
}

std::optional<std::string> ScriptedDesktop::ShowSaveDialog(const FileDialog& dialog) {
  SaveDialogs.push_back(dialog);
  return NextChosen(Chosen);
}

std::string ScriptedDesktop::UserDataFolder() {
  EXPECT_FALSE(DataFolder.empty()) << "unforeseen use of the user's data folder";
  return DataFolder;
}

namespace {

class ScriptedLock : public FileLock {
 public:
  ScriptedLock(std::shared_ptr<std::set<std::string>> locks, std::string path)
      : locks_(std::move(locks)), path_(std::move(path)) {
    EXPECT_TRUE(locks_->insert(path_).second) << "laid twice: " << path_;
  }
  ~ScriptedLock() override { locks_->erase(path_); }
  ScriptedLock(const ScriptedLock&) = delete;
  ScriptedLock& operator=(const ScriptedLock&) = delete;

 private:
  const std::shared_ptr<std::set<std::string>> locks_;
  const std::string path_;
};

}  // namespace

LaidLock ScriptedDesktop::LayLock(const std::string& path, LockOfOthers others) {
  if (!LaysLocks) return {};
  const auto found = LockHolders.find(path);
  if (found != LockHolders.end()) {
    const bool goes = others == LockOfOthers::Replaced && found->second.Computer != ThisComputer;
    if (!goes) return {nullptr, found->second};
    LockHolders.erase(found);
  }
  return {std::make_unique<ScriptedLock>(Locks, path), {}};
}

Moment ScriptedDesktop::Now() const {
  ++ClockReads;
  return Present;
}

std::optional<std::string> NextChosen(std::deque<std::optional<std::string>>& chosen) {
  if (chosen.empty()) {
    ADD_FAILURE() << "unforeseen file dialog";
    return std::nullopt;
  }
  std::optional<std::string> file = chosen.front();
  chosen.pop_front();
  return file;
}

}  // namespace orvane::test
