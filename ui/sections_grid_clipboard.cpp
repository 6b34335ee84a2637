// Rows of the sections grid on the clipboard: whole for this and other runs of the program, and as
// text for others.
#include <QApplication>
#include <QClipboard>
#include <QMimeData>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "core/csv.h"
#include "core/desktop.h"
#include "core/model.h"
#include "project/copied_sections.h"
#include "project/section_list/section_table.h"
#include "ui/platform/busy.h"
#include "ui/platform/qt_text.h"
#include "ui/sections_grid.h"

namespace orvane {

namespace {

const QString& TypeOfSections() {
  static const QString type = ToQt(CopiedSectionsType);
  return type;
}

}  // namespace

bool SectionsGrid::CopyRows() {
  if (choice_.Empty()) return false;
  cboEdit_->Leave();
  detail_->SettleLists();
  const std::vector<int> rows = ChosenRows();
  auto copied = std::make_unique<QMimeData>();
  copied->setData(TypeOfSections(), QByteArray::fromStdString(CopiedSections(rows)));
  copied->setText(ToQt(CsvText(SectionTable(rows), '\t')));
  QApplication::clipboard()->setMimeData(copied.release());  // which keeps it from here on
  return true;
}

bool SectionsGrid::HasCursor() const {
  const QWidget* focus = window()->focusWidget();
  return focus == this || (focus != nullptr && isAncestorOf(focus));
}

bool SectionsGrid::CutRows() {
  if (!CopyRows()) return false;
  TakeOut(ChosenRows(), ChangeKind::CutSections);
  return true;
}

bool SectionsGrid::PasteRows() {
  const QMimeData* offered = QApplication::clipboard()->mimeData();
  if (offered == nullptr) return false;
  if (!offered->hasFormat(TypeOfSections())) {
    return (Items.Empty() || HasCursor()) && PasteBlock && offered->hasText() &&
           PasteBlock(FromQt(offered->text()));
  }
  std::vector<Item> sections = ReadCopiedSections(offered->data(TypeOfSections()).toStdString());
  if (sections.empty() || !SettleEditor()) return true;
  std::string lacking;
  {
    const Busy busy(GridBusy_);
    const std::int16_t row = Append([&] {
      PastedSections pasted = PasteSectionRows(std::move(sections));
      lacking = std::move(pasted.Lacking);
      return pasted.Row;
    });
    ChooseAppended(row, ShownHoles::AsTheyStand);
  }
  if (!lacking.empty()) TheDesktop().Message(lacking);
  return true;
}

}  // namespace orvane
