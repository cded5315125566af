#include "desktop/kit/chart_widget.h"

#include <QAccessibleWidget>
#include <QEvent>
#include <QPainter>

namespace counter {

namespace {

// More new entries than these are as good as all of the chart: an axis drawn again crosses it.
constexpr std::size_t kFewEntries = 16;

constexpr int kDarkBelow = 128;  // lightness of the ground, 0..255
constexpr QRgb kSecondOnDark = 0xFF7FB2FF;
constexpr QRgb kSetpointOnDark = 0xFFFF9F6E;

class ChartAccess : public QAccessibleWidget {
  public:
    explicit ChartAccess(ChartWidget* chart)
        : QAccessibleWidget(chart, QAccessible::Chart, chart->accessibleName()), of_(chart) {}

    QString text(QAccessible::Text kind) const override {
        if (kind == QAccessible::Description && of_->Describe) return of_->Describe();
        return QAccessibleWidget::text(kind);
    }

  private:
    ChartWidget* of_;
};

QAccessibleInterface* MakeAccess(const QString&, QObject* object) {
    auto* chart = dynamic_cast<ChartWidget*>(object);
    return chart ? new ChartAccess(chart) : nullptr;
}

}  // namespace

ChartWidget::ChartWidget(const ChartSurface& chart, QWidget* parent) : QWidget(parent), chart_(chart) {
    [[maybe_unused]] static const bool access = (QAccessible::installFactory(MakeAccess), true);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setMinimumSize(sizeHint() / 3);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::StrongFocus);
}

ChartColors ChartWidget::Colors() const {
    ChartColors colors;
    colors.Ink = palette().color(QPalette::Text);
    colors.Paper = palette().color(QPalette::Base);
    if (colors.Paper.lightness() < kDarkBelow) {
        colors.Second = kSecondOnDark;
        colors.Setpoint = kSetpointOnDark;
    }
    return colors;
}

const ChartMap& ChartWidget::Map() {
    if (!map_ || map_->Target() != rect() || map_->Scale() != shown_->Scale())
        map_.emplace(rect(), shown_->Scale());
    return *map_;
}

ChartLayers ChartWidget::Layers() const {
    if (over_) return {shown_, over_};
    return {shown_};
}

void ChartWidget::ShowInstead(const ChartSurface* other) {
    shown_ = other ? other : &chart_;
    painted_ = told_ = {};
    Follow();
}

void ChartWidget::Follow() {
    const std::vector<ChartEntry>& record = shown_->Record();
    const bool anew = told_.Generation != shown_->Generation() || told_.Entries > record.size();
    const Mark over = over_ ? EndOf(*over_) : Mark();
    if (anew || record.size() - told_.Entries > kFewEntries || over != overTold_) {
        update();
    } else {
        for (std::size_t i = told_.Entries; i < record.size(); ++i)
            update(Map().Reach(record[i]).toAlignedRect());
    }
    told_ = EndOf(*shown_);
    overTold_ = over;
}

void ChartWidget::BringUp() {
    const Mark now = EndOf(*shown_);
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
    PaintEntries(painter, Map(), *shown_, painted_.Entries, colors);
    painted_ = now;
}

// Only the part of the event is copied: whatever lies outside is clipped away.
void ChartWidget::paintEvent(QPaintEvent*) {
    BringUp();
    QPainter painter(this);
    painter.drawImage(QPoint(0, 0), picture_);
    if (over_) PaintEntries(painter, Map(), *over_, 0, Colors());
    if (!hasFocus()) return;
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
    painter.drawRect(rect().adjusted(1, 1, -1, -1));
}

void ChartWidget::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange) painted_ = {};
    QWidget::changeEvent(event);
}

void ChartWidget::TellDescription() {
    if (!QAccessible::isActive()) return;
    QAccessibleEvent event(this, QAccessible::DescriptionChanged);
    QAccessible::updateAccessibility(&event);
}

}  // namespace counter
