// What is lost of a changed job when another one takes its place, or the system goes.
#pragma once

#include <string>

namespace orvane {

// Keeps what the job's file lacks as an earlier version of `jobPath`, "left unsaved"
// (project/versions), behind what is done apart from the windows; nothing of a job that isn't
// changed since it was saved, or that stands in a copy as it is. Asked before the tables change.
// Gives why it can't be kept, for whoever may still save it elsewhere; empty for nothing wrong, and
// once it was given up as it stands.
std::string KeepUnsaved(const std::string& jobPath);

// Whether the last of them couldn't be kept, since this was asked: what else holds it must stay.
// Asked by any thread.
bool TakeLost();

// The job as it stands has been kept in another way, in that file alone in its folder: left so, it
// isn't kept again.
void MarkCopied(const std::string& copy);

// The user knows that the job as it stands can't be kept, and leaves it all the same.
void MarkGivenUp();

// Another job takes the place of the one that was copied, whose copies stay.
void ForgetCopies();
// The job stands in its file after all: its copies, older by then, go, lest they be offered over
// it.
void RemoveCopies();

}  // namespace orvane
