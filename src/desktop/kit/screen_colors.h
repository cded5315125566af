// The colours of all views. Those of rules have roles, which are shown on the screen's own palette, so that
// light and dark follow the system; the instrument keeps its own.
#pragma once

#include <QColor>
#include <QPalette>

#include "controls/colors.h"

namespace counter {

// Text that was black or white on an instrument's page is the palette's own text; red and green keep their
// meaning and are darkened on light grounds and lightened on dark ones.
QColor TextColorOf(const Color& role, const QPalette& palette);

// A white ground is the palette's own; the others are tints of it.
QColor BackColorOf(const Color& role, const QPalette& palette);

// Texts of the dark status strip, on which the plain colours read well.
QColor StripColorOf(const Color& role);

inline constexpr QColor kStripGround(0x1C, 0x21, 0x26);

// The display of the menu and of the face: segments are lit on dark.
inline constexpr QColor kDisplayGround(0x16, 0x19, 0x1D);
inline constexpr QColor kDisplayMarked(0x2A, 0x3B, 0x52);  // ground of a row that is selected
inline constexpr QColor kDisplayDigit(0xFF, 0x5B, 0x40);
inline constexpr QColor kDisplayName(0xE9, 0xC8, 0x8A);   // names are told from values
inline constexpr QColor kDisplayUnlit(0x2C, 0x25, 0x26);  // faint, but there
inline constexpr QColor kDisplayText(0xD5, 0xDA, 0xDE);   // of a font, beside the digits

// The boxes of digit entry.
inline constexpr QColor kEntryGlass(0x16, 0x19, 0x1C);
inline constexpr QColor kEntryDigit(0xFF, 0x6A, 0x4D);
inline constexpr QColor kEntryCaret(0xFF, 0xFF, 0xFF);

// The face of a simulated meter, around its display.
inline constexpr QColor kFaceCase(0x2B, 0x30, 0x36);
inline constexpr QColor kFaceLampOn(0xFF, 0xB3, 0x2C);
inline constexpr QColor kFaceLampOff(0x4A, 0x45, 0x3C);

}  // namespace counter
