// The life of the open project: new, open, exit and their prompts; saving is a file of its own.
// Everything goes through TheDesktop and TheMainScreen.
#pragma once

#include <string>

#include "core/numbers.h"
#include "project/saving.h"

namespace orvane {

// New, an opening and the exit keep what they lose of a changed job (project/left_unsaved). What
// can't be kept is told in the line of the job that takes its place; the exit asks before it goes.

// "New": the save prompt, then an empty project, whose details are asked for; it counts as changed.
// A save asked for by Yes that failed or was cancelled stops neither this, nor "Open", nor the
// exit, as long as the project then goes to the user's data folder. If it can't be kept there
// either, it is asked whether to lose it. Who goes to a text that the file can't hold has stopped
// it.
void NewProject();

// The save prompt before another project takes the place of this one; false if this one stays.
bool MayReplaceProject();

// "Open": the save prompt, then the open dialog, then OpenFile. The dialog starts in its own last
// folder.
void OpenProject();

// Reads a project into the model and shows it; counts as a change. It asks nothing but what to do
// about a job that somebody else has open (project/job_lock): a copy of it is opened without a
// file, and Cancel leaves everything as it is. A file that can't be opened shows the error's
// description and leaves everything as it is. An error of reading
// shows its description; the model then holds what was read until then, the grid shows it,
// and the name, the flag and the recent list stay; the name is shown as not fully read. A path of
// blanks does nothing.
void OpenFile(const std::string& path);

// What stands under the name that a copy of a job is opened under.
enum class FileNow {
  AsItWas,  // what the job was when it was copied from there
  Another   // somebody has saved it since: a save asks before that is replaced
};

// Opens a copy of a job, the bytes of a project file, as one that isn't saved: its file is `name`,
// or none if that is empty, and stays as it is until a save. About that file it asks as OpenFile
// does. One that can't be read to its end ends as there; false then, and where it was cancelled.
bool OpenCopy(const std::string& bytes, const std::string& name, FileNow file = FileNow::AsItWas);

// An opening that failed was taken back or done again. While the tables then hold something else
// than the job that was saved last (WhoseJob), its name shows that, the next save asks for a file
// and the lock is gone; once they hold it again it has its name, and its lock if nobody else has
// one now.
void FollowTakenOpening();

// True when the system may close: asks about holes beyond a section's end, then about unsaved
// changes; Yes and No both clear the flag, so that a second pass doesn't ask to save again.
bool ExitProject();

}  // namespace orvane
