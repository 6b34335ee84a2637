#include "ui/dialogs/frm_add_holes.h"

#include <QEvent>
#include <QGridLayout>
#include <QRadioButton>
#include <QRegularExpressionValidator>
#include <utility>

#include "core/desktop.h"
#include "core/numbers.h"
#include "core/section_families.h"
#include "holes/hole_list.h"
#include "project/changes.h"
#include "project/section_look.h"
#include "ui/controls/picture_radio.h"
#include "ui/controls/plain_field.h"
#include "ui/controls/tab_stop.h"
#include "ui/dialogs/hole_pictures.h"
#include "ui/platform/guard.h"
#include "ui/platform/icons.h"
#include "ui/platform/qt_text.h"

namespace orvane {

namespace {

struct HoleModeTexts {
  std::int16_t Mode;
  const char* Title;
  const char* Position;
  const char* Store;
  const char* Close;
};

constexpr std::array<HoleModeTexts, 3> HoleModes = {{
    // clang-format off
    {EditHole,    "Edit Custom Holes",         "Absolute X position from LH end",    "&Update", "&Cancel"},
    {AddAbsolute, "Add Custom Holes (Abs. X)", "Absolute X position from LH end",    "&Add",    "&Close"},
    {AddRelative, "Add Custom Holes (Rel. X)", "Relative X position from last hole", "&Add",    "&Close"},
    // clang-format on
}};

const HoleModeTexts& TextsOfMode(std::int16_t mode) {
  for (const HoleModeTexts& texts : HoleModes) {
    if (texts.Mode == mode) return texts;
  }
  return HoleModes.front();
}

constexpr int PicturesInALine = 7;
constexpr int FieldCharacters = 12;
constexpr float SmallDiameter = 14;  // mm; a hole of any other diameter shows as one of 18

QLineEdit* NewHoleField(const char* name, NumberForm pasted, QWidget* parent) {
  auto* field = new PlainField(parent);
  field->TakePastedNumber(pasted);
  field->setObjectName(name);
  field->setAlignment(Qt::AlignRight);
  field->setFixedWidth(field->fontMetrics().averageCharWidth() * FieldCharacters +
                       field->fontMetrics().height());
  return field;
}

QLabel* NewHoleLabel(const char* caption, QWidget* field, QWidget* parent) {
  auto* label = new QLabel(caption, parent);
  label->setBuddy(field);
  return label;
}

bool IsEnter(const QKeyEvent& key) {
  return key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
}

}  // namespace

FrmAddHoles::FrmAddHoles(std::int16_t ItemIndex, std::int16_t Mode, int CustomRow, QWidget* parent)
    : PlainDialog(parent), itemIndex_(ItemIndex), mode_(Mode), customRow_(CustomRow) {
  setObjectName("frmAddHoles");
  setWindowTitle(TextsOfMode(mode_).Title);
  setWindowIcon(ProgramIcon());
  BuildParts();
  if (mode_ == EditHole) {
    ShowHoleToEdit();
  } else {
    ShowNewHole();
  }
  txtXpos_->setFocus();
  txtXpos_->selectAll();
}

// The parts, in the order in which Tab goes through them.

void FrmAddHoles::BuildParts() {
  const std::string& letter = Items.At(itemIndex_).SectionType;
  QVBoxLayout* layout = AddLayout();
  layout->addLayout(BuildPosition());
  for (const SectionFamily& family : SectionFamilies) {
    QWidget* panel = BuildSet(family.Letter);
    panel->setVisible(family.Letter == letter);
    layout->addWidget(panel);
  }
  BuildOffGauge();
  layout->addWidget(SSPanelOffGauge_);
  layout->addLayout(BuildDetails());
  layout->addStretch();
  layout->addLayout(BuildButtons());
}

QHBoxLayout* FrmAddHoles::BuildPosition() {
  txtXpos_ = NewHoleField("txtXpos", NumberForm::Whole, this);
  txtXpos_->installEventFilter(this);
  lblX_ = NewHoleLabel(TextsOfMode(mode_).Position, txtXpos_, this);
  lblX_->setObjectName("lblX");
  auto* line = new QHBoxLayout;
  line->addWidget(lblX_);
  line->addWidget(txtXpos_);
  line->addStretch();
  return line;
}

// The buttons bear the numbers of their codes, which have gaps in most sets.
QWidget* FrmAddHoles::BuildSet(std::string_view Letter) {
  auto* panel = new QWidget(this);
  panel->setObjectName("pnl" + ToQt(Letter));
  panel->setAccessibleName("Hole lines");
  auto* grid = new QGridLayout(panel);
  grid->setContentsMargins({});
  grid->setSpacing(fontMetrics().height() / 2);
  grid->setColumnStretch(PicturesInALine, 1);
  auto* set = new QButtonGroup(this);
  int place = 0;
  for (const int code : HoleCodes(Letter)) {
    auto* button = new PictureRadio(HolePicture(Letter, code), panel);
    button->setObjectName(IndexedName("rbn" + std::string(Letter), code));
    const QString name = code == OffGaugeCode ? QString("Off Gauge") : ToQt(HoleCodeName(code));
    if (code == OffGaugeCode) button->setText(name);
    button->setToolTip(name);
    button->setAccessibleName(name);
    set->addButton(button, code);
    grid->addWidget(button, place / PicturesInALine, place % PicturesInALine, Qt::AlignTop);
    ++place;
  }
  KeepTabAtChecked(*set);
  // By code as by hand: the panel must never stand there for another button.
  connect(set, &QButtonGroup::idToggled, this, [this] { Guard([&] { PatternSelected(); }); });
  sets_.at(static_cast<std::size_t>(FamilyNumber(Letter) - 1)) = set;
  return panel;
}

void FrmAddHoles::BuildOffGauge() {
  SSPanelOffGauge_ = new QGroupBox("Single off-gauge hole details:", this);
  SSPanelOffGauge_->setObjectName("SSPanelOffGauge");
  auto* line = new QHBoxLayout(SSPanelOffGauge_);
  txtYPos_ = NewHoleField("txtYPos", NumberForm::Whole, SSPanelOffGauge_);
  txtYPos_->installEventFilter(this);
  // For what comes by other roads than the keys, the mouse and the pop-up of the field.
  txtYPos_->setValidator(new QRegularExpressionValidator(QRegularExpression("[0-9]*"), txtYPos_));
  line->addWidget(NewHoleLabel("Y position ", txtYPos_, SSPanelOffGauge_));
  line->addWidget(txtYPos_);
  line->addSpacing(fontMetrics().height());

  SSRibbon2_ = new QButtonGroup(this);
  const std::array captions = {"Web", "Top flange", "Bottom flange"};
  for (std::size_t index = 0; index < captions.size(); ++index) {
    const int id = static_cast<int>(index);
    auto* button = new PictureRadio({}, SSPanelOffGauge_);
    button->setObjectName(IndexedName("SSRibbon2", id));
    button->setText(captions.at(index));
    SSRibbon2_->addButton(button, id);
    line->addWidget(button);
  }
  KeepTabAtChecked(*SSRibbon2_);
  SSRibbon2_->button(0)->setChecked(true);
  line->addStretch();

  // Where it can come it has its room from the start, so that nothing jumps under the pointer.
  QSizePolicy policy = SSPanelOffGauge_->sizePolicy();
  const std::vector<int> codes = HoleCodes(Items.At(itemIndex_).SectionType);
  policy.setRetainSizeWhenHidden(!codes.empty() && codes.back() == OffGaugeCode);
  SSPanelOffGauge_->setSizePolicy(policy);
  SSPanelOffGauge_->hide();
}

QHBoxLayout* FrmAddHoles::BuildDetails() {
  fraDiameter_ = new QGroupBox("Hole diameter(s)", this);
  fraDiameter_->setObjectName("fraDiameter");
  auto* diameters = new QHBoxLayout(fraDiameter_);
  optDia_ = new QButtonGroup(this);
  const std::array captions = {"18mm", "14mm"};
  for (std::size_t index = 0; index < captions.size(); ++index) {
    const int id = static_cast<int>(index);
    auto* button = new QRadioButton(captions.at(index), fraDiameter_);
    button->setObjectName(IndexedName("optDia", id));
    optDia_->addButton(button, id);
    diameters->addWidget(button);
  }
  KeepTabAtChecked(*optDia_);

  txtSlotLen_ = NewHoleField("txtSlotLen", NumberForm::Positive, this);
  chkCounterSunk_ = new QCheckBox("Countersunk", this);
  chkCounterSunk_->setObjectName("chkCounterSunk");
  txtSlotLen_->setText("0");
  connect(txtSlotLen_, &QLineEdit::textChanged, this, [this] { Guard([&] { SlotLenChanged(); }); });

  auto* line = new QHBoxLayout;
  line->addWidget(fraDiameter_);
  line->addSpacing(fontMetrics().height());
  line->addWidget(NewHoleLabel("Slot length ", txtSlotLen_, this));
  line->addWidget(txtSlotLen_);
  line->addSpacing(fontMetrics().height());
  line->addWidget(chkCounterSunk_);
  line->addStretch();
  return line;
}

QHBoxLayout* FrmAddHoles::BuildButtons() {
  SSCommand1_ = AddButton("SSCommand1", "Info");
  SSCommand2_ = {AddButton("SSCommand2(0)", TextsOfMode(mode_).Store),
                 AddButton("SSCommand2(1)", TextsOfMode(mode_).Close)};
  connect(SSCommand1_, &QPushButton::clicked, this, [this] {
    Guard([&] { TheDesktop().Message(HoleInfo(Items.At(itemIndex_).SectionType)); });
  });
  connect(SSCommand2_.at(0), &QPushButton::clicked, this, [this] { Guard([&] { Store(); }); });
  connect(SSCommand2_.at(1), &QPushButton::clicked, this, [this] { Guard([&] { reject(); }); });
  auto* line = new QHBoxLayout;
  line->addWidget(SSCommand1_);
  line->addStretch();
  line->addWidget(SSCommand2_.at(0));
  line->addWidget(SSCommand2_.at(1));
  return line;
}

// Showing.

void FrmAddHoles::ShowNewHole() {
  const std::string& letter = Items.At(itemIndex_).SectionType;
  const std::vector<int> codes = HoleCodes(letter);
  if (!codes.empty()) SelectPattern(letter, codes.front());
  optDia_->button(UsesThinBolts(letter) ? 1 : 0)->setChecked(true);
}

void FrmAddHoles::ShowHoleToEdit() {
  const Item& item = Items.At(itemIndex_);
  const Hole& hole = item.Holes.At(CustomHoleRow(itemIndex_, customRow_));
  txtXpos_->setText(ToQt(ShortestText(hole.XPos)));
  SelectPattern(item.SectionType, HoleCodeOf(hole));
  const OffGaugeText offGauge = OffGaugeOf(hole);
  SSRibbon2_->button(static_cast<int>(offGauge.Line))->setChecked(true);
  txtYPos_->setText(ToQt(offGauge.Distance));
  optDia_->button(hole.Diameter == SmallDiameter ? 1 : 0)->setChecked(true);
  txtSlotLen_->setText(ToQt(ShortestText(hole.SlotLength)));
  chkCounterSunk_->setChecked(hole.CounterSunk == CounterSunkMark);
  openedWithoutLines_ = FindPattern() == NoLines;
}

std::int16_t FrmAddHoles::FindPattern() const {
  const int row = FamilyNumber(Items.At(itemIndex_).SectionType);
  if (row == 0) return NoLines;
  return Int16(sets_.at(static_cast<std::size_t>(row) - 1)->checkedId());
}

void FrmAddHoles::SelectPattern(std::string_view Letter, int code) {
  const int row = FamilyNumber(Letter);
  if (row == 0) return;
  if (QAbstractButton* button = sets_.at(static_cast<std::size_t>(row) - 1)->button(code)) {
    button->setChecked(true);
  }
}

// Events.

void FrmAddHoles::PatternSelected() {
  SSPanelOffGauge_->setVisible(FindPattern() == OffGaugeCode);
}

// A slot can't be countersunk.
void FrmAddHoles::SlotLenChanged() {
  const bool isSlot = Val(FromQt(txtSlotLen_->text())) > 0;
  chkCounterSunk_->setEnabled(!isSlot);
  if (isSlot) return;
  const QSignalBlocker quiet(txtSlotLen_);
  txtSlotLen_->setText("0");
  // What is typed next takes its place.
  txtSlotLen_->selectAll();
}

bool FrmAddHoles::eventFilter(QObject* watched, QEvent* event) {
  bool handled = false;
  Guard([&] {
    if (event->type() != QEvent::KeyPress) return;
    const auto& key = static_cast<const QKeyEvent&>(*event);
    if (watched == txtYPos_) {
      handled = TakeYPosKey(key);
    } else if (watched == txtXpos_ && IsEnter(key)) {
      handled = true;
      if (!key.isAutoRepeat()) SSCommand2_.at(0)->click();
    }
  });
  return handled || PlainDialog::eventFilter(watched, event);
}

// Enter on a picture adds the hole that it shows; the blank chooses it.
void FrmAddHoles::keyPressEvent(QKeyEvent* event) {
  const int row = FamilyNumber(Items.At(itemIndex_).SectionType);
  auto* picture = qobject_cast<QAbstractButton*>(focusWidget());
  const bool onPicture = row > 0 && picture != nullptr &&
                         sets_.at(static_cast<std::size_t>(row) - 1)->buttons().contains(picture);
  if (!onPicture || !IsEnter(*event)) return PlainDialog::keyPressEvent(event);
  if (!event->isAutoRepeat()) SSCommand2_.at(0)->click();
}

// Digits alone, and the keys that bear no character.
bool FrmAddHoles::TakeYPosKey(const QKeyEvent& key) {
  if (IsEnter(key)) {
    focusNextChild();
    return true;
  }
  // With Ctrl or Alt a key is a command.
  if ((key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0) {
    return false;
  }
  const QString text = key.text();
  if (text.isEmpty() || !text.at(0).isPrint()) return false;
  return text.at(0) < '0' || text.at(0) > '9';
}

HoleEntry FrmAddHoles::Entry() const {
  HoleEntry entry;
  entry.XPos = FromQt(txtXpos_->text());
  entry.Code = FindPattern();
  entry.Is18mm = optDia_->checkedId() == 0;
  entry.YPos = FromQt(txtYPos_->text());
  entry.YLine = static_cast<OffGaugeLine>(SSRibbon2_->checkedId());
  entry.SlotLen = FromQt(txtSlotLen_->text());
  entry.CounterSunk = chkCounterSunk_->isEnabled() && chkCounterSunk_->isChecked();
  return entry;
}

void FrmAddHoles::Store() {
  const HoleEntry entry = Entry();
  const std::optional<std::int16_t> XPos = HolePosition(itemIndex_, mode_, entry);
  if (!XPos) {
    TheDesktop().Message(std::string(BadHolePosition));
    txtXpos_->setFocus();
    txtXpos_->selectAll();
    return;
  }
  if (!StoreAt(*XPos, entry)) return;
  if (mode_ == EditHole) {
    accept();
    return;
  }
  txtXpos_->clear();
  txtXpos_->setFocus();
}

// True when the hole stands, whatever comes of its gaps and of its sheet: that is told of the
// section.
bool FrmAddHoles::StoreAt(std::int16_t XPos, const HoleEntry& entry) {
  bool stored = false;
  LookAndSay(itemIndex_, [&] {
    Hole hole = CustomHole(entry, XPos);
    const bool edits = mode_ == EditHole;
    Change(edits ? ChangeKind::EditHole : ChangeKind::AddHole, itemIndex_, [&] {
      if (edits) {
        // A hole that no button can show keeps its lines: moving it must not unpunch it.
        const bool keepsLines = openedWithoutLines_ && entry.Code == NoLines;
        if (keepsLines) {
          CopyHoleLines(Items.At(itemIndex_).Holes.At(CustomHoleRow(itemIndex_, customRow_)), hole);
        }
        ReplaceCustomHole(itemIndex_, customRow_, std::move(hole));
      } else {
        AppendCustomHole(itemIndex_, std::move(hole));
      }
      stored = true;
      customRow_ = SortedCustomRow(itemIndex_, customRow_);
      if (MarkedMoves) MarkedMoves(customRow_);
      const auto space = [this] {
        SortHoles(itemIndex_);
        AdjustHoleSpacing(itemIndex_);
      };
      Tell(space, TakeLookError);
    });
  });
  return stored;
}

}  // namespace orvane
