// The scheme as the desktops of Linux tell it: the portal's setting, over the session's bus.
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusVariant>
#include <QFileInfo>
#include <QStandardPaths>
#include <utility>

#include "ui/platform/scheme_portal.h"

namespace orvane {

namespace {

constexpr const char* Portal = "org.freedesktop.portal.Desktop";
constexpr const char* PortalPath = "/org/freedesktop/portal/desktop";
constexpr const char* Settings = "org.freedesktop.portal.Settings";
constexpr const char* Appearance = "org.freedesktop.appearance";
constexpr const char* Scheme = "color-scheme";

// Its numbers; 0 and all others are no preference.
constexpr uint PreferDark = 1;
constexpr uint PreferLight = 2;

// Older portals wrap the number twice.
std::optional<ColourScheme> SchemeOf(QVariant told) {
  while (told.userType() == qMetaTypeId<QDBusVariant>()) {
    told = told.value<QDBusVariant>().variant();
  }
  switch (told.toUInt()) {
    case PreferDark:
      return ColourScheme::Dark;
    case PreferLight:
      return ColourScheme::Light;
    default:
      return std::nullopt;
  }
}

// A session without a bus is asked nothing: the toolkit would start one.
bool HasSessionBus() {
  if (!qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS")) return true;
  const QString folder = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
  return !folder.isEmpty() && QFileInfo::exists(folder + "/bus");
}

}  // namespace

PortalScheme::PortalScheme(QObject& life, std::function<void(std::optional<ColourScheme>)> tell)
    : QObject(&life), tell_(std::move(tell)) {
  QDBusConnection bus = QDBusConnection::sessionBus();
  // Before the question, so that no change falls between the two. The bus finds the slot by the
  // names of its types, and knows those that were asked for alone.
  qRegisterMetaType<QDBusVariant>();
  const QByteArray slot =
      QMetaObject::normalizedSignature(SLOT(Changed(QString, QString, QDBusVariant)));
  bus.connect(Portal, PortalPath, Settings, "SettingChanged", this, slot.constData());
  QDBusMessage question = QDBusMessage::createMethodCall(Portal, PortalPath, Settings, "Read");
  question << Appearance << Scheme;
  auto* answer = new QDBusPendingCallWatcher(bus.asyncCall(question), this);
  connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
    answer->deleteLater();
    const QDBusMessage reply = answer->reply();
    // A desktop without such a portal answers with an error: it has no preference then.
    if (reply.type() != QDBusMessage::ReplyMessage || reply.arguments().isEmpty()) return;
    tell_(SchemeOf(reply.arguments().constFirst()));
  });
}

void PortalScheme::Changed(const QString& group, const QString& key, const QDBusVariant& value) {
  if (group == Appearance && key == Scheme) tell_(SchemeOf(value.variant()));
}

void WatchDesktopScheme(QObject& life, std::function<void(std::optional<ColourScheme>)> tell) {
  if (HasSessionBus()) new PortalScheme(life, std::move(tell));  // `life` keeps it
}

}  // namespace orvane
