// ChartWidget: paints the record of a chart, sharply at any scale.
#pragma once

#include <QColor>
#include <QImage>
#include <QWidget>

#include "platform/chart_surface.h"
#include "platform/status.h"

class QPainter;

namespace counter {

struct ChartColors {
    QColor Ink = Qt::black;  // lines, texts and black boxes
    QColor Paper = Qt::white;
};

// Paints the entries of the record from `first` on into `target`. The height of a text is a fixed part of the
// chart's, so that screen, page and bitmap look alike.
void PaintChart(QPainter& painter, const QRectF& target, const ChartSurface& chart, std::size_t first,
                const ChartColors& colors);

// The chart alone as a BMP file, black on white, replacing one that stands there.
Status SaveChartBitmap(const ChartSurface& chart, QSize size, const std::string& path);

// Keeps a picture of what was painted and adds what is new in the record, so that a long trace costs nothing
// to go on with. Called from the view's Changed.
class ChartWidget : public QWidget {
  public:
    ChartWidget(const ChartSurface& chart, QWidget* parent);

    // What has been added to the record shows.
    void Follow();

    QSize sizeHint() const override { return {900, 480}; }

  protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    void BringUp();
    ChartColors Colors() const;

    const ChartSurface& chart_;
    QImage picture_;
    int generation_ = -1;      // of the record in the picture
    std::size_t painted_ = 0;  // entries of it
};

}  // namespace counter
