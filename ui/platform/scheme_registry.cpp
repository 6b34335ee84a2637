// The scheme as Windows tells it: a value of the user's registry, and a message when it changes.
#include <QAbstractNativeEventFilter>
#include <QCoreApplication>
#include <QSettings>
#include <cwchar>
#include <utility>

#include "ui/platform/colour_scheme.h"

#include <windows.h>

namespace orvane {

namespace {

constexpr const char* Personalize =
    R"(HKEY_CURRENT_USER\Software\Microsoft\Windows\CurrentVersion\Themes\Personalize)";

std::optional<ColourScheme> PresentScheme() {
  const QVariant light = QSettings(Personalize, QSettings::NativeFormat).value("AppsUseLightTheme");
  if (!light.isValid()) return std::nullopt;
  return light.toInt() == 0 ? ColourScheme::Dark : ColourScheme::Light;
}

class RegistryScheme : public QObject, public QAbstractNativeEventFilter {
 public:
  RegistryScheme(QObject& life, std::function<void(std::optional<ColourScheme>)> tell)
      : QObject(&life), tell_(std::move(tell)) {
    QCoreApplication::instance()->installNativeEventFilter(this);
    tell_(PresentScheme());
  }

  bool nativeEventFilter(const QByteArray&, void* message, qintptr*) override {
    const MSG& told = *static_cast<const MSG*>(message);
    const auto* what = reinterpret_cast<const wchar_t*>(told.lParam);
    if (told.message == WM_SETTINGCHANGE && what != nullptr &&
        std::wcscmp(what, L"ImmersiveColorSet") == 0) {
      tell_(PresentScheme());
    }
    return false;
  }

 private:
  std::function<void(std::optional<ColourScheme>)> tell_;
};

}  // namespace

void WatchDesktopScheme(QObject& life, std::function<void(std::optional<ColourScheme>)> tell) {
  new RegistryScheme(life, std::move(tell));  // `life` keeps it
}

}  // namespace orvane
