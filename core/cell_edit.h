// How the cells of a table are edited: the rules say it, the controls on the screen do it.
#pragma once

namespace orvane {

enum class CellEdit {
  None,    // not at all: keys and clicks pass it over
  Text,    // any text
  Digits,  // of typed characters digits alone; what is pasted stands as it is
  Choice   // an entry of a list
};

}  // namespace orvane
