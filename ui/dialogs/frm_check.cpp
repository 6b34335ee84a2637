#include "ui/dialogs/frm_check.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <algorithm>
#include <array>
#include <iterator>
#include <optional>
#include <utility>

#include "core/text.h"
#include "ui/controls/plain_field.h"
#include "ui/platform/guard.h"
#include "ui/platform/icons.h"
#include "ui/platform/qt_text.h"

namespace orvane {

namespace {

// Letters that a column is first given room for.
constexpr std::array<int, FindingsModel::Columns> FirstLetters = {10, 18, 70, 34, 16, 20};

}  // namespace

FrmCheck::FrmCheck(QWidget* parent) : PlainDialog(parent) {
  setObjectName("frmCheck");
  setWindowTitle("Check");
  setWindowIcon(ProgramIcon());
  setSizeGripEnabled(true);

  list_ = new QTreeView(this);
  list_->setObjectName("lvwFindings");
  list_->setModel(&model_);
  list_->setRootIsDecorated(false);
  list_->setUniformRowHeights(true);
  list_->setAllColumnsShowFocus(true);
  list_->header()->setSectionsMovable(false);
  const int letter = list_->fontMetrics().averageCharWidth();
  for (int column = 0; column < FindingsModel::Columns; ++column) {
    list_->setColumnWidth(column, FirstLetters.at(static_cast<std::size_t>(column)) * letter);
  }

  counts_ = new QLabel(this);
  counts_->setObjectName("lblCounts");
  showAccepted_ = new QCheckBox("&Show what was accepted", this);
  showAccepted_->setObjectName("chkAccepted");
  word_ = new PlainField(this);
  word_->setObjectName("txtWord");
  auto* wordLabel = new QLabel("Accept with the &word:", this);
  wordLabel->setBuddy(word_);

  go_ = AddButton("cmdGo", "&Go there");
  accept_ = AddButton("cmdAccept", "&Accept");
  forget_ = AddButton("cmdForget", "&Open again");
  QPushButton* close = AddButton("cmdClose", "&Close");
  const auto run = [this](QPushButton* button, void (FrmCheck::*action)()) {
    connect(button, &QPushButton::clicked, this,
            [this, action] { Guard([&] { (this->*action)(); }); });
  };
  connect(go_, &QPushButton::clicked, this, [this] { Guard([&] { GoThere(ChosenBy::Key); }); });
  run(accept_, &FrmCheck::AcceptCurrent);
  run(forget_, &FrmCheck::ForgetCurrent);
  connect(close, &QPushButton::clicked, this, [this] { Guard([this] { reject(); }); });
  connect(list_, &QTreeView::clicked, this, [this] { Guard([&] { GoThere(ChosenBy::Click); }); });
  connect(list_, &QTreeView::doubleClicked, this,
          [this] { Guard([&] { GoThere(ChosenBy::Key); }); });
  connect(list_->selectionModel(), &QItemSelectionModel::currentChanged, this,
          [this] { Guard([this] { ShowButtons(); }); });
  connect(showAccepted_, &QCheckBox::toggled, this, [this] { Guard([this] { ShowChosen(); }); });

  auto* foot = new QHBoxLayout;
  foot->addWidget(counts_, 1);
  foot->addWidget(showAccepted_);
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(wordLabel);
  buttons->addWidget(word_, 1);
  buttons->addWidget(accept_);
  buttons->addWidget(forget_);
  buttons->addSpacing(fontMetrics().height());
  buttons->addWidget(go_);
  buttons->addWidget(close);
  QVBoxLayout* layout = AddLayout();
  layout->addWidget(list_, 1);
  layout->addLayout(foot);
  layout->addLayout(buttons);
  PressByEnter(*go_);
  list_->setFocus();
  resize(letter * 156, list_->fontMetrics().lineSpacing() * 24);
}

void FrmCheck::ShowFindings(std::vector<Finding> findings, const FindingCounts& counts) {
  all_ = std::move(findings);
  counts_->setText(ToQt(CountsLine(counts)));
  ShowChosen();
}

// The accepted ones are out of the way unless they are asked for.
void FrmCheck::ShowChosen() {
  list_->setColumnHidden(FindingsModel::Accepted, !showAccepted_->isChecked());
  const int row = Row();
  const std::optional<Finding> current =
      row < 0 ? std::nullopt : std::make_optional(model_.At(row));
  std::vector<Finding> shown;
  std::copy_if(all_.begin(), all_.end(), std::back_inserter(shown), [this](const Finding& finding) {
    return IsOpenFinding(finding) || showAccepted_->isChecked();
  });
  model_.Show(std::move(shown));
  MakeCurrent(current ? model_.FindAgain(*current, row) : std::min(0, model_.rowCount() - 1));
}

void FrmCheck::MakeCurrent(int row) {
  if (row >= 0) list_->setCurrentIndex(model_.index(row, 0));
  ShowButtons();
}

int FrmCheck::Row() const {
  return list_->currentIndex().row();
}

void FrmCheck::ShowButtons() {
  const bool isAny = Row() >= 0;
  const bool isAccepted = isAny && !IsOpenFinding(model_.At(Row()));
  go_->setEnabled(isAny);
  accept_->setEnabled(isAny);
  forget_->setEnabled(isAccepted);
}

void FrmCheck::GoThere(ChosenBy how) {
  if (Row() < 0) return;
  // A copy: going there may show other findings.
  const Finding finding = model_.At(Row());
  GoTo(finding, how);
}

// Without a word nothing is accepted: the cursor waits for one.
void FrmCheck::AcceptCurrent() {
  if (Row() < 0) return;
  const std::string word = FromQt(word_->text());
  if (Trim(word).empty()) return word_->setFocus();
  const Finding finding = model_.At(Row());
  Accept(finding, word);
  list_->setFocus();
}

void FrmCheck::ForgetCurrent() {
  if (Row() < 0) return;
  const Finding finding = model_.At(Row());
  Forget(finding);
  list_->setFocus();
}

void FrmCheck::showEvent(QShowEvent* event) {
  PlainDialog::showEvent(event);
  list_->setFocus();
}

// Enter behind the word accepts.
void FrmCheck::keyPressEvent(QKeyEvent* event) {
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (enter && focusWidget() == word_) {
    if (!event->isAutoRepeat()) accept_->click();
    return;
  }
  PlainDialog::keyPressEvent(event);
}

}  // namespace orvane
