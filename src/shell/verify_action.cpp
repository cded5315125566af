#include "shell/verify_action.h"

#include <algorithm>

#include "shell/line_words.h"
#include "shell/read_meter.h"
#include "transfer/difference_table.h"

namespace counter {

namespace {

constexpr const char* kVerified = "The meter holds the setup in memory.";
constexpr const char* kVerifiedNote = "verified: the meter holds it";
constexpr const char* kPutNote = "another setup is in memory now";
constexpr const char* kChosenNote = "as it was when Verify began; another is in memory now";

int CountOf(const Differences& differences) {
    return static_cast<int>(std::ranges::count_if(differences, &FieldDifference::Counts));
}

// The last Put is told with it, where it was of this setup and into this meter.
void NoteVerified(Session& session, const SetupImage& wanted, const Differences& differences) {
    auto& last = session.LastTransfer;
    if (last && last->Put && last->Good && last->Sent == wanted &&
        last->Meter == MeterOnLine(session.Settings))
        last->Differ = CountOf(differences);
}

std::string DifferText(const Differences& differences, const std::string& whose) {
    const int count = CountOf(differences);
    return std::to_string(count) + (count == 1 ? " field differs" : " fields differ") +
           " in the meter from " + whose;
}

}  // namespace

Verification VerifySetup(Session& session, bool afterPut) {
    HomeState& home = session.Home;
    const bool sent = afterPut && session.LastTransfer && session.LastTransfer->Good;
    const SetupImage wanted = sent ? session.LastTransfer->Sent : session.Image;
    const int version = session.Identity.FirmwareVersion;
    const std::string putLine = home.StatusText, putNote = home.StatusNote;
    const int puts = session.Writes.PutsBegun;
    if (afterPut) {
        home.AddNote("verifying");
    } else {
        home.ShowStatus("Reading the meter to verify.", ColorGreen);
    }
    home.ShowHourglass(true);
    const MeterReading reading = ReadMeter(session, wanted);
    home.ShowHourglass(false);
    // A later Put has its own line, and its own proof.
    if (afterPut && session.Writes.PutsBegun != puts) return {};
    if (!reading.Trouble.empty()) {
        if (!afterPut) return home.ShowStatus(reading.Trouble, ColorRed), Verification();
        // How the Put ended is still true.
        home.ShowStatus(putLine, ColorGreen, putNote);
        home.AddNote("not verified: " + reading.Trouble);
        return {};
    }
    const Differences differences = CompareSetups(wanted, reading.Came, RoadOf(session.LinkState), version);
    NoteVerified(session, wanted, differences);
    const bool holds = !AnyCounts(differences);
    const std::string note = session.Image == wanted ? "" : afterPut ? kPutNote : kChosenNote;
    if (!holds) {
        home.ShowStatus(
            DifferText(differences, note.empty() || !afterPut ? "the setup in memory." : "what was put."),
            ColorRed, note);
    } else if (afterPut) {
        home.ShowStatus(putLine, ColorGreen, putNote);
        home.AddNote(kVerifiedNote);
    } else {
        home.ShowStatus(kVerified, ColorGreen, note);
    }
    return {holds, differences.empty() ? "" : DifferencesTable(differences, "memory", "meter")};
}

}  // namespace counter
