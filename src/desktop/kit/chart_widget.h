// ChartWidget: paints the record of a chart, sharply at any scale.
#pragma once

#include <QColor>
#include <QImage>
#include <QWidget>
#include <optional>

#include "desktop/kit/chart_map.h"
#include "platform/chart_surface.h"
#include "platform/status.h"

namespace counter {

struct ChartColors {
    QColor Ink = Qt::black;  // lines, texts and black boxes
    QColor Paper = Qt::white;
};

// The chart alone as a BMP file, black on white, replacing one that stands there.
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
