#include "sim/face.h"

namespace sim {

namespace {

// Puts the eight characters of a value on the display.
void ShowValue(const std::string& value, bool leadingZeros, FaceState& face) {
    face.Minus = value[0] == '-';
    face.Point = static_cast<int>(value.find('.')) - 1;
    face.Digits = value.substr(1);
    face.Digits.erase(face.Digits.find('.'), 1);
    for (int i = 0; i < face.Point - 1 && face.Digits[i] == '0' && !leadingZeros; ++i) face.Digits[i] = ' ';
}

}  // namespace

FaceState FaceOf(const Device& device) {
    FaceState face;
    face.Alarms = device.AlarmsOn();
    const bool leadingZeros = device.Words().Bits(197, 6, 6) != 0;
    const auto& remote = device.RemoteShown();
    face.Remote = remote || device.IsRemoteDisplay();
    face.Item = face.Remote ? 0 : device.DisplayedItem();
    if (remote)
        ShowValue(ValueText(remote->Count, remote->Decimals), leadingZeros, face);
    else if (!face.Remote)
        ShowValue(device.Values('5').front(), leadingZeros, face);
    return face;
}

}  // namespace sim
