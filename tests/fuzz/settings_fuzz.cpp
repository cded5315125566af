// A Settings.SSS of any bytes: parsed within its ranges, and written lines come back.
#include "fuzz_input.h"
#include "settings/settings.h"

using namespace counter;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const SettingsLines lines = SplitSettings(fuzz::TextOf(data, size));
    Settings settings;
    ParseSettings(lines, settings);
    fuzz::Require(settings.FileLines.SettingsLine1 == lines.SettingsLine1);
    fuzz::Require(settings.Lines.SettingsLine1.size() <= kSettingsLine1Length);
    fuzz::Require(settings.BaudIndex >= -1 && settings.BaudIndex <= 6);

    const SettingsLines back = SplitSettings(FormatSettings(lines));
    fuzz::Require(back.SettingsLine1 == lines.SettingsLine1 && back.SettingsLine2 == lines.SettingsLine2);
    // A line of full length stays as it is.
    const std::string& normal = settings.Lines.SettingsLine1;
    if (normal.size() == kSettingsLine1Length) fuzz::Require(NormaliseLine1(normal) == normal);
    return 0;
}
