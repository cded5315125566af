#include "desktop/pages/digit_front.h"

#include <QBasicTimer>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include "desktop/kit/grid.h"
#include "desktop/kit/qt_text.h"
#include "desktop/kit/screen_colors.h"

namespace counter {

namespace {

constexpr double kDigitScale = 2.4;  // of the digits to the program's font
constexpr char kEnterKey = 13;
constexpr int kBlinkMs = 90;     // of a half
constexpr int kBlinkHalves = 4;  // lit, dark, lit, dark

QFont DigitFont(const QWidget& widget) {
    QFont font = FixedPitchFont();
    font.setPointSizeF(widget.font().pointSizeF() * kDigitScale);
    font.setBold(true);
    return font;
}

QSize BoxSize(const QWidget& widget) {
    const QFontMetrics digits(DigitFont(widget));
    return {2 * digits.horizontalAdvance(QLatin1Char('0')), digits.height() + kGrid};
}

// One place of the display. A point that is in the box is drawn after its digit.
class DigitBox : public QWidget, public Spoken {
  public:
    DigitBox(const DigitEntry& entry, int box, DigitFront* front) : QWidget(front), entry_(entry), box_(box) {
        setObjectName(QStringLiteral("txtDigit[%1]").arg(box));
        setAccessibleName(QStringLiteral("Digit %1").arg(box));
        setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    }
    std::function<void()> Pressed;

    void Blink() {
        halvesLeft_ = kBlinkHalves;
        timer_.start(kBlinkMs, this);
        update();
    }

    QSize sizeHint() const override { return BoxSize(*this); }
    QAccessible::Role SpokenRole() const override { return QAccessible::StaticText; }
    QString SpokenValue() const override { return QtText(entry_.BoxText(box_)); }

  protected:
    void mousePressEvent(QMouseEvent* event) override {
        event->accept();
        Pressed();
    }

    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const bool chosen = isEnabled() && entry_.FocusedBox() == box_;
        const bool marked = chosen && parentWidget()->hasFocus();
        const QRectF glass = QRectF(rect()).adjusted(1, 1, -1, -1);
        QColor ground = kEntryGlass;
        if (!isEnabled()) ground.setAlphaF(0.35);
        painter.setBrush(ground);
        painter.setPen(marked ? QPen(palette().color(QPalette::Highlight), 2)
                              : QPen(palette().color(QPalette::Mid), 1));
        if (halvesLeft_ % 2 == 0 && halvesLeft_ > 0)
            painter.setPen(QPen(TextColorOf(ColorRed, palette()), 4));
        painter.drawRoundedRect(glass, 3, 3);
        DrawText(painter, glass);
        if (marked) DrawCaret(painter, glass);
    }

    void timerEvent(QTimerEvent*) override {
        if (--halvesLeft_ == 0) timer_.stop();
        update();
    }

  private:
    void DrawText(QPainter& painter, const QRectF& glass) const {
        const std::string text = entry_.BoxText(box_);
        painter.setFont(DigitFont(*this));
        painter.setPen(kEntryDigit);
        if (!text.empty() && text[0] != '\0')
            painter.drawText(glass, Qt::AlignCenter, QtText(std::string_view(text).substr(0, 1)));
        if (text.size() < 2) return;
        const double size = glass.width() / 8;
        painter.setBrush(kEntryDigit);
        painter.setPen(Qt::NoPen);
        painter.drawEllipse(QRectF(glass.right() - 1.5 * size, glass.bottom() - kGrid - size, size, size));
    }
    void DrawCaret(QPainter& painter, const QRectF& glass) const {
        const double side = glass.width() / 6;
        const double left = entry_.Caret() == 0 ? glass.left() + side : glass.right() - side - 2;
        painter.fillRect(QRectF(left, glass.top() + kGrid / 2.0, 2, glass.height() - kGrid), kEntryCaret);
    }

    const DigitEntry& entry_;
    int box_;
    QBasicTimer timer_;
    int halvesLeft_ = 0;
};

// The mark of the point: a full disc where it is lit, a small ring where it isn't.
class PointMark : public QWidget, public Spoken {
  public:
    PointMark(const DigitEntry& entry, int mark, QWidget* front)
        : QWidget(front), entry_(entry), mark_(mark) {
        setObjectName(QStringLiteral("lblDP[%1]").arg(mark));
        setAccessibleName(QStringLiteral("Point after digit %1").arg(kDigitBoxes - 1 - mark));
        setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    }
    QAccessible::Role SpokenRole() const override { return QAccessible::Indicator; }
    QString SpokenValue() const override { return QLatin1String(entry_.MarkLit(mark_) ? "lit" : "off"); }
    QSize sizeHint() const override {
        const QSize box = BoxSize(*this);
        return {box.width() / 2, box.height()};
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const bool lit = entry_.MarkLit(mark_);
        const double size = width() * (lit ? 0.75 : 0.35);
        const QRectF place((width() - size) / 2, height() - 0.375 * width() - size / 2 - 1, size, size);
        painter.setPen(lit ? Qt::NoPen : QPen(palette().color(QPalette::Disabled, QPalette::Text), 1));
        if (lit) painter.setBrush(TextColorOf(ColorDarkRed, palette()));
        painter.drawEllipse(place);
    }

  private:
    const DigitEntry& entry_;
    int mark_;
};

}  // namespace

DigitFront::DigitFront(DigitEntry& entry, QWidget* parent) : QWidget(parent), entry_(entry) {
    ServeSpoken();
    setObjectName(QStringLiteral("digits"));
    setAccessibleName(QStringLiteral("Digits"));
    setFocusPolicy(Qt::StrongFocus);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    for (int i = 0; i < kDigitBoxes; ++i) {
        auto* box = new DigitBox(entry, i, this);
        box->Pressed = [this, i] {
            setFocus(Qt::MouseFocusReason);
            entry_.FocusBox(i);
            if (Acted) Acted();
        };
        row->addWidget(box);
        // No point is after the sign; mark 0 is after the last box.
        if (i > 0) row->addWidget(new PointMark(entry, kDigitBoxes - 1 - i, this));
    }
}

QString DigitFront::SpokenValue() const {
    QString text;
    for (int i = 0; i < kDigitBoxes; ++i) text += QtText(entry_.BoxText(i));
    return text;
}

void DigitFront::Refresh() {
    for (int i = 0; i < kDigitBoxes; ++i) {
        auto* box = findChild<QWidget*>(QStringLiteral("txtDigit[%1]").arg(i));
        const Control* control = entry_.Controls.Find("txtDigit", i);
        if (box->isEnabled() != control->Enabled) box->setEnabled(control->Enabled);
        box->setAccessibleDescription(QtText(control->Text));
    }
    setAccessibleDescription(QStringLiteral("%1, digit %2").arg(SpokenValue()).arg(entry_.FocusedBox()));
    for (QWidget* part : findChildren<QWidget*>()) part->update();
}

void DigitFront::Blink(int box) {
    if (auto* shown = dynamic_cast<DigitBox*>(findChild<QWidget*>(QStringLiteral("txtDigit[%1]").arg(box))))
        shown->Blink();
}

void DigitFront::keyPressEvent(QKeyEvent* event) {
    if (!TakeKey(*event)) return QWidget::keyPressEvent(event);
    event->accept();
    if (Acted) Acted();
}

bool DigitFront::TakeKey(const QKeyEvent& event) {
    if (!entry_.Shown()) return false;
    switch (event.key()) {
        case Qt::Key_Left:
            entry_.LeftArrow();
            return true;
        case Qt::Key_Right:
            entry_.RightArrow();
            return true;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            entry_.Key(kEnterKey);
            return true;
        default:
            const QByteArray typed = TypedBy(event);
            for (const char character : typed) entry_.Key(character);
            return !typed.isEmpty();
    }
}

void DigitFront::focusInEvent(QFocusEvent*) {
    Refresh();
}

void DigitFront::focusOutEvent(QFocusEvent*) {
    Refresh();
}

QByteArray TypedBy(const QKeyEvent& event) {
    const bool command =
        (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0;
    const QString text = event.text();
    if (command || text.isEmpty() || !text[0].isPrint()) return {};
    return text.toLatin1();
}

}  // namespace counter
