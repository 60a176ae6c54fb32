// Texts of the core in the toolkit's type and back.
#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace tarnwick {

inline QString Words(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}
inline std::string Utf8(const QString& text) {
    const QByteArray bytes = text.toUtf8();
    return {bytes.data(), static_cast<std::size_t>(bytes.size())};
}

}  // namespace tarnwick
