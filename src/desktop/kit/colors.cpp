#include "desktop/kit/colors.h"

namespace counter {

namespace {

constexpr int kMiddle = 128;  // of the lightness of a ground, 0..255

}  // namespace

bool IsDark(const QPalette& palette) {
    return palette.color(QPalette::Base).lightness() < kMiddle;
}

QColor TextColorOf(const Color& role, const QPalette& palette) {
    const bool dark = IsDark(palette);
    if (role == ColorRed || role == ColorDarkRed) return dark ? QColor(255, 120, 110) : QColor(176, 0, 0);
    if (role == ColorGreen) return dark ? QColor(110, 220, 120) : QColor(0, 112, 0);
    if (role == ColorGray) return palette.color(QPalette::Disabled, QPalette::Text);
    return palette.color(QPalette::Text);
}

QColor BackColorOf(const Color& role, const QPalette& palette) {
    const bool dark = IsDark(palette);
    if (role == ColorRed) return dark ? QColor(122, 30, 26) : QColor(255, 176, 168);
    if (role == ColorGreen) return dark ? QColor(20, 96, 32) : QColor(168, 240, 168);
    if (role == ColorLightGreen) return dark ? QColor(36, 84, 44) : QColor(192, 255, 192);
    if (role == ColorLightYellow) return dark ? QColor(72, 68, 34) : QColor(255, 255, 224);
    if (role == ColorLightGray) return palette.color(QPalette::Midlight);
    if (role == ColorGray) return palette.color(QPalette::Button);
    if (role == ColorDarkGray) return palette.color(QPalette::Mid);
    if (role == ColorBlack) return palette.color(QPalette::Text);
    return palette.color(QPalette::Base);
}

QColor StripColorOf(const Color& role) {
    if (role == ColorRed) return {255, 128, 118};  // pure red is too dark to read on the strip
    return {role.Red, role.Green, role.Blue};
}

}  // namespace counter
