// With Alt a letter belongs to a button or a menu.
#pragma once

namespace orvane {

// From now on a letter held with Alt that no button and no menu uses types nothing into any field
// of the application: it would go over the text that is marked in a cell. The letters that a
// keyboard has behind AltGr, which some systems report as Ctrl and Alt together, are typed. Called
// once.
void KeepAltFromTyping();

}  // namespace orvane
