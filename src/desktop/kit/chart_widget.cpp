#include "desktop/kit/chart_widget.h"

#include <QBuffer>
#include <QEvent>
#include <QPainter>

#include "desktop/kit/qt_text.h"
#include "system/disk_files.h"

namespace counter {

namespace {

// More new entries than these are as good as all of the chart: an axis drawn anew crosses it.
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
