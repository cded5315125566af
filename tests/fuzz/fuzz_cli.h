// counterctl on any bytes: files in memory, a simulated meter on the virtual clock, and the end of time.
#pragma once

#include "cli/run_line.h"
#include "fuzz_input.h"
#include "meter/default_setup.h"
#include "support/meter_line.h"

namespace counter::fuzz {

struct FuzzCli : test::CliBench {
    test::VirtualPump Clock;
    test::MeterLine Line{Clock, {}};

    FuzzCli() {
        SetupImage image;
        BuildDefaultSetup(image);
        Store.Contents = {{"d", image.SetupData + "\r\n"}, {"home/Settings.SSS", test::kAsciiSettings}};
        Make = [this] { return std::make_unique<test::BorrowedMachine>(Clock, Line); };
    }
    // A user's patience: an hour after the start comes the interrupt.
    int Run(const test::Words& words, const std::string& input = "") {
        Clock.After(3600000, [this] { Clock.RequestInterrupt(); });
        return test::CliBench::Run(words, input);
    }
};

}  // namespace counter::fuzz
