// Sections on their way through the clipboard, to another place of the job, to another job or to
// another running program: bytes that hold them whole, and their pasting. Rows are rows of Items.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/model.h"

namespace orvane {

// What the clipboard calls such bytes.
constexpr std::string_view CopiedSectionsType = "application/x-orvane-sections";

// The sections of these rows with all that they hold, down to the bits of their numbers: no form of
// a file stands between, which lacks a sign for some texts.
std::string CopiedSections(const std::vector<int>& rows);

// The sections that such bytes hold, without serials. Bytes of another form raise "Type mismatch",
// which says so: they may come from a program of another version, or be cut off.
std::vector<Item> ReadCopiedSections(const std::string& bytes);

struct PastedSections {
  std::int16_t Row = 0;  // the first of them; 0 for none
  // What the catalogue of this program hasn't got of them, in lines for a person; empty for
  // nothing. It stays in the records.
  std::string Lacking;
};

// Appends the sections as they are, but for their marks: one that is in use already, blanks at both
// ends apart, gets an "A" behind it until it is free, as Duplicate's mark has it; an empty one
// stays empty. "Overflow" where the rows have no number in 16 bits; nothing is appended then.
PastedSections PasteSectionRows(std::vector<Item> sections);

}  // namespace orvane
