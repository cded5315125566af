// The first page: how the meter measures and displays, control inputs, calibration.
#pragma once

#include "setup_view/mode_lists.h"
#include "setup_view/page.h"
#include "setup_view/tabs.h"

namespace counter {

struct InputDisplayPage : Page {
    InputDisplayPage(SetupView& view, ModeLists& modes) : Page(view, kInputTab), fraInput(modes.fraInput) {}

    // clang-format off
    Control& fraInput;
    Framed   GateTime     = Build.Wrap(ControlKind::Value, &fraInput, "txtGateTime", "Gate Time");
    Framed   TimeOut      = Build.Wrap(ControlKind::Value, &fraInput, "txtTimeOut", "Time Out");
    Control& lblTSecs     = Build.Add(ControlKind::Label, &TimeOut.Frame, "lblTSecs", "Secs");
    Framed   Pulses       = Build.Wrap(ControlKind::Value, &fraInput, "txtPulses", "Pulses per Rev");
    Framed   CutoffEnable = Build.Wrap(ControlKind::List, &fraInput, "cboCutoffEnable", "Cutoff Enable");
    Framed   PwrOnTot     = Build.Wrap(ControlKind::List, &fraInput, "cboPwrOnTot", "Power-On Total");

    Control& fraDisplay   = Build.Add(ControlKind::Frame, nullptr, "fraDisplay", "Display");
    Framed   DType        = Build.Wrap(ControlKind::List, &fraDisplay, "cboDType", "Type");
    Framed   DVal         = Build.Wrap(ControlKind::List, &fraDisplay, "cboDVal", "Filter");
    Framed   LeadZ        = Build.Wrap(ControlKind::List, &fraDisplay, "cboLeadZ", "Leading Zeros");
    Framed   DspyN        = Build.Wrap(ControlKind::List, &fraDisplay, "cboDspyN", "Display Item No.");
    Framed   Action       = Build.Wrap(ControlKind::List, &fraDisplay, "cboAction", "Peak Key Action");

    Control& fraExtAB     = Build.Add(ControlKind::Frame, nullptr, "fraExtAB", "Control Inputs");
    Control& lblExtAB     = Build.Add(ControlKind::Label, &fraExtAB, "lblExtAB",
        " Control Input 1 -------------- Control Input 2 ------------------ Both Ctrl 1, 2");
    Control& cboExtAB     = Build.Add(ControlKind::List, &fraExtAB, "cboExtAB");

    Control& fraCalib     = Build.Add(ControlKind::Frame, nullptr, "fraCalib", "Calibration, Parts per Million");
    Control& txtCal       = Build.Add(ControlKind::Value, &fraCalib, "txtCal");
    // clang-format on

    void Wire();

    // Opening the view.
    void FillFixedLists();
    // The list of Display Types, which depends on board and link. Sets DisplayType; a "Remote C" display that
    // a Modbus link can't have becomes type 7 in the image.
    void DisplayTypeFill();
    void ShowByMeterKind();
    void ShowSelections();

    // Refreshing it.
    void CutoffRefresh();
    // Gate Time and calibration.
    void RefreshPlainValues();
    void RefreshTimeOut();
    void RefreshDisplayType();
    void RefreshDisplayFilter();
    void RefreshPulsesAndItem();
    void RefreshPowerOnTotal();
    void RefreshAction();
    // Entries follow version and Display Type; the selection stays.
    void RefillControlInputs();
    void RefillActions();
    // A rule picks type 7 where a "Remote C" display can't be.
    void LeaveRemoteC();

  private:
    void PickDisplayType();
    void PickCutoffEnable();
    void PickPowerOnTotal();
    void RefreshDisplayItem();
};

}  // namespace counter
