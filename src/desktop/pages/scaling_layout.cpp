// The scaling page: frames of one to three items side by side. The four layouts of the meter's Functions
// share the place; the frames of one of them are on show.
#include "desktop/pages/setup_layout.h"

namespace counter {

namespace {

template <std::size_t N>
void AddInFrame(BoxColumn& column, const Control& frame, const FramedArray<N>& array) {
    for (int i = 0; i < static_cast<int>(N); ++i) {
        if (array.Frame.Has(i) && array.Frame[i].Container == &frame)
            column.Add(array.Frame[i], array.Inner[i]);
    }
}

template <std::size_t N>
void AddInFrame(BoxColumn& column, const Control& frame, const ControlArray<N>& array) {
    for (int i = 0; i < static_cast<int>(N); ++i) {
        if (array.Has(i) && array[i].Container == &frame) column.Add(array[i]);
    }
}

void AddGroup(BoxColumn& column, const Control& frame, const ScalingGroup& group) {
    AddInFrame(column, frame, group.optScale);
    for (const auto* array : {&group.Scale, &group.Mult, &group.Offset}) AddInFrame(column, frame, *array);
    AddInFrame(column, frame, group.optCoord);
    for (const auto* array : {&group.LoIn, &group.LoRd, &group.HiIn, &group.HiRd})
        AddInFrame(column, frame, *array);
}

// What the frame holds in any layout comes in one order.
QWidget* ItemBox(SetupLayout& layout, QWidget* page, Control& frame, Control& name) {
    const ScalingPage& scaling = layout.View.Scaling;
    QWidget* box = layout.Bound.MakeGroup(frame, page);
    BoxColumn column(layout, box, layout.NewCaptions());
    QWidget* heading = column.Add(name);
    QFont bold;
    bold.setBold(true);
    heading->setFont(bold);
    for (const Framed* list : {&scaling.BatCount, &scaling.BatReset, &scaling.BatItm2, &scaling.BatStart}) {
        if (list->Frame.Container == &frame) column.Add(*list);
    }
    for (const auto* array : {&scaling.Resoln, &scaling.DecPt1, &scaling.DecPt2})
        AddInFrame(column, frame, *array);
    AddGroup(column, frame, scaling.Group1);
    AddGroup(column, frame, scaling.Group2);
    AddInFrame(column, frame, scaling.TrigSlpA);
    AddInFrame(column, frame, scaling.CusCrv);
    AddInFrame(column, frame, scaling.Rd0In);
    AddInFrame(column, frame, scaling.chkSqRt);
    AddInFrame(column, frame, scaling.TrigSlpB);  // often hidden, so its place is the last
    column.End();
    return box;
}

}  // namespace

void LayOutScaling(SetupLayout& layout, QWidget* page) {
    const ScalingPage& scaling = layout.View.Scaling;
    auto* grid = new BoxFlow(page, 3);
    for (int level = 0; level < ScalingPage::kLevels; ++level) {
        grid->Add(ItemBox(layout, page, scaling.fraItem1[level], scaling.lblItem1[level]), 0, 0);
        grid->Add(ItemBox(layout, page, scaling.fraItem2[level], scaling.lblItem2[level]), 0, 1);
        if (scaling.fraItem3.Has(level))
            grid->Add(ItemBox(layout, page, scaling.fraItem3[level], scaling.lblItem3[level]), 0, 2);
    }
}

}  // namespace counter
