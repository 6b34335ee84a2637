// Radio buttons as one stop on the way by Tab.
#pragma once

#include <QButtonGroup>

namespace orvane {

// Tab comes to the checked button of the group, from where the arrow keys choose another; also when
// it was checked by code, of which the toolkit takes no notice. Called once, when the group has its
// buttons.
void KeepTabAtChecked(QButtonGroup& group);

}  // namespace orvane
