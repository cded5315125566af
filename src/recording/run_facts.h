// What is known of a run when it begins.
#pragma once

#include <cstdint>
#include <string>

#include "settings/settings.h"

namespace counter {

struct RunFacts {
    std::string Meter;         // what its user calls it; need not be unique
    std::string Note;          // may be empty
    std::string Setup;         // the meter's setup, hexadecimal digits; empty where it was not read
    int Address = 0;           // 0..31
    int Baud = 0;              // bits a second
    std::int64_t StartMs = 0;  // UTC since 1970
    int MinutesEast = 0;       // of UTC, as clocks went at the start
    std::string Topic;         // where a broker is to have it all; empty where it is not sent
};

// Of the meter that these settings lead to; it is called by its address.
RunFacts FactsOf(const Settings& settings);

}  // namespace counter
