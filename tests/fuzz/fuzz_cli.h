// counterctl on any bytes: files in memory, a simulated meter on the virtual clock, and the end of time.
#pragma once

#include <sstream>

#include "cli/run_line.h"
#include "fuzz_input.h"
#include "meter/default_setup.h"
#include "support/memory_files.h"
#include "support/meter_line.h"

namespace counter::fuzz {

struct FuzzCli {
    test::VirtualPump Clock;
    test::MeterLine Line{Clock, {}};
    test::MemoryFiles Store;
    std::string Out, Err;

    FuzzCli() {
        SetupImage image;
        BuildDefaultSetup(image);
        Store.Contents = {{"d", image.SetupData + "\r\n"}, {"home/Settings.SSS", test::kAsciiSettings}};
    }
    // A user's patience: an hour behind `words`' start comes the interrupt.
    int Run(const test::Words& words, const std::string& input = "") {
        Clock.After(3600000, [this] { Clock.RequestInterrupt(); });
        const auto machine = [this] { return std::make_unique<test::BorrowedMachine>(Clock, Line); };
        const test::LineEnd end = test::RunOn(Store, machine, words, input);
        Out = end.Out;
        Err = end.Err;
        return end.Status;
    }
};

}  // namespace counter::fuzz
