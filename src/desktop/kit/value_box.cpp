#include "desktop/kit/value_box.h"

#include <QKeyEvent>
#include <QMouseEvent>

namespace counter {

namespace {

constexpr const char* kLongestValue = "+00. 00. 000";  // a clock value

}  // namespace

ValueBox::ValueBox(QWidget* parent) : QLineEdit(parent) {
    setReadOnly(true);
    setContextMenuPolicy(Qt::NoContextMenu);
    setCursor(Qt::PointingHandCursor);
}

QSize ValueBox::sizeHint() const {
    const QSize whole = QLineEdit::sizeHint();  // of 17 letters
    const int letter = fontMetrics().horizontalAdvance(QLatin1Char('x'));
    const int text = fontMetrics().horizontalAdvance(QLatin1String(kLongestValue));
    return {whole.width() - 17 * letter + text, whole.height()};
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
