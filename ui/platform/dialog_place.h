// A dialog comes back where it was left, for as long as the program runs.
#pragma once

#include <QDialog>

namespace orvane {

// Opens the dialog where the last one of its objectName was closed, and the first one over the
// middle of the window that it belongs to, moved onto the screen with its frame as far as it must
// be. Called once for a dialog.
void KeepPlace(QDialog& dialog);

// Has the first one of a dialog that keeps its place open beside that part of the screen.
void KeepInSight(QDialog& dialog, const QRect& place);

// Nothing has been closed yet, as when the program starts.
void ForgetPlaces();

}  // namespace orvane
