// ReadingStrip: what the readings amount to, in words under a view of readings, and which item is meant.
#pragma once

#include <QBasicTimer>
#include <QWidget>

#include "desktop/kit/binder.h"
#include "readings/reading_view.h"

namespace counter {

// Each text has a place of its own, so that nothing moves while the numbers change. Painted and not made of
// labels: a label that gets another text has the whole page laid out again.
class FigureLines : public QWidget {
  public:
    FigureLines(const ReadingView& view, QWidget* parent);
    void Follow();
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    const ReadingView& view_;
    std::vector<QString> shown_;
};

class ReadingStrip : public QWidget {
  public:
    ReadingStrip(ReadingView& view, Binder& bound, QWidget* parent);

    // Readings have been taken; shown once a second, however fast they come.
    void FollowReadings();

  protected:
    // A meter that falls silent tells nothing, so the strip looks by itself.
    void timerEvent(QTimerEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

  private:
    ReadingView& view_;
    FigureLines* lines_;
    QBasicTimer timer_;
    double nextMs_ = 0;
};

}  // namespace counter
