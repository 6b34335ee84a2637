#include "project/rules/chosen_sections.h"

#include <cstddef>
#include <functional>
#include <utility>

#include "core/model.h"
#include "core/numbers.h"
#include "core/runtime_error.h"
#include "holes/hole_list.h"
#include "project/error_names.h"
#include "project/rules/section_details.h"
#include "project/sections.h"

namespace orvane {

namespace {

// Lines of a box that a person reads; further errors are counted.
constexpr std::size_t MostLines = 10;

// What `make` gives of each row, appended when all of it is made.
std::int16_t AppendOfEach(ChangeKind kind, const std::vector<int>& rows,
                          const std::function<Item(const Item& source)>& make) {
  std::vector<Item> made;
  made.reserve(rows.size());
  const std::int16_t first = Int16(Items.UBound() + 1);
  try {
    Int16(Items.UBound() + static_cast<long long>(rows.size()));
    for (const int row : rows) {
      InNameOfSection(Int16(row), [&] { made.push_back(make(Items.At(row))); });
    }
  } catch (const RuntimeError& error) {
    throw RuntimeError(error.Number(), error.Description() + "\rNothing was added.");
  }
  Change(kind, first, [&] {
    for (Item& item : made) Items.Append(std::move(item));
  });
  return first;
}

}  // namespace

std::vector<int> DeleteSectionRows(const std::vector<int>& rows, ChangeKind kind) {
  std::vector<int> formerRows;
  Change(kind, Int16(rows.front()), [&] {
    Table<Item> rest;
    rest.Reserve(Items.UBound());
    rest.At(0) = Items.At(0);
    auto next = rows.begin();
    for (int row = 1; row <= Items.UBound(); ++row) {
      if (next != rows.end() && *next == row) {
        ++next;
        continue;
      }
      rest.Append(std::move(Items.At(row)));
      formerRows.push_back(row);
    }
    Items = std::move(rest);
  });
  return formerRows;
}

std::int16_t DuplicateSectionRows(const std::vector<int>& rows) {
  return AppendOfEach(ChangeKind::DuplicateSections, rows, [](const Item& source) {
    Item copy = source;
    MakeDuplicate(copy);
    return copy;
  });
}

std::int16_t OppositeHandSectionRows(const std::vector<int>& rows) {
  return AppendOfEach(ChangeKind::OppositeHandSections, rows, [](const Item& source) {
    Item hand = source;
    MakeOppositeHand(source, hand);
    return hand;
  });
}

std::string ConvertSectionRows(const std::vector<int>& rows) {
  std::vector<std::string> errors;
  Change(ChangeKind::ConvertSections, Int16(rows.front()), [&] {
    for (const int each : rows) {
      const std::int16_t row = Int16(each);
      ConvertHolesToCustom(row);
      SetPattern(row, CustomPattern);
      SetSagBarsOfPattern(row, CustomPattern);
      RebuildHoles(row, CustomPattern, [&](const std::string& description) {
        errors.push_back(NameOfSection(row) + ": " + description);
      });
    }
  });
  std::string text;
  for (std::size_t at = 0; at < errors.size() && at < MostLines; ++at) {
    text += (at == 0 ? "" : "\r") + errors[at];
  }
  if (errors.size() > MostLines) {
    text += "\rand " + DecimalText(static_cast<long long>(errors.size() - MostLines)) + " more";
  }
  return text;
}

}  // namespace orvane
