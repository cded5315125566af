#include "desktop/kit/status_strip.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QShortcut>
#include <algorithm>
#include <utility>

#include "desktop/kit/grid.h"
#include "desktop/kit/qt_text.h"
#include "desktop/kit/screen_colors.h"

namespace counter {

namespace {

// Of the line while it says nothing; otherwise its text is its name.
const QString kEmptyName = QStringLiteral("Status");

constexpr int kBarCharacters = 24;  // width of the bar, in digits of the font

}  // namespace

StatusStrip::StatusStrip(QWidget* parent)
    : QWidget(parent), line_(new QLabel(this)), bar_(new QProgressBar(this)) {
    QPalette dark = palette();
    dark.setColor(QPalette::Window, kStripGround);
    setPalette(dark);
    setAutoFillBackground(true);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(kGrid, kGrid / 2, kGrid, kGrid / 2);
    row->addWidget(line_, 1);
    row->addWidget(bar_);
    line_->setAccessibleName(kEmptyName);
    line_->setTextFormat(Qt::PlainText);
    line_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    line_->setWordWrap(true);
    line_->installEventFilter(this);
    bar_->setRange(0, 100);
    bar_->setFixedWidth(fontMetrics().horizontalAdvance(QLatin1Char('0')) * kBarCharacters);
    KeepPlace(line_);
    setMinimumHeight(bar_->sizeHint().height() + kGrid);  // with the bar or without
    KeepLines(1);
}

void StatusStrip::KeepLines(int lines) {
    lines_ = lines;
    FollowText();
}

int StatusStrip::HeightOfText() const {
    const int kept = fontMetrics().lineSpacing() * lines_ + kGrid;
    return std::max(kept, line_->heightForWidth(line_->width()));
}

// A layout gives a text that wraps the height of one line where it can't ask for more.
void StatusStrip::FollowText() {
    const int height = HeightOfText();
    if (line_->minimumHeight() != height) line_->setMinimumHeight(height);
}

// A layout that is at work forgets what is asked of it meanwhile: a strip that was narrow for a moment would
// stay high.
bool StatusStrip::eventFilter(QObject* object, QEvent* event) {
    const bool resized = event->type() == QEvent::Resize || event->type() == QEvent::FontChange;
    if (resized && HeightOfText() != line_->minimumHeight())
        QMetaObject::invokeMethod(
            this, [this] { FollowText(); }, Qt::QueuedConnection);
    return QWidget::eventFilter(object, event);
}

void StatusStrip::LeaveOutBar() {
    layout()->removeWidget(bar_);
    bar_->hide();
}

QVBoxLayout* StatusStrip::LieBelow(QWidget* page) {
    auto* whole = new QVBoxLayout(page);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->setSpacing(0);
    auto* column = new QVBoxLayout;
    PadByGrid(column);
    whole->addLayout(column, 1);
    whole->addWidget(this);
    LeaveOutBar();
    return column;
}

void StatusStrip::AddCancel(QWidget* button, std::function<void()> cancel) {
    KeepPlace(button);
    layout()->addWidget(button);
    auto* escape = new QShortcut(QKeySequence(Qt::Key_Escape), parentWidget());
    QObject::connect(escape, &QShortcut::activated, this, std::move(cancel));
}

void StatusStrip::ShowLine(const Control& line) {
    const QString text = line.Visible ? SystemText(line.Caption) : QString();
    if (line_->text() != text) {
        line_->setText(text);
        line_->setAccessibleName(text.isEmpty() ? kEmptyName : QString());
        FollowText();
    }
    QPalette colors = palette();
    colors.setColor(QPalette::WindowText, StripColorOf(line.TextColor.value_or(ColorWhite)));
    if (colors != line_->palette()) line_->setPalette(colors);
}

}  // namespace counter
