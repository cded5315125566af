#include "desktop/pages/chart_explorer.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QMouseEvent>
#include <QRubberBand>
#include <QWheelEvent>

#include "desktop/kit/chart_files.h"
#include "desktop/kit/qt_text.h"

namespace counter {

namespace {

constexpr double kCloser = 1.25;      // of one step
constexpr double kMoveStep = 0.1;     // of the part on show
constexpr double kCursorMargin = 10;  // units that its text is away from the axis
constexpr double kCursorArm = 6;      // units that the cross on a reading reaches

}  // namespace

ChartExplorer::ChartExplorer(const CloseLook& of, ChartWidget& chart)
    : of_(of), chart_(chart), band_(new QRubberBand(QRubberBand::Rectangle, &chart)) {
    chart_.SetOver(&over_);
    chart_.setMouseTracking(true);
    chart_.installEventFilter(this);
}

void ChartExplorer::Follow() {
    const bool looks = cursor_ || !window_.IsWhole();
    if (looks && !of_.AtRest()) BackToWhole();
    chart_.Follow();
}

void ChartExplorer::FollowAll() {
    Follow();
    DrawOver();
}

std::string ChartExplorer::CursorText() const {
    return cursor_ && *cursor_ < of_.Spots() ? of_.Spot(*cursor_).Text : std::string();
}

void ChartExplorer::Copy() const {
    auto* data = new QMimeData;
    data->setImageData(ChartPicture(chart_.Layers(), chart_.size(), chart_.devicePixelRatioF()));
    data->setText(QtText(of_.ValuesText()));
    QApplication::clipboard()->setMimeData(data);
}

QPointF ChartExplorer::PartAt(const QPointF& place) const {
    const ChartScale area = of_.DataArea();
    const QPointF units = chart_.Map().UnitsAt(place);
    return {(units.x() - area.Left) / (area.Right - area.Left),
            (units.y() - area.Bottom) / (area.Top - area.Bottom)};
}

void ChartExplorer::BackToWhole() {
    cursor_.reset();
    pressed_.reset();
    band_->hide();
    Look({});
}

void ChartExplorer::Look(const ChartWindow& window) {
    const bool other = window != window_;
    window_ = window;
    if (other && window_.IsWhole()) chart_.ShowInstead(nullptr);
    if (other && !window_.IsWhole()) {
        of_.DrawWindow(larger_, window_);
        chart_.ShowInstead(&larger_);
    }
    DrawOver();
}

// Drawn anew only where it differs: it lies over all of the chart.
void ChartExplorer::DrawOver() {
    ChartSurface fresh;
    of_.DrawMarks(fresh, window_);
    if (cursor_ && *cursor_ < of_.Spots()) {
        const ChartSpot spot = of_.Spot(*cursor_);
        const ChartScale area = of_.DataArea();
        const double x = area.Left + window_.Across(spot.X) * (area.Right - area.Left);
        const double y = area.Bottom + window_.Up(spot.Y) * (area.Top - area.Bottom);
        if (x >= area.Left && x <= area.Right) {
            fresh.Draw(ChartLine{x, area.Bottom, x, area.Top, 1});
            if (y >= area.Bottom && y <= area.Top)
                fresh.Draw(ChartLine{x - kCursorArm, y, x + kCursorArm, y, 2});
        }
        fresh.Draw(ChartText{spot.Text, TextAnchor::Left, area.Left + kCursorMargin, area.Top, 0,
                             ChartInk::Plain, true});
    }
    if (fresh.Record() == over_.Record()) return;
    over_.Clear();
    for (const ChartEntry& entry : fresh.Record()) over_.Draw(entry);
    chart_.Follow();
    chart_.TellDescription();
}

bool ChartExplorer::eventFilter(QObject*, QEvent* event) {
    const bool copies =
        event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->matches(QKeySequence::Copy);
    if (copies) Copy();
    if (event->type() == QEvent::ContextMenu) OpenMenu(static_cast<QContextMenuEvent*>(event)->globalPos());
    return copies || (of_.AtRest() && Handle(event));
}

bool ChartExplorer::Handle(QEvent* event) {
    switch (event->type()) {
        case QEvent::MouseButtonPress:
            return Press(*static_cast<QMouseEvent*>(event));
        case QEvent::MouseMove:
            Move(*static_cast<QMouseEvent*>(event));
            return false;
        case QEvent::MouseButtonRelease:
            return Release();
        case QEvent::Wheel:
            return Wheel(*static_cast<QWheelEvent*>(event));
        case QEvent::KeyPress:
            return Key(*static_cast<QKeyEvent*>(event));
        default:
            return false;
    }
}

// The press itself goes on to the widget, which takes the focus.
bool ChartExplorer::Press(const QMouseEvent& event) {
    if (event.button() != Qt::LeftButton) return false;
    pressed_ = event.pos();
    moves_ = !window_.IsWhole() && !(event.modifiers() & Qt::ShiftModifier);
    return false;
}

void ChartExplorer::Move(const QMouseEvent& event) {
    if (!pressed_) {
        cursor_ = of_.NearestSpot(window_.XOf(PartAt(event.pos()).x()));
        DrawOver();
    } else if (moves_) {
        const QPointF by = PartAt(*pressed_) - PartAt(event.pos());
        pressed_ = event.pos();
        Look(Moved(window_, by.x(), by.y()));
    } else {
        band_->setGeometry(QRect(*pressed_, event.pos()).normalized());
        band_->show();
    }
}

// A click that hardly moves is none.
bool ChartExplorer::Release() {
    const QRect area = band_->geometry();
    const bool drawn = pressed_ && band_->isVisible();
    pressed_.reset();
    band_->hide();
    if (!drawn || std::min(area.width(), area.height()) < QApplication::startDragDistance()) return false;
    const QPointF one = PartAt(area.topLeft());
    const QPointF other = PartAt(area.bottomRight());
    Look(PartOf(window_, one.x(), one.y(), other.x(), other.y()));
    return false;
}

bool ChartExplorer::Wheel(const QWheelEvent& event) {
    chart_.setFocus(Qt::OtherFocusReason);  // for the keys that go on from here
    const int turned = event.angleDelta().y();
    const QPointF at = PartAt(event.position());
    if (turned != 0) Look(ZoomedAt(window_, turned > 0 ? kCloser : 1 / kCloser, at.x(), at.y()));
    return true;
}

bool ChartExplorer::Key(const QKeyEvent& event) {
    const bool moves = event.modifiers() & Qt::ControlModifier;
    const double x = cursor_ && *cursor_ < of_.Spots() ? window_.Across(of_.Spot(*cursor_).X) : 0.5;
    switch (event.key()) {
        case Qt::Key_Left:
        case Qt::Key_Right: {
            const int by = event.key() == Qt::Key_Left ? -1 : 1;
            if (moves) {
                Look(Moved(window_, by * kMoveStep, 0));
            } else {
                StepCursor(by);
            }
            return true;
        }
        case Qt::Key_Up:
        case Qt::Key_Down:
            if (moves) Look(Moved(window_, 0, event.key() == Qt::Key_Up ? kMoveStep : -kMoveStep));
            return moves;
        case Qt::Key_Plus:
        case Qt::Key_Equal:
            Look(ZoomedAt(window_, kCloser, x, 0.5));
            return true;
        case Qt::Key_Minus:
            Look(ZoomedAt(window_, 1 / kCloser, x, 0.5));
            return true;
        case Qt::Key_Home:
            BackToWhole();
            return true;
        default:
            return false;
    }
}

// From the middle of what is on show; a part that is looked at goes with the cursor.
void ChartExplorer::StepCursor(int by) {
    if (!cursor_) {
        cursor_ = of_.NearestSpot(window_.XOf(0.5));
    } else {
        const auto last = static_cast<std::ptrdiff_t>(of_.Spots()) - 1;
        const auto next = static_cast<std::ptrdiff_t>(*cursor_) + by;
        cursor_ = static_cast<std::size_t>(std::clamp<std::ptrdiff_t>(next, 0, last));
    }
    const double x = window_.Across(of_.Spot(*cursor_).X);
    if (x < 0) Look(Moved(window_, x, 0));
    if (x > 1) Look(Moved(window_, x - 1, 0));
    DrawOver();
}

void ChartExplorer::OpenMenu(const QPoint& at) {
    auto* menu = new QMenu(&chart_);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addAction(QStringLiteral("&Copy"), this, [this] { Copy(); });
    QAction* whole = menu->addAction(QStringLiteral("&Whole Chart"), this, [this] { BackToWhole(); });
    whole->setEnabled(!window_.IsWhole());
    menu->popup(at);
}

}  // namespace counter
