#include "setup_view/why_disabled.h"

#include <algorithm>
#include <array>

namespace counter {

namespace {

constexpr std::string_view kBoards = "The boards of a meter that was read are fixed.";
constexpr std::string_view kScale = "The coordinates or a curve are in force.";
constexpr std::string_view kCoordinates = "The scale or a curve is in force.";
constexpr std::string_view kRemote = "A remote display sends nothing of its own.";
constexpr std::string_view kDeviation = "The meter has no deviation in its menu.";

struct Reason {
    std::string_view Name;
    std::string_view Why;
};

// clang-format off
constexpr auto kReasons = std::to_array<Reason>({
    {"cboInOpt", kBoards}, {"cboRlyOpt", kBoards}, {"cboComOpt", kBoards}, {"cboAnaOpt", kBoards},
    {"txtTimeOut",      "This Mode and Function have neither time-out nor preset."},
    {"cboCutoffEnable", "This Mode and Function have no cutoff."},
    {"txtPulses",       "The cutoff is disabled."},
    {"cboDVal",         "This Mode and Function filter no item."},
    {"cboDspyN",        "This Mode and Function have one item alone."},
    {"cboDecPt1",       "A clock has no decimal point of its own."},
    {"txtScale1", kScale}, {"cboMult1", kScale}, {"txtOffset1", kScale},
    {"txtScale2", kScale}, {"cboMult2", kScale}, {"txtOffset2", kScale},
    {"txtLoIn1", kCoordinates}, {"txtLoRd1", kCoordinates}, {"txtHiIn1", kCoordinates}, {"txtHiRd1", kCoordinates},
    {"txtLoIn2", kCoordinates}, {"txtLoRd2", kCoordinates}, {"txtHiIn2", kCoordinates}, {"txtHiRd2", kCoordinates},
    {"optScale1", "A curve is in force."}, {"optScale2", "A curve is in force."},
    {"optCoord1",       "A curve is in force, or this Mode and Function take a scale alone."},
    {"optCoord2",       "A curve is in force, or this Mode and Function take a scale alone."},
    {"cboCusCrv",       "A curve takes an Extended meter, and a Mode and Function that can have one."},
    {"chkSqRt",         "A square root takes a Mode and Function that can have one, and no curve."},
    {"txtRd0In",        "Neither a square root nor a curve is in force."},
    {"cboTrigSlpA",     "The trigger slope is one of the Dual Signal Conditioner."},
    {"cboBatCount",     "A batch is counted with the Dual Signal Conditioner alone."},
    {"cboDevTyp", kDeviation}, {"txtDev", kDeviation},
    {"cboOutItems", kRemote}, {"cboOutVal", kRemote}, {"cboOutRate", kRemote}, {"cboSerMode", kRemote},
    {"cboCR", kRemote}, {"cboRTS", kRemote}, {"chkAlmData", kRemote}, {"chkLF", kRemote},
});
// clang-format on

}  // namespace

std::string_view WhyDisabled(std::string_view name) {
    const auto found = std::find_if(kReasons.begin(), kReasons.end(),
                                    [name](const Reason& row) { return row.Name == name; });
    return found == kReasons.end() ? std::string_view() : found->Why;
}

}  // namespace counter
