// Where the setup in memory came from, and what the meter held when it was last read.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "link/link_error.h"
#include "meter/setup_image.h"

namespace counter {

enum class SetupSource {
    Nothing,  // the zeros of the program's start
    Default,
    Meter,      // a good Get
    File,       // opened, or saved there
    FailedGet,  // in part from the meter, in part what was there before
};

struct SetupOrigin {
    SetupSource From = SetupSource::Nothing;
    std::string Path;        // of the file; empty otherwise
    std::int64_t UtcMs = 0;  // when it came, milliseconds since 1970 in UTC
    SetupImage Image;        // as it came
    std::string Meter = {};  // that it was read from: "address 5 on port 1"; empty: from none
};

// What a good Get brought. A Put leaves it alone: what a meter was told to take is not what it holds.
struct MeterSetup {
    SetupImage Image;
    std::int64_t UtcMs = 0;  // when it came
    int Address = 0;         // of the meter, in the protocol of the line
    std::string Line;        // in words: "port 3, Custom ASCII at 9600 baud"
};

// How the last Get or Put ended.
struct TransferReport {
    bool Put = false;
    bool Good = false;
    int LinkError = 0;  // with Good false and 0: it was given up, or refused before a number came of it
    ErrorSource FailedIn = ErrorSource::Unknown;
    std::int64_t UtcMs = 0;
    SetupImage Sent = {};            // by a good Put, as the protocol of the line made it
    std::string Meter = {};          // that a good Put went to, where it is now: "address 5 on port 1"
    std::optional<int> Differ = {};  // fields in which that meter differs from it, since Verify has read it
};

}  // namespace counter
