// A dialog comes back where it was left, for as long as the program runs.
#pragma once

#include <QDialog>

namespace orvane {

// Opens the dialog where the last one of its objectName was closed, moved onto the screen as far as
// it must be; the toolkit places the first one. Called once, by a dialog that has its name.
void KeepPlace(QDialog& dialog);

}  // namespace orvane
