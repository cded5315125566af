// ReadingStrip: what the readings amount to, in words under a view of readings, and which item is meant.
#pragma once

#include <QBasicTimer>
#include <QLabel>
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
    QSize minimumSizeHint() const override;
    int heightForWidth(int width) const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    std::vector<QPoint> Places(int width) const;

    const ReadingView& view_;
    std::vector<QString> shown_;
};

class ReadingStrip : public QWidget {
  public:
    ReadingStrip(ReadingView& view, Binder& bound, QWidget* parent);

    QString Recorded() const { return record_->text(); }  // how far a recording is
    // Readings have been taken; shown once a second, however fast they come.
    void FollowReadings();

  protected:
    // A meter that falls silent tells nothing, so the strip looks by itself.
    void timerEvent(QTimerEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

  private:
    void Follow();

    ReadingView& view_;
    FigureLines* lines_;
    QLabel* record_;  // how far the recording is
    QBasicTimer timer_;
    double nextMs_ = 0;
};

}  // namespace counter
