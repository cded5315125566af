// What the tool knows of the meter at the other end, apart from its setup.
#pragma once

namespace counter {

struct MeterIdentity {
    // MeterKind; from the settings, from the meter after a Get over Custom ASCII.
    int MeterType = 0;
    // 0..255, a plain number; from the settings, from the meter after a Get over Custom ASCII.
    int FirmwareVersion = 0;
    // Settings of a meter without a panel were read; never cleared.
    bool NoPanelModel = false;
    // The image is the result of a good Get.
    bool SetupFromMeter = false;
};

}  // namespace counter
