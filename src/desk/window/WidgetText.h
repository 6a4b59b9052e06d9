#pragma once

#include <QString>
#include <string>

namespace desk {

inline QString ToQt(const std::string& text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

inline std::string FromQt(const QString& text) {
    return text.toStdString();
}

/// A text with its line ends as Qt's widgets show them.
inline QString ShownLines(const std::string& text) {
    QString shown = ToQt(text);
    shown.replace("\r\n", "\n");
    shown.replace('\r', '\n');
    return shown;
}

/// A text for a place where & would announce a key.
inline QString WithoutMnemonic(QString text) {
    return text.replace('&', "&&");
}

}  // namespace desk
