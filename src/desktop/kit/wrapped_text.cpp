#include "desktop/kit/wrapped_text.h"

#include <QEvent>

namespace counter {

WrappedText::WrappedText(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    setTextInteractionFlags(Qt::TextSelectableByMouse);
    setAlignment(Qt::AlignTop | Qt::AlignLeft);
}

WrappedText::Answers& WrappedText::Known() const {
    if (known_.Of != text()) known_ = {text(), {}, {}, {}};
    return known_;
}

int WrappedText::heightForWidth(int width) const {
    const auto [place, fresh] = Known().Heights.try_emplace(width, 0);
    if (fresh) place->second = QLabel::heightForWidth(width);
    return place->second;
}

QSize WrappedText::sizeHint() const {
    QSize& hint = Known().Hint;
    if (!hint.isValid()) hint = QLabel::sizeHint();
    return hint;
}

QSize WrappedText::minimumSizeHint() const {
    QSize& least = Known().Least;
    if (!least.isValid()) least = QLabel::minimumSizeHint();
    return least;
}

void WrappedText::changeEvent(QEvent* event) {
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) known_ = {};
    QLabel::changeEvent(event);
}

}  // namespace counter
