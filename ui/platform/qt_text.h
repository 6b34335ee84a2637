// The one door between the system's UTF-8 texts and the toolkit's.
#pragma once

#include <QString>
#include <string>
#include <string_view>

#include "core/numbers.h"

namespace orvane {

inline QString ToQt(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

inline std::string FromQt(const QString& text) {
  return text.toStdString();
}

// A digit of the system's numbers: one of the ten that every keyboard has, in no other script.
inline bool IsDigit(QChar letter) {
  return letter >= u'0' && letter <= u'9';
}

// A text of the job as a tip that shows its letters as they stand, tags and all, and breaks where
// it is long.
inline QString PlainTip(std::string_view text) {
  return "<span>" + ToQt(text).toHtmlEscaped() + "</span>";
}

// The name of an element of a control array, "SSCommand1(6)".
inline QString IndexedName(std::string_view array, int index) {
  return ToQt(std::string(array) + "(" + DecimalText(index) + ")");
}

}  // namespace orvane
