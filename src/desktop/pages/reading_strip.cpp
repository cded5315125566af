#include "desktop/pages/reading_strip.h"

#include <QHBoxLayout>
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
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
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

QSize FigureLines::sizeHint() const {
    int width[2] = {0, 0};
    for (const Figure& field : kFigures) width[field.Line] += WidthOf(field, fontMetrics());
    return {std::max(width[0], width[1]), 2 * fontMetrics().lineSpacing()};
}

void FigureLines::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    painter.fillRect(event->rect(), palette().window());
    painter.setPen(palette().color(QPalette::WindowText));
    int left[2] = {0, 0};
    for (std::size_t i = 0; i < shown_.size(); ++i) {
        const Figure& field = kFigures[i];
        const int top = field.Line * fontMetrics().lineSpacing();
        painter.drawText(left[field.Line], top + fontMetrics().ascent(), shown_[i]);
        left[field.Line] += WidthOf(field, fontMetrics());
    }
}

ReadingStrip::ReadingStrip(ReadingView& view, Binder& bound, QWidget* parent)
    : QWidget(parent), view_(view), lines_(new FigureLines(view, this)) {
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(kGrid);
    row->addWidget(lines_, 1);
    row->addWidget(bound.Make(view.cboItem, this));
    bound.BindSpecial(view.lblFigures, lines_, [this] { lines_->Follow(); });
}

void ReadingStrip::FollowReadings() {
    const double now = view_.Program.Pump.NowMs();
    if (now < nextMs_) return;
    nextMs_ = now + kFollowMs;
    lines_->Follow();
}

void ReadingStrip::timerEvent(QTimerEvent* event) {
    if (event->timerId() == timer_.timerId()) lines_->Follow();
}

void ReadingStrip::showEvent(QShowEvent*) {
    lines_->Follow();
    timer_.start(kLookMs, this);
}

void ReadingStrip::hideEvent(QHideEvent*) {
    timer_.stop();
}

}  // namespace counter
