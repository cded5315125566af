// Texts of the house as texts of Qt, one byte a character as the meter has them, and the font for columns.
#pragma once

#include <QFont>
#include <QFontDatabase>
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

// The help's tables and printed texts are made for this one.
inline constexpr const char* kTableFamily = "Courier New";

// Columns by spaces stay columns; the size follows the program's font. Without a family it is the system's
// own; a machine without the family takes whatever fixed pitch it has.
inline QFont FixedPitchFont(const char* family = nullptr) {
    QFont font;
    font.setFamilies(family ? QStringList(QLatin1String(family))
                            : QFontDatabase::systemFont(QFontDatabase::FixedFont).families());
    font.setStyleHint(QFont::Monospace);
    return font;
}

}  // namespace counter
