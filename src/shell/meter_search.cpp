#include "shell/meter_search.h"

#include <array>
#include <map>

#include "link/link_error.h"
#include "meter/field_lists.h"
#include "meter/firmware.h"
#include "meter/meter_words.h"
#include "platform/tcp_line.h"
#include "settings/settings_keys.h"

namespace counter {

namespace {

constexpr std::array<int, 7> kUsualRates = {5, 6, 4, 3, 2, 1, 0};  // 9600 baud is what a meter comes with
constexpr std::array<int, 2> kUsualParities = {Parity::Even, Parity::Odd};
// Trials ask for the meter's own version; these two choose its check, old or published.
constexpr int kOldCheckVersion = 80;
constexpr int kPublishedCheckVersion = 81;
static_assert(!HasPublishedCrc(kOldCheckVersion) && HasPublishedCrc(kPublishedCheckVersion));

void Put(SettingsLines& lines, std::string_view key, int value) {
    SetSettingsKey(lines, *FindSettingsKey(key), std::to_string(value));
}

int NumberOf(const SettingsLines& lines, std::string_view key) {
    Settings settings;
    ParseSettings(lines, settings);
    return SettingsNumber(settings, *FindSettingsKey(key)).value_or(0);
}

SettingsLines LinesOf(const SettingsLines& base, const SearchStep& step) {
    SettingsLines lines = base;
    Put(lines, "SerialProtocol", step.SerialProtocol);
    Put(lines, "BaudIndex", step.BaudIndex);
    Put(lines, "ParityIndex", step.ParityIndex);
    Put(lines, "FirmwareVersion", step.OldCheck ? kOldCheckVersion : kPublishedCheckVersion);
    if (NumberOf(lines, "CommsEnabled") == Comms::NoLink) Put(lines, "CommsEnabled", Comms::Link);
    return lines;
}

bool MadeNoSense(const LinkTrial& trial) {
    return trial.PortOpened && !trial.Answered && !trial.Cancelled &&
           trial.LinkError != LinkErrors::kNoReply && trial.LinkError != LinkErrors::kPortFault;
}

// One step, and where its answer made no sense once more with the echo read away. `lines` is left as it was
// tried.
LinkTrial Try(const TrialWorld& world, SettingsLines& lines) {
    LinkTrial trial = TryLink(world, lines);
    if (!MadeNoSense(trial) || NumberOf(lines, "CommsEnabled") == Comms::EchoingLink) return trial;
    Put(lines, "CommsEnabled", Comms::EchoingLink);
    return TryLink(world, lines);
}

using Unopened = std::map<std::string, std::string>;  // reason by device

std::string NobodyInWords(const SettingsLines& lines, const std::vector<std::string>& devices, int tried,
                          const Unopened& unopened) {
    std::string words = devices.empty() ? "This machine has no serial port." : "No meter answered";
    std::string on;
    for (const std::string& device : devices) {
        if (!unopened.contains(device)) on += (on.empty() ? " on " : ", ") + device;
    }
    if (!on.empty()) {
        words += on + ": " + std::to_string(tried) + " trials with meter address " +
                 std::to_string(NumberOf(lines, "MeterAddressValue")) + " and Modbus address " +
                 std::to_string(NumberOf(lines, "ModbusAddress")) +
                 ". Check that the meter is on, its cable and wiring, and its address.";
    } else if (!devices.empty()) {
        words += ", since no port could be opened.";
    }
    for (const auto& [device, reason] : unopened) words += " " + reason + ".";
    return words;
}

}  // namespace

std::vector<SearchStep> SearchSteps(const std::vector<std::string>& devices) {
    using enum Protocol::Code;
    std::vector<SearchStep> steps;
    for (int baud : kUsualRates) {
        for (const std::string& device : devices) {
            if (baud != kUsualRates.front() && NamesTcpLine(device)) continue;
            for (int protocol : {CustomAscii, ModbusRtu, ModbusAscii})
                steps.push_back({device, protocol, baud});
            steps.push_back({device, ModbusRtu, baud, Parity::None, true});
        }
    }
    for (int baud : kUsualRates) {
        for (const std::string& device : devices) {
            if (NamesTcpLine(device)) continue;
            for (int parity : kUsualParities) {
                for (int protocol : {ModbusRtu, ModbusAscii})
                    steps.push_back({device, protocol, baud, parity});
                steps.push_back({device, ModbusRtu, baud, parity, true});
            }
        }
    }
    return steps;
}

std::string StepInWords(const SearchStep& step) {
    constexpr std::array<std::string_view, 3> kParityWords = {"", ", odd parity", ", even parity"};
    const auto part = [](const auto& table, int index) {
        return std::string(table[static_cast<std::size_t>(index)]);
    };
    return step.Device + ", " + part(lists::kProtocol, step.SerialProtocol) +
           (step.OldCheck ? " (old check)" : "") + " at " + part(BaudTable, step.BaudIndex) + " baud" +
           part(kParityWords, step.ParityIndex);
}

SearchResult FindMeter(const TrialWorld& world, TriedDevice& tried, const SettingsLines& lines,
                       const std::vector<std::string>& devices, const SearchProgress& progress) {
    const std::vector<SearchStep> steps = SearchSteps(devices);
    Unopened unopened;
    int number = 0, trials = 0;
    for (const SearchStep& step : steps) {
        ++number;
        if (unopened.contains(step.Device)) continue;
        if (!progress(number, static_cast<int>(steps.size()), step)) return {false, lines, {}, "Stopped."};
        tried.Device = step.Device;
        SettingsLines with = LinesOf(lines, step);
        const LinkTrial trial = Try(world, with);
        if (trial.Cancelled) return {false, lines, {}, trial.Words};
        if (trial.PortOpened) {
            ++trials;
        } else {
            unopened[step.Device] = trial.Words;
        }
        if (!trial.Answered) continue;
        Put(with, "FirmwareVersion", trial.FirmwareVersion);
        Put(with, "MeterType", trial.MeterType);
        return {true, with, step.Device, trial.Words};
    }
    return {false, lines, {}, NobodyInWords(lines, devices, trials, unopened)};
}

}  // namespace counter
