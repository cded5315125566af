// ChartExplorer: the cursor, and parts of the chart seen larger, while nothing comes in; copying at any time.
//
//   mouse over, left and right keys    the cursor goes to a reading
//   wheel, + and -                     closer and back
//   drag                               from corner to corner of what is to be seen; in a part, moves it; with
//                                      Shift, from corner to corner again
//   arrows with Ctrl                   move the part
//   Home                               the whole chart, and no cursor
//   Ctrl+C                             picture and values to the clipboard
#pragma once

#include <QObject>
#include <QPoint>
#include <optional>

#include "desktop/kit/chart_widget.h"
#include "readings/close_look.h"

class QKeyEvent;
class QMenu;
class QMouseEvent;
class QRubberBand;
class QWheelEvent;

namespace counter {

class ChartExplorer : public QObject {
  public:
    // Both outlive it.
    ChartExplorer(const CloseLook& of, ChartWidget& chart);

    // Readings have come: paints what is new, and the whole chart again where it isn't at rest any more.
    void Follow();
    // The controls have changed: what lies over the chart may be another.
    void FollowAll();
    // What the cursor is on; empty where there is none.
    std::string CursorText() const;
    void Copy() const;

  protected:
    bool eventFilter(QObject* object, QEvent* event) override;

  private:
    bool Handle(QEvent* event);
    bool Press(const QMouseEvent& event);
    void Move(const QMouseEvent& event);
    bool Release();
    bool Wheel(const QWheelEvent& event);
    bool Key(const QKeyEvent& event);
    void OpenMenu(const QPoint& at);
    void StepCursor(int by);
    void Look(const ChartWindow& window);
    void BackToWhole();
    void DrawOver();
    // A place on the widget as part of the window.
    QPointF PartAt(const QPointF& place) const;

    const CloseLook& of_;
    ChartWidget& chart_;
    ChartWindow window_;
    ChartSurface larger_;  // the part that is looked at
    ChartSurface over_;    // setpoints and cursor
    std::optional<std::size_t> cursor_;
    std::optional<QPoint> pressed_;  // the left button is down since here
    bool moves_ = false;             // dragging moves the part
    QRubberBand* band_;
};

}  // namespace counter
