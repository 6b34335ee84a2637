// Documents on the platform's printers.
#pragma once

#include <QPrinter>
#include <QString>
#include <QWidget>
#include <functional>
#include <optional>
#include <vector>

#include "drawing/document.h"
#include "drawing/papers.h"

namespace orvane {

// Lays the document out anew on that paper; none if the user calls it off.
using LayOutOn = std::function<std::optional<Document>(const Paper& paper)>;

// Asks for a printer in the platform's dialog, its print to a file and its range of pages included,
// and prints the pages chosen, each on paper of its own size and way up; false when the user
// cancelled. Other paper that he chose there is what is drawn on, by `again`; too small a one, and
// any without it, gets the pages as they are, made smaller where they don't fit. Without any
// printer, and for a printer that fails, a RuntimeError with the system's text. `parent` is the
// window that asks; `title` names the job.
bool PrintDocument(const Document& document, QWidget* parent, const QString& title,
                   const LayOutOn& again = {});

// Lets the user choose a printer and the pages; false when he cancelled. It is the platform's
// dialog unless another is put in its place, for tests; an empty one takes that back.
using PrinterChoice = std::function<bool(QPrinter& printer, QWidget* parent)>;
void ReplacePrintDialog(PrinterChoice choice);

// The numbers of the pages that the printer was asked for, from 1, in the order in which they are
// to be printed, copies included where the printer doesn't make them itself.
std::vector<int> ChosenPages(const QPrinter& printer, int count);

// Prints those pages; `goesOn` is told how many are done and gives false to abort. False when it
// was.
bool PrintPages(QPrinter& printer, const Document& document, const std::vector<int>& pages,
                const std::function<bool(int done)>& goesOn);

}  // namespace orvane
