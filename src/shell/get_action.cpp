#include "shell/get_action.h"

#include "link/waits.h"
#include "meter/field_code.h"
#include "meter/meter_words.h"
#include "platform/utc_time.h"
#include "session/take_setup.h"
#include "shell/backups.h"
#include "shell/line_words.h"
#include "shell/read_meter.h"
#include "transfer/get_setup.h"

namespace counter {

namespace {

constexpr const char* kRemoteNote =
    "The Data Type shows as 'Remote A.'  It is possible that the Meter was set to 'Remote C', but since that "
    "Data "
    "Type only allows one-way communication, it is changed to 'Remote A' for the transfer of data.  If "
    "'Remote C' is "
    "desired, change the Data Type to 'Remote C' before doing a 'Put' and the Meter will end up in the "
    "'Remote C' "
    "mode.";

void BeginGet(Session& session) {
    session.Home.ShowHourglass(true);
    session.Home.ShowStatus("Getting data from the Counter.", ColorGreen);
    LinkDelay(session.Link, 5);
    session.Home.ProgressPercent = 0;
    session.Home.ShowProgress(true);
}

// Two setups can come to be in memory during a Get: what the user chose meanwhile, and what came. The later
// one has it whole: what came when all of it came, what was chosen when the Get failed.
struct Reading {
    const SetupImage Before;  // in memory as the Get began
    const int WritesBegun;
    SetupImage Came;  // so far; registers that no range names keep what they held
    std::string Doubt;

    // What a Get in a wait of this one brought is the same.
    bool ChosenMeanwhile(const Session& session) const {
        return session.Image != Before && session.Image != Came;
    }
};

void Fail(Session& session, const Reading& reading) {
    HomeState& home = session.Home;
    std::string note;
    if (session.Image != reading.Before) {
        note = "memory keeps what was chosen meanwhile";
    } else if (reading.Came != reading.Before) {
        TakeSetup(session, reading.Came, SetupSource::FailedGet,
                  "The last Get failed: what is in memory is from the meter only in part.");
        note = "memory has only a part of the meter's setup";
    }
    session.Identity.SetupFromMeter = false;
    NoteTransfer(session, false, false);
    home.ShowStatus("Failed to Get data, check connections, then try again.      ( " +
                        std::to_string(session.LinkState.LinkError) + ")",
                    ColorRed, note);
}

// Blocks of before and after a write are no setup.
void TellWritten(Session& session) {
    session.Home.ShowStatus(
        "The meter was written while it was read: what came was not taken. Get Setup once more.", ColorRed);
}

std::string AddedNote(const std::string& note, const std::string& more) {
    return note.empty() || more.empty() ? note + more : note + "; " + more;
}

void Succeed(Session& session, const Reading& reading) {
    HomeState& home = session.Home;
    std::string note = reading.Doubt;
    const bool chosen = reading.ChosenMeanwhile(session);
    if (chosen) note = AddedNote(note, "memory has the meter's setup, not what was chosen meanwhile");
    TakeSetup(session, reading.Came, SetupSource::Meter,
              reading.Doubt.empty() ? "" : "Not all of what came can be right, " + reading.Doubt + ".");
    if (chosen && session.SetupBefore) session.SetupBefore->Unasked = true;
    session.Origin.Meter = MeterOnLine(session.Settings);
    session.MeterAtLastGet = MeterSetup{reading.Came, UtcMs(session.Pump.LocalTime()),
                                        AddressOnLine(session.Settings), LineInWords(session.Settings)};
    home.CommandsEnabled = home.ViewEnabled = home.PutEnabled = home.CalibrationEnabled = true;
    home.ShowProgress(false);
    // What may not be the meter's setup is no copy to go back to.
    home.Backup = reading.Doubt.empty() ? KeepBackup(session) : Status();
    // What a Put overwrites now could not be had again.
    note = AddedNote(note, NoBackupWords(home.Backup));
    NoteTransfer(session, false, true);
    home.ShowStatus("Getting data from the Counter.  Data received OK.", ColorGreen, note);
}

// Service technicians find the image of the last Get over Modbus here; nothing in the program reads it, so a
// folder that takes no file is no failure of the Get.
void WriteServiceFile(Session& session, const SetupImage& image) {
    session.Folder.Store.Write(session.Folder.At("DataFil2"), DataFil2Text(image));
}

// A view that is opened in a wait takes the meter's kind and version from the setup that is still in memory.
void Transfer(Session& session, Reading& reading, const TransferScope& scope) {
    const MeterIdentity before = session.Identity;
    MeterIdentity identity = before;
    DerivedValues derived = session.Derived;
    const bool extendedBefore = derived.ExtendedMeter;
    reading.Doubt = ReadWholeSetup(session, {reading.Came, identity, derived}, scope);
    if (scope.Cancelled()) return;
    if (derived.ExtendedMeter != extendedBefore) session.Derived.ExtendedMeter = derived.ExtendedMeter;
    const bool whole = !session.LinkState.ModbusLink && session.LinkState.LinkError == 0;
    const bool told =
        identity.MeterType != before.MeterType || identity.FirmwareVersion != before.FirmwareVersion;
    if (!whole && !told) return;
    session.Identity.MeterType = identity.MeterType;
    session.Identity.FirmwareVersion = identity.FirmwareVersion;
}

bool WrittenMeanwhile(const Session& session, const Reading& reading) {
    return session.Writes.Running > 0 || session.Writes.Begun != reading.WritesBegun;
}

GetEnd Finish(Session& session, const Reading& reading) {
    const bool failed = session.LinkState.LinkError != 0;
    if (WrittenMeanwhile(session, reading)) {
        TellWritten(session);
    } else if (failed) {
        Fail(session, reading);
    } else {
        if (session.LinkState.ModbusLink) WriteServiceFile(session, reading.Came);
        Succeed(session, reading);
        return GetEnd::Done;
    }
    return GetEnd::Failed;
}

// Nothing is handed over, and nobody asks what the last exchange came to.
GetEnd CallOff(Session& session, int linkErrorBefore) {
    session.LinkState.LinkError = linkErrorBefore;
    session.Home.ShowStatus("Get Setup was cancelled. What is in memory is as it was.", ColorWhite);
    session.Home.ShowHourglass(false);
    return GetEnd::Cancelled;
}

}  // namespace

GetEnd GetSetup(Session& session) {
    const int linkErrorBefore = session.LinkState.LinkError;
    const SetupImage before = session.Image;
    GetEnd end = GetEnd::Failed;
    {
        const TransferScope transfer(session.Home);
        BeginGet(session);
        Reading reading{session.Image, session.Writes.Begun, session.Image, {}};
        Transfer(session, reading, transfer);
        if (transfer.Cancelled()) return CallOff(session, linkErrorBefore);
        end = Finish(session, reading);
    }
    // A Get that brought nothing leaves a view that is on show alone, and what is typed in it.
    const bool replaced = end == GetEnd::Done || session.Image != before;
    if (replaced && session.Home.Replaced) session.Home.Replaced();
    if (CodeOf(session.Image, Field::DisplayType) == DisplayType::RemoteA)
        session.Dialogs.Show({"Note:", kRemoteNote, BoxIcon::None});
    session.Home.ShowHourglass(false);
    return end;
}

}  // namespace counter
