#include "tests/project/history_fixture.h"

#include "core/numbers.h"
#include "holes/hole_list.h"
#include "project/rules/section_columns.h"
#include "project/rules/section_details.h"
#include "project/sections.h"

namespace orvane::test {

HistoryFixture::HistoryFixture() {
  LoadShippedCatalogues();
  BeginHistory();
}

HistoryFixture::~HistoryFixture() {
  EndHistory();
}

void HistoryFixture::TypeKeys(int row, int column, const std::string& text) {
  const std::int16_t item = Int16(row);
  CurrentItem = item;
  for (std::size_t length = 1; length <= text.size(); ++length) {
    Change(SectionColumnAt(column).Kind.value(), item, [&] {
      const std::string typed = text.substr(0, length);
      if (column == ProductColumn) {
        TakeChosenText(item, column, text);
      } else {
        TakeTypedText(item, column, typed);
      }
      if (column == LengthColumn) RebuildHoles(item, Items.At(row).PatternName);
    });
  }
}

void HistoryFixture::TypeCell(int row, int column, const std::string& text) {
  EndStep();
  TypeKeys(row, column, text);
  EndStep();
}

void HistoryFixture::ChoosePattern(int row, const std::string& pattern) {
  const std::int16_t item = Int16(row);
  CurrentItem = item;
  Change(ChangeKind::Pattern, item, [&] {
    SetPattern(item, pattern);
    SetSagBarsOfPattern(item, pattern);
    RebuildHoles(item, pattern);
  });
}

void HistoryFixture::LookAt(int row) {
  const std::int16_t item = Int16(row);
  CurrentItem = item;
  Change(ChangeKind::ShowSection, item, [&] {
    SettleSagBars(item);
    RebuildHoles(item, Items.At(row).PatternName);
  });
}

std::int16_t HistoryFixture::AddPurlin(const std::string& mark, int length) {
  const std::int16_t row = AddSectionRow("Z");
  TypeCell(row, MarkColumn, mark);
  TypeCell(row, ProductColumn, "Z14012");
  TypeCell(row, LengthColumn, DecimalText(length));
  TypeCell(row, QuantityColumn, "4");
  return row;
}

RestoredStep HistoryFixture::Undo() {
  RestoredStep restored;
  EXPECT_TRUE(UndoStep(restored));
  return restored;
}

RestoredStep HistoryFixture::Redo() {
  RestoredStep restored;
  EXPECT_TRUE(RedoStep(restored));
  return restored;
}

}  // namespace orvane::test
