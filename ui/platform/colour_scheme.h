// Light or dark: the program's two sets of colours, and which of them the desktop asks for, at the
// start and while the program runs.
#pragma once

#include <QObject>
#include <QPalette>
#include <functional>
#include <optional>

namespace orvane {

enum class ColourScheme { Light, Dark };

// All colours of the program's controls. What is read stands on its ground with a contrast of at
// least 4.5 to 1, disabled controls apart, which says that they are.
QPalette SchemePalette(ColourScheme scheme);

// The application's colours follow the desktop from now on. Until it answers, and where it doesn't
// tell, they are dark if its own palette is.
void FollowColourScheme();

// The desktop's own place for the scheme: asks it, tells the answer once it is there, and every
// change after that, as long as `life` exists; none where the person has no preference. Written for
// each platform.
void WatchDesktopScheme(QObject& life, std::function<void(std::optional<ColourScheme>)> tell);

}  // namespace orvane
