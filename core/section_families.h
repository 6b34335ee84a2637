// The six section families of the trade, as every menu, sheet and limit of the system names them.
#pragma once

#include <array>
#include <string_view>

namespace orvane {

struct SectionFamily {
  std::string_view Letter;        // section letter, as Item, SectionDim and PunchPattern hold it
  std::string_view MenuEntry;     // entry of the section menu; "&" marks its key
  std::string_view ToolTip;       // of its toolbar button
  std::string_view SheetTitle;    // heading of its drawing
  std::string_view FixedProduct;  // the one product it comes in; empty where one is chosen
  double DefaultMaxLength;        // mm
};

// In the order of MaxDims, whose rows count from 1.
constexpr std::array<SectionFamily, 6> SectionFamilies = {{
    // clang-format off
    {"Z", "&Z section",    "Add a Z section",                      "Z Purlin/Rail",       "",    15000},
    {"E", "&Eaves Beam",   "Add an eaves beam section",            "Eaves Beam",          "",    15000},
    {"C", "&C Channel",    "Add a channel section",                "Mezzanine/C-Channel", "",    15000},
    {"V", "&VCR",          "Add a vertical cladding rail section", "VCR",                 "VCR", 3050},
    {"R", "Cleader &Rail", "Add a cleader rail section",           "Cleader Rail",        "CLR", 3050},
    {"T", "&Top Hat",      "Add a top hat section",                "Top Hat Section",     "",    4000},
    // clang-format on
}};

// The row of MaxDims that limits sections of that letter, 1 to 6; 0 for a text that is no section
// letter. The family itself is the element before it, SectionFamilies.at(row - 1).
int MaxDimsRow(std::string_view letter);

}  // namespace orvane
