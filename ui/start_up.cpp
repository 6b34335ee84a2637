#include "ui/start_up.h"

#include <QApplication>
#include <QProxyStyle>

#include "core/catalogue_folder.h"
#include "core/catalogues.h"
#include "core/desktop.h"
#include "core/settings.h"
#include "output/design_accepted.h"
#include "project/versions.h"
#include "ui/dialogs/frm_about.h"
#include "ui/dialogs/frm_registration.h"
#include "ui/platform/alt_letters.h"
#include "ui/platform/colour_scheme.h"
#include "ui/platform/guard.h"
#include "ui/platform/icons.h"

namespace orvane {

namespace {

// The toolkit's own style on all platforms, with buttons that bear their captions alone.
class PlainStyle : public QProxyStyle {
 public:
  PlainStyle() : QProxyStyle("Fusion") {}
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* returned) const override {
    if (hint == SH_DialogButtonBox_ButtonsHaveIcons) return 0;
    // The cells of the grids are white in a dark desktop too.
    if (hint == SH_Table_GridLineColor) return static_cast<int>(QColor(208, 208, 208).rgb());
    return QProxyStyle::styleHint(hint, option, widget, returned);
  }
};

}  // namespace

void PrepareApplication() {
  // Only the name, no display name: the toolkit would put that behind each dialog's own title.
  QApplication::setApplicationName("Orvane Detailing System");
  QApplication::setApplicationVersion(ORVANE_VERSION);
  QApplication::setWindowIcon(ProgramIcon());
  // Under this name the desktop knows the program, and finds its icon where windows bring none.
  QApplication::setDesktopFileName("orvane");
  QApplication::setStyle(new PlainStyle);  // the application keeps it
  FollowColourScheme();
  // The about box stands alone at first: closing it must not end the program.
  QApplication::setQuitOnLastWindowClosed(false);
  KeepAltFromTyping();
}

StartUp::~StartUp() {
  KeepVersionsIn({});
  KeepAcceptedIn({});
}

void StartUp::LoadAccessories() {
  LoadAccessoryCatalogues();
}

void StartUp::SetSettingsRoot() {
  TheSettingsRoot = SettingsRoot::LocalMachine;
}

void StartUp::TakeCatalogueFolder() {
  UseOfficeFolder();
}

void StartUp::ShowAbout() {
  FrmAbout().exec();
}

void StartUp::ReadSettings() {
  // Each by itself: a margin that nobody can use must not cost the company's name.
  Guard(LoadMaxDims);
  Guard(LoadPageSetup);
  Guard(LoadDrawingSettings);
  Guard(LoadRegistration);
}

void StartUp::AskRegistration() {
  if (CompanyName.empty()) FrmRegistration().exec();
}

void StartUp::ShowMain(const std::string& job) {
  KeepVersionsIn(TheDesktop().UserDataFolder());
  Guard([] { KeepAcceptedIn(TheDesktop().UserDataFolder()); });
  details_ = std::make_unique<FrmProjectDetails>();
  main_ = std::make_unique<FrmMain>(*details_);
  main_->Load();
  main_->show();
  QApplication::setQuitOnLastWindowClosed(true);
  const auto begin = [this, job] {
    Guard([this] { main_->OfferRecovered(); });
    if (!job.empty()) main_->OpenGiven(job);
  };
  QMetaObject::invokeMethod(main_.get(), begin, Qt::QueuedConnection);
  // Behind the first paint: it reads every picture.
  QMetaObject::invokeMethod(
      main_.get(), [this] { Guard([this] { main_->LookAtCatalogue(); }); }, Qt::QueuedConnection);
}

void StartUp::Run(const std::string& job) {
  Guard([this] { SetSettingsRoot(); });
  Guard([this] { TakeCatalogueFolder(); });
  Guard([this] { LoadAccessories(); });
  Guard([this] { ShowAbout(); });
  Guard([this] { ReadSettings(); });
  Guard([this] { AskRegistration(); });
  Guard([&] { ShowMain(job); });
}

}  // namespace orvane
