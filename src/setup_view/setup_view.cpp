// Coming and going of the Setup view, and its build.
#include "setup_view/setup_view.h"

#include <algorithm>
#include <utility>

#include "link/waits.h"
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
    Controls.Around = [this](const Control& control, const std::function<void()>& act) {
        DoAct(control, act);
    };
}

void SetupView::Load() {
    Scaling.HideAll();
    Communication.NameTheWay();
    Class.fraBasExt.Visible = true;
    Program.Derived.ItemDecPts = {1, 1, 1, 1};
}

void SetupView::Activate() {
    if (Program.Views.EntryReturn == 1) {
        Program.Views.EntryReturn = 0;
        ViewRefresh();
    } else {
        Build(kInputTab);
    }
    Controls.TellChanged();
}

void SetupView::PutAway() {
    Buttons.StopReading();
    onShow_ = false;
    ++stay_;
}

void SetupView::Build(int page) {
    const SetupActScope opening(Program.Changes, Program.Image, {"", "as the view was opened"});
    onShow_ = true;
    const int stay = ++stay_;
    opening_ = true;
    SetHandlers(false);
    TakeIdentity();
    Buttons.tabSetup.ListIndex = page;
    FillLists();
    Class.SayNothing();
    Boards.OptionBoardsFill();
    InputRefresh();
    if (stay != stay_) return;
    Input.DisplayTypeFill();
    SrcUpdate(Program.Derived);
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
    if (stay == stay_) ComeToPageOnShow();
}

// The page that was asked for, or that the user has come to in a wait of the build. What the analog page
// wants, a refresh, has just been.
void SetupView::ComeToPageOnShow() {
    int& page = Buttons.tabSetup.ListIndex;
    if (!Buttons.tabSetup.Offered[static_cast<std::size_t>(page)]) page = kInputTab;
    if (page != kAnalogTab) CameTo(page);
}

bool SetupView::LetUserAct(double ms) {
    const int stay = stay_;
    const bool opening = std::exchange(opening_, false);
    const bool live = std::exchange(Program.Views.SetupRefreshOn, true);
    const bool hourglass = Program.Home.Hourglass;
    const bool longer = ExceedsABlink(LinkDelayMs(Program.Link, ms));
    if (longer && opening) Controls.TellChanged();  // he acts on this setup, not on the one before it
    if (longer) Program.Home.ShowHourglass(true);
    LinkDelay(Program.Link, ms);
    if (longer) Program.Home.ShowHourglass(hourglass);
    if (stay != stay_) return false;
    opening_ = opening;
    Program.Views.SetupRefreshOn = live;
    return true;
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
    if (!onShow_) Program.Views.EntryReturn = 0;
    if (Program.Views.EntryReturn == 0) return;
    Control* entered = Program.Views.EntryTarget;
    {
        SetupAct act = entered ? ActOn(*entered) : SetupAct();
        act.Typed = true;
        const SetupActScope entering(Program.Changes, Program.Image, std::move(act));
        Activate();
        if (entered) Communication.EntryClosed(*entered);
    }
    Controls.TellChanged();
}

void SetupView::HelpKey() {
    Program.Views.PageTab = CurrentTab();
    if (OpenHelp) OpenHelp(Program.Views.HelpId);
}

void SetupView::ComeBack() {
    Build(Program.Views.PageTab);
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
