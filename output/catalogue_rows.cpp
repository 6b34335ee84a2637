#include "output/catalogue_rows.h"

#include <algorithm>
#include <cstddef>
#include <tuple>
#include <utility>

#include "core/model.h"
#include "core/numbers.h"
#include "core/runtime_error.h"
#include "core/section_families.h"
#include "core/text.h"
#include "core/text_file.h"
#include "holes/hole_coding.h"
#include "output/design_check_rules.h"

namespace orvane {

namespace {

using Cells = std::vector<std::string>;

const std::string& CellAt(const Cells& cells, std::size_t at) {
  static const std::string none;
  return at < cells.size() ? cells[at] : none;
}

// How a tag's row is read: so many cells, one behind the other.
struct TagRow {
  char Tag;
  std::size_t Cells;
};

// One of the five files.
struct FileRules {
  std::string_view Name;
  CatalogueRow Read;
  std::vector<TagRow> Tags;
  std::string_view Knows;  // its tags, as a finding names them
  // Whether cells would be a row but for their first one; told of rows that are passed over, so
  // that headings and remarks aren't.
  bool (*LooksLikeRow)(const Cells& cells);
};

bool AreNumbers(const Cells& cells, std::size_t first, std::size_t last, std::size_t least) {
  std::size_t count = 0;
  for (std::size_t at = first; at <= last; ++at) count += IsNumber(CellAt(cells, at)) ? 1 : 0;
  return count >= least;
}

bool LooksLikeProduct(const Cells& cells) {
  return !Trim(CellAt(cells, 1)).empty() && AreNumbers(cells, 2, 13, 3);
}
bool LooksLikePattern(const Cells& cells) {
  std::string_view codes = Trim(CellAt(cells, 2));
  return FactsOf(TakeCode(codes)).IsKnown;
}
// A letter that isn't known, or figures where an accessory has them.
bool LooksLikeAccessory(const Cells& cells) {
  const bool isLetter = CharCount(Trim(CellAt(cells, 0))) == 1;
  return (isLetter && !Trim(CellAt(cells, 1)).empty()) || AreNumbers(cells, 3, 5, 3);
}
bool LooksLikeRule(const Cells& cells) {
  return RuleNamed(Trim(CellAt(cells, 1))).has_value();
}

constexpr std::size_t ProductCells = 14;
constexpr std::size_t PatternCells = 4;  // what is behind them is the rest of the line

const std::vector<FileRules>& AllFileRules() {
  static const std::vector<FileRules> rules = {
      {DimsFile,
       ReadSectionDim,
       {{'Z', ProductCells},
        {'E', ProductCells},
        {'C', ProductCells},
        {'M', ProductCells},
        {'V', ProductCells},
        {'R', ProductCells},
        {'T', ProductCells}},
       "Z, E, C, M, V, R and T",
       LooksLikeProduct},
      {PunchFile,
       ReadPunchPattern,
       {{'Z', PatternCells},
        {'E', PatternCells},
        {'C', PatternCells},
        {'V', PatternCells},
        {'R', PatternCells},
        {'T', PatternCells}},
       "Z, E, C, V, R and T",
       LooksLikePattern},
      {Accs1File, ReadAccessory1, {{'A', 7}, {'I', 3}}, "A and I", LooksLikeAccessory},
      {Accs2File,
       ReadAccessory2,
       {{'A', 7}, {'P', 2}, {'O', 2}, {'G', 3}},
       "A, P, O and G",
       LooksLikeAccessory},
      {CheckFile, ReadCheckRule, {{'R', 5}}, "R", LooksLikeRule},
  };
  return rules;
}

std::vector<std::string_view> LinesOf(std::string_view text) {
  std::vector<std::string_view> lines;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
    lines.push_back(text.substr(0, end));
    text.remove_prefix(end);
    if (!text.empty()) text.remove_prefix(text.starts_with("\r\n") ? 2 : 1);
  }
  return lines;
}

// The cells of one line by itself; that of an open quote ends in a line end.
Cells CellsOf(std::string_view line) {
  Cells cells;
  TextFile file(std::string(line) + "\n");
  while (!file.AtEnd()) cells.emplace_back(file.ReadField());
  return cells;
}

// What stands behind so many cells of a line, as ReadRestOfLine gives it.
std::string RestBehind(std::string_view line, std::size_t cells) {
  TextFile file(std::string(line) + "\n");
  for (std::size_t at = 0; at < cells && !file.AtEnd(); ++at) file.ReadField();
  return std::string(file.ReadRestOfLine());
}

// One file while it is read.
class RowsCheck {
 public:
  RowsCheck(const FileRules& rules, const std::string& text, CheckedCatalogue& checked)
      : rules_(rules), text_(text), lines_(LinesOf(text_)), checked_(checked) {}

  // False when the reader stopped before the end.
  bool Run() {
    CheckSeparators();
    TextFile file = TextFile::Over(text_);
    try {
      ReadCatalogueRows(file, [&](TextFile& at, const std::string& tag, std::string_view cell) {
        return ReadRow(at, tag, cell);
      });
      return true;
    } catch (const RuntimeError& error) {
      const bool ended = error.Number() == static_cast<int>(Failure::InputPastEndOfFile);
      Add(CatalogueRule::FileBroken, ended ? row_ : file.Row(), ended ? 0 : file.Column(),
          ended ? "The last row has fewer cells than are read: it is lost, and the program tells "
                  "an error at its start"
                : error.Description() + ": neither this row nor any below it is read");
      return false;
    }
  }

 private:
  void Add(CatalogueRule rule, int row, std::size_t column, std::string what) {
    checked_.Add(rule, FileName(), row, static_cast<int>(column), std::move(what));
  }
  void Add(CatalogueRule rule, int row, int column, std::string what) {
    checked_.Add(rule, FileName(), row, column, std::move(what));
  }
  std::string_view FileName() const { return rules_.Name.substr(1); }
  std::string_view LineAt(int row) const {
    const auto at = static_cast<std::size_t>(row) - 1;
    return row >= 1 && at < lines_.size() ? lines_[at] : std::string_view();
  }
  // The row of a tag's cells; none for another text.
  const TagRow* TagOf(std::string_view cell) const {
    const std::string tag = UpperCase(Trim(cell));
    const auto found = std::find_if(rules_.Tags.begin(), rules_.Tags.end(), [&](const TagRow& row) {
      return tag == std::string_view(&row.Tag, 1);
    });
    return found == rules_.Tags.end() ? nullptr : &*found;
  }

  // Rows that another character divides are all passed over: told once.
  void CheckSeparators() {
    for (const auto& [mark, rule, name] : {std::tuple(';', CatalogueRule::Semicolons, "semicolons"),
                                           std::tuple('\t', CatalogueRule::Tabs, "tabs")}) {
      int count = 0;
      int first = 0;
      for (std::size_t at = 0; at < lines_.size(); ++at) {
        const std::string_view line = lines_[at];
        const std::size_t end = line.substr(0, line.find(',')).find(mark);
        if (end == std::string_view::npos || TagOf(Unquoted(line.substr(0, end))) == nullptr) {
          continue;
        }
        if (count++ == 0) first = static_cast<int>(at) + 1;
      }
      if (count == 0) continue;
      Add(rule, first, 0,
          "Cells are divided by " + std::string(name) +
              " here, not by commas: " + DecimalText(count) +
              (count == 1 ? " row is" : " rows are") + " not read. Save the file with commas");
    }
  }
  static std::string_view Unquoted(std::string_view cell) {
    cell = Trim(cell);
    if (cell.size() >= 2 && cell.front() == '"' && cell.back() == '"') {
      cell = cell.substr(1, cell.size() - 2);
    }
    return cell;
  }

  bool ReadRow(TextFile& file, const std::string& tag, std::string_view cell) {
    const int row = file.Row();
    const auto column = static_cast<std::size_t>(file.Column());
    row_ = row;
    const std::string first(cell);
    const TagRow* known = TagOf(tag);
    Cells cells = CellsOf(LineAt(row));
    // Nothing but empty cells in front, in a line that no row above has begun to take.
    const bool begins =
        row > takenTo_ &&
        std::all_of(cells.begin(),
                    cells.begin() + static_cast<std::ptrdiff_t>(std::min(column - 1, cells.size())),
                    [](const std::string& text) { return text.empty(); });
    cells.erase(cells.begin(),
                cells.begin() + static_cast<std::ptrdiff_t>(std::min(column - 1, cells.size())));
    if (known == nullptr) {
      if (begins && !first.empty()) PassOver(row, column, first, cells);
      return rules_.Read(file, tag, cell);
    }
    const int before = Appended();
    // What of the row is to be read, as far as its own line tells.
    const bool nameless = IsNamed() && cells.size() > 1 && Trim(cells[1]).empty();
    const std::size_t taken = nameless ? 2 : known->Cells;
    const bool open = std::any_of(
        cells.begin(), cells.begin() + static_cast<std::ptrdiff_t>(std::min(taken, cells.size())),
        [](const std::string& text) { return text.find('\n') != std::string::npos; });
    if (!begins) {
      Add(CatalogueRule::OutOfStep, row, column,
          Quoted(first) + " is taken for the beginning of a row" +
              (row > takenTo_ ? ", as it stands behind the last cell of another"
                              : ", as the row above had too few cells"));
    }
    if (open) {
      Add(CatalogueRule::CellOverLines, row, 0,
          "A quote is opened and not closed in this row: the cell runs over the rows below it");
    } else if (cells.size() < taken) {
      AddShort(row, column - 1 + cells.size(), column - 1 + taken);
    }
    const bool read = rules_.Read(file, tag, cell);
    takenTo_ = std::max(takenTo_, open || cells.size() < taken ? file.Row() : row);
    const bool kept = Appended() > before;
    if (kept) RowsTable().Append(row);
    if (open || cells.size() < taken) return read;
    if (IsNamed() && !kept) {
      Add(CatalogueRule::RowWithoutName, row, nameless ? column + 1 : column + 2,
          nameless ? "The row has no name and is passed over"
                   : "The pattern has no hole codes and is passed over");
      return read;
    }
    for (std::size_t at = 0; at < taken; ++at) {
      if (CellAt(cells, at).find('\t') != std::string::npos) {
        Add(CatalogueRule::Tabs, row, column + at, "A tab stands in the cell and counts as text");
      }
    }
    CheckCells(row, column, first, cells);
    return read;
  }

  // Dims and patterns are kept by their names.
  bool IsNamed() const { return rules_.Name == DimsFile || rules_.Name == PunchFile; }
  int Appended() const {
    if (rules_.Name == DimsFile) return SectionDims.UBound();
    return rules_.Name == PunchFile ? PunchPatterns.UBound() : AccDefs.UBound();
  }
  Table<int>& RowsTable() const {
    if (rules_.Name == DimsFile) return checked_.DimRows;
    return rules_.Name == PunchFile ? checked_.PatternRows : checked_.AccessoryRows;
  }

  void PassOver(int row, std::size_t column, const std::string& first, const Cells& cells) {
    // Of another separator's rows CheckSeparators tells.
    if (first.find_first_of(";\t") != std::string::npos || !rules_.LooksLikeRow(cells)) return;
    std::string what = "The row is passed over, since " + Quoted(first);
    what += rules_.Name == PunchFile && UpperCase(Trim(first)) == "M"
                ? " is no letter here: mezzanine joists have the patterns of C"
                : " is none of the letters that begin a row: " + std::string(rules_.Knows);
    Add(CatalogueRule::RowPassedOver, row, column, what);
  }

  void AddShort(int row, std::size_t has, std::size_t needs) {
    const Cells next = CellsOf(LineAt(row + 1));
    const bool swallows =
        std::any_of(next.begin(), next.end(),
                    [&](const std::string& cell) { return !cell.empty(); }) &&
        TagOf(*std::find_if(next.begin(), next.end(),
                            [](const std::string& cell) { return !cell.empty(); })) != nullptr;
    if (static_cast<std::size_t>(row) >= lines_.size()) return;  // the reader itself fails
    const std::string cells = "The row has " + DecimalText(static_cast<long long>(has)) + " of " +
                              DecimalText(static_cast<long long>(needs)) + " cells";
    Add(swallows ? CatalogueRule::RowSwallowsNext : CatalogueRule::ShortRow, row, has,
        swallows ? cells + " and takes the others from row " + DecimalText(row + 1) +
                       ", which is lost: put a comma behind it for each cell that is missing"
                 : cells + " and takes the others from the row below");
  }

  void CheckCells(int row, std::size_t column, const std::string& first, const Cells& cells) {
    if (IsNamed()) CheckLetter(row, column, first);
    if (rules_.Name == DimsFile) {
      for (std::size_t at = 2; at < ProductCells; ++at) CheckNumber(row, column + at, cells[at]);
    } else if (rules_.Name == PunchFile) {
      CheckPatternCells(row, column, cells);
    } else if (rules_.Name == Accs1File && TagOf(first)->Tag == 'A') {
      CheckYesNo(row, column + 6, cells[6]);
    } else if (rules_.Name == CheckFile) {
      const std::string name(Trim(cells[1]));
      if (std::find(names_.begin(), names_.end(), name) != names_.end()) {
        Add(CatalogueRule::RuleTwice, row, column + 1,
            "The rule " + name + " stands above already: this row holds");
      }
      names_.push_back(name);
    }
  }

  // The letter is kept as it was read; of a product only an exact M becomes a C.
  void CheckLetter(int row, std::size_t column, const std::string& first) {
    const std::string_view kept = rules_.Name == DimsFile ? std::string_view(first) : Trim(first);
    if (FamilyOf(kept) != nullptr || (rules_.Name == DimsFile && kept == "M")) return;
    Add(CatalogueRule::TagNotExact, row, column,
        Quoted(kept) + " isn't exactly " + UpperCase(Trim(kept)) +
            ": the row is read, but stands in no list");
  }

  void CheckNumber(int row, std::size_t column, const std::string& cell) {
    if (Trim(cell).empty()) {
      Add(CatalogueRule::NumberEmpty, row, column, "The cell is empty and counts as 0");
    } else if (!IsNumber(cell)) {
      Add(CatalogueRule::NumberCut, row, column,
          "Of " + Quoted(cell) + " only " + ShortestText(Val(cell)) + " is read");
    }
  }

  void CheckPatternCells(int row, std::size_t column, const Cells& cells) {
    const std::string_view sag = Trim(cells[3]);
    const std::string rest(Trim(RestBehind(LineAt(row), column - 1 + PatternCells)));
    const bool hasStar = rest.find('*') != std::string::npos;
    if (sag.find('*') != std::string_view::npos || (hasStar && rest != "*")) {
      const bool inSag = !hasStar || rest == "*";
      Add(CatalogueRule::StarLost, row, column + (inSag ? 3 : 4),
          inSag ? "The star stands in the column of the sag bars: no hole is countersunk by it"
                : "Behind column 4 stands " + Quoted(rest) +
                      ", not a bare star alone: no hole is countersunk");
    } else if (!sag.empty() && sag != "S") {
      Add(CatalogueRule::SagCell, row, column + 3,
          Quoted(sag) + " isn't S: the pattern has no choice of sag bars");
    }
    const bool onlyCommas = rest.find_first_not_of(", ") == std::string::npos;
    if (!hasStar && !onlyCommas) {
      Add(CatalogueRule::StarCell, row, column + 4,
          Quoted(rest) + " is no star: the pattern isn't countersunk");
    }
  }

  void CheckYesNo(int row, std::size_t column, const std::string& cell) {
    const std::string answer = UpperCase(cell);
    if (answer == "Y" || answer == "N" || answer.empty()) return;
    Add(CatalogueRule::YesNo, row, column, Quoted(cell) + " counts as N: only Y is yes");
  }

  const FileRules& rules_;
  const std::string& text_;
  const std::vector<std::string_view> lines_;
  CheckedCatalogue& checked_;
  std::vector<std::string> names_;  // of rules, as they came
  int row_ = 0;                     // line that the last row began in
  int takenTo_ = 0;                 // line that a row with too few cells has reached
};

}  // namespace

std::string Quoted(std::string_view cell) {
  constexpr std::size_t most = 40;
  std::string text = "\"" + FieldText(std::string(FirstChars(cell, most)));
  return text + (CharCount(cell) > most ? "...\"" : "\"");
}

bool CheckRows(std::string_view name, const std::string& bytes, CheckedCatalogue& checked) {
  if (bytes.find('\0') != std::string::npos || bytes.starts_with("\xFF\xFE") ||
      bytes.starts_with("\xFE\xFF")) {
    checked.Add(CatalogueRule::Utf16, name.substr(1), 0, 0,
                "The file is no plain text, but UTF-16 or the spreadsheet's own form: nothing of "
                "it is read. Save it as CSV, UTF-8");
    return true;
  }
  const auto& all = AllFileRules();
  const auto rules =
      std::find_if(all.begin(), all.end(), [&](const FileRules& row) { return row.Name == name; });
  const std::string text = DecodeText(bytes);
  return RowsCheck(*rules, text, checked).Run();
}

}  // namespace orvane
