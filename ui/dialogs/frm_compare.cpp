#include "ui/dialogs/frm_compare.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScreen>
#include <algorithm>
#include <utility>

#include "core/desktop.h"
#include "core/files.h"
#include "core/model.h"
#include "core/numbers.h"
#include "core/text.h"
#include "drawing/draw_section.h"
#include "drawing/sheet_frame.h"
#include "drawing/sheet_places.h"
#include "output/page_room.h"
#include "ui/platform/icons.h"
#include "ui/platform/qt_font_metrics.h"
#include "ui/platform/qt_text.h"

namespace orvane {

namespace {

enum CompareColumn { NameColumn, ChangeColumn, FieldColumn, OldColumn, NewColumn };

// The first size: most of the window that it comes from, or of the screen.
constexpr int CompareFirstPercent = 92;

ComparedJob OpenOne() {
  if (Trim(ProjectFileName).empty()) return {OpenJob(), "this project", "This project"};
  return {OpenJob(), FileName(ProjectFileName), AbsolutePath(ProjectFileName)};
}

// Two files of one name are told apart by their folders.
std::string NameBeside(const ComparedJob& job, const ComparedJob& other) {
  return job.Name == other.Name ? job.Path : job.Name;
}

// What the sheet is drawn from: the job's own details, and no box for a fault of it.
SheetSource SourceOf(const JobView& job, std::string& trouble) {
  SheetSource source = PresentSource();
  source.txtProject = job.Details;
  source.DTPicker1 = job.ProjectDate;
  source.Tell = [&trouble](const std::string& description) { trouble = description; };
  return source;
}

// A hole by hand of the job on the sheet, whose pattern was made afresh and has moved it.
int RowOfHole(const Item& drawn, const Hole& hole) {
  const auto isSame = [&hole](const Hole& other) {
    return other.Kind == hole.Kind && other.XPos == hole.XPos && other.BF == hole.BF &&
           other.W1 == hole.W1 && other.W2 == hole.W2 && other.TF == hole.TF &&
           other.Diameter == hole.Diameter && other.SlotLength == hole.SlotLength;
  };
  const auto found = std::find_if(drawn.Holes.begin(), drawn.Holes.end(), isSame);
  return found == drawn.Holes.end() ? 0 : static_cast<int>(found - drawn.Holes.begin()) + 1;
}

}  // namespace

FrmCompare::FrmCompare(const Job& other, const std::string& path, const std::string& note,
                       QWidget* parent)
    : PlainDialog(parent),
      other_{ViewOf(other), FileName(path), AbsolutePath(path)},
      open_(OpenOne()),
      sheet_(SheetMetrics()) {
  setObjectName("frmCompare");
  setWindowTitle("Compare");
  setWindowIcon(ProgramIcon());
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  setSizeGripEnabled(true);
  ApplyPageMargins(sheet_);

  summary_ = new QLabel(this);
  summary_->setObjectName("lblSummary");
  summary_->setTextFormat(Qt::PlainText);
  summary_->setWordWrap(true);
  note_ = new QLabel(ToQt(note), this);
  note_->setObjectName("lblNote");
  note_->setTextFormat(Qt::PlainText);
  note_->setWordWrap(true);
  note_->setVisible(!note.empty());

  QVBoxLayout* layout = AddLayout();
  layout->addWidget(summary_);
  layout->addWidget(note_);
  BuildAreas();
  layout->addWidget(areas_, 1);
  BuildButtons();

  const QSize whole =
      parentWidget() != nullptr ? parentWidget()->window()->size() : screen()->availableSize();
  resize(whole * CompareFirstPercent / 100);
  areas_->setSizes({height() * 35 / 100, height() * 65 / 100});
  Compare();
  list_->setFocus();
}

void FrmCompare::BuildAreas() {
  list_ = new QTreeWidget(this);
  list_->setObjectName("lvwDifferences");
  list_->setAccessibleName("Differences");
  list_->setHeaderLabels({"Mark", "Change", "What", "Was", "Is"});
  list_->setRootIsDecorated(false);
  list_->setUniformRowHeights(true);
  list_->setAllColumnsShowFocus(true);
  list_->header()->setSectionsMovable(false);
  list_->installEventFilter(this);
  connect(list_, &QTreeWidget::currentItemChanged, this,
          [this] { Guard([this] { ShowSheet(); }); });

  page_ = new PageView(this);
  page_->setObjectName("VSPrinter1");
  page_->setAccessibleName("Fabrication sheet");
  areas_ = new QSplitter(Qt::Vertical, this);
  areas_->setChildrenCollapsible(false);
  areas_->addWidget(list_);
  areas_->addWidget(page_);
}

void FrmCompare::BuildButtons() {
  optOld_ = new QRadioButton("&Old sheet", this);
  optOld_->setObjectName("optOld");
  optNew_ = new QRadioButton("&New sheet", this);
  optNew_->setObjectName("optNew");
  optNew_->setChecked(true);
  // Each of the two changes with the other.
  connect(optOld_, &QRadioButton::toggled, this, [this] { Guard([this] { ShowSheet(); }); });
  sheetNote_ = new QLabel(this);
  sheetNote_->setObjectName("lblSheet");
  sheetNote_->setTextFormat(Qt::PlainText);

  QPushButton* cmdSwap = AddButton("cmdSwap", "&Swap");
  cmdSwap->setToolTip("The other one is the later job");
  connect(cmdSwap, &QPushButton::clicked, this, [this] {
    Guard([this] {
      isSwapped_ = !isSwapped_;
      Compare();
    });
  });
  cmdPrint_ = AddButton("cmdPrint", "&Revision list...");
  connect(cmdPrint_, &QPushButton::clicked, this, [this] {
    Guard([this] {
      if (Print) Print(comparison_, Before().Path, After().Path);
    });
  });
  QPushButton* cmdClose = AddButton("cmdClose", "&Close");
  connect(cmdClose, &QPushButton::clicked, this, [this] { Guard([this] { reject(); }); });

  auto* buttons = new QHBoxLayout;
  buttons->addWidget(optOld_);
  buttons->addWidget(optNew_);
  buttons->addWidget(sheetNote_, 1);
  buttons->addWidget(cmdSwap);
  buttons->addWidget(cmdPrint_);
  buttons->addWidget(cmdClose);
  static_cast<QVBoxLayout*>(areas_->parentWidget()->layout())->addLayout(buttons);
}

void FrmCompare::Compare() {
  comparison_ = CompareJobs(Before().Job, After().Job);
  const bool differ = !comparison_.Lines.empty();
  summary_->setText(ToQt("From " + NameBeside(Before(), After()) + " to " +
                         NameBeside(After(), Before()) + ": " +
                         (differ ? comparison_.Words : "no difference")));
  cmdPrint_->setEnabled(differ);
  FillList();
  ShowSheet();
}

void FrmCompare::FillList() {
  const QSignalBlocker quiet(list_);
  list_->clear();
  QList<QTreeWidgetItem*> rows;
  for (const ComparedLine& line : comparison_.Lines) {
    auto* row = new QTreeWidgetItem;
    row->setText(NameColumn, ToQt(line.Name));
    row->setText(ChangeColumn, ToQt(std::string(WordOf(line.What))));
    row->setText(FieldColumn, ToQt(line.Field));
    row->setText(OldColumn, ToQt(line.Old));
    row->setText(NewColumn, ToQt(line.New));
    for (const int column : {OldColumn, NewColumn}) {
      row->setToolTip(column, PlainTip(FromQt(row->text(column))));
    }
    rows.append(row);
  }
  list_->addTopLevelItems(rows);
  const int letter = list_->fontMetrics().averageCharWidth();
  const std::initializer_list<std::pair<int, int>> widths = {
      {NameColumn, 24}, {ChangeColumn, 12}, {FieldColumn, 22}, {OldColumn, 34}};
  for (const auto& [column, letters] : widths) list_->setColumnWidth(column, letter * letters);
  if (!rows.isEmpty()) list_->setCurrentItem(rows.front());
}

const ComparedLine* FrmCompare::Chosen() const {
  const int row = list_->indexOfTopLevelItem(list_->currentItem());
  return row < 0 ? nullptr : &comparison_.Lines.at(static_cast<std::size_t>(row));
}

int FrmCompare::RowOf(const ComparedLine& line) const {
  if (line.Of != ComparedThing::Section) return 0;
  return optOld_->isChecked() ? line.Before : line.After;
}

// The sheet of the chosen line, or why there is none.
void FrmCompare::ShowSheet() {
  page_->ShowRings({});
  page_->ShowPage(nullptr);
  const ComparedLine* line = Chosen();
  const int row = line != nullptr ? RowOf(*line) : 0;
  sheetNote_->clear();
  if (line == nullptr) return;
  if (row > 0) return DrawSheet(*line, row);
  const std::string place = NameBeside(Shown(), optOld_->isChecked() ? After() : Before());
  sheetNote_->setText(ToQt(line->Of == ComparedThing::Section ? line->Name + " is not in " + place
                                                              : "No sheet shows that"));
}

void FrmCompare::DrawSheet(const ComparedLine& line, int row) {
  std::string trouble;
  const ComparedJob& job = Shown();
  Item section = job.Job.Items.At(row);
  const bool isDrawn = Tell(
      [&] {
        MakeHolesAfresh(section);
        DrawSection(sheet_, SourceOf(job.Job, trouble), section, true, true);
      },
      [&](const std::string& description) { trouble = description; });
  if (isDrawn) {
    page_->ShowPage(&sheet_.Result().Pages.front());
    page_->ShowRings(RingsOn(line, section));
  }
  const bool isOld = optOld_->isChecked();
  const std::string mark(Trim(section.Mark));
  std::string text =
      (mark.empty() ? line.Name : mark) + " in " + NameBeside(job, isOld ? After() : Before());
  if (!trouble.empty()) text += ": " + trouble;
  sheetNote_->setText(ToQt(text));
}

// One around each place in which the section differs, the chosen one the strongest.
std::vector<PageRing> FrmCompare::RingsOn(const ComparedLine& chosen, const Item& drawn) {
  std::vector<PageRing> rings;
  for (const ComparedLine& line : comparison_.Lines) {
    const bool isOfSection = line.Of == ComparedThing::Section && line.Before == chosen.Before &&
                             line.After == chosen.After;
    if (!isOfSection) continue;
    if (const std::optional<QRectF> place = PlaceOf(line, drawn)) {
      rings.push_back({*place, &line == &chosen});
    }
  }
  return rings;
}

std::optional<QRectF> FrmCompare::PlaceOf(const ComparedLine& line, const Item& drawn) {
  const bool isOld = optOld_->isChecked();
  const int part = isOld ? line.PartBefore : line.PartAfter;
  SheetThing thing;
  thing.From = thing.To = drawn.Length;
  switch (line.Part) {
    case ComparedPart::Whole:
      return std::nullopt;
    case ComparedPart::Length: {
      // What one of the two has more; of the shorter one its end.
      const ComparedJob& other = isOld ? After() : Before();
      const Item& section = other.Job.Items.At(isOld ? line.After : line.Before);
      thing.From = std::min(drawn.Length, section.Length);
      break;
    }
    case ComparedPart::MitreLeft:
      thing.From = thing.To = 0;
      break;
    case ComparedPart::MitreRight:
      break;
    case ComparedPart::Hole:
      if (part == 0) return std::nullopt;
      thing.Hole = RowOfHole(drawn, Shown().Job.Items.At(RowOf(line)).Holes.At(part));
      if (thing.Hole == 0) return std::nullopt;
      break;
    case ComparedPart::Notch:
      if (part == 0) return std::nullopt;
      thing.Notch = part;
      break;
  }
  const std::optional<PagePlace> place = PlaceOnSheet(sheet_, PresentMargins(), drawn, thing);
  if (!place) return std::nullopt;
  return QRectF(QPointF(place->Left, place->Top), QPointF(place->Right, place->Bottom));
}

// The blank turns from the old sheet to the new one and back, so that the eye stays on the sheet.
bool FrmCompare::eventFilter(QObject* watched, QEvent* event) {
  if (watched == list_ && event->type() == QEvent::KeyPress) {
    const auto& key = *static_cast<QKeyEvent*>(event);
    if (key.key() == Qt::Key_Space && key.modifiers() == Qt::NoModifier) {
      if (!key.isAutoRepeat()) (optOld_->isChecked() ? optNew_ : optOld_)->setChecked(true);
      return true;
    }
  }
  return PlainDialog::eventFilter(watched, event);
}

}  // namespace orvane
