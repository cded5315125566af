#include "help/help_segments.h"

namespace counter {

std::vector<HelpSegment> HelpSegments(std::string_view text) {
    std::vector<HelpSegment> segments;
    auto add = [&segments](std::string_view part, bool emphasised) {
        if (!part.empty()) segments.push_back({std::string(part), emphasised});
    };
    bool emphasised = false;
    for (std::size_t mark; (mark = text.find('$')) != std::string_view::npos; emphasised = !emphasised) {
        add(text.substr(0, mark), emphasised);
        text.remove_prefix(mark + 1);
    }
    add(text, false);
    return segments;
}

}  // namespace counter
