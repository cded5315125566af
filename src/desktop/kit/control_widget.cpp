#include "desktop/kit/control_widget.h"

#include <QAbstractItemView>
#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QProgressBar>
#include <QRadioButton>
#include <QWheelEvent>

#include "desktop/kit/access_keys.h"
#include "desktop/kit/grid.h"
#include "desktop/kit/qt_text.h"

namespace counter {

namespace {

constexpr const char* kLongestValue = "+00. 00. 000";  // a clock value

// A list that a turning wheel leaves alone: scrolling past it must not change a setup.
class PickList : public QComboBox {
  public:
    explicit PickList(QWidget* parent) : QComboBox(parent) { view()->installEventFilter(this); }
    // Its entries are read whole, however narrow the column.
    QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    void wheelEvent(QWheelEvent* event) override { event->ignore(); }
    // What drops down is a window of its own, which would keep F1 from the window of the page.
    bool eventFilter(QObject* object, QEvent* event) override {
        const bool key = event->type() == QEvent::KeyPress;
        if (!key || static_cast<QKeyEvent*>(event)->key() != Qt::Key_F1)
            return QComboBox::eventFilter(object, event);
        hidePopup();
        QCoreApplication::sendEvent(this, event);
        return true;
    }
};

// Enter presses the button that has the focus, on a page as in a dialog.
QPushButton* MakeButton(QWidget* parent) {
    auto* button = new PushButton(parent);
    button->setAutoDefault(true);
    return button;
}

QWidget* MakeList(QWidget* parent) {
    auto* list = new PickList(parent);
    list->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    list->setFocusPolicy(Qt::StrongFocus);
    return list;
}

QWidget* MakeLabel(QWidget* parent) {
    auto* label = new QLabel(parent);
    label->setTextFormat(Qt::PlainText);
    return label;
}

QWidget* MakeProgress(QWidget* parent) {
    auto* bar = new QProgressBar(parent);
    bar->setRange(0, 100);
    return bar;
}

QWidget* MakeOption(QWidget* parent) {
    auto* option = new QRadioButton(parent);
    // The form decides which of them is set. One that isn't exclusive by itself reports as a check box.
    auto* alone = new QButtonGroup(option);
    alone->setExclusive(false);
    alone->addButton(option);
    return option;
}

QWidget* MakeOfKind(ControlKind kind, QWidget* parent) {
    switch (kind) {
        case ControlKind::Frame:
            return new QGroupBox(parent);
        case ControlKind::List:
            return MakeList(parent);
        case ControlKind::Check:
            return new QCheckBox(parent);
        case ControlKind::Option:
            return MakeOption(parent);
        case ControlKind::Button:
            return MakeButton(parent);
        case ControlKind::Value:
            return new ValueBox(parent);
        case ControlKind::Entry:
            return new QLineEdit(parent);
        case ControlKind::Progress:
            return MakeProgress(parent);
        default:
            return MakeLabel(parent);
    }
}

// 0 where the key is none.
char DigitOrSign(const QKeyEvent& event) {
    const bool command =
        (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0;
    const QByteArray text = event.text().toLatin1();
    if (command || text.size() != 1) return '\0';
    return std::string_view("0123456789+-").find(text[0]) == std::string_view::npos ? '\0' : text[0];
}

}  // namespace

void PushButton::paintEvent(QPaintEvent* event) {
    QPushButton::paintEvent(event);
    if (!hasFocus()) return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
    painter.drawRoundedRect(QRectF(rect()).adjusted(2, 2, -2, -2), 2, 2);
}

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
    } else if (const char typed = DigitOrSign(*event); typed != '\0' && Typed) {
        Typed(typed);
    } else {
        QLineEdit::keyPressEvent(event);  // the keys that move between widgets, and copying
    }
}

CaptionRow::CaptionRow(QWidget* parent, const std::string& caption)
    : QWidget(parent), caption_(new QLabel(PlainCaption(caption), this)) {
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(kGrid);
    caption_->setTextFormat(Qt::PlainText);
    row->addWidget(caption_);
}

void CaptionRow::AddField(QWidget* field, int stretch) {
    (field_ ? behind_ : field_) = field;
    caption_->setBuddy(field_);
    static_cast<QHBoxLayout*>(layout())->addWidget(field, stretch);
}

void CaptionRow::SetWidths(int caption, int field) {
    if (caption > 0) caption_->setFixedWidth(caption);
    if (field > 0 && field_) field_->setFixedWidth(field);
}

void CaptionRow::FollowField() {
    const bool hidden = field_->testAttribute(Qt::WA_WState_ExplicitShowHide) && field_->isHidden();
    if (caption_->isHidden() != hidden) caption_->setVisible(!hidden);
    const QString name = WithoutKey(caption_->text()).trimmed();
    if (field_->accessibleName() != name) field_->setAccessibleName(name);
    if (!behind_) return;
    const int room = fontMetrics().horizontalAdvance(QLatin1String("WWW"));
    if (behind_->minimumWidth() != room) behind_->setMinimumWidth(room);
}

QWidget* MakeWidget(const Control& control, QWidget* parent) {
    QWidget* widget = MakeOfKind(control.Kind, parent);
    widget->setObjectName(ObjectName(control));
    return widget;
}

QString ObjectName(const Control& control) {
    return QtText(control.FullName());
}

}  // namespace counter
