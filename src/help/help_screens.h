// The help screens whose text is fixed: what the Setup help says, and what is beside the drawings of
// boards and their jumpers.
#pragma once

#include <array>
#include <span>
#include <string_view>

#include "session/view_id.h"

namespace counter {

// frmMHELP, its text area Picture2 and its button cmdMHelp. Opening it, HelpId becomes kHomeHelpId.
inline constexpr std::string_view kSetupHelpTitle = "SETUP  HELP";
inline constexpr std::string_view kSetupHelpOk = "OK";
inline constexpr int kHomeHelpId = 3101;

inline constexpr auto kSetupHelpLines = std::to_array<std::string_view>({
    "   Setup Help is provided when 'View' is selected. ",
    "   There are two viewing modes.",
    "      1. Setup.  ",
    "         When Setup is selected, Help is provided by selecting a function",
    "         while Viewing the Setup (Pages 1,2 or 3) and pressing the F1 key.",
    "",
    "      2. Menu (Corresponds to the Counter front panel menu display). ",
    "         When Menu is selected, Help is provided automatically when one of",
    "         the Menu items is selected.",
});

inline constexpr auto kRs232HLines = std::to_array<std::string_view>({
    "RS232 Board",
    "   e - Normal operation",
    "   f - Slave display to RS232 from another meter",
    "   g - Pull-up resistor on the RTS line.",
    "   Note: Board is shipped with jumpers e + g installed.",
});
inline constexpr auto kRs485HLines = std::to_array<std::string_view>({
    "Full Duplex Operation",
    "   No jumpers for short cable runs.",
    "   Add b + d for long cable runs.",
    "Half Duplex Operation",
    "   Install jumpers a + c",
    "   Add d for long cable runs.",
});
inline constexpr auto kConverterLines = std::to_array<std::string_view>({
    "Full Duplex Converter Operation",
    "   No jumpers for short cable runs.",
    "   Add b + d for long cable runs.",
    "Half Duplex Converter Operation",
    "   Install jumpers a + c",
    "   Add d for long cable runs.",
});

// A screen with the drawing of a board. Its text is a help text, fixed lines, or none.
struct JumperScreen {
    std::string_view Form;
    ViewId View;
    std::string_view Title;
    int HelpId = 0;  // 0: no help text
    std::span<const std::string_view> Lines = {};
};

// clang-format off
inline constexpr auto kJumperScreens = std::to_array<JumperScreen>({
    {"frmJDSCG",    ViewId::DualSignalG,  "Dual Signal Conditioner Jumpers"},
    {"frmJVFE",     ViewId::VFConverterE, "V-F Signal Conditioner Jumpers Rev E"},
    {"frmJQuadC",   ViewId::QuadratureC,  "Quadrature Signal Conditioner Jumpers - Revision C and above"},
    {"frmJPS",      ViewId::PowerSupply,  "Power Supply Jumpers",                     1375},
    {"frmJRS232G",  ViewId::Rs232G,       "RS232 Digital Interface Board Revision G", 1383},
    {"frmJRS485G",  ViewId::Rs485G,       "RS485 Digital Interface Board Revision G", 1384},
    {"frmJRSMBG",   ViewId::ModbusG,      "Modbus Digital Interface Board  Rev G",    1393},
    {"frmJRS232H",  ViewId::Rs232H,       "RS232 Digital Interface Board Revision H", 0, kRs232HLines},
    {"frmJRS485H",  ViewId::Rs485H,       "RS485 Digital Interface Board Revision H", 0, kRs485HLines},
    {"frmJRSUSB",   ViewId::Usb,          "USB/RS485 Digital Interface Board",        0, kConverterLines},
    {"frmJRSEther", ViewId::Ethernet,     "Ethernet/RS485 Digital Interface Board",   0, kConverterLines},
});
// clang-format on

}  // namespace counter
