// Session: the owner of one of each thing that the whole program shares.
//
// Only the views, the shell and the command line see it whole; everything below takes what it uses.
#pragma once

#include <optional>

#include "link/frame_rules.h"
#include "link/link.h"
#include "link/node_client.h"
#include "link/read_settings.h"
#include "link/session_link.h"
#include "meter/derived_values.h"
#include "meter/meter_identity.h"
#include "meter/setup_image.h"
#include "platform/dialogs.h"
#include "platform/program_folder.h"
#include "platform/pump.h"
#include "platform/serial_port.h"
#include "platform/sockets.h"
#include "session/home_state.h"
#include "session/setup_changes.h"
#include "session/setup_origin.h"
#include "session/setup_writes.h"
#include "session/view_state.h"
#include "settings/settings.h"

namespace counter {

// A setup that was in memory before another came, with all that belongs to it.
struct KeptSetup {
    SetupImage Image;
    SetupOrigin Origin;
    SetupChanges Changes;
    std::string Doubt;     // HomeState::SetupDoubt
    std::string FileName;  // HomeState::CurrentFileName
    bool FromMeter = false;
    bool Unasked = false;  // nobody has agreed that it may be lost
};

struct Session {
    NoSockets None;  // for those who reach no node
    // The world, made by main() or by a test.
    counter::Pump& Pump;
    SerialPort& Port;
    counter::Dialogs& Dialogs;
    SessionLink ChosenLink;  // all that is in the folder is reached through it
    ProgramFolder Folder;
    counter::Sockets Sockets;

    SetupImage Image;
    SetupOrigin Origin;                        // of the image
    SetupChanges Changes;                      // since it came
    std::optional<KeptSetup> SetupBefore;      // the last one came
    std::optional<MeterSetup> MeterAtLastGet;  // none before the first good Get
    std::optional<TransferReport> LastTransfer;
    counter::Settings Settings;
    MeterIdentity Identity;
    counter::LinkState LinkState;
    FrameRules Frames;  // of the reading stream
    DerivedValues Derived;
    HomeState Home;
    ViewState Views;
    SetupWrites Writes;
    Status LineTrouble;  // why a serial line that went away could not be opened again for the view on show

    NodeClient Node{LinkState, Pump, Dialogs, Sockets};
    counter::Link Link{LinkState, Pump, Port, &Node};
    counter::BringUp BringUp{Folder, Dialogs, Settings, Identity, Link};

    Session(counter::Pump& pump, SerialPort& port, counter::Dialogs& dialogs, ProgramFolder folder,
            std::optional<counter::Sockets> sockets = {})
        : Pump(pump),
          Port(port),
          Dialogs(dialogs),
          ChosenLink(folder.Store, folder.At(kSettingsFile)),
          Folder{ChosenLink, std::move(folder.Path)},
          Sockets(sockets.value_or(None.Both())) {
        Node.HideStatus = [this] { Home.HideStatus(); };
    }
    Session(const Session&) = delete;  // Link and BringUp refer into it
    Session& operator=(const Session&) = delete;
};

}  // namespace counter
