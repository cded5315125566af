#include "platform/qt/widgets/chart_widget.h"

#include <QBuffer>
#include <QEvent>
#include <QFontMetricsF>
#include <QPainter>

#include "platform/qt/core/qt_files.h"
#include "platform/qt/widgets/qt_text.h"

namespace counter {

namespace {

// A line of text takes 18 of the 465 units of a strip chart's height.
constexpr double kTextPart = 18.0 / 465.0;

// Maps the chart's units to the target and draws one entry.
class ChartPainter {
  public:
    ChartPainter(QPainter& painter, const QRectF& target, const ChartScale& scale, const ChartColors& colors)
        : painter_(painter), target_(target), scale_(scale), colors_(colors), font_("DejaVu Sans") {
        font_.setPixelSize(100);
        const double lineOf100 = QFontMetricsF(font_).height();
        font_.setPixelSize(std::max(1, static_cast<int>(100 * target.height() * kTextPart / lineOf100)));
        painter_.setFont(font_);
    }

    void operator()(const ChartLine& line) {
        QPen pen(colors_.Ink, line.Width);
        if (line.Style == LineStyle::Dotted) pen.setStyle(Qt::DotLine);
        pen.setCapStyle(Qt::FlatCap);
        painter_.setPen(pen);
        painter_.drawLine(At(line.X1, line.Y1), At(line.X2, line.Y2));
    }

    void operator()(const ChartPoint& point) {
        painter_.setPen(QPen(colors_.Ink, point.Width, Qt::SolidLine, Qt::RoundCap));
        painter_.drawPoint(At(point.X, point.Y));
    }

    void operator()(const ChartBox& box) {
        const QColor& fill = box.Fill == BoxFill::Black ? colors_.Ink : colors_.Paper;
        // Without smoothed edges, so that slices that lie on one another show no seam.
        painter_.setRenderHint(QPainter::Antialiasing, false);
        painter_.fillRect(QRectF(At(box.X1, box.Y1), At(box.X2, box.Y2)).normalized(), fill);
        painter_.setRenderHint(QPainter::Antialiasing);
    }

    // Heights are in the chart's units, which point up: that of a text is negative.
    void operator()(const ChartText& text) {
        const QFontMetricsF metrics(font_);
        const QString shown = QtText(text.Text);
        const double width = metrics.horizontalAdvance(shown);
        QPointF corner = At(text.X, text.Y);
        corner.ry() += text.HalfHeights * metrics.height() / 2;
        if (text.Anchor == TextAnchor::Center) corner.rx() -= width / 2;
        if (text.Anchor == TextAnchor::Right) corner.rx() -= width;
        painter_.setPen(colors_.Ink);
        painter_.drawText(QPointF(corner.x(), corner.y() + metrics.ascent()), shown);
    }

  private:
    QPointF At(double x, double y) const {
        return {target_.left() + (x - scale_.Left) / (scale_.Right - scale_.Left) * target_.width(),
                target_.top() + (y - scale_.Top) / (scale_.Bottom - scale_.Top) * target_.height()};
    }

    QPainter& painter_;
    const QRectF target_;
    const ChartScale scale_;
    const ChartColors& colors_;
    QFont font_;
};

}  // namespace

void PaintChart(QPainter& painter, const QRectF& target, const ChartSurface& chart, std::size_t first,
                const ChartColors& colors) {
    painter.setRenderHint(QPainter::Antialiasing);
    ChartPainter paint(painter, target, chart.Scale(), colors);
    for (std::size_t i = first; i < chart.Record().size(); ++i) std::visit(paint, chart.Record()[i]);
}

Status SaveChartBitmap(const ChartSurface& chart, QSize size, const std::string& path) {
    QImage picture(size, QImage::Format_RGB32);
    const ChartColors colors;
    picture.fill(colors.Paper);
    QPainter painter(&picture);
    PaintChart(painter, picture.rect(), chart, 0, colors);
    painter.end();
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    if (!picture.save(&buffer, "BMP")) return {StatusKind::Other, path, "The picture can't be made"};
    return QtFiles().Write(path, {bytes.constData(), static_cast<std::size_t>(bytes.size())});
}

ChartWidget::ChartWidget(const ChartSurface& chart, QWidget* parent) : QWidget(parent), chart_(chart) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setMinimumSize(sizeHint() / 3);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

ChartColors ChartWidget::Colors() const {
    return {palette().color(QPalette::Text), palette().color(QPalette::Base)};
}

void ChartWidget::Follow() {
    if (generation_ != chart_.Generation() || painted_ != chart_.Record().size()) update();
}

void ChartWidget::BringUp() {
    const ChartColors colors = Colors();
    const QSize pixels = size() * devicePixelRatioF();
    if (picture_.size() != pixels || generation_ != chart_.Generation() ||
        painted_ > chart_.Record().size()) {
        if (picture_.size() != pixels) picture_ = QImage(pixels, QImage::Format_RGB32);
        picture_.setDevicePixelRatio(devicePixelRatioF());
        picture_.fill(colors.Paper);
        painted_ = 0;
        generation_ = chart_.Generation();
    }
    QPainter painter(&picture_);
    PaintChart(painter, rect(), chart_, painted_, colors);
    painted_ = chart_.Record().size();
}

void ChartWidget::paintEvent(QPaintEvent*) {
    BringUp();
    QPainter(this).drawImage(QPoint(0, 0), picture_);
}

void ChartWidget::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange) generation_ = -1;
    QWidget::changeEvent(event);
}

}  // namespace counter
