// What a fabrication sheet shows, in words, for those who listen to it.
#pragma once

#include <string>

#include "core/model.h"

namespace orvane {

// Family, mark, product, length, number off, punching with its number of holes, notches and ends of
// that section, as one line without an end.
std::string SheetWords(const Item& section);

}  // namespace orvane
