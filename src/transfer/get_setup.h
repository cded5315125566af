// Get Setup: the meter's whole configuration into the image.
//
// Both end with the link's LinkError: 0 when done; the link's own 20..27; or the number of the step whose
// reply had a wrong length. A failure leaves the image as the steps before it made it: 108 or 204 digits are
// possible. One that was called off stops at its next wait: GaveUp is then set, and LinkError says nothing.
#pragma once

#include <string>

#include "transfer/setup_transfer.h"

namespace counter {

// Over Custom ASCII, also through the node. Takes MeterType and FirmwareVersion from the meter.
//
//   |**|      wake-up, serial only          no reply
//   XR1AZ     words 0x1A down               108 digits, else 1
//   XR35Z     words 0x35 down               108 digits, else 4
//   XB74Z     words 0x74 down                44 digits, else 7
//   G130      option boards, live             2 digits, else 8
//   G12B      relay board, version 78         2 digits, else 9
//   G128      Extended option, bit 7          2 digits, else 10
//   R141      analog board, versions 74, 75   2 decimal digits, else 11
//   C0        leaves transfer mode          no reply; goes out also where the Get was called off
void GetSetupAscii(SetupTransfer& transfer);

// Over Modbus of either kind. MeterType and FirmwareVersion stay those of the settings; what no register
// range brings stays as it was in the image. Wrong lengths: 1 (echo and first range), 4, 7, 10, 11, 14.
void GetSetupModbus(SetupTransfer& transfer);

// What the service file "DataFil2" holds after a good GetSetupModbus: the image with line settings (digits
// 191..192) as zeros, one line.
std::string DataFil2Text(const SetupImage& image);

}  // namespace counter
