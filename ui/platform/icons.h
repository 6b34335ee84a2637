// The program's own icons: line drawings that take the colour of the desktop's text.
#pragma once

#include <QIcon>
#include <string_view>

namespace orvane {

// The icon of that name in ui/icons; an empty icon for an empty name. It is drawn afresh for each
// size, scaling and theme.
QIcon LineIcon(std::string_view name);

// The icon of the program's windows.
QIcon ProgramIcon();

}  // namespace orvane
