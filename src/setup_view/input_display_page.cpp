#include "setup_view/input_display_page.h"

#include <algorithm>

#include "meter/field_lists.h"
#include "meter/firmware.h"
#include "meter/meter_words.h"
#include "meter/mode_tables.h"
#include "setup_view/setup_view.h"

namespace counter {

namespace {

using Entries = std::span<const std::string_view>;

// A meter without a panel names the remote types otherwise.
constexpr std::string_view kRemoteWithoutPanel[] = {" Remote A", " Remote S", " Remote 1", " Remote 2",
                                                    " Remote 3", " Remote 4", " Remote C"};

// Whether a value's text represents anything but 0.
bool IsNotZero(std::string_view text) {
    return text.find_first_of("123456789") != std::string_view::npos;
}

}  // namespace

void InputDisplayPage::Wire() {
    const Binding kPlain[] = {
        {DVal.Inner, Field::DisplayFilter}, {LeadZ.Inner, Field::LeadingZeros},
        {DspyN.Inner, Field::DisplayItem},  {Action.Inner, Field::PeakKeyAction},
        {cboExtAB, Field::ControlInputs},   {GateTime.Inner, Field::GateTime},
        {txtCal, Field::Calibration},
    };
    Bind(kPlain);
    Bind({DType.Inner, Field::DisplayType}, [this](Control&) { PickDisplayType(); });
    Bind({CutoffEnable.Inner, Field::CutoffEnable}, [this](Control&) { PickCutoffEnable(); });
    Bind({PwrOnTot.Inner, Field::PowerOnTotal}, [this](Control&) { PickPowerOnTotal(); });
    Bind({TimeOut.Inner, Field::TimeOut},
         [this](Control& box) { OpenEntry(box, Values().PresetActive ? Field::Preset : Field::TimeOut); });
    BindAlso(TimeOut.Inner, Field::Preset);
    Bind({Pulses.Inner, Field::PulsesPerRev}, [this](Control& box) {
        OpenEntry(box, Values().CutoffActive ? Field::CutoffValue : Field::PulsesPerRev, true);
    });
    BindAlso(Pulses.Inner, Field::CutoffValue);
}

void InputDisplayPage::FillFixedLists() {
    Form::Fill(DVal.Inner, lists::kFiltered);
    Form::Fill(LeadZ.Inner, lists::kLeadingZeros);
    Form::Fill(PwrOnTot.Inner, lists::kPowerOnTotal);
    DisplayTypeFill();
    RefillControlInputs();
    RefillActions();
}

void InputDisplayPage::DisplayTypeFill() {
    Control& list = DType.Inner;
    Form::Fill(list, lists::kDisplayType);
    if (Meter().NoPanelModel)
        std::copy(std::begin(kRemoteWithoutPanel), std::end(kRemoteWithoutPanel),
                  list.Entries.begin() + DisplayType::RemoteA);
    // Without an input board the meter is a remote display only.
    if (Values().InputOption == InputBoard::None)
        std::fill_n(list.Entries.begin(), DisplayType::RemoteA, " ");
    if (Program.LinkState.ModbusLink) {
        list.Entries.pop_back();
        if (CodeOf(Image(), Field::DisplayType) == DisplayType::RemoteC)
            PutCode(Image(), Field::DisplayType, DisplayType::RemoteS);
    }
    Values().DisplayType = CodeOf(Image(), Field::DisplayType);
    Controls().SetIndex(list, Values().DisplayType);
    View.OfferByDisplayType();
}

void InputDisplayPage::ShowByMeterKind() {
    LeadZ.Frame.Visible = HasPanel(Meter().MeterType);
}

void InputDisplayPage::ShowSelections() {
    Show(LeadZ.Inner, Field::LeadingZeros);
    Show(Action.Inner, Field::PeakKeyAction);
    Show(cboExtAB, Field::ControlInputs);
}

void InputDisplayPage::CutoffRefresh() {
    Form::Fill(CutoffEnable.Inner, lists::kCutoffEnable);
    Show(CutoffEnable.Inner, Field::CutoffEnable);
    int function = Values().FunctionIndex;
    bool known = function == Function::RateAndTotal || function == Function::VfBurst ||
                 (function == Function::Batch && Values().ModeIndex >= Mode::Vf4To20mA);
    Form::SetFrameActive(CutoffEnable.Frame, CutoffEnable.Inner, known);
}

void InputDisplayPage::RefreshPlainValues() {
    GateTime.Frame.Visible = Values().InputOption != InputBoard::None;
    GateTime.Inner.Text = TextOf(Field::GateTime);
    txtCal.Text = TextOf(Field::Calibration);
}

void InputDisplayPage::RefreshTimeOut() {
    DerivedValues& values = Values();
    ActiveBoxesUpdate(values);
    bool timeOut = TimesOut(values);
    TimeOut.Frame.Enabled = TimeOut.Inner.Enabled = timeOut || values.PresetActive;
    lblTSecs.Enabled = timeOut;
    TimeOut.Frame.Caption = values.PresetActive ? "Preset" : "Time Out";
    TimeOut.Inner.Text = TextOf(values.PresetActive ? Field::Preset : Field::TimeOut);
}

void InputDisplayPage::RefreshDisplayType() {
    Show(DType.Inner, Field::DisplayType);
    View.Communication.ShowRemoteC();
}

void InputDisplayPage::RefreshDisplayFilter() {
    DVal.Frame.Visible = Values().InputOption != InputBoard::None;
    Show(DVal.Inner, Field::DisplayFilter);
}

void InputDisplayPage::RefreshPulsesAndItem() {
    bool board = Values().InputOption != InputBoard::None;
    const bool cutoff = Values().CutoffActive;
    CutoffEnable.Frame.Visible = cutoff;
    Pulses.Frame.Enabled = Pulses.Inner.Enabled = !cutoff || CutoffEnable.Inner.ListIndex != 1;
    if (Values().ModeIndex == Mode::Quadrature) {
        Pulses.Frame.Visible = board;
        if (board) {
            Pulses.Inner.Visible = true;
            Pulses.Frame.Caption = "Pulses per Rev";
            Pulses.Inner.Text = TextOf(Field::PulsesPerRev);
        }
        DspyN.Frame.Visible = DspyN.Inner.Visible = false;
        return;
    }
    Pulses.Frame.Visible = Pulses.Inner.Visible = cutoff;
    if (cutoff) {
        Pulses.Frame.Caption = "Cutoff Value";
        Pulses.Inner.Text = TextOf(Field::CutoffValue);
    }
    DspyN.Frame.Visible = board && HasPanel(Meter().MeterType);
    DspyN.Inner.Visible = true;
    RefreshDisplayItem();
}

// An item that the Function doesn't have is repaired in the image.
void InputDisplayPage::RefreshDisplayItem() {
    int count = Values().ItemCount;
    int stored = CodeOf(Image(), Field::DisplayItem);
    int legal = stored == 0 ? 1 : std::min(stored, count);
    if (legal != stored) PutCode(Image(), Field::DisplayItem, legal);
    Form::Fill(DspyN.Inner, Entries(lists::kDisplayItem).first(static_cast<std::size_t>(count)));
    Controls().SetIndex(DspyN.Inner, legal - 1);
    Form::SetFrameActive(DspyN.Frame, DspyN.Inner, count > 1);
}

void InputDisplayPage::RefreshPowerOnTotal() {
    PwrOnTot.Frame.Visible = Values().InputOption != InputBoard::None;
    Show(PwrOnTot.Inner, Field::PowerOnTotal);
}

void InputDisplayPage::RefillControlInputs() {
    int selected = cboExtAB.ListIndex;
    Form::Fill(cboExtAB, lists::kControlInputs);
    if (!TotalResetInputsOffered(Meter().FirmwareVersion)) {
        cboExtAB.Entries[8] = lists::kControlInputs8Before78;
        cboExtAB.Entries[9] = lists::kControlInputs9Before78;
    }
    if (IsRemoteDisplay(Values().DisplayType)) cboExtAB.Entries[15] = lists::kControlInputs15Remote;
    cboExtAB.ListIndex = selected;
}

void InputDisplayPage::RefillActions() {
    Form::Fill(Action.Inner, lists::kPeakKeyAction);
}

void InputDisplayPage::RefreshAction() {
    Action.Frame.Visible = HasPanel(Meter().MeterType) && !IsRemoteDisplay(Values().DisplayType);
    Show(Action.Inner, Field::PeakKeyAction);
}

void InputDisplayPage::LeaveRemoteC() {
    DType.Inner.ListIndex = DisplayType::RemoteS;
    PickDisplayType();
}

void InputDisplayPage::PickDisplayType() {
    PutCode(Image(), Field::DisplayType, DType.Inner.ListIndex);
    Values().DisplayType = DType.Inner.ListIndex;
    View.OfferByDisplayType();  // before the refresh waits, so that nobody comes to a page that goes
    View.ViewRefresh();
}

void InputDisplayPage::PickCutoffEnable() {
    PutCode(Image(), Field::CutoffEnable, CutoffEnable.Inner.ListIndex);
    View.ViewRefresh();
}

// The box may show the Cutoff Value; the message then comes for that value, required.
void InputDisplayPage::PickPowerOnTotal() {
    PutCode(Image(), Field::PowerOnTotal, PwrOnTot.Inner.ListIndex);
    bool onShow = Pulses.Frame.Visible && Pulses.Inner.Visible;
    if (PwrOnTot.Inner.ListIndex == 1 && onShow && IsNotZero(Pulses.Inner.Text))
        Program.Dialogs.Show({"", "Set Pulses per Revolution = 0", BoxIcon::None});
}

}  // namespace counter
