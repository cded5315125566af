// The list "Changes": in which fields the setup in memory differs from what came, and who did it.
#pragma once

#include <string>
#include <vector>

#include "session/session.h"

namespace counter {

struct SetupChange {
    Field Of;
    std::string Name;
    std::string Old, New;  // as people read them
    std::string Who;       // "typed", "rule, with Mode"

    bool operator==(const SetupChange&) const = default;
};

// In the order of the field table.
std::vector<SetupChange> ListChanges(const Session& session);

// Where a setup came from, as the object of a sentence: "what was read from the meter", "the file a.CT2".
std::string OriginInWords(const SetupOrigin& origin);

}  // namespace counter
