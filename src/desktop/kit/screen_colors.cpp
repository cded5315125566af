#include "desktop/kit/screen_colors.h"

namespace counter {

namespace {

constexpr int kMiddle = 128;  // of the lightness of a ground, 0..255

bool IsDark(const QPalette& palette) {
    return palette.color(QPalette::Base).lightness() < kMiddle;
}

constexpr QRgb kNone = 0;  // the palette's own, on the strip the plain colour of the role

struct Look {
    Color Role;
    QRgb Text, TextOnDark;
    QRgb Back, BackOnDark;
    QRgb OnStrip;
};

// clang-format off
constexpr Look kLooks[] = {
    // role            text        on dark     ground      on dark     on the strip
    {ColorRed,         0xFFB00000, 0xFFFF786E, 0xFFFFB0A8, 0xFF7A1E1A, 0xFFFF8076},  // pure red is too dark there
    {ColorDarkRed,     0xFFB00000, 0xFFFF786E, kNone,      kNone,      kNone},
    {ColorGreen,       0xFF007000, 0xFF6EDC78, 0xFFA8F0A8, 0xFF146020, kNone},
    {ColorLightGreen,  kNone,      kNone,      0xFFC0FFC0, 0xFF24542C, kNone},
    {ColorLightYellow, kNone,      kNone,      0xFFFFFFE0, 0xFF484422, kNone},
};
// clang-format on

Look LookOf(const Color& role) {
    for (const Look& look : kLooks) {
        if (look.Role == role) return look;
    }
    return {role, kNone, kNone, kNone, kNone, kNone};
}

QColor PaletteBack(const Color& role, const QPalette& palette) {
    if (role == ColorLightGray) return palette.color(QPalette::Midlight);
    if (role == ColorGray) return palette.color(QPalette::Button);
    if (role == ColorDarkGray) return palette.color(QPalette::Mid);
    if (role == ColorBlack) return palette.color(QPalette::Text);
    return palette.color(QPalette::Base);
}

}  // namespace

QColor TextColorOf(const Color& role, const QPalette& palette) {
    const Look look = LookOf(role);
    if (look.Text != kNone) return IsDark(palette) ? look.TextOnDark : look.Text;
    if (role == ColorGray) return palette.color(QPalette::Disabled, QPalette::Text);
    return palette.color(QPalette::Text);
}

QColor BackColorOf(const Color& role, const QPalette& palette) {
    const Look look = LookOf(role);
    if (look.Back != kNone) return IsDark(palette) ? look.BackOnDark : look.Back;
    return PaletteBack(role, palette);
}

QColor StripColorOf(const Color& role) {
    const QRgb own = LookOf(role).OnStrip;
    return own != kNone ? QColor(own) : QColor(role.Red, role.Green, role.Blue);
}

}  // namespace counter
