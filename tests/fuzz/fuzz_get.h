// A Get from a meter that answers anything: what it is set to, and how a Get has to end.
#pragma once

#include <string>
#include <vector>

#include "fuzz_input.h"
#include "shell/get_action.h"
#include "support/bench_meter.h"

namespace counter::fuzz {

// Protocol and firmware version, 70 to 85 and then 16 to 85, of one byte, beside `settings`.
inline std::string SettingsOfByte(std::uint8_t byte, std::vector<std::string> settings = {}) {
    const int version = byte / 3 < 16 ? 70 + byte / 3 : byte / 3;
    settings.push_back("SerialProtocol=" + std::to_string(byte % 3));
    settings.push_back("FirmwareVersion=" + std::to_string(version));
    return test::SettingsOf(settings);
}

// With a number or with a whole image, within the sum of all its waits; and the next one is possible.
inline void GetTwice(Session& session, double mostMs) {
    for (int get = 0; get < 2; ++get) {
        const double begin = session.Pump.NowMs();
        GetSetup(session);
        Require(session.Pump.NowMs() - begin < mostMs);
        Require(!session.Home.Hourglass);
        const bool good = session.LinkState.LinkError == 0;
        Require(good == (session.Identity.SetupFromMeter == 1));
        Require(!good || session.Image.SetupData.size() >= kImageDigits);
    }
}

}  // namespace counter::fuzz
