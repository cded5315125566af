// The first page: boards and class, input, display, control inputs, calibration.
#include <QVBoxLayout>

#include "desktop/kit/column_list.h"
#include "desktop/kit/qt_text.h"
#include "desktop/pages/setup_layout.h"

namespace counter {

namespace {

QWidget* BoardsBox(SetupLayout& layout, QWidget* page) {
    QGroupBox* box = layout.PlainBox(QStringLiteral("Option Boards"), page);
    BoxColumn column(layout, box, layout.NewCaptions());
    const OptionBoards& boards = layout.View.Boards;
    for (const Framed* board : {&boards.InOpt, &boards.RlyOpt, &boards.ComOpt, &boards.AnaOpt})
        column.Add(*board);
    column.End();
    return box;
}

// The options choose the class in the setup; the buttons write it into a connected meter at once.
QWidget* ClassBox(SetupLayout& layout, QWidget* page) {
    auto* place = new QWidget(page);
    auto* rows = new QVBoxLayout(place);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(kGrid);
    auto* options = new QHBoxLayout;
    options->setContentsMargins(kGrid, 0, kGrid, 0);
    for (Control* option : {&layout.View.Modes.optBasic, &layout.View.Modes.optExtended})
        options->addWidget(layout.Bound.Make(*option, place), 1);
    rows->addLayout(options);
    MeterClass& meter = layout.View.Class;
    QWidget* box = layout.Bound.MakeGroup(meter.fraBasExt, place);
    BoxColumn column(layout, box, layout.NewCaptions());
    column.AddSide({&meter.cmd9600, &meter.cmdQBasic, &meter.cmdQExtended});
    rows->addWidget(box);
    return place;
}

QWidget* InputBox(SetupLayout& layout, QWidget* page) {
    const InputDisplayPage& input = layout.View.Input;
    QWidget* box = layout.Bound.MakeGroup(input.fraInput, page);
    BoxColumn column(layout, box, layout.NewCaptions());
    column.Add(layout.View.Modes.Mode);
    column.Add(layout.View.Modes.Function);
    // The last two are often hidden.
    for (const Framed* pair :
         {&input.GateTime, &input.TimeOut, &input.PwrOnTot, &input.Pulses, &input.CutoffEnable})
        column.Add(*pair);
    column.End();
    return box;
}

QWidget* DisplayBox(SetupLayout& layout, QWidget* page) {
    const InputDisplayPage& input = layout.View.Input;
    QWidget* box = layout.Bound.MakeGroup(input.fraDisplay, page);
    BoxColumn column(layout, box, layout.NewCaptions());
    for (const Framed* pair : {&input.DType, &input.DVal, &input.LeadZ, &input.DspyN, &input.Action})
        column.Add(*pair);
    column.End();
    return box;
}

QWidget* ControlInputsBox(SetupLayout& layout, QWidget* page) {
    const InputDisplayPage& input = layout.View.Input;
    QWidget* box = layout.Bound.MakeGroup(input.fraExtAB, page);
    BoxColumn column(layout, box, layout.NewCaptions());
    auto* heading = static_cast<QLabel*>(column.Add(input.lblExtAB));
    auto* list = new ColumnList(box, QtText(input.lblExtAB.Caption));
    list->setObjectName(ObjectName(input.cboExtAB));
    for (QWidget* widget : {static_cast<QWidget*>(heading), static_cast<QWidget*>(list)})
        widget->setFont(FixedPitchFont());
    heading->setIndent(list->TextInset());
    layout.Bound.Bind(input.cboExtAB, list);
    column.AddWidget(list);
    return box;
}

QWidget* CalibrationBox(SetupLayout& layout, QWidget* page) {
    const InputDisplayPage& input = layout.View.Input;
    QWidget* box = layout.Bound.MakeGroup(input.fraCalib, page);
    BoxColumn column(layout, box, layout.NewCaptions());
    column.Add(input.txtCal);
    return box;
}

}  // namespace

void LayOutInputDisplay(SetupLayout& layout, QWidget* page) {
    auto* grid = new BoxFlow(page, 3);
    grid->Add(BoardsBox(layout, page), 0, 0);
    grid->Add(ClassBox(layout, page), 1, 0);
    grid->Add(InputBox(layout, page), 0, 1, 2, 1);
    grid->Add(DisplayBox(layout, page), 0, 2);
    grid->Add(CalibrationBox(layout, page), 1, 2);
    grid->Add(ControlInputsBox(layout, page), 2, 0, 1, 3);
}

}  // namespace counter
