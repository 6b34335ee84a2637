#include "ui/dialogs/frm_catalogue_check.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <array>

#include "core/numbers.h"
#include "core/program_folder.h"
#include "output/catalogue_check.h"
#include "ui/platform/guard.h"
#include "ui/platform/icons.h"
#include "ui/platform/qt_text.h"

namespace orvane {

namespace {

enum FoundColumns { FoundFile, FoundRow, FoundColumn, FoundGrade, FoundWhat };

// Letters that a column is first given room for; the last takes what is left.
constexpr std::array<int, 4> FoundLetters = {16, 8, 10, 12};

QString PlaceCell(int value) {
  return value == 0 ? QString() : ToQt(DecimalText(value));
}

}  // namespace

FrmCatalogueCheck::FrmCatalogueCheck(const std::string& officeFolder, QWidget* parent)
    : PlainDialog(parent), folder_(officeFolder) {
  setObjectName("frmCatalogueCheck");
  setWindowTitle("Check Catalogue");
  setWindowIcon(ProgramIcon());
  setSizeGripEnabled(true);

  auto* checked =
      new QLabel(ToQt(folder_.empty() ? "The catalogue in the program's folder, " + ProgramFolder
                                      : "The catalogue in " + folder_ +
                                            ", with the program's files for what it hasn't got"),
                 this);
  checked->setObjectName("lblFolder");
  checked->setTextFormat(Qt::PlainText);
  checked->setWordWrap(true);

  list_ = new QTreeWidget(this);
  list_->setObjectName("lvwCatalogueFindings");
  list_->setAccessibleName("Findings");
  list_->setHeaderLabels({"File", "Row", "Column", "Grade", "What is found"});
  list_->setRootIsDecorated(false);
  list_->setAllColumnsShowFocus(true);
  list_->setWordWrap(true);
  list_->header()->setSectionsMovable(false);
  const int letter = fontMetrics().averageCharWidth();
  for (int column = FoundFile; column < FoundWhat; ++column) {
    list_->setColumnWidth(column, FoundLetters.at(static_cast<std::size_t>(column)) * letter);
  }
  counts_ = new QLabel(this);
  counts_->setObjectName("lblCounts");

  QPushButton* again = AddButton("cmdAgain", "Look &again");
  QPushButton* close = AddButton("cmdClose", "&Close");
  connect(again, &QPushButton::clicked, this, [this] { Guard([this] { Look(); }); });
  connect(close, &QPushButton::clicked, this, [this] { Guard([this] { reject(); }); });
  auto* foot = new QHBoxLayout;
  foot->addWidget(counts_, 1);
  foot->addWidget(again);
  foot->addWidget(close);
  QVBoxLayout* layout = AddLayout();
  layout->addWidget(checked);
  layout->addWidget(list_, 1);
  layout->addLayout(foot);
  Look();
  list_->setFocus();
  resize(letter * 150, list_->fontMetrics().lineSpacing() * 24);
}

void FrmCatalogueCheck::Look() {
  const std::vector<CatalogueFinding> findings = CheckCatalogueIn(folder_);
  list_->clear();
  for (const CatalogueFinding& finding : findings) {
    auto* row = new QTreeWidgetItem(list_);
    row->setText(FoundFile, ToQt(finding.File));
    row->setText(FoundRow, PlaceCell(finding.Row));
    row->setText(FoundColumn, PlaceCell(finding.Column));
    row->setText(FoundGrade, ToQt(std::string(GradeText(finding.Grade()))));
    row->setText(FoundWhat, ToQt(finding.What));
    row->setToolTip(FoundWhat, PlainTip(finding.What));
  }
  list_->setCurrentItem(list_->topLevelItem(0));
  std::string line = CatalogueCountLine(findings);
  line.front() = line.front() == 'n' ? 'N' : line.front();
  counts_->setText(ToQt(line));
}

}  // namespace orvane
