// The CAM file's blocks of the sections.
#pragma once

#include <string_view>

#include "core/model.h"
#include "output/factory_text.h"

namespace orvane {

// Whether sections of that letter go through the line end for end.
bool GoesEndForEnd(std::string_view sectionType);

// The block of one section; that of a letter which is no family's has no first line. A purlin goes
// through the line end for end, so its holes and notches are written mirrored; its mitres never
// are.
void WriteSectionBlock(FactoryWriter& out, const Item& item);

}  // namespace orvane
