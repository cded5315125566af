#include "platform/trace_line.h"

#include <cstdio>

namespace counter {

std::string TraceLine(double ms, char direction, std::string_view bytes) {
    char head[32];
    std::snprintf(head, sizeof head, "%8.0f %c", ms, direction);
    std::string line = head;
    std::string text;
    for (const char c : bytes) {
        const auto code = static_cast<unsigned char>(c);
        char pair[4];
        std::snprintf(pair, sizeof pair, " %02X", code);
        line += pair;
        text += code >= 32 && code < 127 ? c : '.';
    }
    return line + "  " + text;
}

}  // namespace counter
