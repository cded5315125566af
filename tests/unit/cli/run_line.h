// A command line run as main() runs it, with the end of the process caught.
#pragma once

#include <string>
#include <vector>

#include "cli/cli.h"
#include "support/virtual_pump.h"

namespace counter::test {

inline int RunLine(const CliWorld& world, const std::vector<std::string>& words) {
    std::vector<const char*> argv = {"counterctl"};
    for (const std::string& word : words) argv.push_back(word.c_str());
    try {
        return RunCli(world, static_cast<int>(argv.size()), argv.data());
    } catch (const ProcessEnded& ended) {
        return ended.Status;
    }
}

}  // namespace counter::test
