#include "ui/platform/help_key.h"

#include <QShortcut>

#include "core/desktop.h"
#include "core/program_folder.h"
#include "ui/platform/guard.h"

namespace orvane {

namespace {

constexpr std::string_view HelpFile = "\\Lintaro.chm";

}  // namespace

void ShowHelp() {
  TheDesktop().ShowHelp(ProgramPath(HelpFile));
}

void GiveHelpKey(QWidget& window) {
  auto* key = new QShortcut(QKeySequence(Qt::Key_F1), &window);
  key->setAutoRepeat(false);
  QObject::connect(key, &QShortcut::activated, &window, [] { Guard(ShowHelp); });
}

}  // namespace orvane
