// What setting fields by name has made of a setup.
#pragma once

#include <string>
#include <vector>

#include "cli/differences.h"
#include "cli/field_setter.h"

namespace counter {

// Both hold fields whose bits differ, and values that read otherwise because their point has moved.
struct SetResult {
    Differences Changed;       // what was asked for
    Differences Consequences;  // what the rules changed with it
};

SetResult CompareSet(const SetupImage& before, const SetupImage& after,
                     const std::vector<FieldAssignment>& assignments);

// "Changed with it:" and a line each; empty where nothing was.
std::string ConsequenceLines(const Differences& consequences);

}  // namespace counter
