// Stands for the portal of a desktop that tells its scheme: each line that comes in is the number
// that it gives from then on, 1 for dark, 2 for light, 0 for no preference.
#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QSocketNotifier>
#include <iostream>
#include <string>

namespace {

constexpr const char* Path = "/org/freedesktop/portal/desktop";
constexpr const char* Settings = "org.freedesktop.portal.Settings";

class Portal : public QDBusVirtualObject {
 public:
  QString introspect(const QString&) const override { return {}; }

  bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override {
    if (message.interface() != Settings || message.member() != "Read") return false;
    // Wrapped twice, as older portals do.
    const QDBusVariant once{QVariant(scheme_)};
    return bus.send(
        message.createReply(QVariant::fromValue(QDBusVariant(QVariant::fromValue(once)))));
  }

  void Set(uint scheme) {
    scheme_ = scheme;
    QDBusMessage told = QDBusMessage::createSignal(Path, Settings, "SettingChanged");
    told << "org.freedesktop.appearance"
         << "color-scheme" << QVariant::fromValue(QDBusVariant(QVariant(scheme_)));
    QDBusConnection::sessionBus().send(told);
  }

 private:
  uint scheme_ = 0;
};

}  // namespace

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  Portal portal;
  QDBusConnection bus = QDBusConnection::sessionBus();
  const QSocketNotifier lines(0, QSocketNotifier::Read);
  QObject::connect(&lines, &QSocketNotifier::activated, [&portal] {
    std::string line;
    if (!std::getline(std::cin, line)) return QCoreApplication::quit();
    portal.Set(static_cast<uint>(std::stoul(line)));
    std::cout << "told " << line << std::endl;
  });
  if (!bus.registerVirtualObject(Path, &portal) ||
      !bus.registerService("org.freedesktop.portal.Desktop")) {
    std::cerr << "no bus\n";
    return 1;
  }
  std::cout << "ready" << std::endl;
  return QCoreApplication::exec();
}
