// The help of counter-link: F1 in its window.
#pragma once

#include <string_view>

namespace counter {

struct LinkHelpPiece {
    std::string_view Text;  // CR LF ends a line
    bool Emphasised = false;
};

inline constexpr LinkHelpPiece kLinkHelp[] = {
    {"This program says how your meter is connected. "},
    {"Find meter", true},
    {" tries every serial port, rate and protocol by itself and fills the fields with what answered; it "
     "reads only and may take some minutes. "},
    {"Test", true},
    {" asks once with the fields as they stand. "},
    {"Stop", true},
    {" or Esc ends either at its next wait. "},
    {"Save", true},
    {" keeps them for Counter Setup and counterctl, also for a Counter Setup that runs: it takes them over "
     "when "
     "its window comes to the front. "},
    {"Save and open Counter Setup", true},
    {" then starts that program.\r\n\r\n"},
    {"Rate, protocol, parity and address", true},
    {" must be those of the meter's own menu. A meter leaves the factory at 9600 baud, Custom ASCII, address "
     "1. Parity and Modbus address count in the Modbus protocols only, the meter address and the long "
     "wake-up "
     "in Custom ASCII only. The firmware version decides about the check of Modbus RTU: below 81 it is the "
     "old "
     "one.\r\n\r\n"},
    {"The line echoes", true},
    {" is for two-wire lines on which the computer hears what it sends itself. "},
    {"Ethernet node", true},
    {" is for a meter behind an Ethernet-to-serial node: give the node's address as printed on it and its IP "
     "address; it calls back to the TCP port, which a firewall must let in."},
};

}  // namespace counter
