// What the tool knows of the meter at the other end, apart from its setup.
#pragma once

namespace counter {

struct MeterIdentity {
    // 1 DPM, 2 Weight Meter, 3 Counter, 5..7 Transmitter kinds, 7 without a front panel menu. From the
    // settings; from the meter after a Get over Custom ASCII.
    int MeterType = 0;
    // 0..255, a plain number; from the settings, from the meter after a Get over Custom ASCII.
    int FirmwareVersion = 0;
    // 1 once settings with MeterType 7 were read; never cleared.
    int NoPanelModel = 0;
    // 1 while the image is the result of a good Get.
    int SetupFromMeter = 0;
};

}  // namespace counter
