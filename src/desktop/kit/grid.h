// The pixel grid of all views: margins and distances are whole parts of it.
#pragma once

#include <QLayout>
#include <QWidget>

namespace counter {

inline constexpr int kGrid = 8;

// One step around the layout and between all that is in it.
inline void PadByGrid(QLayout* layout) {
    layout->setContentsMargins(kGrid, kGrid, kGrid, kGrid);
    layout->setSpacing(kGrid);
}

// A widget that is hidden keeps its place, so that a page doesn't jump while it is worked on.
inline void KeepPlace(QWidget* widget) {
    QSizePolicy policy = widget->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    widget->setSizePolicy(policy);
}

}  // namespace counter
