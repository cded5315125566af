// Texts of the house as texts of Qt, and the font for columns.
#pragma once

#include <QFont>
#include <QFontDatabase>
#include <QString>
#include <string_view>

namespace counter {

// In which characters a text is held: one byte each as the meter has them, or UTF-8 as the system has names
// of files and devices and its own words.
enum class Characters { Meter, System };

inline QString QtText(std::string_view text) {
    return QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
}

inline QString SystemText(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

inline QString TextOf(std::string_view text, Characters characters) {
    return characters == Characters::System ? SystemText(text) : QtText(text);
}

// For a widget that takes "&" for an access key where none is meant.
inline QString WithoutKeys(QString text) {
    return text.replace(QLatin1Char('&'), QLatin1String("&&"));
}

inline QString PlainCaption(std::string_view text) {
    return WithoutKeys(QtText(text));
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
