#include "cli/stored_settings.h"

namespace counter {

std::string SettingsPath(const CommandCall& call) {
    return call.Folder + "/" + kSettingsFile;
}

std::optional<Settings> ReadStoredSettings(const CommandCall& call) {
    std::string text;
    if (!call.World.Store.Read(SettingsPath(call), text).Ok()) return std::nullopt;
    Settings settings;
    ParseSettings(SplitSettings(text), settings);
    return settings;
}

Settings StoredSettings(const CommandCall& call) {
    return ReadStoredSettings(call).value_or(Settings());
}

}  // namespace counter
