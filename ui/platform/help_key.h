// The key of the help in every window.
#pragma once

#include <QWidget>

namespace orvane {

// Shows the help, at the window's page where the viewer can be told.
void ShowHelp();

// F1 in that window shows the help.
void GiveHelpKey(QWidget& window);

}  // namespace orvane
