#include "platform/qt/widgets/value_box.h"

#include <QKeyEvent>
#include <QMouseEvent>

namespace counter {

ValueBox::ValueBox(QWidget* parent) : QLineEdit(parent) {
    setReadOnly(true);
    setContextMenuPolicy(Qt::NoContextMenu);
    setCursor(Qt::PointingHandCursor);
}

void ValueBox::Open() {
    if (Opened) Opened();
}

// Either button of the mouse opens it, as a pointer event on the meter's own page does.
void ValueBox::mousePressEvent(QMouseEvent* event) {
    event->accept();
    setFocus(Qt::MouseFocusReason);
    Open();
}

void ValueBox::keyPressEvent(QKeyEvent* event) {
    const int key = event->key();
    if (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space) {
        Open();
    } else {
        QLineEdit::keyPressEvent(event);  // the keys that move between widgets, and copying
    }
}

}  // namespace counter
