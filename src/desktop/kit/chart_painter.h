// How the record of a chart becomes a picture: on the screen, in a bitmap, as lines and letters on paper.
//
// All lengths are those of the painter's own coordinates: whoever paints at a higher resolution scales the
// painter, and lines, dots and letters keep their part of the picture.
#pragma once

#include <QColor>
#include <QFont>
#include <QPainter>
#include <QRectF>
#include <vector>

#include "platform/chart_surface.h"

namespace counter {

// Where the units of a chart lie on what it is painted on, and how large its texts are there.
// The chart takes the whole width of its target and as much of the height as its shape allows.
class ChartMap {
  public:
    ChartMap(const QRectF& target, const ChartScale& scale);

    const QRectF& Target() const { return target_; }
    const QRectF& Chart() const { return chart_; }
    const ChartScale& Scale() const { return scale_; }
    QPointF At(double x, double y) const;
    // The chart's units of a place on the target.
    QPointF UnitsAt(const QPointF& place) const;

    const QFont& Font() const { return font_; }
    // The line that a text fills; its baseline is Ascent below the top.
    QRectF LineOf(const ChartText& text) const;
    double Ascent() const { return ascent_; }

    // All that painting the entry touches, smoothed edges included.
    QRectF Reach(const ChartEntry& entry) const;

  private:
    QRectF target_;
    QRectF chart_;  // the part of the target that it takes
    ChartScale scale_;
    QFont font_;
    double ascent_ = 0;
    double lineHeight_ = 0;
};

struct ChartColors {
    QColor Ink = Qt::black;  // lines, texts and black boxes
    QColor Paper = Qt::white;
    QColor Second = QColor(0x1F, 0x5F, 0xC8);
    QColor Setpoint = QColor(0xB0, 0x30, 0x00);
};

// One over the other, from the bottom up. The first is the chart; the others have its scale.
using ChartLayers = std::vector<const ChartSurface*>;

// The entries of the record from `first` on. Of texts in a row that would run into one another only every
// second, fifth and so on is painted; which ones does not depend on `first`.
void PaintEntries(QPainter& painter, const ChartMap& map, const ChartSurface& chart, std::size_t first,
                  const ChartColors& colors);

// All of a chart on its ground, dark on light: for paper and files.
void PaintChart(QPainter& painter, const QRectF& target, const ChartLayers& layers);

}  // namespace counter
