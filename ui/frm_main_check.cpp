// What the design check finds, in the main window: the line under the sheet, the rings on it, the
// count at the foot, and the list of all.
#include <QStringList>

#include "core/model.h"
#include "output/design_accepted.h"
#include "project/job.h"
#include "project/rules/section_columns.h"
#include "ui/frm_main.h"
#include "ui/platform/guard.h"
#include "ui/platform/qt_text.h"

namespace orvane {

namespace {

// The cell that a finding is about; most are about no cell, and then it is the mark's.
int ColumnOf(const Finding& finding) {
  const std::optional<DesignRule> rule = RuleNamed(finding.Rule);
  if (!rule) return MarkColumn;
  switch (*rule) {
    case DesignRule::ProductUnknown:
      return ProductColumn;
    case DesignRule::LengthNotAboveZero:
    case DesignRule::LengthOverMaximum:
    case DesignRule::PatternTooLong:
      return LengthColumn;
    case DesignRule::QuantityNotAboveZero:
      return QuantityColumn;
    default:
      return MarkColumn;
  }
}

// The row of the hole list that shows that hole; 0 for a pattern's, which it doesn't show.
int CustomRowOf(const Item& item, int hole) {
  if (hole < 1 || hole > item.Holes.UBound() || item.Holes.At(hole).Kind != CustomKind) return 0;
  int row = 0;
  for (int i = 1; i <= hole; ++i) {
    if (item.Holes.At(i).Kind == CustomKind) ++row;
  }
  return row;
}

// The check makes a pattern's holes afresh; the table may hold those of a pattern that was taken
// away until the section is looked at again. Then the ring goes round the place alone.
bool IsInTable(const Finding& finding) {
  if (finding.Hole < 1) return false;
  const Table<Hole>& holes = Items.At(finding.Row).Holes;
  return finding.Hole <= holes.UBound() && finding.Place &&
         holes.At(finding.Hole).XPos == *finding.Place;
}

std::vector<SheetPointer> PointersAt(const std::vector<Finding>& findings) {
  std::vector<SheetPointer> pointers;
  for (const Finding& finding : findings) {
    const bool isSomewhere = finding.Hole > 0 || finding.Notch > 0 || finding.Place;
    if (!IsOpenFinding(finding) || !isSomewhere) continue;
    const double from = finding.Place.value_or(0);
    pointers.push_back({{.Hole = IsInTable(finding) ? finding.Hole : 0,
                         .Line = finding.Line,
                         .Notch = finding.Notch,
                         .From = from,
                         .To = finding.PlaceEnd.value_or(from)},
                        finding.Grade == FindingGrade::CannotBeMade});
  }
  return pointers;
}

}  // namespace

void FrmMain::BuildCheck() {
  findings_ = new ElidingLabel(notes_);
  findings_->setObjectName("lblCheck");
  findings_->hide();
  cmdCheck_ = new QToolButton(notes_);
  cmdCheck_->setObjectName("cmdCheck");
  cmdCheck_->setAutoRaise(true);
  cmdCheck_->setFocusPolicy(Qt::NoFocus);
  cmdCheck_->setToolTip("Show all that the check finds");
  cmdCheck_->hide();
  connect(cmdCheck_, &QToolButton::clicked, this, [this] { Run(Command::Check); });
  check_ = std::make_unique<CheckKeeper>([this] { ShowFindings(); });
}

void FrmMain::ShowFindings() {
  if (check_ == nullptr) return;
  const std::vector<Finding> findings = check_->Of(sheet_->ShownRow());
  findings_->ShowText(ToQt(OpenLine(findings)));
  QStringList lines;
  for (const Finding& finding : findings) {
    if (IsOpenFinding(finding)) lines.append(ToQt(FindingLine(finding)));
  }
  findings_->setToolTip(PlainTip(FromQt(lines.join('\n'))));
  findings_->setVisible(!lines.empty());
  sheet_->PointAt(PointersAt(findings));
  cmdCheck_->setText(ToQt(CountsLine(check_->Counts())));
  cmdCheck_->setVisible(!Items.Empty());
  // Only what has changed, and in a pause: a list of thousands is laid out afresh for it.
  const bool isListed = !frmCheck_ || !frmCheck_->isVisible() || listed_ == check_->Revision();
  if (!isListed && check_->IsDone()) checkShown_.start();
}

void FrmMain::ShowCheck() {
  if (!frmCheck_) {
    frmCheck_ = std::make_unique<FrmCheck>(this);
    frmCheck_->GoTo = [this](const Finding& finding, FrmCheck::ChosenBy how) {
      GoToFinding(finding, how);
    };
    frmCheck_->Accept = [this](const Finding& finding, const std::string& word) {
      AcceptFinding(OpenJob(), finding, word);
      check_->LookAgain(finding.Row);
    };
    frmCheck_->Forget = [this](const Finding& finding) {
      ForgetAcceptance(OpenJob(), finding);
      check_->LookAgain(finding.Row);
    };
    checkShown_.setSingleShot(true);
    connect(&checkShown_, &QTimer::timeout, this, [this] { Guard([this] { ListFindings(); }); });
  }
  ListFindings();
  frmCheck_->show();
  frmCheck_->activateWindow();
}

void FrmMain::ListFindings() {
  const std::vector<Finding> all = check_->All();
  frmCheck_->ShowFindings(all, check_->Counts());
  listed_ = check_->Revision();
}

void FrmMain::GoToFinding(const Finding& finding, FrmCheck::ChosenBy how) {
  if (finding.Row < 1 || finding.Row > Items.UBound()) {
    if (how == FrmCheck::ChosenBy::Key) {
      activateWindow();
      accessories_->setFocus();
    }
    return;
  }
  sections_->LookAt(finding.Row, ColumnOf(finding));
  if (SelectedRow() != finding.Row) return;  // a refused cell has the cursor
  const int hole = CustomRowOf(Items.At(finding.Row), finding.Hole);
  if (hole > 0) detail_->MarkHole(hole);
  if (how != FrmCheck::ChosenBy::Key) return;
  activateWindow();
  QWidget* holes = detail_->HoleListStop();
  if (hole > 0 && holes != nullptr) {
    holes->setFocus();
  } else {
    sections_->GridEnterCell();
  }
}

}  // namespace orvane
