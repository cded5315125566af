#include "shell/home_menu.h"

#include <array>

namespace counter {

namespace {

constexpr int kNoTopic = 0;
constexpr bool kHeading = true, kEntry = false;
constexpr bool kOn = true, kOff = false;
constexpr bool kTicked = true;

// clang-format off
constexpr auto kMenu = std::to_array<HomeMenuRow>({
    {"mnuFile",       "&File",                  kHeading, 3102,     kOn,  {}},
    {"mnuDefaultSet", "&Default  Setup",        kEntry,   kNoTopic, kOn,  {}, HomeItem::DefaultSetup},
    {"mnuOpen",       "&Open Setup",            kEntry,   kNoTopic, kOn,  {}, HomeItem::Open},
    {"mnuSave",       "&Save Setup",            kEntry,   kNoTopic, kOn,  {}, HomeItem::Save},
    {"mnuSaveAs",     "Save Setup &As",         kEntry,   kNoTopic, kOn,  {}, HomeItem::SaveAs},
    {"mnuPrintSetup", "&Print Setup",           kEntry,   kNoTopic, kOff, ViewId::Sheet, HomeItem::PrintSetup},
    {"mnuCompare",    "&Compare...",            kEntry,   kNoTopic, kOff, ViewId::Compare, HomeItem::Compare},
    {"mnuExit",       "E&xit",                  kEntry,   kNoTopic, kOn,  {}, HomeItem::Exit},
    {"mnuCounter",    "&Counter",               kHeading, 3115,     kOff, {}, HomeItem::Counter},
    {"mnuGet",        "&Get Setup",             kEntry,   kNoTopic, kOn,  {}, HomeItem::Get},
    {"mnuPut",        "&Put Setup",             kEntry,   kNoTopic, kOff, {}, HomeItem::Put},
    {"mnuVerify",     "&Verify",                kEntry,   kNoTopic, kOff, {}, HomeItem::Verify},
    {"mnuVerifyPut",  "Verify &after Put",      kEntry,   kNoTopic, kOn,  {}, HomeItem::VerifyAfterPut, kTicked},
    {"mnuLink",       "&Link...",               kEntry,   kNoTopic, kOn,  {}, HomeItem::Link},
    {"mnuView",       "&View",                  kHeading, 3116,     kOff, {}, HomeItem::View},
    {"mnuSetup",      "&Setup",                 kEntry,   kNoTopic, kOn,  ViewId::Setup},
    {"mnuMenu",       "&Menu",                  kEntry,   kNoTopic, kOn,  ViewId::Menu, HomeItem::Menu},
    {"mnuCmds",       "Co&mmands",              kHeading, 3104,     kOff, {}, HomeItem::Commands},
    {"mnuCmdsGo",     "Comman&ds",              kEntry,   kNoTopic, kOn,  ViewId::Commands},
    {"mnuMRdgs",      "&Readings",              kHeading, 3105,     kOff, {}, HomeItem::Readings},
    {"mnuList",       "&List",                  kEntry,   kNoTopic, kOn,  ViewId::List},
    {"mnuPlot",       "&Plot",                  kEntry,   kNoTopic, kOn,  ViewId::Plot},
    {"mnuGraph",      "&Graph",                 kEntry,   kNoTopic, kOn,  ViewId::Graph},
    {"mnuCalib",      "Cali&bration",           kHeading, 1210,     kOff, {}, HomeItem::Calibration},
    {"mnuCalibGo",    "Calibra&tion",           kEntry,   kNoTopic, kOn,  ViewId::Calibration},
    {"mnuJmps",       "&Jumpers",               kHeading, 3117,     kOn,  {}},
    {"mnuDualG",      "&Dual S/C Rev G",        kEntry,   kNoTopic, kOn,  ViewId::DualSignalG},
    {"mnuVFConvE",    "V-F Converter Rev &E",   kEntry,   kNoTopic, kOn,  ViewId::VFConverterE},
    {"mnuQuadC",      "Quadrature Rev &C ",     kEntry,   kNoTopic, kOn,  ViewId::QuadratureC},
    {"mnuPS",         "Po&wer Supply",          kEntry,   kNoTopic, kOn,  ViewId::PowerSupply},
    {"mnuRS232G",     "RS232 Rev &G",           kEntry,   kNoTopic, kOn,  ViewId::Rs232G},
    {"mnuRS232H",     "RS232 Rev &H",           kEntry,   kNoTopic, kOn,  ViewId::Rs232H},
    {"mnuRS485G",     "RS485 Re&v G",           kEntry,   kNoTopic, kOn,  ViewId::Rs485G},
    {"mnuRS485H",     "R&S485 Rev H",           kEntry,   kNoTopic, kOn,  ViewId::Rs485H},
    {"mnuModbusG",    "&Modbus/RS485  Rev G",   kEntry,   kNoTopic, kOn,  ViewId::ModbusG},
    {"mnuRSUSB",      "&USB/RS485",             kEntry,   kNoTopic, kOn,  ViewId::Usb},
    {"mnuRSEther",    "Ether&net/RS485",        kEntry,   kNoTopic, kOn,  ViewId::Ethernet},
    {"mnuMHelp",      "&Help",                  kHeading, 3103,     kOn,  {}},
    {"mnuItem",       "&Items",                 kEntry,   kNoTopic, kOn,  ViewId::SetupHelp},
    {"mnuRBatch",     "Rate Batch",             kEntry,   kNoTopic, kOn,  ViewId::RateBatchHelp},
    {"mnuVFBatch",    "V-F Batch",              kEntry,   kNoTopic, kOn,  ViewId::VFBatchHelp},
    {"mnuGlossary",   "&Glossary",              kEntry,   kNoTopic, kOn,  {}, HomeItem::Glossary},
});
// clang-format on

}  // namespace

std::span<const HomeMenuRow> HomeMenu() {
    return kMenu;
}

std::string_view HomeHelpText() {
    return "    If this screen is reached WITHOUT establishing communications, then click on 'File'\n"
           "    to load Setup data to the program from either\n"
           "         1. A Default Setup file furnished with the program, or\n"
           "         2. A previously saved Setup file.\n"
           "    Once Setup data is loaded, the View menu item becomes active to allow viewing the\n"
           "    Setup data.  Since communications has not been established, the 'Counter', 'Commands'\n"
           "    and 'Readings' Menu items are not active.\n"
           "\n"
           "    If this screen is reached AFTER establishing communications, then in addition to the\n"
           "    above two methods, a common choice for loading Setup data to the program is to\n"
           "         3. Click on the 'Counter' menu item and select 'Get Setup' to load the Setup data\n"
           "             currently in the connected Counter.\n"
           "    If Setup data is loaded by method 3, all menu items become active.\n"
           "\n"
           "    Click a Menu heading on and off, then press the F1 key for specific information.\n"
           "    When ready to exit program, click on File and select Exit.";
}

}  // namespace counter
