#include "desktop/kit/chart_widget.h"

#include <QBuffer>
#include <QEvent>
#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>

#include "desktop/kit/qt_text.h"
#include "system/disk_files.h"

namespace counter {

namespace {

// A line of text takes 18 of the 465 units of a strip chart's height.
constexpr double kTextPart = 18.0 / 465.0;

// Were a chart higher, its labels would run into one another, and an arrow of the histogram would be wider
// than the box that erases it.
constexpr double kMostHeightToWidth = 0.62;

QRectF WithinShape(const QRectF& target) {
    const double height = std::min(target.height(), target.width() * kMostHeightToWidth);
    return {target.left(), target.top() + (target.height() - height) / 2, target.width(), height};
}

// Half a thick line and its smoothed edge.
constexpr double kEdge = 2;

struct Corners {
    double X1, Y1, X2, Y2;
};

Corners CornersOf(const ChartPoint& point) {
    return {point.X, point.Y, point.X, point.Y};
}

template <class LineOrBox>
Corners CornersOf(const LineOrBox& entry) {
    return {entry.X1, entry.Y1, entry.X2, entry.Y2};
}

// More new entries than these are as good as all of the chart: an axis drawn again crosses it.
constexpr std::size_t kFewEntries = 16;

// Draws one entry.
class ChartPainter {
  public:
    ChartPainter(QPainter& painter, const ChartMap& map, const ChartColors& colors)
        : painter_(painter), map_(map), colors_(colors) {}

    // Lines along the axes are drawn on whole pixels: sharp, and the same however often they are drawn again.
    void operator()(const ChartLine& line) {
        QPen pen(colors_.Ink, line.Width);
        if (line.Style == LineStyle::Dotted) pen.setStyle(Qt::DotLine);
        pen.setCapStyle(Qt::FlatCap);
        painter_.setPen(pen);
        painter_.setRenderHint(QPainter::Antialiasing, line.X1 != line.X2 && line.Y1 != line.Y2);
        painter_.drawLine(map_.At(line.X1, line.Y1), map_.At(line.X2, line.Y2));
    }

    void operator()(const ChartPoint& point) {
        painter_.setPen(QPen(colors_.Ink, point.Width, Qt::SolidLine, Qt::RoundCap));
        painter_.setRenderHint(QPainter::Antialiasing);
        painter_.drawPoint(map_.At(point.X, point.Y));
    }

    // Without smoothed edges, so that slices that lie on one another show no seam.
    void operator()(const ChartBox& box) {
        const QColor& fill = box.Fill == BoxFill::Black ? colors_.Ink : colors_.Paper;
        painter_.setRenderHint(QPainter::Antialiasing, false);
        painter_.fillRect(QRectF(map_.At(box.X1, box.Y1), map_.At(box.X2, box.Y2)).normalized(), fill);
    }

    void operator()(const ChartText& text) {
        const QRectF line = map_.LineOf(text);
        painter_.setFont(map_.Font());
        painter_.setPen(colors_.Ink);
        painter_.drawText(line.topLeft() + QPointF(0, map_.Ascent()), QtText(text.Text));
    }

  private:
    QPainter& painter_;
    const ChartMap& map_;
    const ChartColors& colors_;
};

// The entries of the record from `first` on.
void PaintEntries(QPainter& painter, const ChartMap& map, const ChartSurface& chart, std::size_t first,
                  const ChartColors& colors) {
    ChartPainter paint(painter, map, colors);
    for (std::size_t i = first; i < chart.Record().size(); ++i) std::visit(paint, chart.Record()[i]);
}

}  // namespace

ChartMap::ChartMap(const QRectF& target, const ChartScale& scale)
    : target_(target), chart_(WithinShape(target)), scale_(scale), font_("DejaVu Sans") {
    font_.setPixelSize(100);
    const double lineOf100 = QFontMetricsF(font_).height();
    font_.setPixelSize(std::max(1, static_cast<int>(100 * chart_.height() * kTextPart / lineOf100)));
    const QFontMetricsF metrics(font_);
    ascent_ = metrics.ascent();
    lineHeight_ = metrics.height();
}

QPointF ChartMap::At(double x, double y) const {
    return {chart_.left() + (x - scale_.Left) / (scale_.Right - scale_.Left) * chart_.width(),
            chart_.top() + (y - scale_.Top) / (scale_.Bottom - scale_.Top) * chart_.height()};
}

QRectF ChartMap::LineOf(const ChartText& text) const {
    const double width = QFontMetricsF(font_).horizontalAdvance(QtText(text.Text));
    QPointF corner = At(text.X, text.Y);
    corner.ry() += text.HalfHeights * lineHeight_ / 2;
    if (text.Anchor == TextAnchor::Center) corner.rx() -= width / 2;
    if (text.Anchor == TextAnchor::Right) corner.rx() -= width;
    return {corner, QSizeF(width, lineHeight_)};
}

QRectF ChartMap::Reach(const ChartEntry& entry) const {
    const QRectF bare = std::visit(
        [this](const auto& what) {
            if constexpr (requires { what.Text; }) {
                return LineOf(what);
            } else {
                const auto [x1, y1, x2, y2] = CornersOf(what);
                return QRectF(At(x1, y1), At(x2, y2)).normalized();
            }
        },
        entry);
    return bare.adjusted(-kEdge, -kEdge, kEdge, kEdge);
}

Status SaveChartBitmap(const ChartSurface& chart, QSize size, const std::string& path) {
    QImage picture(size, QImage::Format_RGB32);
    const ChartColors colors;
    picture.fill(colors.Paper);
    QPainter painter(&picture);
    PaintEntries(painter, ChartMap(picture.rect(), chart.Scale()), chart, 0, colors);
    painter.end();
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    if (!picture.save(&buffer, "BMP")) return {StatusKind::Other, path, "The picture can't be made"};
    return DiskFiles().Write(path, {bytes.constData(), static_cast<std::size_t>(bytes.size())});
}

ChartWidget::ChartWidget(const ChartSurface& chart, QWidget* parent) : QWidget(parent), chart_(chart) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setMinimumSize(sizeHint() / 3);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

ChartColors ChartWidget::Colors() const {
    return {palette().color(QPalette::Text), palette().color(QPalette::Base)};
}

const ChartMap& ChartWidget::Map() {
    if (!map_ || map_->Target() != rect() || map_->Scale() != chart_.Scale())
        map_.emplace(rect(), chart_.Scale());
    return *map_;
}

void ChartWidget::Follow() {
    const std::vector<ChartEntry>& record = chart_.Record();
    const bool anew = told_.Generation != chart_.Generation() || told_.Entries > record.size();
    if (anew || record.size() - told_.Entries > kFewEntries) {
        update();
    } else {
        for (std::size_t i = told_.Entries; i < record.size(); ++i)
            update(Map().Reach(record[i]).toAlignedRect());
    }
    told_ = {chart_.Generation(), record.size()};
}

void ChartWidget::BringUp() {
    const Mark now = {chart_.Generation(), chart_.Record().size()};
    const QSize pixels = size() * devicePixelRatioF();
    const bool otherSize = picture_.size() != pixels;
    if (otherSize) picture_ = QImage(pixels, QImage::Format_RGB32);
    const ChartColors colors = Colors();
    if (otherSize || painted_.Generation != now.Generation || painted_.Entries > now.Entries) {
        picture_.setDevicePixelRatio(devicePixelRatioF());
        picture_.fill(colors.Paper);
        painted_ = {now.Generation, 0};
    }
    if (painted_.Entries == now.Entries) return;
    QPainter painter(&picture_);
    PaintEntries(painter, Map(), chart_, painted_.Entries, colors);
    painted_ = now;
}

// Only the part of the event is copied: whatever lies outside is clipped away.
void ChartWidget::paintEvent(QPaintEvent*) {
    BringUp();
    QPainter(this).drawImage(QPoint(0, 0), picture_);
}

void ChartWidget::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange) painted_ = {};
    QWidget::changeEvent(event);
}

}  // namespace counter
