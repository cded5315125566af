// The tool's end of the line in virtual time: sends bytes and takes what the meter answers.
#pragma once

#include <algorithm>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "sim/hex.h"
#include "sim/meter.h"

namespace sim {

// Bytes from hexadecimal digits; blanks between them are for the eye.
inline std::string Bytes(std::string_view digits) {
    std::string packed;
    for (char c : digits)
        if (c != ' ') packed += c;
    return BytesOfHex(packed).value();
}

// Options with faults from their texts.
inline MeterOptions WithFaults(MeterOptions options, const std::vector<std::string>& texts) {
    for (const auto& text : texts)
        if (!ParseFault(text, options.Faults.emplace_back()).empty()) throw std::invalid_argument(text);
    return options;
}

// The default setup with other digits at some positions.
inline MeterOptions Patched(std::vector<ImagePatch> patches) {
    MeterOptions options;
    options.Patches = std::move(patches);
    return options;
}

// The default setup with one protocol.
inline MeterOptions Speaking(LineProtocol protocol) {
    MeterOptions options;
    options.Protocol = protocol;
    return options;
}

class Tool {
  public:
    explicit Tool(MeterOptions options = {}) : Meter(std::move(options)) {}

    // Sends and waits until nothing more is due; the clock is at the last event then.
    std::string Ask(std::string_view bytes) {
        Meter.Receive(bytes, NowMs);
        return Rest();
    }
    // Hexadecimal digits of an RTU frame without its check go out, those of the answer come back.
    std::string AskRtu(std::string_view digits) {
        const std::string body = Bytes(digits);
        return HexOfBytes(Ask(body + CrcTables(CrcKind::Published).CheckOf(body)));
    }
    std::string Rest() {
        std::string reply;
        while (const auto next = Meter.NextDueMs()) {
            NowMs = std::max(NowMs, *next);
            const std::string part = Meter.TakeDue(NowMs);
            if (!part.empty()) ArrivedMs.push_back(NowMs);
            reply += part;
        }
        return reply;
    }

    // Sends, and takes what comes within `ms`, for a meter that is never quiet.
    std::string Ask(std::string_view bytes, double ms) {
        Meter.Receive(bytes, NowMs);
        const double endMs = NowMs + ms;
        std::string reply;
        for (auto next = Meter.NextDueMs(); next && *next <= endMs; next = Meter.NextDueMs())
            reply += Meter.TakeDue(NowMs = std::max(NowMs, *next));
        NowMs = endMs;
        return reply;
    }

    sim::Meter Meter;
    double NowMs = 1000;
    std::vector<double> ArrivedMs;  // when something arrived
};

}  // namespace sim
