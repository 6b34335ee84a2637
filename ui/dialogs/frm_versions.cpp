#include "ui/dialogs/frm_versions.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QTimer>

#include "core/desktop.h"
#include "core/files.h"
#include "core/model.h"
#include "core/numbers.h"
#include "core/text.h"
#include "core/text_file.h"
#include "project/job_difference.h"
#include "project/project_file.h"
#include "ui/platform/guard.h"
#include "ui/platform/icons.h"
#include "ui/platform/qt_text.h"

namespace orvane {

namespace {

enum VersionColumn { WhenColumn, JobColumn, WhatColumn, SectionsColumn, SinceColumn };

std::string NameOfJob() {
  return Trim(ProjectFileName).empty() ? "Untitled" : FileName(ProjectFileName);
}

// What has happened to the job since that version; why that can't be said of one that can't be
// read.
std::string SinceText(const Version& version) {
  std::string words;
  Tell(
      [&] {
        TextFile file(DecodeText(ReadVersion(version.File)));
        const Job then = ReadProject(file).Records;
        words = Described(DifferenceOf(ViewOf(then), OpenJob()));
      },
      [&](const std::string& trouble) { words = "(" + trouble + ")"; });
  return words;
}

// What the note says under the list, or in its place.
std::string NoteText(bool isEmpty) {
  std::string note = isEmpty
                         ? "There are no earlier versions yet. Each save keeps what it replaces."
                         : "A version opens as a job without a file name. " + NameOfJob() +
                               " stays as it is on the disk.";
  const std::string trouble = TakeVersionTrouble();
  if (!trouble.empty()) note += "\nThe last version could not be kept: " + trouble;
  return note;
}

}  // namespace

FrmVersions::FrmVersions(QWidget* parent) : PlainDialog(parent) {
  setObjectName("frmVersions");
  setWindowTitle("Earlier Versions");
  setWindowIcon(ProgramIcon());
  setSizeGripEnabled(true);
  // The version that a save has just handed over belongs to the list.
  TheDesktop().FinishApart();
  versions_ = VersionsOf(ProjectFileName);

  list_ = new QTreeWidget(this);
  list_->setObjectName("lvwVersions");
  list_->setAccessibleName("Earlier versions");
  list_->setHeaderLabels({"When", "Job", "What", "Sections", "Changed since then"});
  list_->headerItem()->setTextAlignment(SectionsColumn, Qt::AlignCenter);
  list_->setRootIsDecorated(false);
  list_->setUniformRowHeights(true);
  list_->setAllColumnsShowFocus(true);
  list_->header()->setSectionsMovable(false);
  AddRows();

  auto* note = new QLabel(ToQt(NoteText(versions_.empty())));
  note->setObjectName("lblNote");
  note->setTextFormat(Qt::PlainText);
  note->setWordWrap(true);

  QPushButton* cmdOpen = AddButton("cmdOpen", "&Open");
  QPushButton* cmdClose = AddButton("cmdClose", "&Close");
  connect(cmdOpen, &QPushButton::clicked, this, [this] { Guard([this] { Take(); }); });
  connect(cmdClose, &QPushButton::clicked, this, [this] { Guard([this] { reject(); }); });
  connect(list_, &QTreeWidget::itemDoubleClicked, this, [this] { Guard([this] { Take(); }); });
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(cmdOpen);
  buttons->addWidget(cmdClose);

  QVBoxLayout* layout = AddLayout();
  layout->addWidget(list_, 1);
  layout->addWidget(note);
  layout->addLayout(buttons);
  list_->setVisible(!versions_.empty());
  cmdOpen->setVisible(!versions_.empty());
  if (versions_.empty()) {
    cmdClose->setFocus();
    return;
  }
  PressByEnter(*cmdOpen);
  list_->setCurrentItem(list_->topLevelItem(0));
  list_->setFocus();
  const QFontMetrics metrics(list_->font());
  resize(metrics.averageCharWidth() * 160, metrics.lineSpacing() * 24);
}

void FrmVersions::AddRows() {
  for (const Version& version : versions_) {
    auto* row = new QTreeWidgetItem(list_);
    row->setText(WhenColumn, ToQt(MomentText(version.Time, TheDesktop().ShortDateForm())));
    row->setText(JobColumn, ToQt(version.IsUntitled ? "Untitled" : NameOfJob()));
    row->setText(WhatColumn,
                 version.Kind == VersionKind::LeftUnsaved ? "Left unsaved" : "Before a save");
    row->setText(SectionsColumn,
                 version.Sections ? ToQt(DecimalText(*version.Sections)) : QString("?"));
    row->setTextAlignment(SectionsColumn, Qt::AlignCenter);
    row->setText(SinceColumn, QString(QChar(0x2026)));
    // The row's height is told by the one column that isn't as wide as its texts.
    row->setSizeHint(SinceColumn, QSize(0, list_->fontMetrics().height() * 3 / 2));
  }
  const int gap = list_->fontMetrics().averageCharWidth() * 2;
  for (int column = WhenColumn; column < SinceColumn; ++column) {
    list_->resizeColumnToContents(column);
    list_->setColumnWidth(column, list_->columnWidth(column) + gap);
  }
}

void FrmVersions::showEvent(QShowEvent* event) {
  PlainDialog::showEvent(event);
  QTimer::singleShot(0, this, [this] { Guard([this] { CompareNext(); }); });
}

// A row at a time, between the keys: the job of thousands of sections that a version holds is read
// for it.
void FrmVersions::CompareNext() {
  if (!isVisible() || compared_ >= list_->topLevelItemCount()) return;
  QTreeWidgetItem* row = list_->topLevelItem(compared_);
  const std::string since = SinceText(versions_.at(static_cast<std::size_t>(compared_)));
  row->setText(SinceColumn, ToQt(since));
  row->setToolTip(SinceColumn, PlainTip(since));
  ++compared_;
  QTimer::singleShot(0, this, [this] { Guard([this] { CompareNext(); }); });
}

// One that can't be read tells so, and the list stays for another.
void FrmVersions::Take() {
  const int row = list_->indexOfTopLevelItem(list_->currentItem());
  if (row < 0) return;
  text_ = ReadVersion(versions_.at(static_cast<std::size_t>(row)).File);
  accept();
}

}  // namespace orvane
