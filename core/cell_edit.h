// How the cells of a table are edited: the rules say it, the controls on the screen do it.
#pragma once

namespace orvane {

enum class CellEdit {
  None,    // not at all: keys and clicks pass it over
  Text,    // any text
  Digits,  // digits alone, typed or pasted
  Number,  // any text typed, since it is read as far as it is a number; of what is pasted a number
  Choice   // an entry of a list
};

}  // namespace orvane
