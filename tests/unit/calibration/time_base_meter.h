// TimeBaseMeter: a meter whose time base is wrong, as far as a calibration sees it.
#pragma once

#include <cmath>
#include <cstdio>
#include <string>

#include "support/hand_bench.h"

namespace counter::test {

struct TimeBaseMeter {
    double Hertz = 1000;                     // at its input
    double ErrorPpm = 30;                    // its readings are too high by that, and by its calibration word
    std::string SilentAt = "";               // the command that it does not hear
    std::string Garbled = "", Garbage = "";  // a command and what it answers instead
    std::string Word311 = "8000FF0186A0", Word124 = "0500", Word12B = "8064";

    std::string Words() const { return Word311 + " " + Word124 + " " + Word12B; }
    std::string Answer(const std::string& frame) {
        const std::string command = frame.substr(2);
        if (command == SilentAt) return "-";
        if (command == Garbled) return Garbage;
        if (command == "X311Z") return Word311;
        if (command == "X124Z") return Word124;
        if (command == "X12BZ") return Word12B;
        if (command == "B1") return Reading();
        for (std::string* word : {&Word311, &Word124, &Word12B}) {
            if (command.starts_with(word == &Word311 ? "W311" : word == &Word124 ? "W124" : "W12B"))
                Keep(*word, command.substr(4));
        }
        return "-";
    }

  private:
    // Six digits with a point that has nothing to do with their value.
    std::string Reading() const {
        const double scale =
            std::stoi(Word311.substr(6), nullptr, 16) * 1e-5 * std::pow(10, Word124[1] - '5');
        const double ppm = ErrorPpm + Correction();
        char digits[32];
        std::snprintf(digits, sizeof digits, " %07.2f", std::round(Hertz * scale * (1 + ppm * 1e-6)) / 100);
        return digits;
    }
    int Correction() const {
        const int word = std::stoi(Word12B, nullptr, 16);
        return word < 0x8000 ? word : 0x8000 - word;
    }
    // A write of another length than the word's is not taken.
    static void Keep(std::string& word, std::string digits) {
        if (digits.ends_with('Z')) digits.pop_back();
        if (digits.size() == word.size()) word = digits;
    }
};

struct CalibrationBench : HandBench {
    TimeBaseMeter Meter;

    explicit CalibrationBench(TimeBaseMeter meter = {}) : Meter(std::move(meter)) {
        Port.Answer = [this](const std::string& frame) { return Meter.Answer(frame); };
    }
};

}  // namespace counter::test
