// Saving the open project: the path, the questions, and what the window shows of it. Everything
// goes through TheDesktop and TheMainScreen.
#pragma once

#include <string>

#include "core/desktop.h"
#include "core/numbers.h"
#include "project/content_mark.h"

namespace orvane {

// The tables hold something else than the job of their file, which they must not be written over:
// what the last opening read before it stopped half-way, or, with such an opening taken back after
// its pieces were saved, the job before. Until New, a whole opening or a save.
extern Boolean NotFullyRead;

// The file that the job is saved under; empty for none, and while the tables
// hold something else than its job.
std::string PathOfJob();

// The file dialog of a project, to open or to save; it starts beside the project's file.
FileDialog ProjectDialog(const std::string& title);

// Whether the changes are to be saved.
Answer AskToSave(const std::string& title);

// The open job stands on the disk as these bytes, under that path: a save that finds others there
// asks. Of a job without a file nothing is known.
void KnowContent(const std::string& path, const ContentMark& content);
// The same of what stands under that path now; nothing is known if that can't be read.
void KnowContentOf(const std::string& path);
// Nothing that may stand under that path is known: a save that finds a file there asks.
void KnowNothingOf(const std::string& path);
// What is known of the open job, as a text (MarkText); empty for nothing.
std::string KnownMark();
void ForgetContent();

// How a save ended.
enum class Saving {
  Done,
  Failed,    // or was cancelled
  WentThere  // the user went to a text that the file can't hold
};

// "Save", and "Save As" with a true argument. After a reading that stopped half-way "Save" is "Save
// As". A cancelled dialog is no error and changes nothing. Texts that the file can't hold are told
// with their places, and it is asked what to do; a project that wouldn't open again isn't written.
// It is asked too before a file is replaced that isn't the one that was opened or saved last, by
// its content, since somebody else has saved it, or, behind a file dialog, one that somebody else
// has open. A file that has gone is simply written again. An error shows its description; the name,
// the flag and the recent list then stay, and so does the file.
Saving Save(Boolean SaveAs);

// The same; true when the file was written.
bool SaveProject(Boolean SaveAs);

// The save that was asked for before the project goes; false if it mustn't go. It goes whatever
// becomes of the save, as long as the user's work doesn't go with it.
bool MayGoSaved(const std::string& title);

// The job stands in that file.
void TakeFileName(const std::string& path);

// The changes are saved, or are to be lost.
void ForgetChanges();

}  // namespace orvane
