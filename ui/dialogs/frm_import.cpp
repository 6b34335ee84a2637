#include "ui/dialogs/frm_import.h"

#include <QHBoxLayout>
#include <algorithm>
#include <utility>

#include "core/desktop.h"
#include "core/numbers.h"
#include "core/section_families.h"
#include "ui/platform/icons.h"
#include "ui/platform/qt_text.h"

namespace orvane {

namespace {

using RowResult = PlannedSection::Result;

constexpr std::string_view NotChosen = "(choose)";

// Entries of cboDigits, behind the one for no answer in the order of ThreeDigits.
Table<std::string> DigitEntries() {
  Table<std::string> entries;
  for (const std::string_view entry :
       {NotChosen, std::string_view("thousands"), std::string_view("a fraction")}) {
    entries.Append(std::string(entry));
  }
  return entries;
}

// "12 new, 3 changed, 1 refused", and what of the list isn't looked at.
std::string SummaryText(const SectionPlan& plan, const SectionList& list) {
  std::string text;
  const auto add = [&](RowResult what, std::string_view word) {
    const int count = plan.Count(what);
    if (count == 0) return;
    text += (text.empty() ? "" : ", ") + DecimalText(count) + " " + std::string(word);
  };
  add(RowResult::New, "new");
  add(RowResult::Changed, "changed");
  add(RowResult::Same, "without a change");
  add(RowResult::Refused, "refused");
  add(RowResult::LeftOut, "left out");
  if (text.empty()) text = "No rows";
  const std::string leftOut = LeftOutOf(list);
  return text + (leftOut.empty() ? "" : ". ") + leftOut + ".";
}

}  // namespace

FrmImport::FrmImport(SectionList list, int firstRow, QWidget* parent)
    : PlainDialog(parent),
      list_(std::move(list)),
      firstRow_(firstRow),
      plan_(PlanOf(list_, answers_, firstRow_)) {
  setObjectName("frmImport");
  setWindowTitle("Import Sections");
  setWindowIcon(ProgramIcon());
  setSizeGripEnabled(true);
  table_ = new ImportTable(list_, plan_, this);
  table_->Mended = [this](int row, int column, const std::string& text) {
    Mend(row, column, text);
  };
  table_->Moved = [this] { ShowRow(); };
  table_->Ticked = [this](int row, ImportColumn::Shows what) { Tick(row, what); };
  QVBoxLayout* layout = AddLayout();
  BuildQuestions(*layout);
  layout->addWidget(table_, 1);
  const auto addLine = [&](const char* name) {
    auto* line = new QLabel(this);
    line->setObjectName(name);
    line->setTextFormat(Qt::PlainText);
    line->setWordWrap(true);
    layout->addWidget(line);
    return line;
  };
  lblRow_ = addLine("lblRow");
  lblSummary_ = addLine("lblSummary");
  BuildButtons(*layout);
  const QFontMetrics metrics(table_->font());
  table_->setMinimumHeight(table_->HeightOf(4));
  resize(metrics.averageCharWidth() * 180, metrics.lineSpacing() * 28);
  ShowPlan();
}

// What only a person can tell of the whole list, each asked once; hidden where nobody need.
void FrmImport::BuildQuestions(QVBoxLayout& layout) {
  const auto add = [&](QLabel*& label, PlainCombo*& list, const char* name) {
    label = new QLabel(this);
    label->setTextFormat(Qt::PlainText);
    list = new PlainCombo(this);
    list->setObjectName(name);
    label->setBuddy(list);
    auto* line = new QHBoxLayout;
    line->addWidget(label);
    line->addWidget(list);
    line->addStretch();
    layout.addLayout(line);
  };
  add(lblDigits_, cboDigits_, "cboDigits");
  add(lblFamily_, cboFamily_, "cboFamily");
  lblDigits_->setObjectName("lblDigits");
  lblFamily_->setObjectName("lblFamily");
  cboDigits_->Fill(DigitEntries());
  cboDigits_->SelectQuietly(0);
  connect(cboDigits_, &QComboBox::activated, this, [this] { Guard([this] { TellDigits(); }); });
  connect(cboFamily_, &QComboBox::activated, this, [this] { Guard([this] { TellFamily(); }); });
}

void FrmImport::BuildButtons(QVBoxLayout& layout) {
  auto* buttons = new QHBoxLayout;
  const auto add = [&](const char* name, const char* caption, auto press) {
    QPushButton* button = AddButton(name, caption);
    connect(button, &QPushButton::clicked, this, [press] { Guard(press); });
    buttons->addWidget(button);
    return button;
  };
  cmdRefused_ = add("cmdRefused", "&Next refused", [this] { table_->GoToRefused(); });
  add("cmdTake", "&Take or leave out", [this] { Tick(table_->Row(), ImportColumn::Shows::Taken); });
  if (table_->HasHoles()) {
    add("cmdHoles", "Remove or keep &holes",
        [this] { Tick(table_->Row(), ImportColumn::Shows::Holes); });
  }
  buttons->addStretch();
  QPushButton* ok = add("cmdOk", "&OK", [this] { Ok(); });
  add("cmdCancel", "&Cancel", [this] { Cancel(); });
  layout.addLayout(buttons);
  PressByEnter(*ok);
  ok->setFocus();
}

// Showing.

void FrmImport::Replan() {
  plan_ = PlanOf(list_, answers_, firstRow_);
  ShowPlan();
}

void FrmImport::ShowPlan() {
  table_->ShowPlan();
  ShowQuestions();
  ShowRow();
  lblSummary_->setText(ToQt(SummaryText(plan_, list_)));
  cmdRefused_->setEnabled(plan_.Count(RowResult::Refused) > 0);
}

// The last column may be too narrow for all of it.
void FrmImport::ShowRow() {
  const int row = table_->Row();
  if (row < 1) return;
  const auto at = static_cast<std::size_t>(row) - 1;
  lblRow_->setText(
      ToQt("Row " + DecimalText(list_.Rows.at(at).Number) + ": " + PlanText(plan_.Rows.at(at))));
}

void FrmImport::ShowQuestions() {
  const bool digits = !plan_.AmbiguousNumber.empty();
  lblDigits_->setText(
      ToQt("What the comma or the point of " + plan_.AmbiguousNumber + " and the like divides:"));
  lblDigits_->setVisible(digits);
  cboDigits_->setVisible(digits);
  ShowFamilies();
}

// The first name that nobody has told the family of, else the last.
void FrmImport::ShowFamilies() {
  const auto& shared = plan_.SharedProducts;
  lblFamily_->setVisible(!shared.empty());
  cboFamily_->setVisible(!shared.empty());
  if (shared.empty()) return;
  auto asked = std::find_if(shared.begin(), shared.end(), [this](const SharedProduct& product) {
    return answers_.Families.count(product.Name) == 0;
  });
  if (asked == shared.end()) asked = shared.end() - 1;
  sharedName_ = asked->Name;
  sharedLetters_ = asked->Letters;
  Table<std::string> entries;
  entries.Append(std::string(NotChosen));
  int chosen = 0;
  const auto told = answers_.Families.find(sharedName_);
  for (const std::string& letter : sharedLetters_) {
    const SectionFamily* family = FamilyOf(letter);
    entries.Append(family == nullptr ? letter : std::string(family->LengthLabel));
    if (told != answers_.Families.end() && told->second == letter) chosen = entries.UBound() - 1;
  }
  lblFamily_->setText(ToQt("What " + sharedName_ + " is:"));
  cboFamily_->Fill(entries);
  cboFamily_->SelectQuietly(chosen);
}

// Answers.

void FrmImport::Mend(int row, int column, const std::string& text) {
  const auto at = static_cast<std::size_t>(row) - 1;
  list_.Rows.at(at).Texts.at(static_cast<std::size_t>(column)) = text;
  // It may be another section's holes now.
  if (column == MarkColumn || column == PunchingColumn) answers_.MayRemoveHoles.erase(row - 1);
  mended_ = true;
  Replan();
}

void FrmImport::Tick(int row, ImportColumn::Shows what) {
  if (row < 1 || row > static_cast<int>(plan_.Rows.size())) return;
  std::set<int>& rows =
      what == ImportColumn::Shows::Taken ? answers_.LeftOut : answers_.MayRemoveHoles;
  if (rows.erase(row - 1) == 0) rows.insert(row - 1);
  mended_ = true;
  Replan();
}

void FrmImport::TellDigits() {
  table_->Commit();
  answers_.Told = static_cast<ThreeDigits>(std::max(0, cboDigits_->currentIndex()));
  mended_ = true;
  Replan();
}

void FrmImport::TellFamily() {
  table_->Commit();
  const int chosen = cboFamily_->currentIndex();
  mended_ = true;
  if (chosen < 1) {
    answers_.Families.erase(sharedName_);
  } else {
    answers_.Families[sharedName_] = sharedLetters_.at(static_cast<std::size_t>(chosen) - 1);
  }
  Replan();
}

// Rows that are refused are left out, but not without a word.
void FrmImport::Ok() {
  table_->Commit();
  const int refused = plan_.Count(RowResult::Refused);
  if (refused > 0) {
    const std::string question =
        refused == 1 ? "1 row is refused and is left out. Go on?"
                     : DecimalText(refused) + " rows are refused and are left out. Go on?";
    if (TheDesktop().ShowMessageBox(question, "", Buttons::YesNo, Icon::None) != Answer::Yes) {
      table_->GoToRefused();
      return;
    }
  }
  accept();
}

}  // namespace orvane
