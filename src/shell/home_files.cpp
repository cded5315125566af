// What the File and Counter menus of the home view do with the setup.
#include "meter/default_setup.h"
#include "meter/field_code.h"
#include "session/change_list.h"
#include "session/take_setup.h"
#include "shell/get_action.h"
#include "shell/home_view.h"
#include "shell/kept_options.h"
#include "shell/line_words.h"
#include "shell/put_action.h"
#include "shell/recent_files.h"
#include "shell/setup_files.h"
#include "shell/start.h"
#include "shell/verify_action.h"

namespace counter {

namespace {

constexpr const char* kNoFileName = "No file name active, use Save Setup As";
constexpr const char* kNoSetup = "No Setup data loaded";
constexpr const char* kReportTitle = "Verify";
constexpr const char* kBoxTitle = "Continue";
constexpr const char* kChangedNote = "with the settings as another program has changed them";
constexpr std::string_view kFirstName = "Setup.CT2";  // proposed for a setup that has no file yet

std::string NameIn(const std::string& path) {
    return path.substr(path.rfind('/') + 1);
}

}  // namespace

// A program without settings takes the kind of meter from the setup.
void HomeView::OfferLoaded() {
    if (session_.Settings.FileLines == SettingsLines{})
        session_.Identity.MeterType = CodeOf(session_.Image, Field::MeterType);
    session_.Home.ViewEnabled = session_.Home.PutEnabled = true;
}

// Only what the user did himself can be lost: what a rule replaced, it would replace again.
bool HomeView::ChangesMayGo(const char* title, const char* yes) {
    session_.Changes.Settle(session_.Image);
    const int fields = FieldsChanged(session_);
    std::string text;
    if (fields > 0 && session_.Changes.ByUser()) {
        text = "The setup in memory differs from " + OriginInWords(session_.Origin) + " in " +
               (fields == 1 ? "1 field" : std::to_string(fields) + " fields") +
               ", and it is saved in no file.";
    }
    const auto& aside = session_.SetupBefore;
    if (aside && aside->Unasked && aside->Changes.ByUser() && aside->Image != aside->Origin.Image) {
        text += (text.empty() ? "" : "\n") + std::string("The setup that was put aside, from ") +
                OriginInWords(aside->Origin) + ", has changes that are saved in no file.";
    }
    return text.empty() || session_.Dialogs.Confirm({title, text, BoxIcon::Stop, {}, yes, "Keep It"});
}

// What a transfer under way brings would take the place of what was put aside.
void HomeView::GoBack() {
    if (session_.Home.Transfers > 0) return;
    GoBackToSetupBefore(session_);
    OfferLoaded();
    session_.Home.ShowStatus("The setup from " + OriginInWords(session_.Origin) + " is in memory again.",
                             ColorWhite);
    if (session_.Home.Replaced) session_.Home.Replaced();
}

void HomeView::DefaultSetup() {
    if (!ChangesMayGo("Default Setup", "Load Default")) return;
    SetupImage image = session_.Image;
    BuildDefaultSetup(image);
    TakeSetup(session_, image, SetupSource::Default);
    OfferLoaded();
    session_.Home.ShowProgress(false);
    session_.Home.ShowStatus("Default Setup data loaded.", ColorWhite);
}

void HomeView::OpenSetup() {
    if (!ChangesMayGo("Open Setup", "Open Another")) return;
    const std::string path = session_.Dialogs.AskOpenFile(
        {"Open Setup File", std::string(kSetupFilter), false, NameIn(session_.Home.CurrentFileName)});
    if (!path.empty() && LoadFile(path)) KeepRecentFile(session_.Folder, path);
}

void HomeView::OpenFile(const std::string& path) {
    if (ChangesMayGo("Open Setup", "Open Another") && LoadFile(path)) KeepRecentFile(session_.Folder, path);
}

void HomeView::OpenBackup(const std::string& path) {
    if (ChangesMayGo("Open Backup", "Open It")) LoadFile(path, false);
}

// A backup is not what Save writes over.
bool HomeView::LoadFile(const std::string& path, bool saveThere) {
    SetupImage image;
    std::string wrong;
    if (Status status = LoadSetupFile(session_.Folder.Store, path, image, wrong); !status.Ok()) {
        session_.Home.ShowStatus(status.Text(), ColorRed);
        return false;
    }
    TakeSetup(session_, image, SetupSource::File,
              wrong.empty() ? "" : "The file that was opened has " + wrong + ".", path);
    if (!saveThere) session_.Home.CurrentFileName.clear();
    OfferLoaded();
    session_.Home.ShowStatus("Setup data loaded from " + path, ColorWhite,
                             wrong.empty() ? "" : "no whole setup: " + wrong);
    return true;
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
    if (!path.empty()) WriteSetup(path);
}

bool HomeView::WriteSetup(const std::string& path) {
    const Status status = SaveSetupFile(session_.Folder.Store, path, session_.Image);
    if (status.Ok()) {
        SetupIsSaved(session_, path);
        session_.Home.CurrentFileName = path;
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
    if (!ChangesMayGo("Get Setup", "Get All the Same")) return;
    lblTest2.Caption.clear();
    const bool changed = FollowSettings(session_).Changed;
    ReopenLine(session_);  // where it can't be opened, that shows in the transfer's own number
    GetSetup(session_);
    if (changed) session_.Home.AddNote(kChangedNote);
    session_.Views.EntryReturn = 0;
}

// In a run that switched the link, what came from one meter goes into another only after a question.
bool HomeView::OtherMeterIsMeant() {
    const std::string &from = session_.Origin.Meter, to = MeterOnLine(session_.Settings);
    if (!session_.ChosenLink.Switched() || from.empty() || from == to) return true;
    const std::string text =
        "The setup in memory was read from " + from + ".\nPut it into the meter at " + to + "?";
    return session_.Dialogs.Confirm({"Put Data", text, BoxIcon::Stop, {}, "Put It There", "Write Nothing"});
}

// What may be no whole setup goes out only after a question.
bool HomeView::PutIsMeant() {
    const std::string& doubt = session_.Home.SetupDoubt;
    if (doubt.empty()) return true;
    return session_.Dialogs.Confirm({"Put Data", doubt + "\nWrite it into the meter?", BoxIcon::Stop});
}

void HomeView::Put() {
    if (!OtherMeterIsMeant() || !PutIsMeant())
        return session_.Home.ShowStatus("Nothing was written.", ColorWhite);
    const bool changed = FollowSettings(session_).Changed;
    const int number = session_.Writes.PutsBegun + 1;
    const std::string from = session_.Origin.Meter;
    const bool itsOwn = from == MeterOnLine(session_.Settings);
    const Status settled = PutSetup(session_);
    // Another setup may have come meanwhile, from elsewhere.
    if (itsOwn && session_.Origin.Meter == from)
        session_.Origin.Meter = MeterOnLine(session_.Settings);  // which may have a new address
    if (!settled.Ok()) session_.Home.ShowStatus(settled.Text(), ColorRed);
    if (changed) session_.Home.AddNote(kChangedNote);
    session_.Writes.EndIfWanted();
    if (session_.Writes.PutsBegun != number || session_.Writes.EndWanted()) return;
    putLine_ = session_.Home.StatusText;
    ShowState();
    if (Menu(HomeItem::VerifyAfterPut).Value == 1 && putLine_ == kPutAppearsDone) VerifyPut();
}

void HomeView::Verify() {
    ReopenLine(session_);  // where it can't be opened, that shows in the transfer's own number
    const Verification end = VerifySetup(session_);
    if (!end.Report.empty() && ShowReport) ShowReport(kReportTitle, end.Report);
}

// What no Put writes is no news after one.
void HomeView::VerifyPut() {
    const Verification end = VerifySetup(session_, true);
    if (!end.Holds && !end.Report.empty() && ShowReport) ShowReport(kReportTitle, end.Report);
}

void HomeView::ToggleVerify() {
    Control& entry = Menu(HomeItem::VerifyAfterPut);
    entry.Value = 1 - entry.Value;
    KeepOption(session_.Folder, kVerifyAfterPut, entry.Value == 1);
    Controls.TellChanged();
}

// What began while the question was on show is not meant.
void HomeView::CancelTransfer() {
    HomeState& home = session_.Home;
    if (home.Transfers == 0 || askingToCancel_) return;
    const int upTo = home.TransfersBegun;
    if (session_.Writes.Running > 0 && !CancelIsMeant()) return;
    if (home.Transfers == 0) return;  // it has come to its end meanwhile, and the line says how
    home.CancelledUpTo = upTo;
    home.ShowStatus(kStopping, ColorWhite);
}

// A setup that is in the meter in part helps nobody.
bool HomeView::CancelIsMeant() {
    askingToCancel_ = true;
    const std::string written = session_.Writes.SoFar ? session_.Writes.SoFar() + "\n" : "";
    const bool meant = session_.Dialogs.Confirm(
        {"Put Data", written + "It waits while you read this. OK stops it there; Cancel lets it go on.",
         BoxIcon::Stop});
    askingToCancel_ = false;
    return meant;
}

}  // namespace counter
