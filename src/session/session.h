// Session: the owner of one of each thing that the whole program shares.
//
// Only the views, the shell and the command line see it whole; everything below takes what it uses.
#pragma once

#include "link/link.h"
#include "link/read_settings.h"
#include "meter/derived_values.h"
#include "meter/meter_identity.h"
#include "meter/setup_image.h"
#include "platform/dialogs.h"
#include "platform/program_folder.h"
#include "platform/pump.h"
#include "platform/serial_port.h"
#include "session/home_state.h"
#include "session/view_state.h"
#include "settings/settings.h"

namespace counter {

struct Session {
    // The world, made by main() or by a test.
    Pump& Waits;
    SerialPort& Port;
    Dialogs& Boxes;
    ProgramFolder Folder;

    SetupImage Image;
    Settings Stored;
    MeterIdentity Identity;
    LinkState LinkData;
    DerivedValues Derived;
    HomeState Home;
    ViewState Views;

    Link Line{LinkData, Waits, Port};
    BringUp Settled{Folder, Boxes, Stored, Identity, Line};

    Session(Pump& pump, SerialPort& port, Dialogs& dialogs, ProgramFolder folder)
        : Waits(pump), Port(port), Boxes(dialogs), Folder(std::move(folder)) {}
    Session(const Session&) = delete;  // Line and Settled refer into it
    Session& operator=(const Session&) = delete;
};

}  // namespace counter
