// One renderer for each kind of control: the widget that shows it. What it shows, the Binder sets.
#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QWidget>
#include <functional>

#include "controls/control.h"

namespace counter {

// Shows that it has the focus by a frame of its own: the button that Enter presses looks alike without.
class PushButton : public QPushButton {
  public:
    using QPushButton::QPushButton;

  protected:
    void paintEvent(QPaintEvent* event) override;
};

// Shows a value; a click, Enter or the space bar opens its digit entry, and so does a digit or a sign, which
// is then typed there. Nothing is typed into the box itself.
class ValueBox : public QLineEdit {
  public:
    explicit ValueBox(QWidget* parent);
    std::function<void()> Opened;
    std::function<void(char key)> Typed;

    // The longest value fits in it whole.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void Open();
};

// A caption and the field beside it, with whatever comes after the field.
class CaptionRow : public QWidget {
  public:
    CaptionRow(QWidget* parent, const std::string& caption);
    QLabel& Caption() { return *caption_; }
    void AddField(QWidget* field, int stretch = 0);
    // Rows that are below one another have captions and fields of one width.
    void SetWidths(int caption, int field);
    // After a change: a caption shows with its field alone and is its name, and what comes after the field
    // keeps room for a short word, so that the field keeps its width.
    void FollowField();

  private:
    QLabel* caption_;
    QWidget* field_ = nullptr;
    QWidget* behind_ = nullptr;
};

// Widget for a control of any kind but a menu entry or tab strip, which their window makes.
QWidget* MakeWidget(const Control& control, QWidget* parent);

// "txtSetpt[1]": the object name by which tests and assistive tools find a control's widget.
QString ObjectName(const Control& control);

}  // namespace counter
