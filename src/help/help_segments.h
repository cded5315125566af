// Help segments: a help text cut at its marks of emphasis.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace counter {

struct HelpSegment {
    std::string Text;
    bool Emphasised = false;

    friend bool operator==(const HelpSegment&, const HelpSegment&) = default;
};

// What stands before the first "$" is plain, from there to the second emphasised, and so on in turn. What
// follows the last "$" is plain even where the turn would be the other's. Empty segments are left out.
std::vector<HelpSegment> HelpSegments(std::string_view text);

}  // namespace counter
