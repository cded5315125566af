#include "shell/verify_action.h"

#include <algorithm>

#include "shell/read_meter.h"
#include "transfer/difference_table.h"

namespace counter {

namespace {

constexpr const char* kVerified = "The meter holds the setup in memory.";
constexpr const char* kVerifiedNote = "verified: the meter holds it";
constexpr const char* kPutNote = "another setup is in memory now";
constexpr const char* kChosenNote = "as it was when Verify began; another is in memory now";

std::string DifferText(const Differences& differences, const std::string& whose) {
    const auto count = std::count_if(differences.begin(), differences.end(),
                                     [](const FieldDifference& difference) { return difference.Counts(); });
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
