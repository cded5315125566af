#include "desktop/pages/setup_layout.h"

#include <QHBoxLayout>
#include <algorithm>

namespace counter {

namespace {

bool AnyOnShow(const QWidget& box) {
    const QList<QWidget*> children = box.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
    return std::any_of(children.begin(), children.end(), [](const QWidget* child) {
        return !(child->testAttribute(Qt::WA_WState_ExplicitShowHide) && child->isHidden());
    });
}

void Align(const CaptionColumn& column) {
    int width = 0;
    for (CaptionRow* row : column.Rows) width = std::max(width, row->Caption().sizeHint().width());
    for (CaptionRow* row : column.Rows) {
        if (row->Caption().minimumWidth() != width || row->Caption().maximumWidth() != width)
            row->SetWidths(width, 0);
    }
}

}  // namespace

QGroupBox* SetupLayout::PlainBox(const QString& title, QWidget* parent) {
    auto* box = new QGroupBox(title, parent);
    KeepPlace(box);
    plainBoxes_.push_back(box);
    return box;
}

void SetupLayout::Follow() {
    for (const CaptionColumn& column : captions_) {
        for (CaptionRow* row : column.Rows) row->FollowField();
        Align(column);
    }
    for (QGroupBox* box : plainBoxes_) {
        const bool show = AnyOnShow(*box);
        if (box->isHidden() == show) box->setVisible(show);
    }
}

BoxColumn::BoxColumn(SetupLayout& layout, QWidget* box, CaptionColumn& captions)
    : layout_(layout), box_(box), captions_(captions), grid_(new QGridLayout(box)) {
    grid_->setContentsMargins(kGrid, kGrid, kGrid, kGrid);
    grid_->setVerticalSpacing(kGrid / 2);
    grid_->setHorizontalSpacing(kGrid);
}

CaptionRow* BoxColumn::Add(Control& frame, Control& inner) {
    CaptionRow* row = layout_.Bound.MakeRow(frame, inner, box_);
    KeepPlace(row);
    KeepPlace(layout_.Bound.WidgetOf(inner));
    captions_.Rows.push_back(row);
    AddWidget(row);
    return row;
}

QWidget* BoxColumn::Add(Control& control) {
    QWidget* widget = layout_.Bound.Make(control, box_);
    KeepPlace(widget);
    AddWidget(widget);
    return widget;
}

void BoxColumn::AddAlternatives(std::initializer_list<const Framed*> pairs) {
    const int place = row_;
    for (const Framed* pair : pairs) {
        row_ = place;
        Add(*pair);
    }
}

void BoxColumn::AddSide(std::initializer_list<Control*> controls) {
    auto* side = new QHBoxLayout;
    side->setSpacing(kGrid);
    for (Control* control : controls) {
        QWidget* widget = layout_.Bound.Make(*control, box_);
        KeepPlace(widget);
        side->addWidget(widget, 1);
    }
    grid_->addLayout(side, row_++, 0);
}

void BoxColumn::AddWidget(QWidget* widget) {
    grid_->addWidget(widget, row_++, 0);
}

}  // namespace counter
