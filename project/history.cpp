#include "project/history.h"

#include <algorithm>
#include <deque>
#include <optional>
#include <utility>

#include "core/model.h"
#include "project/job_states.h"
#include "project/step_kinds.h"

namespace orvane {

namespace {

// A step, or what looks have changed between two of them.
struct Entry {
  StateChange Change;
  int Step = 0;  // counts the steps of a run of the program; 0 for what looks have changed
  ChangeKind Kind = ChangeKind::ShowSection;
  std::string Name;
  std::int16_t RowBefore = 0;  // of the cursor when it began
  std::int16_t RowAfter = 0;   // that it was about when it was over
  std::size_t Bytes = 0;
};

// A change whose action runs, or is over and not yet a step: events that a drawing lets run may
// begin the next change before the followers of this one have had their turns.
struct Running {
  ChangeNotice Notice;
  std::string Name;
  std::int16_t CursorRow = 0;
};

bool IsOfRow(const ChangeNotice& change) {
  return RuleOf(change.Kind).Subject == ChangeSubject::Section && change.Row >= 1 &&
         change.Row <= Items.UBound();
}

class History {
 public:
  explicit History(std::function<void()> changed)
      : changed_(std::move(changed)),
        follower_([this](const ChangeNotice& change) { After(change); },
                  [this](const ChangeNotice& change) { Before(change); }) {
    Begin();
  }

  void Begin(bool saved = true);
  void EndStep() { open_ = false; }
  bool IsStepOpen() const { return open_; }
  const Entry* StepBefore() const;
  const Entry* StepBehind() const;
  void MarkSaved();
  void MarkUnsaved();
  JobInTables WhoseJob() const;
  bool IsChanged() const { return LastStep() != savedStep_; }
  bool Take(Direction direction, RestoredStep& restored);
  std::size_t Bytes() const { return bytes_ + stateBytes_; }
  int StepsToUndo() const;
  JobState StateNow() const;

 private:
  void Before(const ChangeNotice& change);
  void After(const ChangeNotice& change);
  void Finish();
  void CompareTouched(const ChangeNotice& change, StateChange& found) const;
  void NoteLook(const ChangeNotice& change);
  void NoteAllLooks();
  bool IsTheTables(const ChangeNotice& change) const;
  bool Extends(const ChangeNotice& change) const;
  void Extend(const ChangeNotice& change);
  StateChange ChangeOf(const ChangeNotice& change) const;
  void Append(Entry entry);
  void DropFrom(std::size_t at);
  void DropOldest();
  int LastStep() const;
  int LastOpening() const;
  void Tell() const {
    if (changed_) changed_();
  }

  const std::function<void()> changed_;
  JobState state_;      // that the entries up to at_ lead to
  StateChange looked_;  // what looks have made of it since
  std::deque<Entry> entries_;
  std::size_t at_ = 0;          // entries behind that one have been taken back
  std::size_t bytes_ = 0;       // of the entries
  std::size_t stateBytes_ = 0;  // of the state that they began with
  int kept_ = 0;                // steps among the entries
  int steps_ = 0;               // counted so far
  int droppedStep_ = 0;         // the last of those that were too old
  int savedStep_ = 0;
  // Steps that are openings which failed; 0 for the job that the history began with.
  int droppedOpening_ = 0;
  int savedOpening_ = 0;  // whose pieces were saved
  bool open_ = false;     // the last step takes further keys of its cell
  std::optional<Running> running_;
  const ChangeFollower follower_;
};

// The tables as they stand begin a history, whatever they were before. Where it lost track of them
// nobody knows whether the file holds what they do.
void History::Begin(bool saved) {
  droppedOpening_ = saved ? 0 : LastOpening();
  if (saved) savedOpening_ = 0;
  entries_.clear();
  at_ = 0;
  bytes_ = 0;
  kept_ = 0;
  looked_ = {};
  open_ = false;
  running_.reset();
  state_ = StateOfTables();
  droppedStep_ = ++steps_;
  savedStep_ = saved ? droppedStep_ : 0;
  stateBytes_ = state_.Bytes();
  Tell();
}

int History::LastStep() const {
  const Entry* last = StepBefore();
  return last == nullptr ? droppedStep_ : last->Step;
}

// The last opening that failed and stands: the tables hold its pieces and what was done to them.
int History::LastOpening() const {
  for (std::size_t at = at_; at > 0; --at) {
    if (entries_[at - 1].Kind == ChangeKind::OpenProject) return entries_[at - 1].Step;
  }
  return droppedOpening_;
}

JobInTables History::WhoseJob() const {
  const int opening = LastOpening();
  if (opening == savedOpening_) return JobInTables::Saved;
  return opening > savedOpening_ ? JobInTables::Pieces : JobInTables::Former;
}

const Entry* History::StepBefore() const {
  for (std::size_t at = at_; at > 0; --at) {
    if (entries_[at - 1].Step != 0) return &entries_[at - 1];
  }
  return nullptr;
}

const Entry* History::StepBehind() const {
  for (std::size_t at = at_; at < entries_.size(); ++at) {
    if (entries_[at].Step != 0) return &entries_[at];
  }
  return nullptr;
}

int History::StepsToUndo() const {
  const auto end = entries_.begin() + static_cast<std::ptrdiff_t>(at_);
  return static_cast<int>(
      std::count_if(entries_.begin(), end, [](const Entry& entry) { return entry.Step != 0; }));
}

JobState History::StateNow() const {
  JobState state = state_;
  Lead(state, looked_, Direction::Forward);
  return state;
}

void History::MarkSaved() {
  Finish();
  if (state_.Rows.size() != static_cast<std::size_t>(Items.UBound())) return Begin();
  open_ = false;
  savedStep_ = LastStep();
  savedOpening_ = LastOpening();
  Tell();
}

void History::MarkUnsaved() {
  savedStep_ = 0;
  Tell();
}

// Following the changes.

// False for tables that were filled without the gate.
bool History::IsTheTables(const ChangeNotice& change) const {
  if (state_.Rows.size() != static_cast<std::size_t>(Items.UBound())) return false;
  if (!IsOfRow(change)) return true;
  return Items.At(change.Row).Serial ==
         state_.Rows[static_cast<std::size_t>(change.Row) - 1].Serial;
}

void History::Before(const ChangeNotice& change) {
  Finish();
  const ChangeRule& rule = RuleOf(change.Kind);
  if (rule.By == ChangeBy::Look || change.Kind == ChangeKind::Undo ||
      change.Kind == ChangeKind::Redo) {
    return;
  }
  if (!IsTheTables(change)) Begin(false);
  // What drawing has made of the section, such as other gaps, belongs to what the step finds.
  NoteLook(change);
  ChangeNotice named = change;
  if (NamesSource(change.Kind)) named.Row = CurrentItem;
  running_ = Running{change, NameOfChange(named), CurrentItem};
}

void History::After(const ChangeNotice& change) {
  switch (change.Kind) {
    case ChangeKind::Undo:
    case ChangeKind::Redo:
      return Tell();
    case ChangeKind::NewProject:
      return Begin();
    case ChangeKind::OpenProject:
      if (!change.Failed) return Begin();
      // What could be read stands in place of the job before, which can be taken back.
      break;
    case ChangeKind::Registration:
    case ChangeKind::PrintAll:
    case ChangeKind::Export:
      Finish();
      return NoteAllLooks();
    default:
      break;
  }
  const bool look = RuleOf(change.Kind).By == ChangeBy::Look;
  if (look && IsTheTables(change)) NoteLook(change);
  if (look) return;
  Finish();
  Tell();
}

// What one row, one accessory or the details hold otherwise than the state.
void History::CompareTouched(const ChangeNotice& change, StateChange& found) const {
  switch (RuleOf(change.Kind).Subject) {
    case ChangeSubject::Section:
      if (IsOfRow(change)) CompareSection(state_, change.Row, found);
      break;
    case ChangeSubject::Accessory:
      CompareAccessories(state_, found);
      break;
    case ChangeSubject::Details:
      CompareDetails(state_, found);
      break;
    default:
      break;
  }
}

void History::NoteLook(const ChangeNotice& change) {
  if (change.Kind == ChangeKind::Delete) return CompareSection(state_, change.Row, looked_);
  const bool ofMany = RuleOf(change.Kind).Subject == ChangeSubject::Sections;
  if (ofMany && CurrentItem >= 1 && CurrentItem <= Items.UBound()) {
    return CompareSection(state_, CurrentItem, looked_);
  }
  CompareTouched(change, looked_);
}

void History::NoteAllLooks() {
  if (state_.Rows.size() != static_cast<std::size_t>(Items.UBound())) return Begin(false);
  for (int row = 1; row <= Items.UBound(); ++row) CompareSection(state_, row, looked_);
  CompareAccessories(state_, looked_);
}

StateChange History::ChangeOf(const ChangeNotice& change) const {
  const ChangeSubject subject = RuleOf(change.Kind).Subject;
  StateChange made;
  const bool ofMany = subject == ChangeSubject::Sections;
  if (subject == ChangeSubject::SectionList || ofMany || subject == ChangeSubject::WholeJob) {
    CompareRows(state_, made);
  }
  if (ofMany) CompareAllSections(state_, made);
  if (subject == ChangeSubject::WholeJob) {
    CompareAccessories(state_, made);
    CompareDetails(state_, made);
  }
  CompareTouched(change, made);
  return made;
}

// The change that ran becomes a step, or a part of the last one, if it has changed anything.
void History::Finish() {
  if (!running_) return;
  const Running ran = *std::exchange(running_, std::nullopt);
  if (Extends(ran.Notice)) return Extend(ran.Notice);

  Lead(state_, looked_, Direction::Forward);
  Entry step;
  step.Change = ChangeOf(ran.Notice);
  if (step.Change.Empty()) return Lead(state_, looked_, Direction::Back);

  DropFrom(at_);
  // What was looked at before the first step belongs to what the history begins with.
  if (at_ > 0 && !looked_.Empty()) {
    Entry looks;
    looks.Change = std::move(looked_);
    Append(std::move(looks));
  }
  looked_ = {};
  step.Step = ++steps_;
  step.Kind = ran.Notice.Kind;
  step.RowBefore = ran.CursorRow;
  step.RowAfter = ran.Notice.Row;
  const bool former = TakesAway(ran.Notice.Kind) || NamesSource(ran.Notice.Kind);
  step.Name = former ? ran.Name : NameOfChange(ran.Notice);
  Lead(state_, step.Change, Direction::Forward);
  Append(std::move(step));
  open_ = IsTyped(ran.Notice.Kind);
  DropOldest();
}

// Keys.

bool History::Extends(const ChangeNotice& change) const {
  if (!open_ || at_ == 0 || at_ != entries_.size()) return false;
  const Entry& last = entries_.back();
  return last.Kind == change.Kind && last.RowAfter == change.Row;
}

// A further key of the cell that was typed last. Whatever was drawn since then was that cell's row.
void History::Extend(const ChangeNotice& change) {
  Entry& last = entries_.back();
  const StateChange more = ChangeOf(change);
  looked_.Sections.erase(change.Row);
  looked_.Details = {};
  Lead(state_, more, Direction::Forward);
  for (const auto& [row, section] : more.Sections)
    last.Change.Sections.at(row).After = section.After;
  if (more.Details.Before) last.Change.Details.After = more.Details.After;
  last.Name = NameOfChange(change);
  const auto isSame = [](const PackedChange& part) { return IsSame(part.Before, part.After); };
  if (isSame(last.Change.Details) &&
      std::all_of(last.Change.Sections.begin(), last.Change.Sections.end(),
                  [&](const auto& entry) { return isSame(entry.second); })) {
    DropFrom(at_ - 1);
    open_ = false;
  }
}

// The entries.

void History::Append(Entry entry) {
  entry.Bytes = entry.Change.Bytes() + entry.Name.capacity();
  bytes_ += entry.Bytes;
  if (entry.Step != 0) ++kept_;
  entries_.push_back(std::move(entry));
  at_ = entries_.size();
}

void History::DropFrom(std::size_t at) {
  while (entries_.size() > at) {
    bytes_ -= entries_.back().Bytes;
    if (entries_.back().Step != 0) --kept_;
    entries_.pop_back();
  }
  at_ = std::min(at_, at);
}

void History::DropOldest() {
  while (Bytes() > MostHistoryBytes && kept_ > LeastSteps) {
    if (entries_.front().Step != 0) {
      droppedStep_ = entries_.front().Step;
      if (entries_.front().Kind == ChangeKind::OpenProject) droppedOpening_ = droppedStep_;
      --kept_;
    }
    bytes_ -= entries_.front().Bytes;
    entries_.pop_front();
    --at_;
  }
}

// Taking back and doing again.

// What whoever shows a step must know of it.
RestoredStep RestoredOf(const Entry& step, Direction direction) {
  const bool back = direction == Direction::Back;
  RestoredStep restored;
  restored.Kind = step.Kind;
  restored.Redone = !back;
  restored.Accessories = step.Change.Accessories.Before != nullptr;
  restored.Details = step.Change.Details.Before != nullptr;
  restored.RowsMoved = step.Change.RowsMoved;
  const ChangeSubject subject = RuleOf(step.Kind).Subject;
  if (subject == ChangeSubject::Section) restored.Row = step.RowAfter;
  restored.Several = subject == ChangeSubject::Sections;
  if (subject == ChangeSubject::SectionList || restored.Several) {
    // A section that came goes again, and the cursor to where it stood.
    restored.Row = back && !TakesAway(step.Kind) ? step.RowBefore : step.RowAfter;
  }
  if (!restored.RowsMoved) return restored;
  const std::vector<std::int16_t>& former = step.Change.FormerRows;
  if (!back) {
    restored.FormerRows.assign(former.begin(), former.end());
    return restored;
  }
  restored.FormerRows.assign(static_cast<std::size_t>(Items.UBound()), 0);
  for (std::size_t at = 0; at < former.size(); ++at) {
    if (former[at] == 0) continue;
    restored.FormerRows[static_cast<std::size_t>(former[at]) - 1] = static_cast<int>(at) + 1;
  }
  return restored;
}

bool History::Take(Direction direction, RestoredStep& restored) {
  Finish();
  open_ = false;
  const bool back = direction == Direction::Back;
  const Entry* step = back ? StepBefore() : StepBehind();
  if (step == nullptr) return false;
  const bool ofRow = RuleOf(step->Kind).Subject == ChangeSubject::Section;
  // Led from anything else than what the steps led to, the tables would be nobody's job.
  if (!IsTheTables({step->Kind, ofRow ? step->RowAfter : std::int16_t{0}})) {
    Begin(false);
    return false;
  }
  bool accessories = false;
  Change(back ? ChangeKind::Undo : ChangeKind::Redo, ofRow ? step->RowAfter : std::int16_t{0}, [&] {
    // The states of the steps know nothing of what was looked at since.
    LeadTables(looked_, Direction::Back);
    accessories = looked_.Accessories.Before != nullptr;
    looked_ = {};
    for (const Entry* entry = nullptr; entry != step;) {
      entry = &entries_[back ? at_ - 1 : at_];
      LeadTables(entry->Change, direction);
      Lead(state_, entry->Change, direction);
      at_ = back ? at_ - 1 : at_ + 1;
      accessories = accessories || entry->Change.Accessories.Before;
    }
    restored = RestoredOf(*step, direction);
    restored.Accessories = accessories;
  });
  return true;
}

std::optional<History> history;

}  // namespace

void BeginHistory(std::function<void()> changed) {
  history.emplace(std::move(changed));
}

void EndHistory() {
  history.reset();
}

void EndStep() {
  if (history) history->EndStep();
}

bool IsStepOpen() {
  return history && history->IsStepOpen();
}

std::string StepToUndo() {
  const Entry* step = history ? history->StepBefore() : nullptr;
  return step == nullptr ? std::string() : step->Name;
}

std::string StepToRedo() {
  const Entry* step = history ? history->StepBehind() : nullptr;
  return step == nullptr ? std::string() : step->Name;
}

void MarkSaved() {
  if (history) history->MarkSaved();
}

void MarkUnsaved() {
  if (history) history->MarkUnsaved();
}

bool IsChangedSinceSaved() {
  return history && history->IsChanged();
}

JobInTables WhoseJob() {
  return history ? history->WhoseJob() : JobInTables::Saved;
}

JobState StateNow() {
  return history ? history->StateNow() : JobState{};
}

bool UndoStep(RestoredStep& restored) {
  return history && history->Take(Direction::Back, restored);
}

bool RedoStep(RestoredStep& restored) {
  return history && history->Take(Direction::Forward, restored);
}

std::size_t HistoryBytes() {
  return history ? history->Bytes() : 0;
}

int StepsToUndo() {
  return history ? history->StepsToUndo() : 0;
}

}  // namespace orvane
