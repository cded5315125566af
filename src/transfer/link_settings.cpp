// What a Put changes of the tool's own link.
#include <cstdio>

#include "link/change_settings.h"
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
    const int protocol = CodeOf(image, Field::SerialProtocol);
    PutDigit(line, 2, CodeOf(image, Field::BaudRate));
    PutDigit(line, 5, protocol);
    PutDigit(line, 6, protocol == Protocol::CustomAscii ? 0 : CodeOf(image, Field::Parity));
    SettingsPut(line, 8, std::string(1, AddressChar(CodeOf(image, Field::Address))));
    SettingsPut(line, 9, ThreeDigits(CodeOf(image, Field::ModbusAddress)));
    PutDigit(line, 12, CodeOf(image, Field::Duplex));
    return line;
}

Status SaveLinkSettings(const SetupImage& image, const BringUp& bringUp) {
    SettingsLines& lines = bringUp.Settings.Lines;
    const std::string line = LinkSettingsLine(lines.SettingsLine1, image);
    bringUp.Link.State.ModbusLink = CodeOf(image, Field::SerialProtocol) != Protocol::CustomAscii;
    if (line == lines.SettingsLine1) return {};
    SettingsLines wanted{line, lines.SettingsLine2};
    if (Status saved = SaveSettings(bringUp.Folder, WaitOn(bringUp.Link.Pump), lines, wanted); !saved.Ok())
        return saved;
    lines = wanted;
    return ReadSettings(bringUp);
}

}  // namespace counter
