// PageBody: what of a page may be larger than the window, and scrolls then. Strips and buttons lie outside of
// it, so that they are in reach whatever the size of window and font.
#pragma once

#include <QScrollArea>
#include <QVBoxLayout>

namespace counter {

class PageBody : public QScrollArea {
  public:
    // Scrolls `content`, which fills the body where that is larger.
    PageBody(QWidget* parent, QWidget* content);
    // With a content of its own, filled by the column of Column().
    explicit PageBody(QWidget* parent);

    QVBoxLayout& Column() { return *static_cast<QVBoxLayout*>(widget()->layout()); }

    // As large as its content, where the window has the room.
    QSize sizeHint() const override;

  protected:
    // What is larger than before asks for more room.
    bool eventFilter(QObject* object, QEvent* event) override;
};

// The area of the screen that a window can fill, without the frame that the window manager draws around it.
QRect ScreenRoom(const QWidget& window);
// A window of this size in the font of 9 points at 96 dots an inch, in the font that it has, and no larger
// than the screen has room.
QSize SizeOnScreen(const QWidget& window, const QSize& size);

// Into the middle of that area, with its frame.
void PutInMiddle(QWidget& window);

}  // namespace counter
