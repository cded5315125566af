// What the seven pages of the Setup view are laid out with: boxes with rows in them, whose captions have one
// width. A control that is hidden keeps its place, so that a page doesn't jump while it is worked on.
#pragma once

#include <QGridLayout>
#include <QGroupBox>
#include <deque>
#include <initializer_list>
#include <vector>

#include "desktop/kit/binder.h"
#include "desktop/kit/box_flow.h"
#include "desktop/kit/control_widget.h"
#include "desktop/kit/grid.h"
#include "setup_view/setup_view.h"

namespace counter {

// Rows whose captions have one width, in one box or in boxes that are below one another.
struct CaptionColumn {
    std::vector<CaptionRow*> Rows;
};

class SetupLayout {
  public:
    SetupLayout(SetupView& view, Binder& bound) : View(view), Bound(bound) {}

    SetupView& View;
    Binder& Bound;

    CaptionColumn& NewCaptions() { return captions_.emplace_back(); }
    // A box that is no control: it is on show while anything in it is.
    QGroupBox* PlainBox(const QString& title, QWidget* parent);

    // After every refresh and change of font: what follows from what the controls now show.
    void Follow();

  private:
    std::deque<CaptionColumn> captions_;
    std::vector<QGroupBox*> plainBoxes_;
};

// The inside of one box, filled from the top.
class BoxColumn {
  public:
    BoxColumn(SetupLayout& layout, QWidget* box, CaptionColumn& captions);
    BoxColumn(const BoxColumn&) = delete;  // one a box
    BoxColumn& operator=(const BoxColumn&) = delete;

    CaptionRow* Add(const Framed& pair) { return Add(pair.Frame, pair.Inner); }
    CaptionRow* Add(Control& frame, Control& inner);
    QWidget* Add(Control& control);
    // Rows of which one at most is on show take one place.
    void AddAlternatives(std::initializer_list<const Framed*> pairs);
    void AddSide(std::initializer_list<Control*> controls);
    void AddWidget(QWidget* widget);
    // Whatever height is left stays empty below.
    void End() { grid_->setRowStretch(row_, 1); }

  private:
    SetupLayout& layout_;
    QWidget* box_;
    CaptionColumn& captions_;
    QGridLayout* grid_;
    int row_ = 0;
};

// Each in NAME_layout.cpp, those of one kind of box in plain_layouts.cpp.
void LayOutInputDisplay(SetupLayout& layout, QWidget* page);
void LayOutScaling(SetupLayout& layout, QWidget* page);
void LayOutFilter(SetupLayout& layout, QWidget* page);
void LayOutAlarms(SetupLayout& layout, QWidget* page);
void LayOutCommunication(SetupLayout& layout, QWidget* page);
void LayOutAnalog(SetupLayout& layout, QWidget* page);
void LayOutLockouts(SetupLayout& layout, QWidget* page);

}  // namespace counter
