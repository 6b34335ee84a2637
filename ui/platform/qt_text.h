// The one door between the system's UTF-8 texts and the toolkit's.
#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace orvane {

inline QString ToQt(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

inline std::string FromQt(const QString& text) {
  return text.toStdString();
}

}  // namespace orvane
