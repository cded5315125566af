// Moments that last: milliseconds of UTC for files and databases, and how a moment is written for people.
#pragma once

#include <cstdint>
#include <string>

#include "platform/pump.h"

namespace counter {

// Milliseconds since the beginning of 1970 in UTC.
std::int64_t UtcMs(const WallTime& time);
// The same moment as clocks go that many minutes east of UTC.
WallTime WallTimeAt(std::int64_t utcMs, int minutesEast);
// ISO 8601 with the zone, "2026-03-04T05:06:07.089-03:30": a file is also read where clocks go another way,
// and after they were put back.
std::string IsoTime(const WallTime& time);

}  // namespace counter
