// StatusStrip: the dark strip at the foot of a view, on which green, red and white texts read well.
#pragma once

#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>
#include <QWidget>
#include <functional>

#include "controls/control.h"

namespace counter {

class StatusStrip : public QWidget {
  public:
    explicit StatusStrip(QWidget* parent);

    // A label's caption in its colour; a hidden one leaves the strip empty.
    void ShowLine(const Control& line);
    // At the foot of a page that has no layout yet, without a bar. Returns the page's column above it.
    QVBoxLayout* LieBelow(QWidget* page);
    // Behind the bar; Escape does the same, wherever the focus is in the page.
    void AddCancel(QWidget* button, std::function<void()> cancel);
    // Room for this many lines of text, so that the strip doesn't jump; a text that wraps to more gets what
    // it needs.
    void KeepLines(int lines);
    QLabel& Line() { return *line_; }
    QProgressBar& Bar() { return *bar_; }

  protected:
    bool eventFilter(QObject* object, QEvent* event) override;

  private:
    int HeightOfText() const;
    void FollowText();
    // A strip without a bar gives its place to the line.
    void LeaveOutBar();

    QLabel* line_;
    QProgressBar* bar_;
    int lines_ = 1;
};

}  // namespace counter
