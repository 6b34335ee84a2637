// What the accessory dialogs store and refuse. Rows are the dialog's: one for each parameter of a
// type 1 accessory, one for each line of a type 2 accessory, headings left out.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "core/model.h"

namespace orvane {

// True for a row of AccDefs from accs1.csv.
bool IsType1Accessory(std::int16_t AccIndex);

// The project's lines of an accessory as the dialogs and the print run show them. Type 1: a row for
// each parameter, the number off in column 1, and the value in column 2 where the accessory has
// that column; what has no line stays empty. Type 2: a row for each line, the mark, the number off
// and the values, as many columns as the accessory has parameters. What no longer fits the
// catalogue has no place and is skipped.
TextRows AccessoryRows(std::int16_t AccIndex);

// "&OK" of the dialogs: the accessory's lines are replaced by what the rows hold, AccUsed follows,
// and the list is sorted; one change, which sets ProjectDirty. A number beyond 16 bits raises
// "Overflow" before anything is changed.
void StoreType1Lines(std::int16_t AccIndex, const TextRows& rows);
void StoreType2Lines(std::int16_t AccIndex, const TextRows& rows);

// "Clear" of the list: the project loses all lines of the accessory, of either type. A change,
// which sets ProjectDirty.
void ClearAccessory(std::int16_t AccIndex);

// Why a type 2 table may not be stored: the first faulty row, and the column whose cell is opened
// for it, 0 for none.
struct AccessoryRefusal {
  int Row = 0;
  int Column = 0;
  std::string Title;
  std::string Text;
};

// AccValidate: none when the table may be stored.
std::optional<AccessoryRefusal> ValidateAccessory(std::int16_t AccIndex, const TextRows& rows);

}  // namespace orvane
