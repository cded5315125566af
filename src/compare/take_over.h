// Single fields of another setup, taken over into the one in memory by the Setup view's own rules.
#pragma once

#include <string>
#include <vector>

#include "session/session.h"

namespace counter {

struct TakenOver {
    std::vector<std::string> Taken;    // names of the fields
    std::vector<std::string> Refused;  // "Setpoint 1 is disabled. ...", a line a field
    std::vector<std::string> Changed;  // what the rules changed with them
};

// From first to last, each as a user would have entered it after the one before. One that can't be entered,
// or that the rules turn into another value, leaves the setup as it was before it. Of the session, image and
// derived values change, as in the Setup view.
TakenOver TakeOver(Session& session, const SetupImage& other, const std::vector<Field>& fields);

}  // namespace counter
