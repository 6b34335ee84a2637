#include "ui/dialogs/frm_recovery.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QTimer>
#include <algorithm>
#include <exception>
#include <optional>
#include <utility>

#include "core/desktop.h"
#include "core/files.h"
#include "core/numbers.h"
#include "core/system_dates.h"
#include "core/text_file.h"
#include "project/job_difference.h"
#include "project/project_file.h"
#include "ui/platform/icons.h"
#include "ui/platform/qt_text.h"

namespace orvane {

namespace {

enum RecoveryColumn { LeftJobColumn, LeftTimeColumn, LeftSectionsColumn, LeftDifferenceColumn };

// A job as it is read from a file; none, and why, of one that can't be read.
std::optional<Job> JobIn(const std::string& path, std::string& trouble) {
  std::optional<Job> job;
  Tell(
      [&] {
        TextFile file = TextFile::Open(path);
        job = ReadProject(file).Records;
      },
      [&](const std::string& description) { trouble = description; });
  return job;
}

// How the copy differs from the job's own file.
std::string DifferenceText(const LeftJob& left, const Job& copy) {
  if (left.Path.empty()) return "was never saved";
  if (!IsRegularFile(left.Path)) return "its file is gone";
  std::string trouble;
  const std::optional<Job> saved = JobIn(left.Path, trouble);
  if (!saved) return "its file can't be read: " + trouble;
  std::string words = Described(DifferenceOf(ViewOf(*saved), ViewOf(copy)));
  if (left.IsOlder) {
    words += " (its file was saved later than this copy)";
  } else if (left.IsChanged) {
    words += " (its file was changed by somebody else)";
  }
  return words;
}

}  // namespace

FrmRecovery::FrmRecovery(std::vector<LeftJob> jobs, std::function<void(const LeftJob&)> discard,
                         QWidget* parent)
    : PlainDialog(parent), jobs_(std::move(jobs)), discard_(std::move(discard)) {
  setObjectName("frmRecovery");
  setWindowTitle("Recovered Jobs");
  setWindowIcon(ProgramIcon());
  setSizeGripEnabled(true);

  auto* note = new QLabel(
      "The program ended before these jobs were saved. What was entered until a few seconds before "
      "stands in a copy. A job that is recovered opens under its name; its file stays as it is "
      "until you save.");
  note->setObjectName("lblNote");
  note->setWordWrap(true);

  list_ = new QTreeWidget(this);
  list_->setObjectName("lvwRecovered");
  list_->setAccessibleName("Jobs left behind");
  list_->setHeaderLabels({"Job", "When", "Sections", "Differs from its file by"});
  list_->headerItem()->setTextAlignment(LeftSectionsColumn, Qt::AlignRight);
  list_->setRootIsDecorated(false);
  list_->setUniformRowHeights(true);
  list_->setAllColumnsShowFocus(true);
  list_->header()->setSectionsMovable(false);
  AddRows();

  QPushButton* cmdRecover = AddButton("cmdRecover", "&Recover");
  QPushButton* cmdDiscard = AddButton("cmdDiscard", "&Discard");
  QPushButton* cmdLater = AddButton("cmdLater", "&Later");
  connect(cmdRecover, &QPushButton::clicked, this, [this] { Guard([this] { accept(); }); });
  connect(cmdDiscard, &QPushButton::clicked, this, [this] { Guard([this] { Discard(); }); });
  connect(cmdLater, &QPushButton::clicked, this, [this] { Guard([this] { reject(); }); });
  connect(list_, &QTreeWidget::itemDoubleClicked, this, [this] { Guard([this] { accept(); }); });
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(cmdDiscard);
  buttons->addStretch();
  buttons->addWidget(cmdRecover);
  buttons->addWidget(cmdLater);

  QVBoxLayout* layout = AddLayout();
  layout->addWidget(note);
  layout->addWidget(list_, 1);
  layout->addLayout(buttons);
  PressByEnter(*cmdRecover);
  list_->setCurrentItem(list_->topLevelItem(0));
  list_->setFocus();
  const QFontMetrics metrics(list_->font());
  resize(metrics.averageCharWidth() * 120, metrics.lineSpacing() * 24);
}

void FrmRecovery::AddRows() {
  for (const LeftJob& left : jobs_) {
    auto* row = new QTreeWidgetItem(list_);
    row->setText(LeftJobColumn, ToQt(left.Path.empty() ? "Untitled" : FileName(left.Path)));
    row->setToolTip(LeftJobColumn, PlainTip(left.Path));
    row->setText(LeftTimeColumn,
                 ToQt(MomentText(LocalMoment(left.Written), TheDesktop().ShortDateForm())));
    row->setTextAlignment(LeftSectionsColumn, Qt::AlignRight | Qt::AlignVCenter);
    row->setText(LeftDifferenceColumn, QString(QChar(0x2026)));
    // The row's height is told by the one column that isn't as wide as its texts.
    row->setSizeHint(LeftDifferenceColumn, QSize(0, list_->fontMetrics().height() * 3 / 2));
  }
  const int gap = list_->fontMetrics().averageCharWidth() * 2;
  for (int column = LeftJobColumn; column < LeftDifferenceColumn; ++column) {
    list_->resizeColumnToContents(column);
    list_->setColumnWidth(column, list_->columnWidth(column) + gap);
  }
}

void FrmRecovery::showEvent(QShowEvent* event) {
  PlainDialog::showEvent(event);
  QTimer::singleShot(0, this, [this] { Guard([this] { CompareNext(); }); });
}

// A row at a time, between the keys: for each the copy is read, and the job's own file.
void FrmRecovery::CompareNext() {
  if (!isVisible() || compared_ >= list_->topLevelItemCount()) return;
  QTreeWidgetItem* row = list_->topLevelItem(compared_);
  const LeftJob& left = jobs_.at(static_cast<std::size_t>(compared_));
  std::string trouble;
  const std::optional<Job> copy = JobIn(left.File, trouble);
  const std::string difference =
      copy ? DifferenceText(left, *copy) : "the copy can't be read: " + trouble;
  row->setText(LeftSectionsColumn, ToQt(copy ? DecimalText(copy->Items.UBound()) : "?"));
  row->setText(LeftDifferenceColumn, ToQt(difference));
  row->setToolTip(LeftDifferenceColumn, PlainTip(difference));
  ++compared_;
  QTimer::singleShot(0, this, [this] { Guard([this] { CompareNext(); }); });
}

int FrmRecovery::Row() const {
  return std::max(0, list_->indexOfTopLevelItem(list_->currentItem()));
}

void FrmRecovery::Discard() {
  const int row = Row();
  discard_(jobs_.at(static_cast<std::size_t>(row)));
  jobs_.erase(jobs_.begin() + row);
  delete list_->takeTopLevelItem(row);
  if (row < compared_) --compared_;
  if (jobs_.empty()) return Cancel();
  list_->setCurrentItem(list_->topLevelItem(std::min(row, list_->topLevelItemCount() - 1)));
  list_->setFocus();
}

}  // namespace orvane
