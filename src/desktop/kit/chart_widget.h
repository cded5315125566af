// ChartWidget: paints the record of a chart, sharply at any scale.
#pragma once

#include <QImage>
#include <QWidget>
#include <functional>
#include <optional>

#include "desktop/kit/chart_painter.h"

namespace counter {

// Keeps a picture of what was painted and adds what is new in the record, so that a long trace costs nothing
// to go on with.
class ChartWidget : public QWidget {
  public:
    ChartWidget(const ChartSurface& chart, QWidget* parent);

    // What has been added to the record shows; only the part of the widget that it touches is painted.
    void Follow();

    // Another record is shown in its place, as a part of it seen larger; null: its own again.
    void ShowInstead(const ChartSurface* other);
    // Painted over the chart, in its scale; outlives the widget. Null: nothing.
    void SetOver(const ChartSurface* over) { over_ = over; }
    // What is on show.
    ChartLayers Layers() const;
    const ChartMap& Map();

    // What a reader of the screen says beside the name, worked out when it asks; may be empty.
    std::function<QString()> Describe;
    // Tells such a reader that the description is another one.
    void TellDescription();

    QSize sizeHint() const override { return {900, 480}; }

  protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    // How far into the record; no generation is -1.
    struct Mark {
        int Generation = -1;
        std::size_t Entries = 0;
        friend bool operator==(const Mark&, const Mark&) = default;
    };
    static Mark EndOf(const ChartSurface& surface) { return {surface.Generation(), surface.Record().size()}; }
    void BringUp();
    ChartColors Colors() const;

    const ChartSurface& chart_;
    const ChartSurface* shown_ = &chart_;
    const ChartSurface* over_ = nullptr;
    std::optional<ChartMap> map_;  // of the present size and scale
    QImage picture_;
    Mark painted_;   // what the picture holds
    Mark told_;      // what Follow has asked to be painted
    Mark overTold_;  // the same of what is over it
};

}  // namespace counter
