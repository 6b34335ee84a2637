#include "project/section_list/section_search.h"

#include <algorithm>
#include <string>

#include "core/model.h"
#include "core/text.h"
#include "project/rules/section_columns.h"

namespace orvane {

namespace {

char Capital(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

bool Holds(std::string_view text, std::string_view capitals) {
  const auto found =
      std::search(text.begin(), text.end(), capitals.begin(), capitals.end(),
                  [](char letter, char capital) { return Capital(letter) == capital; });
  return found != text.end();
}

// The first column that holds the text; 0 for none. The texts of a section are looked at where they
// stand, since each key goes over all of them.
int ColumnWith(const Item& item, std::string_view capitals) {
  if (Holds(item.Mark, capitals)) return MarkColumn;
  if (Holds(item.Product, capitals)) return ProductColumn;
  if (Holds(SectionColumnAt(LengthColumn).Text(item), capitals)) return LengthColumn;
  return Holds(item.Notes, capitals) ? NotesColumn : 0;
}

}  // namespace

std::vector<FoundSection> SectionsWith(std::string_view text) {
  std::vector<FoundSection> found;
  if (text.empty()) return found;
  const std::string capitals = UpperCase(text);
  for (int row = 1; row <= Items.UBound(); ++row) {
    if (const int column = ColumnWith(Items.At(row), capitals)) found.push_back({row, column});
  }
  return found;
}

}  // namespace orvane
