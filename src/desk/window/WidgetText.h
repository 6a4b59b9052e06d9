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

/// Returns a text with the line ends of Qt's widgets.
inline QString ShownLines(const std::string& text) {
    QString shown = ToQt(text);
    shown.replace("\r\n", "\n");
    shown.replace('\r', '\n');
    return shown;
}

/// Doubles each &, so that a label does not take it for a mnemonic.
inline QString WithoutMnemonic(QString text) {
    return text.replace('&', "&&");
}

}  // namespace desk
