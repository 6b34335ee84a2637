// Documents on the platform's printers.
#pragma once

#include <QWidget>
#include <functional>

#include "drawing/document.h"

namespace orvane {

// Asks for a printer in the platform's dialog, its print to a file and its range of pages included,
// and prints the pages chosen, each on paper of its own size and way up; false when the user
// cancelled. Without any printer, and for a printer that fails, a RuntimeError with the system's
// text. `parent` is the window that asks; `title` names the job.
bool PrintDocument(const Document& document, QWidget* parent, const QString& title);

}  // namespace orvane
