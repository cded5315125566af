// ChartWidget: paints the record of a chart, sharply at any scale.
#pragma once

#include <QColor>
#include <QFont>
#include <QImage>
#include <QRectF>
#include <QWidget>
#include <optional>

#include "platform/chart_surface.h"
#include "platform/status.h"

namespace counter {

// Where the units of a chart lie on what it is painted on, and how large its texts are there.
// The chart takes the whole width of its target and as much of the height as its shape allows.
class ChartMap {
  public:
    ChartMap(const QRectF& target, const ChartScale& scale);

    const QRectF& Target() const { return target_; }
    const ChartScale& Scale() const { return scale_; }
    QPointF At(double x, double y) const;

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
};

// The chart alone as a BMP file, black on white, replacing one that is there.
Status SaveChartBitmap(const ChartSurface& chart, QSize size, const std::string& path);

// Keeps a picture of what was painted and adds what is new in the record, so that a long trace costs nothing
// to go on with.
class ChartWidget : public QWidget {
  public:
    ChartWidget(const ChartSurface& chart, QWidget* parent);

    // What has been added to the record shows; only the part of the widget that it touches is painted.
    void Follow();

    QSize sizeHint() const override { return {900, 480}; }

  protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    // How far into the record; no generation is -1.
    struct Mark {
        int Generation = -1;
        std::size_t Entries = 0;
    };
    void BringUp();
    const ChartMap& Map();
    ChartColors Colors() const;

    const ChartSurface& chart_;
    std::optional<ChartMap> map_;  // of the present size and scale
    QImage picture_;
    Mark painted_;  // what the picture holds
    Mark told_;     // what Follow has asked to be painted
};

}  // namespace counter
