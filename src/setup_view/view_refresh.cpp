// The two refreshes of the Setup view, in the order in which their steps depend on one another.
#include "meter/boards.h"
#include "meter/field_lists.h"
#include "meter/mode_tables.h"
#include "setup_view/setup_view.h"

namespace counter {

void SetupView::InputRefresh() {
    SetHandlers(0);
    DerivedValues& values = Program.Derived;
    values.InputOption = InputOptionFromSetup(Program.Image);
    values.ModeIndex = BitsGet(Program.Image, 7, 4, 199);
    values.FunctionIndex = BitsGet(Program.Image, 3, 0, 199);
    Modes.Normalise();
    FrameUpdate(values.ModeWord);
    FilterUpdate();
    bool panel = Program.Identity.MeterType != 7;
    Communication.RTS.Frame.Visible = panel;
    Offer(kLockoutsTab, panel);
    ModeListFill();
    FunctionListFill();
    ItemDecPtMap(values);
    ViewRefresh();
    Input.ShowCutoffValue();
    ColorCommands();
    Modes.ShowClass();
    Class.MarkClass();
    if (Communication.Protocol.Inner.ListIndex > 0 && values.DisplayType == 12) Input.LeaveRemoteC();
    SetHandlers(1);
    MBRules(values.ProtocolCode);
}

void SetupView::ViewRefresh() {
    SetHandlers(0);
    DerivedValues& values = Program.Derived;
    ClockModeUpdate(values);
    if (values.ItemLevel >= 2) MultiplierFill(Scaling.Resoln.Inner[values.ItemLevel]);
    DecPtFill();
    SetFrameActive(Scaling.DecPt1.Frame[0], Scaling.DecPt1.Inner[0], values.DisplayType != 5);
    Scaling.RefreshCurve();
    ScaleCoord();
    DecPtAlign();
    CutoffRefresh();
    Scaling.RefreshSlopeA();
    Scaling.RefreshSlopeB();
    Input.RefreshGateTime();
    SqRtRefresh();
    Scaling.RefreshBatchCount();
    if (values.ItemLevel < 2) Read0InRefresh();
    Input.RefreshTimeOut();
    Input.RefreshDisplayType();
    Input.RefreshDisplayFilter();
    Input.RefreshPulsesAndItem();
    Input.RefreshPowerOnTotal();
    SrcUpdate();
    Alarms.RefreshSourcesAndValues();
    Analog.RefreshSourcesAndRanges();
    ItemDecPtMap(values);
    Analog.RefreshReadings();
    Filter.Refill();
    Input.RefillControlInputs();
    Input.RefillActions();
    Input.RefreshAction();
    SetHandlers(1);
}

void SetupView::SlopeListFill(Control& list) {
    Form::Fill(list, lists::kSlope);
}

void SetupView::MBRules(int protocol) {
    SetHandlers(0);
    Communication.ApplyProtocol(protocol);
    SetHandlers(1);
}

}  // namespace counter
