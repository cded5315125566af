// The row of buttons at the foot of a view.
#pragma once

#include <QHBoxLayout>
#include <initializer_list>

#include "desktop/kit/binder.h"

namespace counter {

// From the left in the order given; the last stands alone at the right edge.
inline QHBoxLayout* ButtonRow(Binder& bound, QWidget* parent, std::initializer_list<Control*> buttons) {
    auto* row = new QHBoxLayout;
    for (Control* button : buttons) {
        if (button == *(buttons.end() - 1)) row->addStretch(1);
        row->addWidget(bound.Make(*button, parent));
    }
    return row;
}

}  // namespace counter
