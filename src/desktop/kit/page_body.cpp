#include "desktop/kit/page_body.h"

#include <QEvent>
#include <QFontInfo>
#include <QScreen>
#include <QScrollBar>
#include <QStyle>

#include "desktop/kit/grid.h"

namespace counter {

namespace {

constexpr double kPlainFont = 12;  // pixels of 9 points at 96 dots an inch

QWidget* EmptyContent() {
    auto* content = new QWidget;
    auto* column = new QVBoxLayout(content);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(kGrid);
    return content;
}

}  // namespace

PageBody::PageBody(QWidget* parent, QWidget* content) : QScrollArea(parent) {
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setFocusPolicy(Qt::NoFocus);
    setWidget(content);
    viewport()->setAutoFillBackground(false);
    content->setAutoFillBackground(false);
}

PageBody::PageBody(QWidget* parent) : PageBody(parent, EmptyContent()) {}

QSize PageBody::sizeHint() const {
    // The bar, and what the style leaves free beside it, takes no room from the content where the height
    // alone is missing.
    return widget()->sizeHint() + QSize(verticalScrollBar()->sizeHint().width() + kGrid, 0);
}

bool PageBody::eventFilter(QObject* object, QEvent* event) {
    if (object == widget() && event->type() == QEvent::LayoutRequest) updateGeometry();
    return QScrollArea::eventFilter(object, event);
}

QRect ScreenRoom(const QWidget& window) {
    const QScreen* screen = window.screen();
    if (screen == nullptr) return {};
    const int title = window.style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, &window) + kGrid;
    return screen->availableGeometry().adjusted(kGrid / 2, title, -kGrid / 2, -kGrid / 2);
}

QSize SizeOnScreen(const QWidget& window, const QSize& size) {
    const double scale = std::max(1.0, QFontInfo(window.font()).pixelSize() / kPlainFont);
    const QSize wanted = size * scale;
    const QRect room = ScreenRoom(window);
    return room.isEmpty() ? wanted : wanted.boundedTo(room.size());
}

// A window is placed by the corner of its frame, which has the title above the window.
void PutInMiddle(QWidget& window) {
    const QRect room = ScreenRoom(window);
    if (room.isEmpty()) return;
    const int title = room.top() - window.screen()->availableGeometry().top();
    window.move(room.center() - window.rect().center() - QPoint(0, title));
}

}  // namespace counter
