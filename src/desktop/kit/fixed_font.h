// The font of texts whose columns stand below one another.
#pragma once

#include <QFont>

namespace counter {

// "Courier New", or whatever fixed pitch the machine has instead; `points` is its size.
inline QFont FixedPitchFont(double points) {
    QFont font(QStringLiteral("Courier New"));
    font.setStyleHint(QFont::Monospace);
    font.setPointSizeF(points);
    return font;
}

}  // namespace counter
