#include "project/section_list/chosen_change.h"

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <utility>

#include "core/model.h"
#include "core/numbers.h"
#include "core/text.h"
#include "project/error_names.h"
#include "project/rules/section_columns.h"
#include "project/rules/section_details.h"
#include "project/section_list/list_columns.h"
#include "project/section_list/list_details.h"

namespace orvane {

namespace {

using Cell = PlannedCell::Result;
using Row = PlannedSection::Result;

constexpr int MostLeftShown = 20;

// Beyond any length, so that more is refused as what it is.
constexpr double FarTooLong = 1e6;

std::string SumOfLengths(const Item& item, const std::string& added) {
  return DecimalText(item.Length +
                     static_cast<long long>(std::clamp(Val(added), -FarTooLong, FarTooLong)));
}

// Words are parted by a blank, signs stand at once.
std::string Appended(const std::string& notes, const std::string& text) {
  constexpr std::string_view AtOnce = " ,;.:)";
  const bool parted = !notes.empty() && !text.empty() &&
                      AtOnce.find(text.front()) == std::string_view::npos && notes.back() != ' ';
  return notes + (parted ? " " : "") + text;
}

std::string Replaced(std::string notes, const std::string& from, const std::string& to) {
  if (from.empty()) return notes;
  for (std::size_t at = 0; (at = notes.find(from, at)) != std::string::npos; at += to.size()) {
    notes.replace(at, from.size(), to);
  }
  return notes;
}

std::string NotesOf(const Item& item, const ChosenChange& change) {
  switch (change.ByNotes) {
    case ChosenChange::NotesBy::Append:
      return Appended(item.Notes, *change.Notes);
    case ChosenChange::NotesBy::Replace:
      return Replaced(item.Notes, change.NotesFrom, *change.Notes);
    case ChosenChange::NotesBy::Set:
      break;
  }
  return *change.Notes;
}

// The cells of the grid, as if each text was put into its cell and the cell left.
void TakeGridCells(PlannedSection& row, const ChosenChange& change) {
  Item& item = row.After;
  SectionTexts texts(static_cast<std::size_t>(SectionColumns));
  const auto text = [&texts](int column) -> std::optional<std::string>& {
    return texts.at(static_cast<std::size_t>(column));
  };
  const bool adds = change.ByLength == ChosenChange::LengthBy::Add;
  if (change.Length)
    text(LengthColumn) = adds ? SumOfLengths(item, *change.Length) : *change.Length;
  text(QuantityColumn) = change.Quantity;
  if (change.Notes) text(NotesColumn) = NotesOf(item, change);
  if (change.Product && Trim(*change.Product) != Trim(item.Product)) {
    if (ProductNamed(item.SectionType, *change.Product)) {
      text(ProductColumn) = change.Product;
    } else {
      row.At(ProductColumn).Refuse("Its family has no product " + *change.Product);
    }
  }
  const auto nobody = [](std::string_view) { return false; };
  const TakenRow taken = TakeRow(item, texts, nobody);
  for (int column = MarkColumn; column < SectionColumns; ++column) {
    PlannedCell& cell = row.At(column);
    const TakenCell& what = taken.Cells.at(static_cast<std::size_t>(column));
    if (what.What == TakenCell::Result::Refused) cell.Refuse(what.Reason);
    if (what.What == TakenCell::Result::Changed) cell.What = Cell::Changed;
  }
}

// What the detail panel shows of it.
void TakePanel(PlannedSection& row, const ChosenChange& change, bool mayRemoveHoles) {
  if (change.Pattern && RemovesHolesByHand(Int16(row.Row), *change.Pattern)) {
    row.RemovedHoles = Items.At(row.Row).HoleCount();
    if (!mayRemoveHoles) {
      PlannedCell& cell = row.At(PunchingColumn);
      cell.What = Cell::HeldBack;
      cell.Reason = "It has holes placed by hand";
      return;
    }
  }
  const auto take = [&row](int column, const std::optional<std::string>& text) {
    if (text) TakeDetail(row.After, column, *text, row.At(column));
  };
  take(PunchingColumn, change.Pattern);
  take(SagBarsColumn, change.SagBars);
  take(PitchColumn, change.Pitch);
}

PlannedSection PlanFor(int at, const ChosenChange& change, bool mayRemoveHoles) {
  PlannedSection row;
  row.Row = at;
  row.After = ListedCopy(Items.At(at));
  TakeGridCells(row, change);
  TakePanel(row, change, mayRemoveHoles);
  if (row.Has(Cell::Refused) || row.Has(Cell::HeldBack)) {
    row.What = Row::Refused;
  } else if (row.Has(Cell::Changed)) {
    row.What = Row::Changed;
  }
  return row;
}

std::string ReasonOf(const PlannedSection& row) {
  for (const PlannedCell& cell : row.Cells) {
    if (cell.What == Cell::Refused || cell.What == Cell::HeldBack) return cell.Reason;
  }
  return {};
}

}  // namespace

std::optional<ChosenChange> ChangeFromCell(int row, int column) {
  if (row < 1 || row > Items.UBound()) return std::nullopt;
  ChosenChange change;
  const std::string text = ItemText(Int16(row), column);
  switch (column) {
    case ProductColumn:
      change.Product = text;
      break;
    case LengthColumn:
      change.Length = text;
      break;
    case QuantityColumn:
      change.Quantity = text;
      break;
    case NotesColumn:
      change.Notes = text;
      break;
    default:
      return std::nullopt;
  }
  return change;
}

SectionPlan PlanOfChange(const std::vector<int>& rows, const ChosenChange& change,
                         bool mayRemoveHoles) {
  SectionPlan plan;
  plan.Rows.reserve(rows.size());
  for (const int row : rows) plan.Rows.push_back(PlanFor(row, change, mayRemoveHoles));
  return plan;
}

int HeldByHoles(const SectionPlan& plan) {
  return static_cast<int>(
      std::count_if(plan.Rows.begin(), plan.Rows.end(), [](const PlannedSection& row) {
        return row.Has(Cell::HeldBack) && !row.Has(Cell::Refused);
      }));
}

std::string LeftSections(const SectionPlan& plan) {
  std::string lines;
  int left = 0;
  for (const PlannedSection& row : plan.Rows) {
    if (row.What != Row::Refused || ++left > MostLeftShown) continue;
    lines += "\r" + NameOfSection(Int16(row.Row)) + ": " + ReasonOf(row);
  }
  if (left > MostLeftShown) lines += "\rand " + DecimalText(left - MostLeftShown) + " more";
  return lines;
}

}  // namespace orvane
