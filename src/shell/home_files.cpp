// What the File and Counter menus of the home view do with the setup.
#include "meter/default_setup.h"
#include "session/take_setup.h"
#include "shell/get_action.h"
#include "shell/home_view.h"
#include "shell/put_action.h"
#include "shell/recent_files.h"
#include "shell/setup_files.h"
#include "shell/start.h"

namespace counter {

namespace {

constexpr const char* kNoFileName = "No file name active, use Save Setup As";
constexpr const char* kNoSetup = "No Setup data loaded";
constexpr const char* kBoxTitle = "Continue";
constexpr const char* kChangedNote = "with the settings as another program has changed them";
constexpr std::string_view kFirstName = "Setup.CT2";  // proposed for a setup that has no file yet

std::string NameIn(const std::string& path) {
    return path.substr(path.rfind('/') + 1);
}

}  // namespace

void HomeView::OfferLoaded() {
    session_.Home.ViewEnabled = session_.Home.PutEnabled = true;
}

void HomeView::DefaultSetup() {
    SetupImage image = session_.Image;
    BuildDefaultSetup(image);
    TakeSetup(session_, image, SetupSource::Default);
    OfferLoaded();
    session_.Home.ShowProgress(false);
    session_.Home.ShowStatus("Default Setup data loaded.", ColorWhite);
}

void HomeView::OpenSetup() {
    const std::string path = session_.Dialogs.AskOpenFile(
        {"Open Setup File", std::string(kSetupFilter), false, NameIn(session_.Home.CurrentFileName)});
    if (!path.empty()) OpenFile(path);
}

void HomeView::OpenFile(const std::string& path) {
    SetupImage image;
    std::string wrong;
    if (Status status = LoadSetupFile(session_.Folder.Store, path, image, wrong); !status.Ok()) {
        session_.Home.ShowStatus(status.Text(), ColorRed);
        return;
    }
    TakeSetup(session_, image, SetupSource::File,
              wrong.empty() ? "" : "The file that was opened has " + wrong + ".", path);
    OfferLoaded();
    KeepRecentFile(session_.Folder, path);
    session_.Home.ShowStatus("Setup data loaded from " + path, ColorWhite,
                             wrong.empty() ? "" : "no whole setup: " + wrong);
}

void HomeView::SaveSetup() {
    if (session_.Home.CurrentFileName.empty()) {
        session_.Dialogs.Beep();
        session_.Dialogs.Show({kBoxTitle, kNoFileName});
        return;
    }
    const std::string& path = session_.Home.CurrentFileName;
    if (session_.Dialogs.Confirm({NameIn(path), "Current data will be replaced.", BoxIcon::None, path}))
        WriteSetup(path);
}

void HomeView::SaveSetupAs() {
    if (session_.Image.SetupData.empty()) {
        session_.Dialogs.Beep();
        session_.Dialogs.Show({kBoxTitle, kNoSetup});
        return;
    }
    const std::string& current = session_.Home.CurrentFileName;
    const std::string path =
        session_.Dialogs.AskSaveFile({"Save Setup File As", std::string(kSetupFilter), true,
                                      current.empty() ? std::string(kFirstName) : NameIn(current)});
    if (!path.empty() && WriteSetup(path)) session_.Home.CurrentFileName = path;
}

bool HomeView::WriteSetup(const std::string& path) {
    const Status status = SaveSetupFile(session_.Folder.Store, path, session_.Image);
    if (status.Ok()) {
        SetupIsSaved(session_, path);
        KeepRecentFile(session_.Folder, path);
        session_.Home.ShowStatus("Setup data saved in " + path, ColorWhite, status.Note);
    } else {
        session_.Home.ShowStatus(status.Text(), ColorRed);
    }
    return status.Ok();
}

std::vector<std::string> HomeView::RecentSetups() const {
    return RecentFiles(session_.Folder);
}

void HomeView::Get() {
    lblTest2.Caption.clear();
    const bool changed = FollowSettings(session_).Changed;
    ReopenLine(session_);  // where it can't be opened, that shows in the transfer's own number
    GetSetup(session_);
    if (changed) session_.Home.AddNote(kChangedNote);
    session_.Views.EntryReturn = 0;
}

// What may be no whole setup goes out only after a question.
bool HomeView::PutIsMeant() {
    const std::string& doubt = session_.Home.SetupDoubt;
    if (doubt.empty()) return true;
    if (session_.Dialogs.Confirm({"Put Data", doubt + "\nWrite it into the meter?", BoxIcon::Stop}))
        return true;
    session_.Home.ShowStatus("Nothing was written.", ColorWhite);
    return false;
}

void HomeView::Put() {
    if (!PutIsMeant()) return;
    const bool changed = FollowSettings(session_).Changed;
    const Status settled = PutSetup(session_);
    if (!settled.Ok()) session_.Home.ShowStatus(settled.Text(), ColorRed);
    if (changed) session_.Home.AddNote(kChangedNote);
    session_.Writes.EndIfWanted();
}

// What began while the question was on show is not meant.
void HomeView::CancelTransfer() {
    HomeState& home = session_.Home;
    if (home.Transfers == 0 || askingToCancel_) return;
    const int upTo = home.TransfersBegun;
    if (session_.Writes.Running > 0 && !CancelIsMeant()) return;
    if (home.Transfers == 0) return;  // it has come to its end meanwhile, and the line says how
    home.CancelledUpTo = upTo;
    home.ShowStatus("Stopping after the frame in hand.", ColorWhite);
}

// A setup that is in the meter in part helps nobody.
bool HomeView::CancelIsMeant() {
    askingToCancel_ = true;
    const std::string written = session_.Writes.SoFar ? session_.Writes.SoFar() + "\n" : "";
    const bool meant = session_.Dialogs.Confirm(
        {"Put Data",
         written + "It goes on while you read this. OK stops it there; Cancel lets it come to its end.",
         BoxIcon::Stop});
    askingToCancel_ = false;
    return meant;
}

}  // namespace counter
