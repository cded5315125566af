// Remote value: a number sent from outside to the display or into Item 3.
#pragma once

#include <string>
#include <string_view>

namespace sim {

struct RemoteValue {
    std::string Text;  // as it was sent; in Modbus the number in decimal
    int Count = 0;     // its digits without the point
    int Decimals = 0;  // 0..5

    bool operator==(const RemoteValue&) const = default;
};

// A sign, then digits with at most one point. The value ends at the first other character and behind the
// fifth decimal; of more than six digits the last six count.
RemoteValue RemoteValueOf(std::string_view text);

}  // namespace sim
