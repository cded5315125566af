// A reading as one JSON object on a line.
#pragma once

#include <string>
#include <vector>

namespace counter {

// {"time": ..., "reading": the text as sent, "items": [numbers, null for one that shows none]}
std::string ReadingJson(const std::string& time, const std::string& text,
                        const std::vector<std::string>& items);

}  // namespace counter
