// LinkLabel: a text that opens something. A click is its binder's; Enter and the space bar do the same.
#pragma once

#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QStyleOptionFocusRect>
#include <functional>

namespace counter {

class LinkLabel : public QLabel {
  public:
    explicit LinkLabel(QWidget* parent) : QLabel(parent) {
        setTextFormat(Qt::PlainText);
        setFocusPolicy(Qt::TabFocus);
        setForegroundRole(QPalette::Link);
        setCursor(Qt::PointingHandCursor);
        QFont underlined;
        underlined.setUnderline(true);
        setFont(underlined);
    }
    std::function<void()> Followed;

  protected:
    void keyPressEvent(QKeyEvent* event) override {
        const int key = event->key();
        const bool follow = key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space;
        if (follow && Followed) return Followed();
        QLabel::keyPressEvent(event);
    }
    void paintEvent(QPaintEvent* event) override {
        QLabel::paintEvent(event);
        if (!hasFocus()) return;
        QPainter painter(this);
        QStyleOptionFocusRect option;
        option.initFrom(this);
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
    }
};

}  // namespace counter
