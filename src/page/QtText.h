#pragma once

#include <QString>
#include <string>

namespace gazetteer {

inline QString ToQt(const std::string& text) {
    return QString::fromStdString(text);
}

inline std::string FromQt(const QString& text) {
    return text.toStdString();
}

}  // namespace gazetteer
