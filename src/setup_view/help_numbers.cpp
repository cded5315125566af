#include "setup_view/help_numbers.h"

#include <algorithm>
#include <array>

namespace counter {

namespace {

struct HelpNumber {
    std::string_view Name;
    int Number;
};

// The help texts know 1135, 1138 and 1156 by number.
// clang-format off
constexpr auto kHelpNumbers = std::to_array<HelpNumber>({
    // Input+Display
    {"tabSetup", 1101},        {"cmdMainMenu", 1102},     {"cmdRead", 1103},
    {"lblValue", 1103},        {"cboInOpt", 1104},        {"cboMode", 1105},
    {"cboFunction", 1106},     {"fraInput", 1107},        {"txtGateTime", 1108},
    {"txtTimeOut", 1109},      {"lblTSecs", 1109},        {"txtPulses", 1110},
    {"cboCutoffEnable", 1111}, {"cboPwrOnTot", 1112},     {"fraDisplay", 1113},
    {"cboDType", 1114},        {"cboDVal", 1115},         {"cboLeadZ", 1116},
    {"cboDspyN", 1117},        {"cboAction", 1118},       {"fraExtAB", 1119},
    {"cboExtAB", 1119},        {"lblExtAB", 1119},        {"fraCalib", 1120},
    {"txtCal", 1120},          {"cboRlyOpt", 1121},       {"cboComOpt", 1122},
    {"cboAnaOpt", 1123},       {"cmd9600", 1124},         {"cmdQBasic", 1125},
    {"cmdQExtended", 1125},    {"fraBasExt", 1125},       {"picText", 1125},
    {"optScale1", 1135},       {"optCoord1", 1135},       {"optScale2", 1135},
    {"optCoord2", 1135},
    // Scaling
    {"fraItem1", 1136},        {"lblItem1", 1136},        {"fraItem2", 1137},
    {"lblItem2", 1137},        {"lblAscTbl", 1138},       {"fraItem3", 1139},
    {"lblItem3", 1139},        {"cboDecPt1", 1140},       {"cboDecPt2", 1140},
    {"txtScale1", 1141},       {"txtScale2", 1141},       {"cboMult1", 1142},
    {"cboMult2", 1142},        {"txtOffset1", 1143},      {"txtOffset2", 1143},
    {"txtLoIn1", 1144},        {"txtLoIn2", 1144},        {"txtLoRd1", 1145},
    {"txtLoRd2", 1145},        {"txtHiIn1", 1146},        {"txtHiIn2", 1146},
    {"txtHiRd1", 1147},        {"txtHiRd2", 1147},        {"cboResoln", 1148},
    {"cboCusCrv", 1149},       {"chkSqRt", 1150},         {"txtRd0In", 1151},
    {"cboTrigSlpA", 1152},     {"cboTrigSlpB", 1152},     {"cboBatCount", 1153},
    {"cboBatReset", 1154},     {"cboBatItm2", 1155},      {"optBasic", 1156},
    {"optExtended", 1156},     {"cboBatStart", 1157},
    // Filter
    {"fraFilter", 1158},       {"cboTimConst", 1159},     {"cboThresh", 1160},
    {"cboPeakVal", 1161},      {"cboFType", 1162},
    // Relay Alarms
    {"fraAlarm", 1163},        {"cboAlmSource", 1164},    {"cboState", 1165},
    {"cboAlmType", 1166},      {"cboRlyState", 1167},     {"txtSetpt", 1168},
    {"cboDevTyp", 1169},       {"txtDev", 1170},          {"cboNumRdgsAlms", 1171},
    {"chkDevStatus", 1172},
    // Communication
    {"fraSerComm", 1173},      {"cboProtocol", 1174},     {"cboBaudRate", 1175},
    {"cboParity", 1176},       {"cboAddress", 1177},      {"txtMBAddr", 1177},
    {"cboMBTimeout", 1178},    {"cboDuplex", 1179},       {"cboOutItems", 1180},
    {"cboOutVal", 1181},       {"cboOutRate", 1182},      {"cboSerMode", 1183},
    {"chkAlmData", 1184},      {"chkLF", 1185},           {"cboCR", 1186},
    {"cboRTS", 1187},          {"cboRecogChr", 1188},     {"txtCusRecog", 1188},
    {"lblCusRecog", 1188},     {"cboTranChars", 1189},    {"txtTranStart", 1190},
    {"lblTranStart", 1190},    {"txtTranStop", 1190},     {"lblTranStop", 1190},
    {"fraRmtDspyC", 1191},     {"txtStartChr", 1191},     {"lblStartChr", 1191},
    {"txtStopChr", 1191},      {"lblStopChr", 1191},      {"txtSkip", 1191},
    {"txtShow", 1191},
    // Analog Out
    {"fraAnaOut", 1192},       {"fraAnaOut2", 1192},      {"cboSource", 1193},
    {"cboSource2", 1193},      {"cboRange", 1194},        {"cboRange2", 1194},
    {"txtAnaLo", 1195},        {"txtAnaLo2", 1195},       {"txtAnaHi", 1196},
    {"txtAnaHi2", 1196},
    // Lockouts
    {"fraLockOut", 1197},      {"chkLock", 1198},         {"lblFPLock", 1199},
});
// clang-format on

}  // namespace

int HelpNumberOf(std::string_view name) {
    auto found = std::find_if(kHelpNumbers.begin(), kHelpNumbers.end(),
                              [name](const HelpNumber& row) { return row.Name == name; });
    return found == kHelpNumbers.end() ? 0 : found->Number;
}

}  // namespace counter
