// The component's UTF-8 texts and Qt's.
#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace quarvel::platform::qt {

inline QString ToQt(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

// With the line ends that Qt's widgets and other programs of the system use.
inline QString ToQtLines(std::string_view text) {
  return ToQt(text).replace(QLatin1String("\r\n"), QLatin1String("\n"));
}

// A tip shows every character as it is, also what would be a tag of rich text.
inline QString ToToolTip(const QString& text) {
  return QLatin1String("<p style=\"white-space:pre-wrap\">") + text.toHtmlEscaped() +
         QLatin1String("</p>");
}

inline std::string FromQt(const QString& text) { return text.toStdString(); }

}  // namespace quarvel::platform::qt
