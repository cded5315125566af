#include "platform/utc_time.h"

#include <chrono>
#include <cstdlib>

namespace counter {

namespace {

// `value` in `digits` decimal digits, and what comes behind it.
char* Put(char* to, int value, int digits, char behind) {
    for (int i = digits - 1; i >= 0; --i, value /= 10) to[i] = static_cast<char>('0' + value % 10);
    to[digits] = behind;
    return to + digits + 1;
}

}  // namespace

std::int64_t UtcMs(const WallTime& time) {
    using namespace std::chrono;
    const sys_days day = year(time.Year) / month(static_cast<unsigned>(time.Month)) / time.Day;
    const auto moment = day + hours(time.Hour) + minutes(time.Minute - time.MinutesEast) +
                        seconds(time.Second) + milliseconds(time.Millisecond);
    return duration_cast<milliseconds>(moment.time_since_epoch()).count();
}

WallTime WallTimeAt(std::int64_t utcMs, int minutesEast) {
    using namespace std::chrono;
    const sys_time<milliseconds> local(milliseconds(utcMs) + minutes(minutesEast));
    const auto midnight = floor<days>(local);
    const year_month_day date(midnight);
    const hh_mm_ss<milliseconds> clock(local - midnight);
    WallTime time;
    time.Year = static_cast<int>(date.year());
    time.Month = static_cast<int>(static_cast<unsigned>(date.month()));
    time.Day = static_cast<int>(static_cast<unsigned>(date.day()));
    time.Hour = static_cast<int>(clock.hours().count());
    time.Minute = static_cast<int>(clock.minutes().count());
    time.Second = static_cast<int>(clock.seconds().count());
    time.Millisecond = static_cast<int>(clock.subseconds().count());
    time.MinutesEast = minutesEast;
    return time;
}

std::string IsoTime(const WallTime& time) {
    const int offset = std::abs(time.MinutesEast);
    char text[32];
    char* end = Put(text, time.Year, 4, '-');
    end = Put(end, time.Month, 2, '-');
    end = Put(end, time.Day, 2, 'T');
    end = Put(end, time.Hour, 2, ':');
    end = Put(end, time.Minute, 2, ':');
    end = Put(end, time.Second, 2, '.');
    end = Put(end, time.Millisecond, 3, time.MinutesEast < 0 ? '-' : '+');
    end = Put(end, offset / 60, 2, ':');
    end = Put(end, offset % 60, 2, '\0');
    return {text, end - 1};
}

}  // namespace counter
