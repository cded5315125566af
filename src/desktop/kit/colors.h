// Colour roles of the views on the screen's own palette, so that light and dark follow the system.
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

bool IsDark(const QPalette& palette);

}  // namespace counter
