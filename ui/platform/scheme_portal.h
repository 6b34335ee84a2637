// Whoever asks the portal for the scheme and listens to its changes.
#pragma once

#include <QDBusVariant>
#include <QObject>
#include <functional>
#include <optional>

#include "ui/platform/colour_scheme.h"

namespace orvane {

class PortalScheme : public QObject {
  Q_OBJECT

 public:
  PortalScheme(QObject& life, std::function<void(std::optional<ColourScheme>)> tell);

 private slots:
  void Changed(const QString& group, const QString& key, const QDBusVariant& value);

 private:
  std::function<void(std::optional<ColourScheme>)> tell_;
};

}  // namespace orvane
