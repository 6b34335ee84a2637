#include "project/section_look.h"

#include <algorithm>
#include <exception>
#include <map>

#include "core/desktop.h"
#include "core/model.h"
#include "project/error_names.h"
#include "project/main_screen.h"
#include "project/section_serial.h"

namespace orvane {

namespace {

struct Look {
  std::int16_t Row = 0;
  SectionErrors Found;
};

// Those under way, the innermost last; not owned. Pending events run inside a look, and one of them
// may look at another section.
std::vector<Look*> looks;

SectionErrors lastFound;

// What was said, by the serials of the sections.
std::map<std::int32_t, std::vector<std::string>> said;

class UnderWay {
 public:
  explicit UnderWay(Look& look) { looks.push_back(&look); }
  ~UnderWay() { looks.pop_back(); }
  UnderWay(const UnderWay&) = delete;
  UnderWay& operator=(const UnderWay&) = delete;
};

bool Contains(const std::vector<std::string>& texts, const std::string& text) {
  return std::find(texts.begin(), texts.end(), text) != texts.end();
}

// What stands under the sheet.
std::string LineOf(const SectionErrors& errors) {
  std::string line;
  for (const std::string& description : errors.Descriptions) {
    line += (line.empty() ? errors.Name + ": " : "; ") + description;
  }
  return line;
}

void Run(Look& one, const std::function<void()>& look) {
  try {
    look();
  } catch (const std::exception& error) {
    one.Found.Add(error.what());
  }
}

// Runs the look; true if it was one of its own, not a part of another.
bool RunLook(std::int16_t row, const std::function<void()>& look) {
  if (row < 1) {
    look();
    return false;
  }
  if (!looks.empty() && looks.back()->Row == row) {
    Run(*looks.back(), look);
    return false;
  }
  Look one;
  one.Row = row;
  {
    const UnderWay underWay(one);
    Run(one, look);
  }
  // By the name that it bears now: the look may be of a mark that is being typed.
  one.Found.Name = NameOfSection(row);
  if (row <= Items.UBound()) one.Found.Serial = SerialOf(row);
  lastFound = one.Found;
  TheMainScreen().ShowSectionErrors(LineOf(lastFound));
  return true;
}

}  // namespace

void SectionErrors::Add(const std::string& description) {
  if (!Contains(Descriptions, description)) Descriptions.push_back(description);
}

void LookAtSection(std::int16_t ItemIndex, const std::function<void()>& look) {
  RunLook(ItemIndex, look);
}

void LookAndSay(std::int16_t ItemIndex, const std::function<void()>& look) {
  if (RunLook(ItemIndex, look)) SayErrors();
}

void TakeLookError(const std::string& description) {
  if (looks.empty()) return TellInMessageBox(description);
  looks.back()->Found.Add(description);
}

std::string ErrorsToSay() {
  return ErrorsNotYetSaid(lastFound);
}

void SayErrors() {
  const std::string text = ErrorsToSay();
  if (!text.empty()) TheDesktop().Message(text);
}

std::string ErrorsNotYetSaid(const SectionErrors& errors) {
  std::string text;
  for (const std::string& description : errors.Descriptions) {
    std::vector<std::string>& saidOfIt = said[errors.Serial];
    if (Contains(saidOfIt, description)) continue;
    saidOfIt.push_back(description);
    if (!text.empty()) text += '\r';
    text += errors.Name + ": " + description;
  }
  return text;
}

void ForgetSaid(const ChangeNotice& change) {
  const ChangeRule& rule = RuleOf(change.Kind);
  if (rule.By != ChangeBy::User) return;
  const bool step = change.Kind == ChangeKind::Undo || change.Kind == ChangeKind::Redo;
  const bool ofMany =
      rule.Subject == ChangeSubject::WholeJob || rule.Subject == ChangeSubject::Sections;
  if (ofMany && !step) return ForgetSaid();
  const bool ofOne = rule.Subject == ChangeSubject::Section || step;
  if (!ofOne || change.Kind == ChangeKind::SamePattern) return;
  if (change.Row >= 1 && change.Row <= Items.UBound()) said.erase(SerialOf(change.Row));
}

void ForgetSaid() {
  said.clear();
  lastFound = {};
}

}  // namespace orvane
