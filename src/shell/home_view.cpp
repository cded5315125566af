#include "shell/home_view.h"

#include <utility>

#include "link/change_settings.h"
#include "link/port_setup.h"
#include "meter/meter_words.h"
#include "shell/kept_options.h"
#include "shell/link_switch.h"
#include "shell/start.h"

namespace counter {

namespace {

constexpr std::size_t kOldNodeLine = 28;  // length of a node line that was never written at the program's end
constexpr int kEndedAt = 29;              // position of the "1" that an ended program leaves

int NoHelp(std::string_view) {
    return 0;
}

bool WorksTheMeter(ViewId view) {
    switch (view) {
        case ViewId::Setup:
        case ViewId::Commands:
        case ViewId::List:
        case ViewId::Plot:
        case ViewId::Graph:
        case ViewId::Calibration:
            return true;
        default:
            return false;
    }
}

}  // namespace

HomeView::HomeView(Session& session) : session_(session) {
    AddMenu();
    Wire();
    session_.Home.Changed = [this] { ShowState(); };
    session_.Writes.EndProgram = [this] {
        TellWritten();
        EndProgram();
    };
}

HomeView::~HomeView() {
    session_.Home.Changed = nullptr;
    session_.Writes.EndProgram = nullptr;
}

Control& HomeView::Add(ControlKind kind, std::string_view name, std::string_view caption) {
    return PageBuilder(Controls, kEveryTab, NoHelp).Add(kind, nullptr, name, caption);
}

void HomeView::AddMenu() {
    Control* heading = nullptr;
    for (const HomeMenuRow& row : HomeMenu()) {
        Control& control = Add(ControlKind::Menu, row.Name, row.Caption);
        control.Enabled = row.Enabled;
        control.HelpNumber = row.HelpTopic;
        if (row.Heading) heading = &control;
        if (!row.Heading) control.Container = heading;
        items_[static_cast<std::size_t>(row.Item)] = &control;
        if (row.Heading)
            Controls.On(control, [this, &row](Control& touched) { ComeToHeading(row, touched); });
        if (row.Opens) Controls.On(control, [this, &row](Control&) { OpenView(row); });
    }
}

void HomeView::Wire() {
    On(Menu(HomeItem::DefaultSetup), &HomeView::DefaultSetup);
    On(Menu(HomeItem::Open), &HomeView::OpenSetup);
    On(Menu(HomeItem::Save), &HomeView::SaveSetup);
    On(Menu(HomeItem::SaveAs), &HomeView::SaveSetupAs);
    On(Menu(HomeItem::Exit), &HomeView::Exit);
    On(Menu(HomeItem::Get), &HomeView::Get);
    On(Menu(HomeItem::Put), &HomeView::Put);
    for (Control* verify : {&Menu(HomeItem::Verify), &cmdVerify}) On(*verify, &HomeView::Verify);
    On(Menu(HomeItem::VerifyAfterPut), &HomeView::ToggleVerify);
    for (Control* link : {&Menu(HomeItem::Link), &cmdLink}) On(*link, &HomeView::OpenLink);
    On(Menu(HomeItem::Glossary), &HomeView::ShowGlossary);
    On(cmdMenuHelp, &HomeView::MenuHelp);
    On(cmdOK, &HomeView::EndMenuHelp);
    On(cmdCancel, &HomeView::CancelTransfer);
}

void HomeView::On(Control& control, void (HomeView::*action)()) {
    Controls.On(control, [this, action](Control&) { (this->*action)(); });
}

void HomeView::Load() {
    for (Control* hidden :
         {&lblPGText, &pbBar, &cmdCancel, &lblWait, &lblTest, &lblTest1, &lblTest2, &cmdVerify})
        hidden->Visible = false;
    Menu(HomeItem::VerifyAfterPut).Value = KeptOption(session_.Folder, kVerifyAfterPut) ? 1 : 0;
    Menu(HomeItem::Link).Visible = cmdLink.Visible = static_cast<bool>(SwitchLink);
    session_.Identity.SetupFromMeter = false;
    MenuHelp();
}

void HomeView::Activate() {
    if (CloseViews) CloseViews();
    session_.Home.Hourglass = false;
    FollowChanges();
    session_.Views.HelpId = kHomeHelpTopic;  // not what the view that was left had touched last
    OfferEntries();
    ShowState();
}

// As the settings say.
void HomeView::OfferEntries() {
    const bool comms = session_.Settings.CommsEnabled != Comms::NoLink;
    Menu(HomeItem::Counter).Enabled = cmdLink.Enabled = comms;
    if (!comms) session_.Identity.SetupFromMeter = false;
    const LinkState& link = session_.LinkState;
    session_.Home.CalibrationEnabled = !link.ModbusLink;
    Menu(HomeItem::Readings).Enabled = !link.ModbusLink && !link.EthernetMode;
    if (session_.Settings.ProgramKind == ProgramKind::NoCalibration)
        Menu(HomeItem::Calibration).Visible = false;
    Menu(HomeItem::Menu).Visible = HasPanel(session_.Identity.MeterType);
}

// Not in the middle of an exchange, whose port it is.
void HomeView::FollowChanges() {
    if (preparing_ || session_.Home.Transfers > 0 || session_.Writes.Running > 0) return;
    const FollowedSettings now = FollowSettings(session_);
    if (!now.Changed) return;
    OfferEntries();
    const bool opened = now.Opened.Ok();
    session_.Home.ShowStatus("The settings were changed by another program and are used as they are now.",
                             opened ? ColorWhite : ColorRed, opened ? "" : now.Opened.Text());
}

void HomeView::OpenLink() {
    const std::string why = preparing_ ? "The meter is being asked now. Switch the link when that has ended."
                                       : WhyLinkStays(session_);
    if (why.empty()) return SwitchLink();
    session_.Dialogs.Show({LinkSwitch::kTitle, why, BoxIcon::Stop});
}

void HomeView::FollowLink() {
    OfferEntries();
    ShowState();
}

void HomeView::ShowState() {
    const HomeState& home = session_.Home;
    lblPGText.Caption = home.StatusLine();
    lblPGText.TextColor = home.StatusColor;
    lblPGText.Visible = home.StatusVisible;
    pbBar.Value = home.ProgressPercent;
    pbBar.Visible = home.ProgressVisible;
    cmdCancel.Visible = home.Transfers > 0;
    lblTest2.Caption = session_.LinkState.ReplyText;
    for (HomeItem item : {HomeItem::View, HomeItem::Compare, HomeItem::PrintSetup})
        Menu(item).Enabled = home.ViewEnabled;
    Menu(HomeItem::Put).Enabled = home.PutEnabled;
    Menu(HomeItem::Verify).Enabled = cmdVerify.Enabled = home.PutEnabled && home.Transfers == 0;
    cmdVerify.Visible = home.StatusVisible && !putLine_.empty() && home.StatusText == putLine_;
    Menu(HomeItem::Commands).Enabled = home.CommandsEnabled;
    Menu(HomeItem::Calibration).Enabled = home.CalibrationEnabled;
    Controls.TellChanged();
}

void HomeView::RestoreScreen() {
    picText.Text.clear();
    tallText_ = false;
    cmdOK.Visible = false;
    cmdMenuHelp.Visible = true;
    session_.Home.HideStatus();
}

void HomeView::MenuHelp() {
    picText.Text = HomeHelpText();
    tallText_ = true;
    session_.Views.HelpId = kHomeHelpTopic;
    session_.Home.Hourglass = false;
    cmdMenuHelp.Visible = false;
    cmdOK.Visible = true;
    session_.Home.HideStatus();
}

// The status line stays as it is.
void HomeView::EndMenuHelp() {
    picText.Text.clear();
    tallText_ = false;
    cmdOK.Visible = false;
    cmdMenuHelp.Visible = true;
    Controls.TellChanged();
}

void HomeView::ShowGlossary() {
    if (OpenHelp) OpenHelp(kGlossaryHelpTopic);
}

void HomeView::HelpKey() {
    if (OpenHelp) OpenHelp(session_.Views.HelpId);
}

void HomeView::ComeToHeading(const HomeMenuRow& row, Control& heading) {
    if (row.Item == HomeItem::Readings) return ComeToReadings(heading);
    RestoreScreen();
    session_.Views.HelpId = row.HelpTopic;
    if (DropDown) DropDown(heading);
}

// A second press while the meter is being asked changes nothing.
void HomeView::ComeToReadings(Control& heading) {
    if (preparing_) return;
    preparing_ = true;
    lblWait.Visible = true;
    RestoreScreen();
    session_.Views.HelpId = heading.HelpNumber;
    if (!ReopenLine(session_)) session_.Home.ShowStatus(session_.LineTrouble.Text(), ColorRed);
    if (PrepareStream) PrepareStream();
    lblWait.Visible = false;
    preparing_ = false;
    Controls.TellChanged();
    if (DropDown) DropDown(heading);
}

void HomeView::OpenView(const HomeMenuRow& row) {
    session_.Home.ShowHourglass(true);
    if (WorksTheMeter(*row.Opens)) ReopenLine(session_);
    if (Open) Open(*row.Opens);
    session_.Home.ShowHourglass(false);
}

void HomeView::Exit() {
    if (asking_) return;
    asking_ = true;
    const bool ends = session_.Writes.EndWanted() || ChangesMayGo("Exit", "Exit All the Same");
    asking_ = false;
    if (ends) WantEnd(EndWish::User);
}

void HomeView::ExitFromOutside() {
    WantEnd(EndWish::Outside);
}

void HomeView::WantEnd(EndWish wish) {
    SetupWrites& writes = session_.Writes;
    const bool first = !writes.EndWanted();
    if (first) writes.Wish = wish;
    if (first && HoldExit && HoldExit()) return;
    if (first && writes.Running > 0) {
        session_.Home.ShowStatus("The program ends after the frame in hand. A second Exit ends it at once.",
                                 ColorWhite);
        return;
    }
    TellWritten();
    EndProgram();
}

// Only where a write was ended by it.
void HomeView::TellWritten() {
    SetupWrites& writes = session_.Writes;
    if (!writes.SoFar) return;
    const std::string text = std::exchange(writes.SoFar, nullptr)();
    if (TellOutside) TellOutside(text);
    const bool atOnce = writes.Running > 0;
    if (writes.Wish == EndWish::User && !atOnce) session_.Dialogs.Show({"Exit", text, BoxIcon::Stop});
}

void HomeView::EndProgram() {
    // Settings that were not there are not made.
    const bool read = !(session_.Settings.FileLines == SettingsLines{});
    SettingsLines lines = session_.Settings.Lines;
    if (lines.SettingsLine2.size() == kOldNodeLine) lines.SettingsLine2 += "0";
    SettingsPut(lines.SettingsLine2, kEndedAt, "1");
    // A folder that takes no file leaves the settings as they were, which are good as well.
    if (read) SaveSettings(session_.Folder, WaitOn(session_.Pump), session_.Settings.FileLines, lines);
    ClosePort(session_.Link);
    if (CloseSockets) CloseSockets();
    session_.Pump.EndProcess(0);
}

}  // namespace counter
