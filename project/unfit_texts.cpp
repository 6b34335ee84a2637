#include "project/unfit_texts.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>

#include "core/desktop.h"
#include "core/numbers.h"
#include "core/runtime_error.h"
#include "core/text.h"
#include "core/text_file.h"
#include "project/error_names.h"
#include "project/project_backup.h"
#include "project/project_layout.h"

namespace orvane {

namespace {

struct ComesBackOtherwise {};

// The layout's visitor that reads a written job as the reader does, and compares each value with
// the one that it was made of instead of keeping it. The first that differs ends it.
class ReadBack {
 public:
  explicit ReadBack(TextFile& file) : file_(file) {}

  void OrvaneNumber(const std::string& text) { Need(file_.ReadField() == OrvaneNumberLine(text)); }
  void Detail(const std::string& text) { Need(file_.ReadField() == Trim(text)); }
  void ProjectDate(const Date& date) {
    Need(ParseProjectDate(file_.ReadField(), TheDesktop().ShortDateForm()) == date);
  }
  void Plain(const std::string& text) { Need(file_.ReadField() == text); }
  void Quoted(const std::string& text) { Need(file_.ReadField() == text); }
  void Sign(const std::string& text) { Need(file_.ReadField() == Trim(text)); }

  void Number(std::int16_t field) { Need(file_.ReadInt16() == field); }
  void Number(float field) { NeedDigits(file_.ReadFloat(), field); }
  void Number(double field) { NeedDigits(file_.ReadDouble(), field); }
  void Flag(Boolean flag) { Need((file_.ReadDouble() != 0) == (flag != False)); }
  void FlagsBehind(const Table<Boolean>& flags, int count) {
    for (int row = count + 1; row <= flags.UBound(); ++row) Flag(flags.At(row));
  }

  template <class List>
  int Count(const List& table) {
    const int count = table.UBound();
    Need(file_.ReadInt16() == count);
    return count;
  }

  template <class List>
  void Size(const List&, int) {}

  template <class List>
  void Rows(const List& table, int first, int last) {
    for (int row = first; row <= last; ++row) Describe(*this, table.At(row));
  }

 private:
  static void Need(bool same) {
    if (!same) throw ComesBackOtherwise();
  }

  // Numbers of which the file has the same digits are the same to it.
  template <class Real>
  static void NeedDigits(Real back, Real field) {
    if (back == field) return;
    std::string digits;
    std::string backDigits;
    AppendFileNumber(digits, field);
    AppendFileNumber(backDigits, back);
    Need(digits == backDigits);
  }

  TextFile& file_;
};

bool ComesBack(const std::string& text, const JobView& job) {
  TextFile file = TextFile::Over(text);
  ReadBack back(file);
  try {
    DescribeSections(back, job);
    DescribeType2Lines(back, job);
    DescribeFlags(back, job);
  } catch (const ComesBackOtherwise&) {
    return false;
  } catch (const RuntimeError&) {
    return false;
  }
  return file.AtEnd();
}

// The columns of the sections grid that they are entered in. Its table (project/rules) stands right
// of here; a test holds the two together.
constexpr int OwnColumn = 0;  // none
constexpr int MarkColumn = 1;
constexpr int ProductColumn = 2;
constexpr int NotesColumn = 5;

// The fields of a section that bear a name for a person; the others are named by their section.
struct NamedText {
  std::string Item::*Field;
  std::string_view Name;
  int Column;
};
const std::array NamedTexts = {
    NamedText{&Item::Mark, "Mark", MarkColumn},
    NamedText{&Item::Product, "Product", ProductColumn},
    NamedText{&Item::Notes, "Notes", NotesColumn},
    NamedText{&Item::PatternName, "Pattern", OwnColumn},
    NamedText{&Item::Pitch, "Pitch", OwnColumn},
};

// The layout's visitor that looks at each text of the open job by itself: whether it comes back
// from its own line.
class UnfitFinder {
 public:
  std::vector<UnfitText> Found;

  void OrvaneNumber(const std::string& text) {
    const std::string line = OrvaneNumberLine(text);
    const std::string back = BackFrom(line);
    if (back != line) Add(DetailPlace(), DetailName(), text, back.substr(VersionStamp.size()));
    ++detail_;
  }
  void Detail(const std::string& text) {
    const std::string trimmed(Trim(text));
    const std::string back = BackFrom('"' + trimmed + '"');
    if (back != trimmed) Add(DetailPlace(), DetailName(), text, back);
    ++detail_;
  }
  void ProjectDate(const Date&) {}

  void Plain(const std::string& text) { Look(text, PlainLine(text)); }
  void Quoted(const std::string& text) { Look(text, '"' + text + '"'); }
  void Sign(const std::string& text) {
    if (!Trim(text).empty()) Plain(text);
  }

  template <class Value>
  void Number(Value) {}
  void Flag(Boolean) {}

  template <class List>
  int Count(const List& table) {
    return table.UBound();
  }
  template <class List>
  void Size(const List&, int) {}

  void Rows(const SectionRows& sections, int first, int last) {
    for (int row = first; row <= last; ++row) {
      row_ = row;
      section_ = &sections.At(row);
      Describe(*this, *section_);
    }
    section_ = nullptr;
  }
  void Rows(const Table<AccLine2>& lines, int first, int last) {
    for (int row = first; row <= last; ++row) {
      row_ = row;
      line_ = &lines.At(row);
      Describe(*this, *line_);
    }
  }
  template <class Row>
  void Rows(const Table<Row>& table, int first, int last) {
    for (int row = first; row <= last; ++row) Describe(*this, table.At(row));
  }

 private:
  // What a line gives back as its one value.
  static std::string BackFrom(const std::string& line) {
    TextFile file(DecodeText(line + "\r\n"));
    return std::string(file.ReadField());
  }

  TextPlace DetailPlace() const { return {TextPlace::In::Details, detail_, 0}; }
  std::string DetailName() const {
    return std::string(DetailNames.at(static_cast<std::size_t>(detail_)));
  }

  void Look(const std::string& text, const std::string& line) {
    const std::string back = BackFrom(line);
    if (back == text) return;
    if (section_ != nullptr) {
      AddOfSection(text, back);
    } else {
      AddOfLine(text, back);
    }
  }

  void AddOfSection(const std::string& text, const std::string& back) {
    TextPlace place{TextPlace::In::Section, row_, OwnColumn};
    std::string name = NameOfSection(Int16(row_));
    for (const NamedText& each : NamedTexts) {
      if (&(section_->*each.Field) != &text) continue;
      place.Column = each.Column;
      name.append(", ").append(each.Name);
    }
    Add(place, name, text, back);
  }

  // Behind the mark of a line comes its number off, then its values.
  void AddOfLine(const std::string& text, const std::string& back) {
    TextPlace place{TextPlace::In::Accessory, row_, 1};
    for (int value = 1; value <= line_->Values.UBound(); ++value) {
      if (&line_->Values.At(value) == &text) place.Column = value + 2;
    }
    std::string name = NameOfAccessory(line_->AccIndex, line_->Mark);
    const bool known = line_->AccIndex >= 1 && line_->AccIndex <= AccDefs.UBound() &&
                       place.Column <= AccDefs.At(line_->AccIndex).ParamCount();
    if (known) {
      name.append(", ").append(AccDefs.At(line_->AccIndex).ParamNames.At(place.Column));
    }
    Add(place, name, text, back);
  }

  void Add(const TextPlace& place, const std::string& name, const std::string& text,
           const std::string& back) {
    Found.push_back({place, name, text, back});
  }

  int detail_ = 0;                 // of txtProject, that comes next
  int row_ = 0;                    // of the section or the line that is looked at
  const Item* section_ = nullptr;  // that is looked at; none outside the sections
  const AccLine2* line_ = nullptr;
};

// A text of any length in a line.
std::string InALine(std::string_view text) {
  constexpr std::size_t MostShown = 60;
  std::string line(FirstChars(text, MostShown));
  if (line.size() < text.size()) line += "...";
  std::replace_if(
      line.begin(), line.end(), [](char c) { return c == '\r' || c == '\n'; }, ' ');
  return line;
}

}  // namespace

FileFit FitOf(const std::string& text, const JobView& job) {
  if (ComesBack(text, job)) return FileFit::Same;
  return CheckProjectContent(text) == ProjectContent::Broken ? FileFit::Broken : FileFit::Otherwise;
}

std::vector<UnfitText> UnfitTexts() {
  UnfitFinder finder;
  const JobView job = OpenJob();
  DescribeSections(finder, job);
  DescribeType2Lines(finder, job);
  return finder.Found;
}

std::string Described(const std::vector<UnfitText>& texts) {
  constexpr std::size_t MostShown = 5;
  std::string lines;
  for (std::size_t at = 0; at < std::min(texts.size(), MostShown); ++at) {
    const UnfitText& each = texts.at(at);
    lines += "\r" + each.Name + ":  " + InALine(each.Text) +
             "\r    comes back as:  " + (each.Back.empty() ? "(nothing)" : InALine(each.Back));
  }
  if (texts.size() > MostShown) {
    lines += "\rand " + DecimalText(static_cast<long long>(texts.size() - MostShown)) + " more";
  }
  return lines;
}

}  // namespace orvane
