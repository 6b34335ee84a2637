#include "project/section_list/section_plan.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "core/numbers.h"
#include "core/section_families.h"
#include "core/text.h"
#include "project/rules/section_columns.h"
#include "project/rules/section_details.h"
#include "project/section_list/list_details.h"
#include "project/section_list/nearest_names.h"

namespace orvane {

namespace {

using Cell = PlannedCell::Result;
using Row = PlannedSection::Result;

constexpr int MostSections = 32767;

std::string Key(std::string_view text) {
  return std::string(Trim(text));
}

std::string HolesByHand(int count) {
  return DecimalText(count) + (count == 1 ? " hole placed by hand" : " holes placed by hand");
}

// Who bears a mark, and how many do.
struct Bearers {
  int First = 0;
  int Count = 0;
};

// The names of products with the families that have them, and the families' own.
class Products {
 public:
  Products() {
    for (const SectionFamily& family : SectionFamilies) {
      if (!family.FixedProduct.empty()) Add(std::string(family.FixedProduct), family.Letter);
    }
    for (const SectionDim& dims : SectionDims) {
      if (HasProductChoice(dims.SectionType)) Add(Key(dims.Product), dims.SectionType);
    }
  }

  // The letters of a product's families; none for an unknown one.
  const std::vector<std::string>& LettersOf(std::string_view product) const {
    static const std::vector<std::string> none;
    const auto found = letters_.find(Key(product));
    return found == letters_.end() ? none : found->second;
  }

  // "Not in the list", with the nearest of those of that family, or of all for an empty letter.
  std::string UnknownReason(std::string_view product, std::string_view letter) {
    std::string& reason = reasons_[std::string(letter) + '\n' + Key(product)];
    if (!reason.empty()) return reason;
    std::vector<std::string> names;
    for (const std::string& name : names_) {
      const auto& of = LettersOf(name);
      if (letter.empty() || std::find(of.begin(), of.end(), letter) != of.end()) {
        names.push_back(name);
      }
    }
    // Somebody's list of other things names none that is near to any.
    constexpr std::size_t MostSearched = 200;
    if (reasons_.size() > MostSearched) names.clear();
    return reason = NotInTheList(product, names);
  }

 private:
  void Add(std::string name, std::string_view letter) {
    if (name.empty()) return;
    std::vector<std::string>& letters = letters_[name];
    if (letters.empty()) names_.push_back(std::move(name));
    if (std::find(letters.begin(), letters.end(), letter) == letters.end()) {
      letters.emplace_back(letter);
    }
  }

  std::vector<std::string> names_;
  std::unordered_map<std::string, std::vector<std::string>> letters_;
  std::unordered_map<std::string, std::string> reasons_;
};

class Planner {
 public:
  Planner(const SectionList& list, const ListAnswers& answers, int firstRow)
      : list_(list), answers_(answers), next_(list.HasMarks ? 0 : firstRow) {
    for (int row = 1; row <= Items.UBound(); ++row) {
      const std::string mark = Key(Items.At(row).Mark);
      if (mark.empty()) continue;
      Bearers& bearers = bearers_[mark];
      if (bearers.Count++ == 0) bearers.First = row;
    }
  }

  SectionPlan Plan() {
    plan_.Rows.reserve(list_.Rows.size());
    for (std::size_t at = 0; at < list_.Rows.size(); ++at) {
      PlanRow(static_cast<int>(at), list_.Rows[at].Texts);
    }
    return std::move(plan_);
  }

 private:
  void PlanRow(int at, const ListTexts& texts) {
    PlannedSection& row = plan_.Rows.emplace_back();
    const bool leftOut = answers_.LeftOut.count(at) != 0;
    row.Row = TargetOf(texts);
    if (row.Row > 0) {
      row.After = ListedCopy(Items.At(row.Row));
      for (int column = 1; column < ListColumnsEnd; ++column) {
        PlannedCell& cell = row.At(column);
        cell.Text = cell.From = ListText(row.After, column);
      }
    } else {
      TakeFamily(row, texts);
    }
    TakeGridCells(row, texts);
    TakeDetails(at, row, texts);
    ShowUntold(row);
    row.What = leftOut ? Row::LeftOut : ResultOf(row);
    if (leftOut) return;
    // Those behind it mustn't bear the same, though it is refused: it may be mended.
    if (const std::string mark = MarkOf(texts); !mark.empty()) taken_.insert(mark);
    if (row.Row > 0) return;
    const bool room = Items.UBound() + ++new_ <= MostSections;
    if (!room && row.What == Row::New) {
      row.What = Row::Refused;
      row.At(MarkColumn)
          .Refuse("A job holds no more than " + DecimalText(MostSections) + " sections");
    }
  }

  static const std::optional<std::string>& TextOf(const ListTexts& texts, int column) {
    return texts.at(static_cast<std::size_t>(column));
  }

  // The row of Items that a row of the list is meant for; 0 for a new section.
  int TargetOf(const ListTexts& texts) {
    if (!list_.HasMarks) {
      if (next_ < 1 || next_ > Items.UBound()) return 0;
      return next_++;
    }
    const auto found = bearers_.find(MarkOf(texts));
    return found == bearers_.end() ? 0 : found->second.First;
  }

  // The mark that a row names, as it will be held.
  static std::string MarkOf(const ListTexts& texts) {
    const std::string given = TextOf(texts, MarkColumn).value_or("");
    return Key(TextToEnter(given, TextForm::Quoted).Text);
  }

  // The letter of a new section, which its product tells.
  void TakeFamily(PlannedSection& row, const ListTexts& texts) {
    const std::string product = Key(TextOf(texts, ProductColumn).value_or(""));
    PlannedCell& cell = row.At(ProductColumn);
    cell.Text = product;
    if (product.empty()) {
      return cell.Refuse(std::string(SectionColumnAt(ProductColumn).Missing) +
                         ", which tells the family of a new section");
    }
    const std::vector<std::string>& letters = products_.LettersOf(product);
    if (letters.empty()) return cell.Refuse(products_.UnknownReason(product, ""));
    row.After.SectionType = letters.front();
    if (letters.size() > 1) {
      Ask(product, letters);
      const auto told = answers_.Families.find(product);
      if (told == answers_.Families.end()) {
        row.After.SectionType.clear();
        return cell.Refuse("Products of several families have that name");
      }
      row.After.SectionType = told->second;
    }
    const SectionFamily* family = FamilyOf(row.After.SectionType);
    if (family != nullptr) row.After.Product = family->FixedProduct;
  }

  void Ask(const std::string& product, const std::vector<std::string>& letters) {
    const bool asked =
        std::any_of(plan_.SharedProducts.begin(), plan_.SharedProducts.end(),
                    [&](const SharedProduct& shared) { return shared.Name == product; });
    if (!asked) plan_.SharedProducts.push_back({product, letters});
  }

  // The cells of the grid, by TakeRow.
  void TakeGridCells(PlannedSection& row, const ListTexts& texts) {
    SectionTexts given(static_cast<std::size_t>(SectionColumns));
    for (int column = MarkColumn; column < SectionColumns; ++column) {
      const std::optional<std::string>& text = TextOf(texts, column);
      if (text) given.at(static_cast<std::size_t>(column)) = TextToTake(row, column, *text);
    }
    const std::string own = Key(row.After.Mark);
    const auto inUse = [&](std::string_view mark) {
      const std::string key(mark);
      const auto found = bearers_.find(key);
      const int others = found == bearers_.end() ? 0 : found->second.Count - (own == key ? 1 : 0);
      return others > 0 || taken_.count(key) != 0;
    };
    const TakenRow taken = TakeRow(row.After, given, inUse);
    for (int column = MarkColumn; column < SectionColumns; ++column) {
      const auto place = static_cast<std::size_t>(column);
      if (given[place]) Follow(row, column, *given[place], taken.Cells.at(place));
    }
    CheckMatched(row, texts);
  }

  // A text in the form that its cell takes; none if there is nothing to be taken, as it is refused
  // or the section shows it already.
  std::optional<std::string> TextToTake(PlannedSection& row, int column, const std::string& text) {
    PlannedCell& cell = row.At(column);
    if (cell.What == Cell::Refused) return std::nullopt;
    const bool isNew = row.Row == 0;
    const bool number = column == LengthColumn || column == QuantityColumn;
    // A list that tells only what changes empties nothing.
    if ((number || !isNew) && Trim(text).empty()) return std::nullopt;
    const bool shown = column == MarkColumn && list_.HasMarks && !isNew
                           ? true  // by which it was found
                           : (number ? Key(text) : text) == ListText(row.After, column);
    if (shown) {
      cell.What = Cell::Same;
      cell.Text = ListText(row.After, column);
      return std::nullopt;
    }
    if (!number) return text;
    cell.Text = text;
    const TableNumber taken = NumberInTable(text, answers_.Told);
    if (taken.IsAmbiguous && plan_.AmbiguousNumber.empty()) plan_.AmbiguousNumber = Key(text);
    if (taken.Refusal.empty()) return taken.Text;
    cell.Refuse(taken.Refusal);
    return std::nullopt;
  }

  // What has become of a cell that was given to TakeRow.
  void Follow(PlannedSection& row, int column, const std::string& text, const TakenCell& taken) {
    PlannedCell& cell = row.At(column);
    switch (taken.What) {
      case TakenCell::Result::NotGiven:
        return;
      case TakenCell::Result::Same:
      case TakenCell::Result::Changed:
        cell.What = taken.What == TakenCell::Result::Same ? Cell::Same : Cell::Changed;
        cell.Text = ListText(row.After, column);
        return;
      case TakenCell::Result::Refused:
        cell.Text = text;
        const bool product = column == ProductColumn && HasProductChoice(row.After.SectionType);
        cell.Refuse(product ? products_.UnknownReason(text, row.After.SectionType) : taken.Reason);
    }
  }

  // A mark that was found in the job is another row's of the list already.
  void CheckMatched(PlannedSection& row, const ListTexts& texts) {
    if (!list_.HasMarks || row.Row == 0) return;
    const int bearers = bearers_.at(MarkOf(texts)).Count;
    if (bearers > 1) {
      return row.At(MarkColumn).Refuse(Counted(bearers, "section") + " bear this mark");
    }
    if (taken_.count(MarkOf(texts)) == 0) return;
    row.At(MarkColumn).Refuse("Error - Duplicate Mark");
  }

  void TakeDetails(int at, PlannedSection& row, const ListTexts& texts) {
    if (row.Row > 0) row.RemovedHoles = Items.At(row.Row).HoleCount();
    const bool mayRemove = answers_.MayRemoveHoles.count(at) != 0;
    bool removes = false;
    for (int column = SectionColumns; column < ListColumnsEnd; ++column) {
      const std::optional<std::string>& text = TextOf(texts, column);
      if (!text) continue;
      PlannedCell& cell = row.At(column);
      if (row.After.SectionType.empty()) {
        cell.Text = *text;  // of a family that nobody knows yet
        continue;
      }
      if (column == PunchingColumn && row.Row > 0 && RemovesHolesByHand(Int16(row.Row), *text)) {
        removes = true;
        if (!mayRemove) {
          cell = HeldBackPattern(cell, *text, row.RemovedHoles);
          continue;
        }
      }
      // Sag bars are those of the pattern that waits.
      const bool waits = column == SagBarsColumn && removes && !mayRemove;
      if (waits) continue;
      TakeDetail(row.After, column, *text, cell);
      if (column == PunchingColumn && cell.What == Cell::Refused) {
        cell.Reason = UnknownPattern(row.After.SectionType, cell.Text);
      }
    }
    if (!removes) row.RemovedHoles = 0;
    ShowSagBars(row);
  }

  // Lists repeat their names, the wrong ones too.
  const std::string& UnknownPattern(const std::string& letter, const std::string& text) {
    std::string& reason = patternReasons_[letter + '\n' + text];
    if (reason.empty()) {
      const Table<std::string> names = PatternNames(letter);
      reason = NotInTheList(text, {names.begin(), names.end()});
    }
    return reason;
  }

  static PlannedCell HeldBackPattern(PlannedCell cell, const std::string& text, int holes) {
    cell.What = Cell::HeldBack;
    cell.Reason = Key(text) + " would remove " + HolesByHand(holes);
    return cell;
  }

  // A pattern brings its sag bars with it, or ends them.
  static void ShowSagBars(PlannedSection& row) {
    PlannedCell& cell = row.At(SagBarsColumn);
    if (cell.What == Cell::Refused || row.After.SectionType.empty()) return;
    cell.Text = ListText(row.After, SagBarsColumn);
    if (cell.What != Cell::NotGiven || cell.Text != cell.From) {
      cell.What = cell.Text == cell.From ? Cell::Same : Cell::Changed;
    }
  }

  // What a new section has where the list says nothing.
  static void ShowUntold(PlannedSection& row) {
    if (row.Row > 0 || row.After.SectionType.empty()) return;
    for (int column = 1; column < ListColumnsEnd; ++column) {
      PlannedCell& cell = row.At(column);
      if (cell.What == Cell::NotGiven) cell.Text = ListText(row.After, column);
    }
  }

  static Row ResultOf(const PlannedSection& row) {
    if (row.Has(Cell::Refused)) return Row::Refused;
    if (row.Row == 0) return Row::New;
    return row.Has(Cell::Changed) ? Row::Changed : Row::Same;
  }

  const SectionList& list_;
  const ListAnswers& answers_;
  int next_;     // row of Items that the next row goes to, where marks tell nothing
  int new_ = 0;  // sections that came so far
  Products products_;
  std::unordered_map<std::string, std::string> patternReasons_;
  std::unordered_map<std::string, Bearers> bearers_;  // by mark, trimmed
  std::unordered_set<std::string> taken_;             // by rows of the list so far
  SectionPlan plan_;
};

std::string Named(int column, const std::string& what) {
  return std::string(ListHeading(column)) + what;
}

std::string RefusalText(int column, const PlannedCell& cell) {
  const std::string given = cell.Text.empty() ? "" : " \"" + cell.Text + "\"";
  return Named(column, given + ": " + cell.Reason);
}

}  // namespace

bool PlannedSection::Has(PlannedCell::Result what) const {
  return std::any_of(Cells.begin(), Cells.end(),
                     [what](const PlannedCell& cell) { return cell.What == what; });
}

int SectionPlan::Count(PlannedSection::Result what) const {
  return static_cast<int>(
      std::count_if(Rows.begin(), Rows.end(),
                    [what](const PlannedSection& section) { return section.What == what; }));
}

SectionPlan PlanOf(const SectionList& list, const ListAnswers& answers, int firstRow) {
  return Planner(list, answers, firstRow).Plan();
}

std::string PlanText(const PlannedSection& row) {
  constexpr std::string_view Arrow = " \xE2\x86\x92 ";
  if (row.What == Row::LeftOut) return "Left out";
  if (row.What == Row::New) return "New";
  std::string text;
  const auto add = [&text](const std::string& part) { text += (text.empty() ? "" : "; ") + part; };
  const auto shown = [](const std::string& value) { return value.empty() ? "(none)" : value; };
  for (int column = 1; column < ListColumnsEnd; ++column) {
    const PlannedCell& cell = row.At(column);
    if (cell.What == Cell::Refused) add(RefusalText(column, cell));
    if (row.What == Row::Refused) continue;
    if (cell.What == Cell::Changed) {
      add(Named(column, " " + shown(cell.From) + std::string(Arrow) + shown(cell.Text)));
    }
    if (cell.What == Cell::HeldBack) {
      add(Named(column, " stays " + shown(cell.From) + ": " + cell.Reason));
    } else if (column == PunchingColumn && row.RemovedHoles > 0) {
      add("removes " + HolesByHand(row.RemovedHoles));
    }
  }
  return text.empty() ? "No change" : text;
}

}  // namespace orvane
