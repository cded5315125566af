// Texts of the house as texts of Qt: one byte a character, as the meter has them.
#pragma once

#include <QString>
#include <string_view>

namespace counter {

inline QString QtText(std::string_view text) {
    return QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
}

// The same for a widget that takes "&" for an access key where none is meant.
inline QString PlainCaption(std::string_view text) {
    return QtText(text).replace(QLatin1Char('&'), QLatin1String("&&"));
}

}  // namespace counter
