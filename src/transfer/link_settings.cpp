// What a Put changes of the tool's own link.
#include <cstdio>

#include "transfer/put_setup.h"

namespace counter {

namespace {

std::string ThreeDigits(int number) {
    char text[8];
    std::snprintf(text, sizeof text, "%03d", number);
    return text;
}

void PutDigit(std::string& line, int position, int digit) {
    SettingsPut(line, position, std::to_string(digit));
}

}  // namespace

std::string LinkSettingsLine(const std::string& settingsLine1, const SetupImage& image) {
    std::string line = settingsLine1;
    const int protocol = BitsGet(image, 3, 2, 109);
    PutDigit(line, 2, BitsGet(image, 6, 4, 191));
    PutDigit(line, 5, protocol);
    PutDigit(line, 6, protocol == 0 ? 0 : BitsGet(image, 1, 0, 109));
    SettingsPut(line, 8, std::string(1, AddressChar(BitsGet(image, 4, 0, 189))));
    SettingsPut(line, 9, ThreeDigits(ByteGet(image, 111)));
    PutDigit(line, 12, BitsGet(image, 7, 7, 187));
    return line;
}

Status SaveLinkSettings(const SetupImage& image, const BringUp& bringUp) {
    SettingsLines& lines = bringUp.Settings.Lines;
    const std::string line = LinkSettingsLine(lines.SettingsLine1, image);
    bringUp.Link.State.ModbusLink = BitsGet(image, 3, 2, 109) == 0 ? 0 : 1;
    if (line == lines.SettingsLine1) return {};
    Status written = bringUp.Folder.Store.Write(bringUp.Folder.At(kSettingsFile),
                                                FormatSettings({line, lines.SettingsLine2}));
    if (!written.Ok()) return written;
    lines.SettingsLine1 = line;
    return ReadSettings(bringUp);
}

}  // namespace counter
