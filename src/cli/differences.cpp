#include "cli/differences.h"

namespace counter {

Json DifferencesJson(const Differences& differences) {
    Json list = Json::array();
    for (const FieldDifference& difference : differences) {
        list.push_back({{"field", std::string(difference.Name)},
                        {"position", difference.Position},
                        {"a", ValueJson(difference.A)},
                        {"b", ValueJson(difference.B)},
                        {"counts", difference.Counts()}});
    }
    return list;
}

}  // namespace counter
