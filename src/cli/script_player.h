// ScriptPlayer: the actions of a script, one after the other.
#pragma once

#include <string>
#include <string_view>

#include "cli/setup_run.h"

namespace counter {

class ScriptPlayer : public Player {
  public:
    // The text must outlive the player.
    explicit ScriptPlayer(std::string_view script) : rest_(script) {}

    bool Step(SetupRun& run) override;

    // The first action that could not be done and why, as "line 3: txtSetpt[1] is hidden"; empty where all
    // were. No action after that one is run.
    const std::string& Wrong() const { return wrong_; }

  private:
    std::string TakeLine();

    std::string_view rest_;
    int line_ = 0;
    std::string wrong_;
};

}  // namespace counter
