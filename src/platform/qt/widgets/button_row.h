// The row of buttons at the foot of a view.
#pragma once

#include <QHBoxLayout>
#include <QPushButton>
#include <initializer_list>

#include "platform/qt/widgets/binder.h"

namespace counter {

// A button that the Enter key presses too while it has the focus, not the space bar alone.
inline QPushButton* EnterButton(Binder& bound, QWidget* parent, Control& control) {
    auto* button = static_cast<QPushButton*>(bound.Make(control, parent));
    button->setAutoDefault(true);
    return button;
}

// From the left in the order given; the last stands alone at the right edge.
inline QHBoxLayout* ButtonRow(Binder& bound, QWidget* parent, std::initializer_list<Control*> buttons) {
    auto* row = new QHBoxLayout;
    for (Control* button : buttons) {
        if (button == *(buttons.end() - 1)) row->addStretch(1);
        row->addWidget(EnterButton(bound, parent, *button));
    }
    return row;
}

}  // namespace counter
