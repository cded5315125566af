// The two refreshes of the Setup view, in the order in which their steps depend on one another.
#include "meter/boards.h"
#include "meter/field_code.h"
#include "meter/meter_words.h"
#include "setup_view/setup_view.h"

namespace counter {

void SetupView::InputRefresh() {
    SetHandlers(false);
    DerivedValues& values = Program.Derived;
    values.InputOption = InputOptionFromSetup(Program.Image);
    values.ModeIndex = CodeOf(Program.Image, Field::Mode);
    values.FunctionIndex = CodeOf(Program.Image, Field::Function);
    Modes.Normalise();
    Scaling.FrameUpdate(values.ModeWord);
    Filter.FilterUpdate();
    bool panel = HasPanel(Program.Identity.MeterType);
    Communication.RTS.Frame.Visible = panel;
    Offer(kLockoutsTab, panel);
    Modes.ModeListFill();
    Modes.FunctionListFill();
    ItemDecPtMap(values);
    const int stay = stay_;
    ViewRefresh();
    if (stay != stay_) return;
    Class.ColorCommands();
    Modes.ShowClass();
    Class.MarkClass();
    if (Communication.Protocol.Inner.ListIndex > Protocol::CustomAscii &&
        values.DisplayType == DisplayType::RemoteC)
        Input.LeaveRemoteC();
    SetHandlers(true);
    Communication.MBRules(values.ProtocolCode);
}

void SetupView::ViewRefresh() {
    SetHandlers(false);
    DerivedValues& values = Program.Derived;
    ClockModeUpdate(values);
    if (values.ItemLevel >= 2) Scaling.MultiplierFill(Scaling.Resoln.Inner[values.ItemLevel]);
    Scaling.DecPtFill();
    Form::SetFrameActive(Scaling.DecPt1.Frame[0], Scaling.DecPt1.Inner[0],
                         values.DisplayType != DisplayType::Clock);
    Scaling.RefreshCurve();
    const int stay = stay_;
    Scaling.ScaleCoord();
    if (stay != stay_) return;
    Scaling.DecPtAlign();
    Input.CutoffRefresh();
    Scaling.RefreshSlopeA();
    Scaling.RefreshSlopeB();
    Input.RefreshPlainValues();
    Scaling.SqRtRefresh();
    Scaling.RefreshBatchCount();
    if (values.ItemLevel < 2) Scaling.Read0InRefresh();
    Input.RefreshTimeOut();
    Input.RefreshDisplayType();
    Input.RefreshDisplayFilter();
    Input.RefreshPulsesAndItem();
    Input.RefreshPowerOnTotal();
    SrcUpdate(values);
    Alarms.RefreshSourcesAndValues();
    Analog.RefreshSourcesAndRanges();
    ItemDecPtMap(values);
    Analog.RefreshReadings();
    Filter.Refill();
    Input.RefillControlInputs();
    Input.RefillActions();
    Input.RefreshAction();
    if (CurrentTab() == kFilterTab) Filter.Come();  // its lists are blank only while it is not on show
    SetHandlers(true);
}

}  // namespace counter
