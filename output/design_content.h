// What makes a section the one it is, whatever it is called and however many there are of it.
#pragma once

#include <string>

#include "core/model.h"

namespace orvane {

// All that a person entered of a section but its mark and its quantity, as bytes: two sections of
// the same ones are alike. What the system works out doesn't stand in it.
std::string ContentBesideMark(const Item& item);

}  // namespace orvane
