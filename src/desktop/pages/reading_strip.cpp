#include "desktop/pages/reading_strip.h"

#include <QGridLayout>
#include <QPaintEvent>
#include <QPainter>
#include <QTimerEvent>

#include "desktop/kit/grid.h"
#include "desktop/kit/qt_text.h"
#include "desktop/pages/reading_access.h"
#include "readings/reading_words.h"

namespace counter {

namespace {

constexpr double kFollowMs = 1000;
constexpr int kLookMs = 1000;

struct Figure {
    const char* Caption;
    std::string ReadingWords::*Text;
    const char* Widest;
    int Line;
};

constexpr Figure kFigures[] = {
    {"", &ReadingWords::State, "No reading for 9999 s", 0},
    {"", &ReadingWords::Rate, "9999.9/s", 0},
    {"n ", &ReadingWords::Count, "99999999", 0},
    {"outside ", &ReadingWords::Outside, "99999 / 99999", 0},
    {"current ", &ReadingWords::Current, "-9999.999", 1},
    {"min ", &ReadingWords::Smallest, "-9999.999", 1},
    {"max ", &ReadingWords::Largest, "-9999.999", 1},
    {"mean ", &ReadingWords::Mean, "-9999.9999", 1},
    {"s ", &ReadingWords::Deviation, "9999.9999", 1},
};

int WidthOf(const Figure& field, const QFontMetrics& metrics) {
    return metrics.horizontalAdvance(QLatin1String(field.Caption)) +
           metrics.horizontalAdvance(QLatin1String(field.Widest)) + 2 * kGrid;
}

std::vector<QString> TextsOf(const ReadingWords& words) {
    std::vector<QString> texts;
    for (const Figure& field : kFigures) {
        const QString text = QtText(words.*field.Text);
        texts.push_back(text.isEmpty() ? text : QLatin1String(field.Caption) + text);
    }
    return texts;
}

}  // namespace

FigureLines::FigureLines(const ReadingView& view, QWidget* parent) : QWidget(parent), view_(view) {
    ServeReadersOfScreens();
    setAccessibleName("Figures of the readings");
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Minimum);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    setAttribute(Qt::WA_OpaquePaintEvent);  // the page behind it isn't painted again
}

void FigureLines::Follow() {
    const ReadingWords words = WordsOf(view_);
    std::vector<QString> texts = TextsOf(words);
    if (texts == shown_) return;
    shown_ = std::move(texts);
    setAccessibleDescription(QtText(Sentence(words)));
    update();
}

// From the left, a line of figures below the other; one that finds no room begins a line of its own.
std::vector<QPoint> FigureLines::Places(int width) const {
    std::vector<QPoint> places;
    int left = 0, top = 0, line = 0;
    for (const Figure& field : kFigures) {
        const int need = WidthOf(field, fontMetrics());
        if (field.Line != line || (left > 0 && left + need > width)) {
            left = 0;
            top += fontMetrics().lineSpacing();
        }
        line = field.Line;
        places.emplace_back(left, top);
        left += need;
    }
    return places;
}

int FigureLines::heightForWidth(int width) const {
    return Places(width).back().y() + fontMetrics().lineSpacing();
}

QSize FigureLines::minimumSizeHint() const {
    int width = 0;
    for (const Figure& field : kFigures) width = std::max(width, WidthOf(field, fontMetrics()));
    return {width, fontMetrics().lineSpacing()};
}

QSize FigureLines::sizeHint() const {
    int width[2] = {0, 0};
    for (const Figure& field : kFigures) width[field.Line] += WidthOf(field, fontMetrics());
    return {std::max(width[0], width[1]), 2 * fontMetrics().lineSpacing()};
}

void FigureLines::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    painter.fillRect(event->rect(), palette().window());
    painter.setPen(palette().color(QPalette::WindowText));
    const std::vector<QPoint> places = Places(width());
    for (std::size_t i = 0; i < shown_.size(); ++i)
        painter.drawText(places[i] + QPoint(0, fontMetrics().ascent()), shown_[i]);
}

ReadingStrip::ReadingStrip(ReadingView& view, Binder& bound, QWidget* parent)
    : QWidget(parent), view_(view), lines_(new FigureLines(view, this)), record_(new QLabel(this)) {
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(kGrid);
    grid->setColumnStretch(0, 1);
    grid->addWidget(lines_, 0, 0);
    grid->addWidget(bound.Make(view.cboItem, this), 0, 1);
    grid->addWidget(bound.Make(view.cmdRecord, this), 0, 2);
    grid->addWidget(record_, 1, 0, 1, 3);
    record_->setTextFormat(Qt::PlainText);
    record_->setWordWrap(true);
    record_->hide();
    bound.BindSpecial(view.lblFigures, lines_, [this] { Follow(); });
}

void ReadingStrip::Follow() {
    lines_->Follow();
    const QString words = view_.Keeper ? SystemText(view_.Keeper->Words()) : QString();
    if (record_->text() == words) return;
    record_->setText(words);
    record_->setVisible(!words.isEmpty());
}

void ReadingStrip::FollowReadings() {
    const double now = view_.Program.Pump.NowMs();
    if (now < nextMs_) return;
    nextMs_ = now + kFollowMs;
    Follow();
}

void ReadingStrip::timerEvent(QTimerEvent* event) {
    if (event->timerId() == timer_.timerId()) Follow();
}

void ReadingStrip::showEvent(QShowEvent*) {
    Follow();
    timer_.start(kLookMs, this);
}

void ReadingStrip::hideEvent(QHideEvent*) {
    timer_.stop();
}

}  // namespace counter
