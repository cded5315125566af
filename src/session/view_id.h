// The views that the home view opens: what its menu names, and what their screens are found by.
#pragma once

namespace counter {

enum class ViewId {
    Home,
    Setup,
    Menu,
    Commands,
    List,
    Plot,
    Graph,
    Calibration,
    SetupHelp,
    RateBatchHelp,
    VFBatchHelp,
    DualSignalG,
    VFConverterE,
    QuadratureC,
    PowerSupply,
    Rs232G,
    Rs232H,
    Rs485G,
    Rs485H,
    ModbusG,
    Usb,
    Ethernet,
    Compare,
    Sheet,
};

}  // namespace counter
