// The catalogue, in the main window: the line at its foot that says what is found of it, and its
// two dialogs.
#include "core/catalogue_folder.h"
#include "core/numbers.h"
#include "output/catalogue_check.h"
#include "ui/dialogs/frm_catalogue.h"
#include "ui/dialogs/frm_catalogue_check.h"
#include "ui/frm_main.h"
#include "ui/platform/qt_text.h"

namespace orvane {

void FrmMain::BuildCatalogueLine() {
  cmdCatalogue_ = new QToolButton(notes_);
  cmdCatalogue_->setObjectName("cmdCatalogue");
  cmdCatalogue_->setAutoRaise(true);
  cmdCatalogue_->setFocusPolicy(Qt::NoFocus);
  cmdCatalogue_->setToolTip("Show all that is found of the catalogue");
  cmdCatalogue_->hide();
  connect(cmdCatalogue_, &QToolButton::clicked, this, [this] { Run(Command::CheckCatalogue); });
}

// Nothing is said of a catalogue without findings.
void FrmMain::LookAtCatalogue() {
  const std::vector<CatalogueFinding> findings = CheckCatalogueIn(OfficeFolder);
  cmdCatalogue_->setText(ToQt("Catalogue: " + CatalogueCountLine(findings)));
  cmdCatalogue_->setVisible(!findings.empty());
}

void FrmMain::ShowCatalogueCheck(const std::string& officeFolder) {
  FrmCatalogueCheck(officeFolder, this).exec();
}

void FrmMain::ChooseCatalogue() {
  FrmCatalogue(this).exec();
}

}  // namespace orvane
