#include "cli/scan_choice.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <span>

#include "cli/exact_number.h"
#include "meter/meter_words.h"
#include "settings/settings.h"

namespace counter {

namespace {

constexpr std::array<std::string_view, 3> kProtocolWords = {"ascii", "rtu", "modbus-ascii"};
constexpr std::array<int, 7> kRatesByUse = {5, 6, 4, 3, 2, 1, 0};  // 9600 baud is what a meter comes with
constexpr int kHighestScanAddress = 255;
constexpr int kLongestWaitMs = 10'000;

std::vector<std::string_view> Parts(std::string_view text) {
    std::vector<std::string_view> parts;
    for (std::size_t begin = 0; begin <= text.size();) {
        const std::size_t end = std::min(text.find(',', begin), text.size());
        parts.push_back(text.substr(begin, end - begin));
        begin = end + 1;
    }
    return parts;
}

// Each word of the list once, by its place in `words`. False where one is none of them.
template <class Words>
bool TakeIndexes(std::string_view text, const Words& words, std::vector<int>& indexes) {
    indexes.clear();
    for (const std::string_view part : Parts(text)) {
        const auto found = std::find(words.begin(), words.end(), part);
        if (found == words.end()) return false;
        const int index = static_cast<int>(found - words.begin());
        if (std::find(indexes.begin(), indexes.end(), index) == indexes.end()) indexes.push_back(index);
    }
    return true;
}

// "7" or "1-31".
bool TakeRange(std::string_view text, std::vector<bool>& chosen) {
    const std::size_t dash = text.find('-');
    const auto first = ExactNumber<int>(text.substr(0, dash));
    const auto last = dash == std::string_view::npos ? first : ExactNumber<int>(text.substr(dash + 1));
    if (!first || !last || *first < 0 || *first > *last || *last > kHighestScanAddress) return false;
    std::fill(chosen.begin() + *first, chosen.begin() + *last + 1, true);
    return true;
}

bool TakeAddresses(std::string_view text, std::vector<int>& addresses) {
    std::vector<bool> chosen(kHighestScanAddress + 1, false);
    for (const std::string_view part : Parts(text)) {
        if (!TakeRange(part, chosen)) return false;
    }
    addresses.clear();
    for (int address = 0; address <= kHighestScanAddress; ++address) {
        if (chosen[static_cast<std::size_t>(address)]) addresses.push_back(address);
    }
    return true;
}

ScanChoice DefaultChoice(bool all) {
    ScanChoice choice;
    choice.Protocols = {Protocol::CustomAscii, Protocol::ModbusRtu};
    choice.BaudIndexes = {kRatesByUse[0], kRatesByUse[1]};
    if (all) {
        choice.Protocols.push_back(Protocol::ModbusAscii);
        choice.BaudIndexes.assign(kRatesByUse.begin(), kRatesByUse.end());
    }
    choice.Addresses.resize(all ? kHighestScanAddress + 1 : 31);
    std::iota(choice.Addresses.begin(), choice.Addresses.end(), all ? 0 : 1);
    return choice;
}

}  // namespace

std::string TakeScanChoice(const CommandCall& call, ScanChoice& choice) {
    choice = DefaultChoice(call.Has("--all"));
    const auto given = [&](const char* option) { return call.Has(option) ? call.Options.at(option) : ""; };
    const std::string protocols = given("--protocol"), rates = given("--baud"),
                      addresses = given("--address"), wait = given("--wait");
    if (call.Has("--protocol") && !TakeIndexes(protocols, kProtocolWords, choice.Protocols))
        return "--protocol is ascii, rtu or modbus-ascii, or several with commas between";
    std::sort(choice.Protocols.begin(), choice.Protocols.end());
    if (call.Has("--baud") && !TakeIndexes(rates, std::span(BaudTable).first(7), choice.BaudIndexes))
        return "--baud is 300, 600, 1200, 2400, 4800, 9600 or 19200, or several with commas between";
    if (call.Has("--address") && !TakeAddresses(addresses, choice.Addresses))
        return "--address is numbers from 0 to 255 and ranges of them, such as 1-31,40";
    if (!call.Has("--wait")) return {};
    const int waitMs = ExactNumber<int>(wait).value_or(0);
    choice.FirstCharacterMs = waitMs;
    return waitMs >= 1 && waitMs <= kLongestWaitMs ? "" : "--wait is 1 to 10000 milliseconds";
}

std::string_view ProtocolWord(int serialProtocol) {
    return kProtocolWords[static_cast<std::size_t>(serialProtocol)];
}

}  // namespace counter
