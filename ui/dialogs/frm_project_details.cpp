#include "ui/dialogs/frm_project_details.h"

#include <QCalendarWidget>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QShowEvent>
#include <QSignalBlocker>
#include <algorithm>
#include <utility>

#include "core/desktop.h"
#include "core/model.h"
#include "core/numbers.h"
#include "project/changes.h"
#include "ui/controls/plain_field.h"
#include "ui/platform/guard.h"
#include "ui/platform/icons.h"
#include "ui/platform/qt_text.h"

namespace orvane {

namespace {

const QDate FirstSetDate(2002, 1, 1);
const QDate EarliestDate(100, 1, 1);  // that the picker can show
constexpr int ThisCentury = 2000;

// Tab leaves it: the number that a person types behind the date must not get into its month.
class DateField : public QDateEdit {
 public:
  using QDateEdit::QDateEdit;

 protected:
  bool focusNextPrevChild(bool next) override {
    return QWidget::focusNextPrevChild(next);  // the toolkit's own goes through the parts first
  }
};

QDate ToQDate(const Date& date) {
  return {date.Year, date.Month, date.Day};
}

Date FromQDate(const QDate& date) {
  return {date.year(), date.month(), date.day()};
}

void TakeDate(const QDate& date) {
  Change(ChangeKind::ProjectDetails, 0, [&] { DTPicker1 = FromQDate(date); });
}

// The system's short date form with a year of four digits, so that no century is left to guess; a
// plain one where the system's has names or lacks a part.
QString PickerForm() {
  const QString shortForm = ToQt(TheDesktop().ShortDateForm());
  QString form;
  bool quoted = false;
  for (const QChar letter : shortForm) {
    if (letter == '\'') quoted = !quoted;
    if (quoted || letter != 'y') {
      form += letter;
    } else if (!form.endsWith('y')) {
      form += "yyyy";
    }
  }
  const bool usable = form.contains('d') && form.contains('M') && form.contains('y') &&
                      !form.contains("ddd") && !form.contains("MMM");
  return usable ? form : "dd/MM/yyyy";
}

}  // namespace

FrmProjectDetails::FrmProjectDetails(QWidget* parent) : PlainDialog(parent) {
  setObjectName("frmProjectDetails");
  setWindowTitle("Project Details");
  setWindowIcon(ProgramIcon());

  AddFields();
  AddPicker();
  QPushButton* SSCommand1 = AddButton("SSCommand1", "&Close");
  connect(SSCommand1, &QPushButton::clicked, this, [this] { Guard([this] { accept(); }); });
  PressByEnter(*SSCommand1);

  auto* form = new QFormLayout;
  form->addRow("Job No.", txtProject_.at(1));
  form->addRow("Customer", txtProject_.at(2));
  form->addRow("Project", txtProject_.at(3));
  form->addRow("Designer", txtProject_.at(4));
  form->addRow("Date", picker_);
  form->addRow("Orvane No.", txtProject_.at(0));
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(SSCommand1);
  QVBoxLayout* layout = AddLayout();
  layout->addLayout(form);
  layout->addStretch();
  layout->addLayout(buttons);

  // The keys run through the fields as they stand, not as their numbers do.
  setTabOrder(picker_, txtProject_.at(0));
  setTabOrder(txtProject_.at(0), SSCommand1);

  if (ToQDate(DTPicker1) < FirstSetDate) DTPicker1 = TheDesktop().Now().Day;
  Refresh();
}

void FrmProjectDetails::AddFields() {
  const int width = fontMetrics().averageCharWidth() * 44;
  for (std::size_t at = 0; at < txtProject_.size(); ++at) {
    auto* field = new PlainField(this);
    field->setObjectName(IndexedName("txtProject", static_cast<int>(at)));
    field->setMinimumWidth(width);
    // The number stands without quotes in the project file, the others between them.
    field->TakeText(at == 0 ? TextForm::Plain : TextForm::Quoted);
    connect(field, &QLineEdit::textEdited, this, [at](const QString& text) {
      Guard([&] {
        Change(ChangeKind::ProjectDetails, 0, [&] { txtProject.at(at) = FromQt(text); });
      });
    });
    txtProject_.at(at) = field;
  }
}

void FrmProjectDetails::AddPicker() {
  picker_ = new DateField(this);
  picker_->setObjectName("DTPicker1");
  // The screens speak English whatever the system speaks, the calendar included.
  picker_->setLocale(QLocale(QLocale::English, QLocale::UnitedKingdom));
  picker_->setCalendarPopup(true);
  picker_->setMinimumDate(EarliestDate);
  picker_->setDisplayFormat(PickerForm());
  picker_->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  picker_->setFocusPolicy(Qt::StrongFocus);
  picker_->installEventFilter(this);
  connect(picker_, &QDateEdit::userDateChanged, this,
          [](QDate date) { Guard([&] { TakeDate(date); }); });
}

void FrmProjectDetails::Refresh() {
  for (std::size_t at = 0; at < txtProject_.size(); ++at) {
    const QString text = ToQt(txtProject.at(at));
    if (txtProject_.at(at)->text() != text) txtProject_.at(at)->setText(text);
  }
  const QSignalBlocker quiet(picker_);
  picker_->setDate(ToQDate(DTPicker1));
}

void FrmProjectDetails::showEvent(QShowEvent* event) {
  PlainDialog::showEvent(event);
  if (event->spontaneous()) return;
  Guard([this] {
    Refresh();
    PlainField* first = txtProject_.at(std::exchange(firstField_, FirstField));
    first->setFocus();
    first->selectAll();
  });
}

bool FrmProjectDetails::eventFilter(QObject* watched, QEvent* event) {
  if (watched != picker_) return PlainDialog::eventFilter(watched, event);
  bool taken = false;
  Guard([&] {
    // A wheel that only passes over the date must not change it.
    if (event->type() == QEvent::Wheel) taken = !picker_->hasFocus();
    if (event->type() == QEvent::KeyPress) taken = PickerKey(*static_cast<QKeyEvent*>(event));
    if (event->type() == QEvent::FocusOut || event->type() == QEvent::MouseButtonPress) {
      CompleteYear();
    }
  });
  return taken || PlainDialog::eventFilter(watched, event);
}

// Dates are typed with or without their separators, and with two digits of the year. The picker
// goes to the next part by itself as soon as one is full; the separator that a person types then
// must not skip that part too.
bool FrmProjectDetails::PickerKey(const QKeyEvent& key) {
  const bool right = key.key() == Qt::Key_Right;
  const bool aside = right || key.key() == Qt::Key_Left;
  if (aside && !(key.modifiers() & (Qt::ShiftModifier | Qt::AltModifier | Qt::MetaModifier))) {
    CompleteYear();
    GoToPart(picker_->currentSectionIndex() + (right ? 1 : -1));
    return true;
  }
  const QString text = key.text();
  const bool plain = !(key.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier));
  if (plain && text.size() == 1 && text.front().isDigit()) {
    if (section_ != picker_->currentSection()) typed_.clear();
    section_ = picker_->currentSection();
    typed_ += text;
    return false;
  }
  const bool separator = plain && text.size() == 1 && text.front().isPunct();
  const bool nothingTyped = section_ != picker_->currentSection() || typed_.isEmpty();
  if (separator && nothingTyped) return true;
  CompleteYear();
  if (!separator) return false;
  // Whatever separator the form has.
  GoToPart(picker_->currentSectionIndex() + 1);
  return true;
}

// Day, month or year by its place; beyond the last one it is the last one.
void FrmProjectDetails::GoToPart(int index) {
  picker_->setCurrentSectionIndex(std::clamp(index, 0, picker_->sectionCount() - 1));
  picker_->setSelectedSection(picker_->currentSection());
}

void FrmProjectDetails::done(int result) {
  Guard([this] { CompleteYear(); });
  PlainDialog::done(result);
}

// A year of one or two digits is one of this century.
void FrmProjectDetails::CompleteYear() {
  const QString digits = std::exchange(typed_, QString());
  if (section_ != QDateTimeEdit::YearSection || digits.isEmpty() || digits.size() > 2) return;
  const int year = ThisCentury + ParseInt16(FromQt(digits));
  const QDate month(year, picker_->date().month(), 1);
  const QDate date(year, month.month(), std::min(picker_->date().day(), month.daysInMonth()));
  picker_->setDate(date);
  TakeDate(date);
}

}  // namespace orvane
