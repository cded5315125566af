#include "desktop/kit/chart_map.h"

#include <QFontMetricsF>
#include <algorithm>

#include "desktop/kit/qt_text.h"

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

}  // namespace counter
