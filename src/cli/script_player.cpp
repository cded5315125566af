#include "cli/script_player.h"

#include <algorithm>

namespace counter {

bool ScriptPlayer::Step(SetupRun& run) {
    while (wrong_.empty() && !rest_.empty()) {
        ScriptAction action;
        const std::string line = TakeLine();
        wrong_ = ParseScriptLine(line, action);
        if (wrong_.empty() && action.Verb == ScriptVerb::None) continue;
        const int number = line_;
        if (wrong_.empty()) wrong_ = run.Run(action);
        if (!wrong_.empty()) wrong_ = "line " + std::to_string(number) + ": " + wrong_;
        return wrong_.empty();
    }
    return false;
}

std::string ScriptPlayer::TakeLine() {
    const std::size_t end = std::min(rest_.find('\n'), rest_.size());
    std::string line(rest_.substr(0, end));
    rest_.remove_prefix(std::min(end + 1, rest_.size()));
    ++line_;
    return line;
}

}  // namespace counter
