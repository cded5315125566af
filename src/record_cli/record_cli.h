// counterctl record and counterctl readings: the commands on stores of readings.
#pragma once

#include <string>

#include "cli/cli.h"

namespace counter {

int RunRecord(const CommandCall& call);
int RunReadings(const CommandCall& call);

// --db, or the store of the program folder.
inline std::string StorePath(const CommandCall& call) {
    return call.Has("--db") ? call.Options.at("--db") : call.Folder + "/readings.db";
}

}  // namespace counter
