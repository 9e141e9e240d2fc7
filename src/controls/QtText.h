// The bridge between the engine's UTF-8 texts and days and the window's.
#pragma once

#include "platform/Date.h"

#include <QDate>
#include <QString>

#include <string>
#include <string_view>

namespace corvanta::inline controls {

[[nodiscard]] inline QString ToQt(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}
[[nodiscard]] inline std::string FromQt(const QString& text) {
  return text.toStdString();
}

[[nodiscard]] inline QDate ToQt(Date date) {
  return QDate(1970, 1, 1).addDays(date.Serial());
}
[[nodiscard]] inline Date FromQt(QDate date) {
  return Date::FromSerial(static_cast<std::int32_t>(QDate(1970, 1, 1).daysTo(date)));
}

}  // namespace corvanta::inline controls
