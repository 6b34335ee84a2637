// The section families of the trade, as every menu, sheet and limit of the system names them, and
// the form of the tables that hold what else differs by family.
#pragma once

#include <algorithm>
#include <array>
#include <string_view>

namespace orvane {

struct SectionFamily {
  std::string_view Letter;         // section letter, as Item, SectionDim and PunchPattern hold it
  std::string_view MenuEntry;      // entry of the section menu; "&" marks its key
  std::string_view ButtonCaption;  // of its toolbar button
  std::string_view ToolTip;        // of its toolbar button
  std::string_view Icon;           // of both, as CommandEntry names it
  std::string_view LengthLabel;    // of its field where the greatest lengths are set
  std::string_view SheetTitle;     // heading of its drawing
  std::string_view FixedProduct;   // the one product it comes in; empty where one is chosen
  double DefaultMaxLength;         // mm
  bool HasPitch;                   // it follows the roof: Item.Pitch is its
  bool HasJointingPieces;          // it is joined end to end: Item.JointingPieces are its
};

// In the order of MaxDims, of the section menu and of the toolbar.
inline constexpr auto SectionFamilies = std::to_array<SectionFamily>({
    // clang-format off
    // letter, menu entry, button, tip, icon,
    //  label of the length, sheet title,  product, length, pitch, jointing pieces
    {"Z", "&Z section", "Z", "Add a Z section", "z",
        "Z section",    "Z Purlin/Rail",       "",    15000, false, false},
    {"E", "&Eaves Beam", "Eaves", "Add an eaves beam section", "eaves",
        "Eaves beam",   "Eaves Beam",          "",    15000, true,  false},
    {"C", "&C Channel", "C", "Add a channel section", "c",
        "Channel",      "Mezzanine/C-Channel", "",    15000, false, false},
    {"V", "&VCR", "VCR", "Add a vertical cladding rail section", "vcr",
        "VCR",          "VCR",                 "VCR", 3050,  false, false},
    {"R", "Cleader &Rail", "Cleader", "Add a cleader rail section", "cleader",
        "Cleader rail", "Cleader Rail",        "CLR", 3050,  false, true},
    {"T", "&Top Hat", "Top Hat", "Add a top hat section", "top-hat",
        "Top hat",      "Top Hat Section",     "",    4000,  false, false},
    // clang-format on
});

// The family of a section letter; none (null) for a text that is no family's. A file may hold such
// a letter: its section is kept, and what only a family can tell is left out.
const SectionFamily* FamilyOf(std::string_view letter);

// The family's place in SectionFamilies counted from 1, which is its row of MaxDims and its number
// in the control arrays that count from 1; 0 for a text that is no family's letter.
int FamilyNumber(std::string_view letter);

// What differs by family and belongs to one topic alone stands in that topic's file, as a table
// with one row for each family. A table that lacks a row mustn't compile, so each has its check in
// the next line:
//
//   constexpr PerFamily<int> Lips = {{{"Z", 2}, {"E", 2}, {"C", 2}, {"V", 1}, {"R", 0}, {"T", 2}}};
//   static_assert(NamesEachFamily(Lips), "Lips needs one row for each section family");

template <class Fact>
struct FamilyRow {
  std::string_view Letter;  // of one of SectionFamilies
  Fact What;
};

// The rows may stand in any order.
template <class Fact>
using PerFamily = std::array<FamilyRow<Fact>, SectionFamilies.size()>;

// True when each family has its row. There are as many rows as families, so none has two then, and
// no row is another letter's.
template <class Fact>
constexpr bool NamesEachFamily(const PerFamily<Fact>& table) {
  return std::all_of(SectionFamilies.begin(), SectionFamilies.end(), [&](const auto& family) {
    return std::any_of(table.begin(), table.end(),
                       [&](const auto& row) { return row.Letter == family.Letter; });
  });
}

// What the table says of that letter's family; none (null) for a text that is no family's letter.
template <class Fact>
constexpr const Fact* FactOf(const PerFamily<Fact>& table, std::string_view letter) {
  for (const FamilyRow<Fact>& row : table) {
    if (row.Letter == letter) return &row.What;
  }
  return nullptr;
}

}  // namespace orvane
