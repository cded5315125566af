#include "sheet/sheet_view.h"

#include "offline/setup_desk.h"
#include "platform/utc_time.h"
#include "session/take_setup.h"
#include "sheet/sheet_html.h"
#include "shell/home_view.h"
#include "shell/setup_files.h"

namespace counter {

namespace {

std::string CameFrom(const Session& session) {
    switch (session.Origin.From) {
        case SetupSource::Default:
            return "the default setup";
        case SetupSource::FailedGet:
            return "from the meter only in part: the last Get failed";
        case SetupSource::Meter:
            break;
        default:
            return {};
    }
    const int east = session.Pump.LocalTime().MinutesEast;
    // The last Get may have been of another meter.
    if (!session.MeterAtLastGet || session.MeterAtLastGet->Image != session.Origin.Image)
        return "read from a meter on " + SheetDate(WallTimeAt(session.Origin.UtcMs, east));
    const MeterSetup& meter = *session.MeterAtLastGet;
    return "read from the meter at address " + std::to_string(meter.Address) + ", " + meter.Line + ", on " +
           SheetDate(WallTimeAt(meter.UtcMs, east));
}

std::string WhereFrom(const Session& session) {
    const int changed = FieldsChanged(session);
    const std::string from = CameFrom(session);
    if (changed == 0 || session.Origin.From == SetupSource::Nothing) return from;
    return (from.empty() ? "" : from + "; ") + std::to_string(changed) +
           (changed == 1 ? " field" : " fields") + " changed since";
}

std::string FileName(const std::string& path) {
    return path.substr(path.rfind('/') + 1);
}

}  // namespace

SheetView::SheetView(Session& session, Printer& paper) : Program(session), paper_(paper) {
    On(cmdAgainst, &SheetView::ChooseAgainst);
    On(cmdPrint, &SheetView::Print);
    On(cmdPdf, &SheetView::SavePdf);
    On(cmdHtml, &SheetView::SaveHtml);
    Controls.On(cmdMainMenu, [this](Control&) {
        if (ShowMainMenu) ShowMainMenu();
    });
}

void SheetView::On(Control& control, void (SheetView::*action)()) {
    Controls.On(control, [this, action](Control&) { (this->*action)(); });
}

void SheetView::Activate() {
    against_.reset();
    Tell({}, ColorWhite);
    Refresh();
}

// A second view is opened on the setup: what opening the program's own would mend stays as it is.
void SheetView::Refresh() {
    SetupDesk desk(Program);
    desk.Program().Identity.SetupFromMeter = false;  // boards that no user may change are in use all the same
    html_ = SheetHtml(desk.Open(Program.Image) ? MakeSheet(desk.View(), Facts(), against_)
                                               : MakeBareSheet(Program, desk.WhyEnded(), Facts(), against_));
    Controls.TellChanged();
}

SheetFacts SheetView::Facts() const {
    const bool file = Program.Origin.From == SetupSource::File;
    return {file ? Program.Origin.Path : "", WhereFrom(Program), SheetDate(Program.Pump.LocalTime())};
}

void SheetView::ChooseAgainst() {
    const std::string path =
        Program.Dialogs.AskOpenFile({"Changes Against Setup File", std::string(HomeView::kSetupFilter)});
    if (path.empty()) return;
    SheetAgainst against{path, {}};
    std::string wrong;
    if (Status status = LoadSetupFile(Program.Folder.Store, path, against.Image, wrong); !status.Ok())
        return Tell(status.Text(), ColorRed);
    against_ = against;
    Tell(wrong.empty() ? "" : path + ": no whole setup: " + wrong, ColorRed);
    Refresh();
}

std::string SheetView::ProposedName(const char* ending) const {
    const std::string name = FileName(Program.Home.CurrentFileName);
    return (name.empty() ? "Setup" : name.substr(0, name.rfind('.'))) + ending;
}

void SheetView::Print() {
    Tell(paper_.PrintPages(kSheetTitle, html_), {});
}

void SheetView::SavePdf() {
    const std::string html = html_;
    const std::string path = Program.Dialogs.AskSaveFile(
        {"Save Setup Sheet As PDF", "PDF (*.PDF)|*.PDF", true, ProposedName(".PDF")});
    if (!path.empty()) Tell(paper_.WritePdf(path, kSheetTitle, html), "Saved in " + path);
}

void SheetView::SaveHtml() {
    const std::string html = html_;
    const std::string path = Program.Dialogs.AskSaveFile(
        {"Save Setup Sheet As HTML", "HTML (*.HTML)|*.HTML", true, ProposedName(".HTML")});
    if (!path.empty()) Tell(Program.Folder.Store.Write(path, html), "Saved in " + path);
}

void SheetView::Tell(const Status& status, const std::string& done) {
    Tell(status.Ok() ? done : status.Text(), status.Ok() ? ColorWhite : ColorRed);
}

void SheetView::Tell(const std::string& text, Color color) {
    lblStatus.Caption = text;
    lblStatus.TextColor = color;
    Controls.TellChanged();
}

}  // namespace counter
