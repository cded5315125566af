#include "cli/stored_settings.h"

namespace counter {

Settings StoredSettings(const CommandCall& call) {
    Settings settings;
    std::string text;
    if (call.World.Store.Read(call.Folder + "/" + kSettingsFile, text).Ok())
        ParseSettings(SplitSettings(text), settings);
    return settings;
}

}  // namespace counter
