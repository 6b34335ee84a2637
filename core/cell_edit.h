// How the cells of a table are edited: the rules say it, the controls on the screen do it.
#pragma once

namespace orvane {

enum class CellEdit {
  None,    // not at all: keys and clicks pass it over
  Text,    // any text; a double quote becomes two apostrophes, as these texts are stored in quotes
  Plain,   // any text but a comma, as it is stored without quotes
  Digits,  // digits alone, typed or pasted
  Number,  // any text typed, since it is read as far as it is a number; of what is pasted a number
  Choice   // an entry of a list
};

}  // namespace orvane
