// Coming and going of the Setup view, and its build.
#include "setup_view/setup_view.h"

#include <algorithm>

#include "meter/field_code.h"

namespace counter {

SetupView::SetupView(Session& session) : Program(session), Controls(session.Views.SetupRefreshOn) {
    Buttons.Wire();
    Modes.Wire();
    Input.Wire();
    Boards.Wire();
    Class.Wire();
    Scaling.Wire();
    Filter.Wire();
    Alarms.Wire();
    Communication.Wire();
    Lockouts.Wire();
    Analog.Wire();
    Controls.Touched = [this](const Control& control) { Program.Views.HelpId = control.HelpNumber; };
}

void SetupView::Load() {
    Scaling.HideAll();
    Communication.NameTheWay();
    Class.fraBasExt.Visible = true;
    Program.Derived.ItemDecPts = {1, 1, 1, 1};
}

void SetupView::Activate() {
    onShow_ = true;
    if (Program.Views.EntryReturn == 1) {
        Program.Views.EntryReturn = 0;
        ViewRefresh();
    } else {
        Build();
    }
    Controls.TellChanged();
}

void SetupView::PutAway() {
    Buttons.StopReading();
    onShow_ = false;
}

void SetupView::Build() {
    opening_ = true;
    SetHandlers(false);
    TakeIdentity();
    Buttons.tabSetup.ListIndex = kInputTab;
    FillLists();
    Boards.OptionBoardsFill();
    Analog.FillLists();  // they depend on the board
    InputRefresh();
    Input.DisplayTypeFill();
    SrcUpdate(Program.Derived);
    Input.ShowOpeningTexts();
    Modes.ShowClass();
    // Bit 7 goes, bit 6 is kept: required.
    PutCode(Program.Image, Field::Spare171, CodeOf(Program.Image, Field::Spare171) & 1);
    Scaling.BatchFill();
    Buttons.ShowByMeterKind();
    Input.ShowByMeterKind();
    ShowSelections();
    opening_ = false;
    SetHandlers(true);
    ViewRefresh();
}

void SetupView::TakeIdentity() {
    const SetupImage& image = Program.Image;
    DerivedValues& values = Program.Derived;
    Program.Identity.FirmwareVersion = CodeOf(image, Field::FirmwareVersion);
    values.DecPt1 = CodeOf(image, Field::DecimalPoint1);
    values.DecPt2 = CodeOf(image, Field::DecimalPoint2);
    values.ExtendedMeter = ExtendedMeterFromSetup(image);
    values.ProtocolCode = CodeOf(image, Field::SerialProtocol);
}

// Nothing is selected afterwards, so that no list decides anything by what an earlier image had.
void SetupView::FillLists() {
    for (Control& control : Controls) {
        if (control.Kind == ControlKind::List) control.ListIndex = -1;
    }
    Input.FillFixedLists();
    Filter.Refill();
    Alarms.FillLists();
    Communication.FillLists();
}

void SetupView::ShowSelections() {
    Input.ShowSelections();
    Filter.ShowSelections();
    Alarms.ShowFields();
    Communication.ShowFields();
    Lockouts.ShowFields();
}

void SetupView::EntryClosed() {
    Control* entered = Program.Views.EntryTarget;
    Activate();
    if (entered) Communication.EntryClosed(*entered);
    Controls.TellChanged();
}

void SetupView::HelpKey() {
    Program.Views.PageTab = CurrentTab();
    if (OpenHelp) OpenHelp(Program.Views.HelpId);
}

void SetupView::RestorePage() {
    Buttons.tabSetup.ListIndex = Program.Views.PageTab;
    Controls.TellChanged();
}

void SetupView::CameTo(int tab) {
    if (tab == kFilterTab) Filter.Come();
    if (tab == kCommunicationTab) Communication.Come();
    if (tab == kAnalogTab) ViewRefresh();
}

void SetupView::Focus(Control& control) {
    if (!onShow_) return;
    Program.Views.HelpId = control.HelpNumber;
    if (TakeFocus) TakeFocus(control);
}

std::vector<Control*> SetupView::ControlsOf(Field field, int entry) const {
    std::vector<Control*> controls;
    for (const Binding& binding : Bindings) {
        const bool wanted = binding.Entry == kAnyEntry || binding.Entry == std::max(entry, 0);
        if (binding.Of == field && wanted) controls.push_back(&binding.Shown);
    }
    return controls;
}

std::vector<Field> SetupView::FieldsOf(const Control& control) const {
    std::vector<Field> fields;
    for (const Binding& binding : Bindings) {
        if (&binding.Shown == &control) fields.push_back(binding.Of);
    }
    return fields;
}

void SetupView::SetHandlers(bool live) {
    Program.Views.SetupRefreshOn = live && !opening_;
}

}  // namespace counter
