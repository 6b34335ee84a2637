// What readers of the screen are told of a list: its value is what the closed box shows, typed
// letters included.
#pragma once

namespace orvane {

// For all lists of the program; done once, further calls do nothing.
void TellListsToReaders();

}  // namespace orvane
