// Coming and going of the Setup view, and its build.
#include "setup_view/setup_view.h"

#include "meter/mode_tables.h"

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
    Communication.NameTheRoad();
    Class.fraBasExt.Visible = true;
    Program.Derived.ItemDecPts = {1, 1, 1, 1};
}

void SetupView::Activate() {
    if (Program.Views.EntryReturn == 1) {
        Program.Views.EntryReturn = 0;
        ViewRefresh();
    } else {
        BuildAnew();
    }
    Controls.TellChanged();
}

void SetupView::BuildAnew() {
    opening_ = true;
    SetHandlers(0);
    TakeIdentity();
    Buttons.tabSetup.ListIndex = kInputTab;
    FillLists();
    OptionBoardsFill();
    Analog.FillLists();  // they depend on the board
    InputRefresh();
    DisplayTypeFill();
    SrcUpdate();
    Input.ShowOpeningTexts();
    Modes.ShowClass();
    BitsPut(Program.Image, 7, 0, 171,
            BitsGet(Program.Image, 6, 0, 171));  // bit 7 goes, bit 6 is kept: required
    BatchFill();
    Buttons.ShowByMeterKind();
    Input.ShowByMeterKind();
    ShowSelections();
    opening_ = false;
    SetHandlers(1);
    ViewRefresh();
}

void SetupView::TakeIdentity() {
    const SetupImage& image = Program.Image;
    DerivedValues& values = Program.Derived;
    Program.Identity.FirmwareVersion = ByteGet(image, 233);
    values.DecPt1 = BitsGet(image, 2, 0, 151);
    values.DecPt2 = BitsGet(image, 6, 4, 151);
    values.ExtendedMeter = ExtendedMeterFromSetup(image);
    values.ProtocolCode = BitsGet(image, 3, 2, 109);
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
    Alarms.ShowStored();
    Communication.ShowStored();
    Lockouts.ShowStored();
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
    Program.Views.HelpId = control.HelpNumber;
    if (TakeFocus) TakeFocus(control);
}

void SetupView::Offer(int tab, bool offered) {
    Buttons.tabSetup.Offered[static_cast<std::size_t>(tab)] = offered;
}

void SetupView::OfferByDisplayType() {
    bool ownDisplay = Program.Derived.DisplayType < 6;
    Offer(kScalingTab, ownDisplay);
    Offer(kFilterTab, ownDisplay && FilterItemOfWord(Program.Derived.ModeWord) > 0);
}

void SetupView::SetHandlers(int live) {
    Program.Views.SetupRefreshOn = opening_ ? 0 : live;
}

}  // namespace counter
