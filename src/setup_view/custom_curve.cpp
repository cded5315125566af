// Custom Curve and Square Root, which exclude each other.
#include <algorithm>

#include "meter/field_lists.h"
#include "meter/firmware.h"
#include "meter/meter_words.h"
#include "meter/mode_tables.h"
#include "setup_view/setup_view.h"

namespace counter {

namespace {

constexpr int kNoCurve = 1;  // class code of an Extended meter; 2 and 3 are curves 1 and 2
constexpr int kCurve2 = 3;

}  // namespace

void ScalingPage::WireCurve() {
    for (int level = 0; level < kLevels; ++level) {
        if (CusCrv.Inner.Has(level))
            Controls().On(CusCrv.Inner[level], [this](Control& list) { PickCurve(list); });
        Bind({chkSqRt[level], Field::SquareRoot}, [this](Control& box) { PickSquareRoot(box); });
    }
}

void ScalingPage::RefreshCurve() {
    curveInForce_ = false;
    if (Level() > 1) return;
    if (!Values().ExtendedMeter) PutCode(Image(), Field::ClassAndCurve, 0);
    Control& list = CusCrv.Inner[Level()];
    CurveListFill();
    bool offered = (Values().ModeWord & kWordCurve) != 0 && Values().ExtendedMeter;
    Form::SetFrameActive(CusCrv.Frame[Level()], list, offered);
    Controls().SetIndex(list, std::max(CodeOf(Image(), Field::ClassAndCurve) - kNoCurve, 0));
    curveInForce_ = list.ListIndex >= 1 && offered;
    const bool impossible =
        list.ListIndex == kCurve2 - kNoCurve && Values().InputOption != InputBoard::VfConverter;
    list.BackColor = impossible ? ColorRed : ColorLightYellow;
}

void ScalingPage::CurveListFill() {
    if (Level() > 1) return;
    const DerivedValues& values = Values();
    int comms = Program.Settings.CommsEnabled;
    bool phaseCurve =
        comms == Comms::NoLink || (comms == Comms::Link && PhaseCurveOffered(Meter().FirmwareVersion));
    bool powerFactor =
        values.ModeIndex == Mode::Phase && values.FunctionIndex == Function::PhasePlusMinus180 && phaseCurve;
    const std::string_view entries[] = {
        " Disabled", powerFactor ? " Power Factor" : " Curve #1",
        values.InputOption == InputBoard::VfConverter ? " Curve #2" : " #2 Not Available"};
    Form::Fill(CusCrv.Inner[Level()], entries);
}

void ScalingPage::PickCurve(Control& list) {
    int code = list.ListIndex + kNoCurve;
    PutCode(Image(), Field::ClassAndCurve, code);
    if (code > kNoCurve) PutCode(Image(), Field::SquareRoot, 0);
    SqRtRefresh();
    View.ViewRefresh();
}

bool ScalingPage::CurveChosen() const {
    return CodeOf(Image(), Field::ClassAndCurve) > kNoCurve;
}

// Where no root can be taken the box is cleared and the image keeps its bit.
void ScalingPage::SqRtRefresh() {
    Control& box = chkSqRt[Level()];
    bool curve = CurveChosen();
    box.Enabled = (Values().ModeWord & kWordSquareRoot) != 0 && !curve;
    box.Value = box.Enabled ? CodeOf(Image(), Field::SquareRoot) : 0;
}

void ScalingPage::PickSquareRoot(Control& box) {
    PutCode(Image(), Field::SquareRoot, box.Value);
    SqRtRefresh();
    View.ViewRefresh();
}

}  // namespace counter
