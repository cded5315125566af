#include "desktop/kit/chart_painter.h"

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

// Draws one entry.
class ChartPainter {
  public:
    ChartPainter(QPainter& painter, const ChartMap& map, const ChartColors& colors)
        : painter_(painter), map_(map), colors_(colors) {}

    // Lines along the axes are drawn on whole pixels: sharp, and the same however often they are drawn again.
    void operator()(const ChartLine& line) {
        QPen pen(ColorOf(line.Ink), line.Width, StyleOf(line.Style), Qt::FlatCap);
        painter_.setPen(pen);
        painter_.setRenderHint(QPainter::Antialiasing, line.X1 != line.X2 && line.Y1 != line.Y2);
        painter_.drawLine(map_.At(line.X1, line.Y1), map_.At(line.X2, line.Y2));
    }

    void operator()(const ChartPoint& point) {
        painter_.setPen(QPen(ColorOf(point.Ink), point.Width, Qt::SolidLine, Qt::RoundCap));
        painter_.setRenderHint(QPainter::Antialiasing);
        painter_.drawPoint(map_.At(point.X, point.Y));
    }

    // Without smoothed edges, so that slices that lie on one another show no seam.
    void operator()(const ChartBox& box) {
        const QColor& fill = box.Fill == BoxFill::Black ? colors_.Ink : colors_.Paper;
        painter_.setRenderHint(QPainter::Antialiasing, false);
        painter_.fillRect(OnWholePixels(map_.At(box.X1, box.Y1), map_.At(box.X2, box.Y2)), fill);
    }

    void operator()(const ChartText& text) {
        const QRectF line = map_.LineOf(text);
        if (text.Wipes) painter_.fillRect(line, colors_.Paper);
        painter_.setFont(map_.Font());
        painter_.setPen(ColorOf(text.Ink));
        painter_.drawText(line.topLeft() + QPointF(0, map_.Ascent()), QtText(text.Text));
    }

  private:
    // Each edge by itself: one that two boxes share falls on the same pixel for both.
    QRectF OnWholePixels(const QPointF& a, const QPointF& b) const {
        const QTransform& toDevice = painter_.deviceTransform();
        const QTransform back = toDevice.inverted();
        const QPointF one(toDevice.map(a).toPoint()), other(toDevice.map(b).toPoint());
        return QRectF(back.map(one), back.map(other)).normalized();
    }

    const QColor& ColorOf(ChartInk ink) const {
        if (ink == ChartInk::Second) return colors_.Second;
        return ink == ChartInk::Setpoint ? colors_.Setpoint : colors_.Ink;
    }

    static Qt::PenStyle StyleOf(LineStyle style) {
        if (style == LineStyle::Dotted) return Qt::DotLine;
        return style == LineStyle::Dashed ? Qt::DashLine : Qt::SolidLine;
    }

    QPainter& painter_;
    const ChartMap& map_;
    const ChartColors& colors_;
};

// Texts that follow one another in the record at one height: the labels of an axis.
struct TextRow {
    std::size_t First = 0, End = 0;
    std::size_t Step = 1;  // every which of them is painted, from the first to the last
};

const ChartText* TextAt(const ChartSurface& chart, std::size_t entry) {
    return entry < chart.Record().size() ? std::get_if<ChartText>(&chart.Record()[entry]) : nullptr;
}

bool InOneRow(const ChartText* text, const ChartText* other) {
    return text && other && text->Y == other->Y && text->HalfHeights == other->HalfHeights;
}

bool Collide(const ChartSurface& chart, const ChartMap& map, const TextRow& row) {
    const double gap = map.LineOf({"0"}).width() / 2;
    for (std::size_t i = row.First + row.Step; i < row.End; i += row.Step) {
        const QRectF before = map.LineOf(*TextAt(chart, i - row.Step));
        if (map.LineOf(*TextAt(chart, i)).left() < before.right() + gap) return true;
    }
    return false;
}

// The row that the text `entry` is in. Steps are whole parts of the row, so that its last label, the end of
// the scale, is among those painted.
TextRow RowOf(const ChartSurface& chart, const ChartMap& map, std::size_t entry) {
    const ChartText* text = TextAt(chart, entry);
    TextRow row{entry, entry + 1};
    while (row.First > 0 && InOneRow(text, TextAt(chart, row.First - 1))) --row.First;
    while (InOneRow(text, TextAt(chart, row.End))) ++row.End;
    const std::size_t steps = row.End - row.First - 1;
    while (row.Step < steps && (steps % row.Step != 0 || Collide(chart, map, row))) ++row.Step;
    return row;
}

}  // namespace

void PaintEntries(QPainter& painter, const ChartMap& map, const ChartSurface& chart, std::size_t first,
                  const ChartColors& colors) {
    ChartPainter paint(painter, map, colors);
    TextRow row;
    for (std::size_t i = first; i < chart.Record().size(); ++i) {
        if (TextAt(chart, i)) {
            if (i >= row.End) row = RowOf(chart, map, i);
            if ((i - row.First) % row.Step != 0) continue;
        }
        std::visit(paint, chart.Record()[i]);
    }
}

void PaintChart(QPainter& painter, const QRectF& target, const ChartLayers& layers) {
    const ChartColors colors;
    const ChartMap map(target, layers.front()->Scale());
    painter.fillRect(target, colors.Paper);
    for (const ChartSurface* layer : layers) PaintEntries(painter, map, *layer, 0, colors);
}

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

QPointF ChartMap::UnitsAt(const QPointF& place) const {
    return {scale_.Left + (place.x() - chart_.left()) / chart_.width() * (scale_.Right - scale_.Left),
            scale_.Top + (place.y() - chart_.top()) / chart_.height() * (scale_.Bottom - scale_.Top)};
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
