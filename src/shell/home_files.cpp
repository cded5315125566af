// What the File and Counter menus of the home view do with the setup.
#include "link/port_setup.h"
#include "meter/default_setup.h"
#include "shell/backups.h"
#include "shell/get_action.h"
#include "shell/home_view.h"
#include "shell/put_action.h"
#include "shell/setup_files.h"
#include "shell/start.h"

namespace counter {

namespace {

constexpr const char* kNoFileName = "No file name active, use Save Setup As";
constexpr const char* kNoSetup = "No Setup data loaded";
constexpr const char* kBoxTitle = "Continue";

// A line that went away may be there again: an adaptor that was plugged back in. One that can't be opened
// shows in the transfer's own number.
void ReopenLine(Session& session) {
    const bool serial = session.Settings.CommsEnabled != Comms::NoLink && !session.LinkState.EthernetMode;
    if (serial && session.Port.Faulted() && IllegalLine(session.Settings).empty())
        OpenPort(session.Link, session.Settings);
}

// The setup is there, but what a Put overwrites could not be had again.
void TellBackup(Session& session) {
    HomeState& home = session.Home;
    const bool got = session.LinkState.LinkError == 0;
    if (const std::string words = NoBackupWords(home.Backup); got && !words.empty())
        home.ShowStatus(home.StatusText + "  But " + words, ColorRed);
}

}  // namespace

// What was loaded did not come from the meter.
void HomeView::TakeLoaded() {
    session_.Identity.SetupFromMeter = false;
    session_.Home.ViewEnabled = session_.Home.PutEnabled = true;
}

void HomeView::DefaultSetup() {
    BuildDefaultSetup(session_.Image);
    TakeLoaded();
    session_.Home.ShowProgress(false);
    session_.Home.ShowStatus("Default Setup data loaded.", ColorWhite);
}

void HomeView::OpenSetup() {
    const std::string path = session_.Dialogs.AskOpenFile({"Open Setup File", std::string(kSetupFilter)});
    if (path.empty()) return;
    if (Status status = LoadSetupFile(session_.Folder.Store, path, session_.Image); !status.Ok()) {
        session_.Home.ShowStatus(status.Text(), ColorRed);
        return;
    }
    session_.Home.CurrentFileName = path;
    TakeLoaded();
    session_.Home.ShowStatus("Setup data loaded from " + path, ColorWhite);
}

void HomeView::SaveSetup() {
    if (session_.Home.CurrentFileName.empty()) {
        session_.Dialogs.Beep();
        session_.Dialogs.Show({kBoxTitle, kNoFileName});
        return;
    }
    if (session_.Dialogs.Confirm({"", "Current data will be replaced."})) WriteSetup();
}

void HomeView::SaveSetupAs() {
    if (session_.Image.SetupData.empty()) {
        session_.Dialogs.Beep();
        session_.Dialogs.Show({kBoxTitle, kNoSetup});
        return;
    }
    const std::string path =
        session_.Dialogs.AskSaveFile({"Save Setup File As", std::string(kSetupFilter), true});
    if (path.empty()) return;
    session_.Home.CurrentFileName = path;
    WriteSetup();
}

void HomeView::WriteSetup() {
    const std::string& path = session_.Home.CurrentFileName;
    const Status status = SaveSetupFile(session_.Folder.Store, path, session_.Image);
    if (status.Ok()) {
        const std::string note = status.Note.empty() ? "" : ". " + status.Note;
        session_.Home.ShowStatus("Setup data saved in " + path + note, ColorWhite);
    } else {
        session_.Home.ShowStatus(status.Text(), ColorRed);
    }
}

void HomeView::Get() {
    lblTest2.Caption.clear();
    FollowSettings(session_);
    ReopenLine(session_);
    GetSetup(session_);
    TellBackup(session_);
    session_.Views.EntryReturn = 0;
}

void HomeView::Put() {
    const Status settled = PutSetup(session_);
    if (!settled.Ok()) session_.Home.ShowStatus(settled.Text(), ColorRed);
}

}  // namespace counter
