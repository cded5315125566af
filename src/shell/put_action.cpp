#include "shell/put_action.h"

#include <array>

#include "link/port_setup.h"
#include "link/read_settings.h"
#include "link/waits.h"
#include "session/take_setup.h"
#include "shell/line_words.h"
#include "transfer/put_frames.h"
#include "transfer/put_setup.h"

namespace counter {

namespace {

// By InputBoard.
constexpr std::array<const char*, 4> kBoardNames = {"", "Dual Signal Conditioner", "V-F Converter",
                                                    "Quadrature Meter"};

const char* BoardName(int board) {
    return kBoardNames[static_cast<std::size_t>(board)];
}

// Of two Puts, one begun in a wait of the other, the meter is to hold the later: the earlier writes no more.
SetupTransfer TransferOf(Session& session, SetupImage& image, MeterIdentity& identity,
                         const TransferScope& scope) {
    SetupTransfer transfer{session.Link, image, identity, session.Derived,
                           [&session](int percent) { session.Home.ProgressTo(percent); }};
    const int number = ++session.Writes.PutsBegun;
    transfer.Superseded = [&session, number] { return session.Writes.PutsBegun != number; };
    transfer.EndWanted = [&session, &scope] { return session.Writes.EndWanted() || scope.Cancelled(); };
    return transfer;
}

void BeginPut(HomeState& home) {
    home.ShowHourglass(true);
    home.ShowStatus("Putting data to the Counter.", ColorGreen);
    home.ProgressPercent = 5;
    home.ShowProgress(true);
}

void CheckBoard(Session& session, SetupTransfer& transfer) {
    const BoardCheck check = CheckMeterBoard(transfer);
    if (!check.Compared) return;
    if (check.MeterBoard == check.ImageBoard) {
        session.Home.ProgressTo(8);
        return;
    }
    session.Home.StatusVisible = false;
    session.Home.ShowProgress(false);
    session.Dialogs.Show({"Put Data",
                          std::string("You cannot write ") + BoardName(check.ImageBoard) + " data\rto a " +
                              BoardName(check.MeterBoard) + ".",
                          BoxIcon::Stop});
}

Status Transfer(Session& session, SetupTransfer& transfer) {
    if (session.LinkState.ModbusLink) return PutSetupModbus(transfer, session.BringUp);
    PutSetupAscii(transfer);
    if (session.LinkState.LinkError != 0 || transfer.GaveUp) return {};
    session.Home.ShowStatus(kPutAppearsDone, ColorGreen);
    session.Home.ShowProgress(false);
    LinkDelay(session.Link, 1000);
    if (!transfer.IsSuperseded()) LineHolds(session.Link);
    return {};
}

// For a later Put the line says already what has become of the meter.
void GiveUp(Session& session, SetupTransfer& transfer) {
    session.Home.ShowHourglass(false);
    if (transfer.IsSuperseded()) return;
    session.Home.ShowProgress(false);
    NoteTransfer(session, true, false);
    session.Home.ShowStatus(PutSoFar(session.LinkState, transfer.Identity.FirmwareVersion), ColorRed);
}

// Of a line whose server has to follow the meter by hand; empty where nothing is to be followed.
std::string NoteOfSpeed(const Session& session, const std::string& before) {
    const std::string line = session.Port.SpeedSetBy(), now = PortSettingsText(session.LinkState);
    if (line.empty() || now == before) return {};
    return "the meter now talks at " + now + " and " + line + " at " + before +
           ": no command arrives until its server is set to " + now;
}

Status Finish(Session& session, const SetupImage& image, Status settled, const std::string& lineBefore) {
    session.Home.ShowHourglass(false);
    NoteTransfer(session, true, session.LinkState.LinkError == 0);
    session.LastTransfer->Sent = image;
    session.LastTransfer->Meter = MeterOnLine(session.Settings);
    if (session.LinkState.LinkError != 0) {
        session.Home.ShowStatus("Data transfer unsuccessful. Check connections and try again. (" +
                                    std::to_string(session.LinkState.LinkError) + ")",
                                ColorRed);
        return settled;
    }
    session.Home.ShowStatus(kPutAppearsDone, ColorGreen);
    // Over Modbus the settings have been saved already; then this finds nothing changed.
    if (settled.Ok()) settled = SaveLinkSettings(image, session.BringUp);
    session.LastTransfer->Meter = MeterOnLine(session.Settings);  // which may have a new address
    if (settled.Ok()) session.Home.StatusNote = NoteOfSpeed(session, lineBefore);
    session.Home.ProgressPercent = 0;
    session.Home.ShowProgress(false);
    return settled;
}

}  // namespace

Status PutSetup(Session& session) {
    const SetupWriteScope writing(
        session.Writes, [&session] { return PutSoFar(session.LinkState, session.Identity.FirmwareVersion); });
    const TransferScope transferring(session.Home);
    session.LinkState.FramesWritten.clear();
    if (Status status = ReadSettings(session.BringUp); !status.Ok()) return status;
    const std::string line = PortSettingsText(session.LinkState);
    const SetupImage chosen = session.Image;
    SetupImage image = chosen;
    MeterIdentity identity = session.Identity;
    SetupTransfer transfer = TransferOf(session, image, identity, transferring);
    BeginPut(session.Home);
    CheckBoard(session, transfer);
    Status settled = Transfer(session, transfer);
    // What the meter's protocol made of the copy is true of the setup in memory, where that is still the
    // same.
    if (session.Image == chosen) session.Image = image;
    if (transfer.GaveUp || transfer.IsSuperseded()) return GiveUp(session, transfer), settled;
    return Finish(session, image, settled, line);
}

}  // namespace counter
