// The buttons of counter-link that ask the meter: one trial, and the search.
#include "session/session.h"
#include "shell/link_setup.h"
#include "shell/link_trial.h"
#include "shell/port_numbers.h"

namespace counter {

namespace {

constexpr std::string_view kFindCaption = "&Find meter";
constexpr std::string_view kStopCaption = "S&top";

}  // namespace

void LinkSetup::Test() {
    if (testing_) return;
    SettingsLines lines = lines_;
    if (const std::string wrong = TakeLines(lines); !wrong.empty()) return ShowResult(wrong, ColorRed);
    stopSearch_ = false;
    Busy(true);
    ShowResult("Asking the meter.", ColorGreen);
    world_.Tried.Device = txtDevice.Text;
    const LinkTrial trial = TryLink(WorldOfTrial(world_.Sockets), lines);
    Busy(false);
    ShowResult(trial.Words, trial.Answered ? ColorGreen : trial.Cancelled ? ColorWhite : ColorRed);
}

TrialWorld LinkSetup::WorldOfTrial(const std::optional<counter::Sockets>& sockets) {
    return {world_.Pump, world_.Port, world_.Folder.Path, sockets, [this] { return stopSearch_; }};
}

// Nothing may be saved or closed while a meter is being asked.
void LinkSetup::Busy(bool busy) {
    testing_ = busy;
    cmdSave.Enabled = cmdSaveOpen.Enabled = cmdClose.Enabled = !busy;
    cmdFind.Caption = busy ? kStopCaption : kFindCaption;
    ShowNode();
    if (!busy) return;
    cmdTest.Enabled = false;
    cmdFind.Enabled = true;  // a node is tried but not searched for
}

void LinkSetup::FindOrStop() {
    if (!Cancel()) Find();
}

bool LinkSetup::Cancel() {
    if (!testing_) return false;
    StopSearch();
    ShowResult("Stopping.", ColorWhite);
    return true;
}

void LinkSetup::Find() {
    if (testing_) return;
    SettingsLines lines = lines_;
    if (const std::string wrong = TakeLines(lines); !wrong.empty()) return ShowResult(wrong, ColorRed);
    stopSearch_ = false;
    Busy(true);
    pbFind.Visible = true;
    const SearchResult found = FindMeter(
        WorldOfTrial({}), world_.Tried, lines, DevicesToTry(),
        [this](int number, int all, const SearchStep& step) { return TellProgress(number, all, step); });
    Busy(false);
    pbFind.Visible = false;
    if (found.Found) return TakeFound(found);
    ShowResult(found.Words, stopSearch_ ? ColorWhite : ColorRed);
}

bool LinkSetup::TellProgress(int number, int all, const SearchStep& step) {
    if (stopSearch_) return false;
    pbFind.Value = 100 * number / all;
    ShowResult("Trial " + std::to_string(number) + " of " + std::to_string(all) + ": " + StepInWords(step),
               ColorGreen);
    return true;
}

void LinkSetup::TakeFound(const SearchResult& found) {
    Settings settings;
    ParseSettings(found.Lines, settings);
    ShowSettings(settings);
    txtDevice.Text = found.Device;
    ShowPorts();
    ShowResult(found.Words + " It is on " + found.Device + ". Save keeps this.", ColorGreen);
}

// The one that the user has named comes first, whether or not the machine lists it.
std::vector<std::string> LinkSetup::DevicesToTry() const {
    std::vector<std::string> devices;
    if (!txtDevice.Text.empty()) devices.push_back(txtDevice.Text);
    for (const PortDescription& port : ports_) {
        if (!SameDevice(world_.Folder.Store, port.Device, txtDevice.Text)) devices.push_back(port.Device);
    }
    return devices;
}

}  // namespace counter
