// The list of the projects last opened or saved.
#pragma once

#include <array>
#include <string>

namespace orvane {

// Paths, the latest first; an empty text is a free entry. Entry n of the trade's counting from 1 is
// element n - 1.
extern std::array<std::string, 5> RecentFiles;

// Puts a path in front, stores the list and shows it; nothing at all if the path is the first entry
// already. A path that stands lower in the list stands in it twice then: the list tells in which
// order jobs were worked on, and coming back to one is a place in it.
void AddRecent(const std::string& path);

// Reads the stored list and shows it.
void LoadRecent();

// Shows the list in the project menu.
void BuildRecent();

// The caption of an entry: the path as it stands up to 50 characters, else "..." and its last 50.
std::string RecentCaption(const std::string& path);

}  // namespace orvane
