#include "shell/get_action.h"

#include "link/waits.h"
#include "meter/field_code.h"
#include "meter/meter_words.h"
#include "shell/backups.h"
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

void Fail(Session& session) {
    session.Identity.SetupFromMeter = false;
    session.Home.ShowStatus("Failed to Get data, check connections, then try again.      ( " +
                                std::to_string(session.LinkState.LinkError) + ")",
                            ColorRed);
}

void Succeed(Session& session) {
    HomeState& home = session.Home;
    session.Identity.SetupFromMeter = true;
    home.CommandsEnabled = home.ViewEnabled = home.PutEnabled = home.CalibrationEnabled = true;
    home.ShowProgress(false);
    home.ShowStatus("Getting data from the Counter.  Data received OK.", ColorGreen);
    home.Backup = KeepBackup(session);
}

// Service technicians find the image of the last Get over Modbus here; nothing in the program reads it, so a
// folder that takes no file is no failure of the Get.
void WriteServiceFile(Session& session) {
    session.Folder.Store.Write(session.Folder.At("DataFil2"), DataFil2Text(session.Image));
}

void Transfer(Session& session) {
    SetupTransfer transfer{session.Link, session.Image, session.Identity, session.Derived,
                           [&](int percent) { session.Home.ProgressTo(percent); }};
    if (!session.LinkState.ModbusLink) {
        GetSetupAscii(transfer);
        return;
    }
    GetSetupModbus(transfer);
    if (session.LinkState.LinkError == 0) WriteServiceFile(session);
}

}  // namespace

void GetSetup(Session& session) {
    BeginGet(session);
    Transfer(session);
    if (session.LinkState.LinkError != 0) {
        Fail(session);
    } else {
        Succeed(session);
    }
    if (CodeOf(session.Image, Field::DisplayType) == DisplayType::RemoteA)
        session.Dialogs.Show({"Note:", kRemoteNote, BoxIcon::None});
    session.Home.ShowHourglass(false);
}

}  // namespace counter
