#include "meter/ascii_name.h"

#include <string_view>

namespace counter {

std::string AsciiName(int code) {
    constexpr int kNames = 33;
    constexpr std::string_view kControlNames =
        "nulsohstxetxeotenqackbelbs ht lf vt ff cr so si dle"
        "dc1dc2dc3dc4naksynetbcanem subescfs gs rs us sp ";
    static_assert(kControlNames.size() == 3 * kNames);
    if (code < 0 || code > 255) return {};
    if (code < kNames) return std::string(kControlNames.substr(3 * static_cast<std::size_t>(code), 3));
    return std::string(1, static_cast<char>(code));
}

}  // namespace counter
