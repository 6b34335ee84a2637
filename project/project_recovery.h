// The copy of the open project that is kept when its saving came to nothing.
#pragma once

namespace orvane {

// Puts the text of the open project into the user's data folder, as recovered-YYYY-MM-DD-HHMMSS.ovd
// by the present moment; where that name is taken, -2, -3 and so on is added. Asks and tells
// nothing; false if something went wrong, or if what was kept wouldn't open. For a project that is
// about to be replaced although the save that was asked for came to nothing.
bool KeepRecoveredProject();

}  // namespace orvane
