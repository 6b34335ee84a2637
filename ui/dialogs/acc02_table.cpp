#include "ui/dialogs/acc02_table.h"

#include <QAbstractItemView>
#include <algorithm>
#include <vector>

#include "core/model.h"
#include "core/runtime_error.h"
#include "project/rules/accessory_rules.h"
#include "ui/platform/qt_text.h"

namespace orvane {

namespace {

constexpr int AccMarkColumn = 1;
constexpr int AccNoOffColumn = 2;

// Sizes of the table in twips.
constexpr int AccFixedColumn = 180;
constexpr int AccLeastColumn = 850;
constexpr int AccRowHeight = 270;

constexpr int LeastLinesInSight = 4;

// Twips as device-independent pixels, of which an inch has 96; a part of one counts whole.
constexpr int PixelsOf(int twips) {
  constexpr int TwipsPerPixel = 1440 / 96;
  return (twips + TwipsPerPixel - 1) / TwipsPerPixel;
}

std::vector<std::string> HeadingsOf(std::int16_t AccIndex) {
  const AccDef& accessory = AccDefs.At(AccIndex);
  std::vector<std::string> headings = {""};
  for (int param = 1; param <= accessory.ParamCount(); ++param) {
    headings.push_back(accessory.ParamNames.At(param));
  }
  return headings;
}

// The titles over the columns; none for an accessory without groups. A group that runs past the
// last column ends there.
std::vector<std::string> GroupTitlesOf(std::int16_t AccIndex) {
  const AccDef& accessory = AccDefs.At(AccIndex);
  if (accessory.Groups.Empty()) return {};
  std::vector<std::string> titles(static_cast<std::size_t>(accessory.ParamCount()) + 1);
  for (const AccGroup& group : accessory.Groups) {
    const int first = std::max<int>(group.FirstParam, AccMarkColumn);
    const int last = std::min<int>(group.FirstParam + group.GroupValue - 1, accessory.ParamCount());
    for (int column = first; column <= last; ++column) {
      titles.at(static_cast<std::size_t>(column)) = group.Title;
    }
  }
  return titles;
}

// Options ends with the last parameter of the catalogue and has no row without one.
bool HasChoices(const AccDef& accessory, int column) {
  return column <= accessory.Options.UBound() && accessory.Options.At(column).OptionCount() > 0;
}

CellEdit AccCellEdit(std::int16_t AccIndex, int column) {
  if (HasChoices(AccDefs.At(AccIndex), column)) return CellEdit::Choice;
  if (column == AccMarkColumn) return CellEdit::Plain;
  return column == AccNoOffColumn ? CellEdit::Digits : CellEdit::Text;
}

TextRowsModel* NewAcc02Model(std::int16_t AccIndex) {
  auto* model = new TextRowsModel(HeadingsOf(AccIndex), AccessoryRows(AccIndex), 1, nullptr);
  model->SetGroupTitles(GroupTitlesOf(AccIndex));
  return model;
}

}  // namespace

Acc02Table::Acc02Table(std::int16_t AccIndex, QWidget* parent)
    : TextTable(
          NewAcc02Model(AccIndex), [AccIndex](int column) { return AccCellEdit(AccIndex, column); },
          CellTakes::OnLeaving, "SSPanelEdit", parent) {
  setObjectName("MSFlexGrid1");
  setAccessibleName("Lines");
  SetColumnsByHeading(PixelsOf(AccFixedColumn), PixelsOf(AccLeastColumn));
  SetLeastRowHeight(PixelsOf(AccRowHeight));
  setMinimumHeight(HeightOf(LeastLinesInSight));
  const AccDef& accessory = AccDefs.At(AccIndex);
  for (int column = AccMarkColumn; column <= accessory.ParamCount(); ++column) {
    if (!HasChoices(accessory, column)) continue;
    PlainCombo& choices = Editor().AddChoices(column, IndexedName("sspEditCombo", column),
                                              IndexedName("cboEdit", column));
    // The list is as wide as its texts, however narrow the column.
    choices.view()->setTextElideMode(Qt::ElideNone);
    choices.Fill(accessory.Options.At(column).OptionTexts);
    choices.view()->setMinimumWidth(choices.sizeHint().width());
  }
}

void Acc02Table::FillChoices(int column, const Table<std::string>& texts) {
  PlainCombo* choices = Editor().ChoicesOf(column);
  if (choices == nullptr) throw RuntimeError(Failure::SubscriptOutOfRange);
  choices->Fill(texts);
}

}  // namespace orvane
