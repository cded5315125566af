#include "shell/put_action.h"

#include <array>

#include "link/read_settings.h"
#include "link/waits.h"
#include "transfer/put_setup.h"

namespace counter {

namespace {

constexpr const char* kAppearsDone = "Putting data to the Counter.  Data appears to have Transferred O.K.";

// By InputBoard.
constexpr std::array<const char*, 4> kBoardNames = {"", "Dual Signal Conditioner", "V-F Converter",
                                                    "Quadrature Meter"};

const char* BoardName(int board) {
    return kBoardNames[static_cast<std::size_t>(board)];
}

SetupTransfer TransferOf(Session& session) {
    return {session.Link, session.Image, session.Identity, session.Derived,
            [&session](int percent) { session.Home.ProgressTo(percent); }};
}

void BeginPut(HomeState& home) {
    home.ShowHourglass(true);
    home.ShowStatus("Putting data to the Counter.", ColorGreen);
    home.ProgressPercent = 5;
    home.ShowProgress(true);
}

void CheckBoard(Session& session) {
    SetupTransfer transfer = TransferOf(session);
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

Status Transfer(Session& session) {
    SetupTransfer transfer = TransferOf(session);
    if (session.LinkState.ModbusLink) return PutSetupModbus(transfer, session.BringUp);
    PutSetupAscii(transfer);
    if (session.LinkState.LinkError != 0) return {};
    session.Home.ShowStatus(kAppearsDone, ColorGreen);
    session.Home.ShowProgress(false);
    LinkDelay(session.Link, 1000);
    LineHolds(session.Link);
    return {};
}

Status Finish(Session& session, Status settled) {
    session.Home.ShowHourglass(false);
    if (session.LinkState.LinkError != 0) {
        session.Home.ShowStatus("Data transfer unsuccessful. Check connections and try again. (" +
                                    std::to_string(session.LinkState.LinkError) + ")",
                                ColorRed);
        return settled;
    }
    session.Home.ShowStatus(kAppearsDone, ColorGreen);
    // Over Modbus the settings have been saved already; then this finds nothing changed.
    if (settled.Ok()) settled = SaveLinkSettings(session.Image, session.BringUp);
    session.Home.ProgressPercent = 0;
    session.Home.ShowProgress(false);
    return settled;
}

}  // namespace

Status PutSetup(Session& session) {
    session.LinkState.FramesWritten.clear();
    if (Status status = ReadSettings(session.BringUp); !status.Ok()) return status;
    BeginPut(session.Home);
    CheckBoard(session);
    return Finish(session, Transfer(session));
}

}  // namespace counter
