// The alarms page: up to four alarms and their relays. Elements are alarms 1 to 4.
#pragma once

#include "setup_view/page.h"
#include "setup_view/tabs.h"

namespace counter {

struct AlarmsPage : Page {
    explicit AlarmsPage(SetupView& view);

    static constexpr int kAlarms = 4;

    // clang-format off
    ControlArray<5> fraAlarm  = Build.AddRange<5>(ControlKind::Frame, 1, kAlarms, "fraAlarm", "Alarm #");
    FramedArray<5>  AlmSource = Build.WrapEach(ControlKind::List,  fraAlarm, "cboAlmSource", "Alarm # Source");
    FramedArray<5>  State     = Build.WrapEach(ControlKind::List,  fraAlarm, "cboState",     "Alarm # State");
    FramedArray<5>  AlmType   = Build.WrapEach(ControlKind::List,  fraAlarm, "cboAlmType",   "Alarm # Type");
    FramedArray<5>  RlyState  = Build.WrapEach(ControlKind::List,  fraAlarm, "cboRlyState",  "Relay# Alrm State");
    FramedArray<5>  Setpt     = Build.WrapEach(ControlKind::Value, fraAlarm, "txtSetpt",     "Setpoint #");
    FramedArray<5>  DevTyp    = Build.WrapEach(ControlKind::List,  fraAlarm, "cboDevTyp",    "Deviation # Type");
    FramedArray<5>  Dev       = Build.WrapEach(ControlKind::Value, fraAlarm, "txtDev",       "Deviation #");
    // Element 0 rules alarms 1 and 2, element 1 alarms 3 and 4.
    FramedArray<2>  NumRdgsAlms;
    Control& chkDevStatus     = Build.Add(ControlKind::Check, nullptr, "chkDevStatus", "No Deviation in Menu");
    // clang-format on

    void Wire();
    void FillLists();
    void ShowFields();
    // Sources, setpoints and deviations; sources that aren't offered are repaired in the image.
    void RefreshSourcesAndValues();

  private:
    void FillDeviationTypes();
    void ShowDeviationTypes();
    void ShowDeviationStatus();
    void PickDeviationType12();
    void PickDeviationType34();
    void PickDeviationStatus();
    void EnableDeviations();
};

}  // namespace counter
