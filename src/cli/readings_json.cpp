#include "cli/readings_json.h"

#include "cli/cli_output.h"
#include "meter/leading_number.h"

namespace counter {

std::string ReadingJson(const std::string& time, const std::string& text,
                        const std::vector<std::string>& items) {
    Json numbers = Json::array();
    for (const std::string& item : items)
        numbers.push_back(item.empty() ? Json() : Json(LeadingNumber(item)));
    return Json{{"time", time}, {"reading", Utf8(text)}, {"items", numbers}}.dump();
}

}  // namespace counter
