// Colours by the role that views give them.
#pragma once

#include <array>
#include <string_view>

namespace counter {

// Each part 0..255.
struct Color {
    int Red = 0;
    int Green = 0;
    int Blue = 0;

    friend constexpr bool operator==(const Color&, const Color&) = default;
};

inline constexpr Color ColorWhite{255, 255, 255};        // fields and buttons at rest
inline constexpr Color ColorLightYellow{255, 255, 224};  // a Custom Curve list that can work
inline constexpr Color ColorLightGray{224, 224, 224};    // the button of the meter's class
inline constexpr Color ColorGray{192, 192, 192};         // text of a list that is disabled
inline constexpr Color ColorDarkGray{128, 128, 128};     // digit entry
inline constexpr Color ColorBlack{0, 0, 0};              // text of a list that is enabled
inline constexpr Color ColorRed{255, 0, 0};              // failure, and combinations that can't work
inline constexpr Color ColorDarkRed{128, 0, 0};          // digit entry
inline constexpr Color ColorGreen{0, 255, 0};            // a running or good action
inline constexpr Color ColorLightGreen{192, 255, 192};   // the box that digit entry is editing

// "ColorRed" and so on; an empty text for a colour that has no role.
constexpr std::string_view ColorName(const Color& color) {
    struct Named {
        Color Value;
        std::string_view Name;
    };
    constexpr std::array<Named, 10> kNames = {{{ColorWhite, "ColorWhite"},
                                               {ColorLightYellow, "ColorLightYellow"},
                                               {ColorLightGray, "ColorLightGray"},
                                               {ColorGray, "ColorGray"},
                                               {ColorDarkGray, "ColorDarkGray"},
                                               {ColorBlack, "ColorBlack"},
                                               {ColorRed, "ColorRed"},
                                               {ColorDarkRed, "ColorDarkRed"},
                                               {ColorGreen, "ColorGreen"},
                                               {ColorLightGreen, "ColorLightGreen"}}};
    for (const Named& named : kNames) {
        if (named.Value == color) return named.Name;
    }
    return {};
}

}  // namespace counter
