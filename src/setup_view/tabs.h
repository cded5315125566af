// The pages of the Setup view, in the order of their tabs.
#pragma once

#include <array>
#include <string_view>

namespace counter {

inline constexpr int kInputTab = 0;
inline constexpr int kScalingTab = 1;
inline constexpr int kFilterTab = 2;
inline constexpr int kAlarmsTab = 3;
inline constexpr int kCommunicationTab = 4;
inline constexpr int kAnalogTab = 5;
inline constexpr int kLockoutsTab = 6;

inline constexpr std::array<std::string_view, 7> kTabCaptions = {
    "Input+Display", "Scaling", "Filter", "Relay Alarms", "Communication", "Analog Out", "Lockouts"};

}  // namespace counter
