#include "project/rules/notch_rules.h"

#include <utility>

#include "core/model.h"
#include "core/numbers.h"
#include "project/changes.h"

namespace orvane {

namespace {

Table<std::string> AllCodes() {
  Table<std::string> codes;
  for (const char* code : {"TL1", "T2", "TR1", "BL1", "B2", "BR1", "L3", "R3"}) codes.Append(code);
  return codes;
}

struct SizeColumn {
  int Column;
  float Notch::*Size;
};

constexpr SizeColumn SizeColumns[] = {
    {NotchDepthColumn, &Notch::Size1},
    {NotchWidthColumn, &Notch::Size2},
    {NotchPositionColumn, &Notch::Size3},
};

}  // namespace

const Table<std::string> NotchCodes = AllCodes();

NotchTexts BlankNotch() {
  NotchTexts row;
  row.Resize(NotchColumns);
  return row;
}

const std::string& NotchText(const NotchTexts& row, int column) {
  return row.At(column + 1);
}

void SetNotchText(NotchTexts& row, int column, std::string text) {
  row.At(column + 1) = std::move(text);
}

Table<NotchTexts> NotchRows(std::int16_t ItemIndex) {
  const Item& item = Items.At(ItemIndex);
  Table<NotchTexts> rows;
  for (const Notch& notch : item.Notches) {
    NotchTexts row = BlankNotch();
    SetNotchText(row, NotchCodeColumn, notch.Code);
    for (const SizeColumn& size : SizeColumns) {
      SetNotchText(row, size.Column, ShortestText(notch.*size.Size));
    }
    rows.Append(std::move(row));
  }
  if (rows.Empty()) rows.Append(BlankNotch());
  return rows;
}

void StoreNotches(std::int16_t ItemIndex, const Table<NotchTexts>& rows) {
  Table<Notch> notches;
  for (const NotchTexts& row : rows) {
    if (NotchText(row, NotchCodeColumn).empty()) continue;
    Notch notch;
    notch.Code = NotchText(row, NotchCodeColumn);
    for (const SizeColumn& size : SizeColumns) {
      notch.*size.Size = Float32(Val(NotchText(row, size.Column)));
    }
    notches.Append(std::move(notch));
  }
  Change(ChangeKind::Notches, ItemIndex, [&] { Items.At(ItemIndex).Notches = std::move(notches); });
}

}  // namespace orvane
