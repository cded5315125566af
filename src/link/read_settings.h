// ReadSettings: takes Settings.SSS over and brings the link up as it says.
#pragma once

#include "link/link.h"
#include "meter/meter_identity.h"
#include "platform/dialogs.h"
#include "platform/program_folder.h"
#include "platform/status.h"
#include "settings/settings.h"

namespace counter {

// Exit status of a program that was started with another program's settings.
inline constexpr int kWrongProgramExit = 2;

// What bringing the link up works on.
struct BringUp {
    const ProgramFolder& Folder;
    counter::Dialogs& Dialogs;
    counter::Settings& Settings;
    MeterIdentity& Identity;
    counter::Link& Link;
};

// Reads the file, sets the link's state and opens the port. Through a node, or without a link, no port is
// touched. Failures: the file can't be read; a baud digit outside 0..6; the port can't be opened. Another
// program's settings end the process after a message box.
Status ReadSettings(const BringUp& bringUp);

}  // namespace counter
