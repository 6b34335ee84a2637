// What the user did to the job, step by step, so that it can be taken back and done again. It
// follows the gate of changes: a user's change of the job is a step; a look at it is none, though
// what it works out in the tables is put back and brought again with the steps around it. One job
// has one history, application-wide; it belongs to the window's thread like the tables.
//
// A step holds what the records were just before it and what they were when it was over, the rows
// that it touched alone, packed and shared between the steps. States between two steps that only
// looks have changed stand between them, so that taking back everything leads to the very records
// at which the history began.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "project/changes.h"
#include "project/job_states.h"

namespace orvane {

// The history begins with the job as it stands, saved, and follows the changes until it is ended.
// It is to be begun behind those who follow changes and touch the tables when they are told, such
// as one that spaces holes. `changed` is called whenever what can be taken back, or whether the job
// is changed, may be another. Begun again it forgets all steps.
void BeginHistory(std::function<void()> changed = nullptr);
void EndHistory();

// Keys typed into one cell are one step: what comes next is a step of its own, as the cell has been
// left. All other changes are a step each.
void EndStep();
// True while the keys of the cell that is being typed would still go into the last step.
bool IsStepOpen();

// The step that is taken back or done again next, as a person would call it: "Length of P4"; empty
// for none.
std::string StepToUndo();
std::string StepToRedo();

// The job stands in its file now. And whether it does: false again once the steps since then have
// been taken back. Without a history, and where nothing was done, it isn't changed.
void MarkSaved();
// The job stands in no file, though no step has been taken yet: it was opened from a copy.
void MarkUnsaved();
bool IsChangedSinceSaved();

// Whose job the tables hold, as an opening that fails is a step: that of the last save, or of the
// beginning; the pieces of an opening that failed since then; or what stood there before an opening
// whose pieces were saved, and which has been taken back.
enum class JobInTables { Saved, Pieces, Former };
JobInTables WhoseJob();

// The job as it stands behind the last change or look, apart from the tables: it shares its
// sections with the history, costs little and may go to another thread. Empty without a history.
JobState StateNow();

// What a step that was taken back or done again has touched, for whoever shows it.
struct RestoredStep {
  ChangeKind Kind = ChangeKind::GridTexts;
  bool Redone = false;
  std::int16_t Row = 0;         // of Items that it is about; 0 for none
  bool Several = false;         // it was done to several sections at once
  bool RowsMoved = false;       // there are others, or they stand in another order:
  std::vector<int> FormerRows;  // row i was row FormerRows[i - 1] before, 0 for one that is new
  bool Accessories = false;
  bool Details = false;
};

// Puts the records back as they were before the last step, or brings them to what the next one made
// of them: a change of its own kind, which sets ProjectDirty. Nothing is worked out. False if there
// is no such step, or if the tables were filled behind the gate's back, with which it begins
// afresh.
bool UndoStep(RestoredStep& restored);
bool RedoStep(RestoredStep& restored);

// Beyond that many bytes the oldest steps go, but for the last ones.
constexpr std::size_t MostHistoryBytes = std::size_t{128} << 20;
constexpr int LeastSteps = 20;
// The bytes that steps and state hold by now, and the steps that can be taken back.
std::size_t HistoryBytes();
int StepsToUndo();

}  // namespace orvane
