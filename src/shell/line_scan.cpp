#include "shell/line_scan.h"

#include <charconv>
#include <utility>

#include "link/port_setup.h"
#include "link/waits.h"
#include "meter/meter_words.h"
#include "settings/settings.h"

namespace counter {

namespace {

constexpr int kHighestAsciiAddress = 31, kHighestModbusAddress = 255;
// Of who has answered: the meter comes back from its last command, and its reply may come late.
constexpr double kRestMs = 300;
constexpr double kLongFirstCharacterMs = 3000;
constexpr const char* kWakeUpFrame = "|**|\r\n";

bool HasAddress(int protocol, int address) {
    if (protocol == Protocol::CustomAscii) return address >= 0 && address <= kHighestAsciiAddress;
    return address >= 1 && address <= kHighestModbusAddress;
}

double CharacterMs(int baudIndex) {
    const std::string_view text = BaudTable[static_cast<std::size_t>(baudIndex)];
    int baud = 1;
    std::from_chars(text.data(), text.data() + text.size(), baud);
    return 11'000.0 / baud;
}

}  // namespace

LineScan::LineScan(Pump& pump, SerialPort& port, ScanChoice choice, ScanTold told)
    : port_(port), choice_(std::move(choice)), told_(std::move(told)), link_{state_, pump, port} {}

Status LineScan::Run() {
    state_.BaudIndex = choice_.BaudIndexes.front();
    if (Status status = port_.SetSettings(PortSettingsText(state_)); !status.Ok()) return status;
    if (Status status = port_.Open(); !status.Ok()) return status;
    port_.SetDtrEnable(true);
    speedIsOthers_ = !port_.SpeedSetBy().empty();
    const bool held = RunLegs();
    port_.Close();
    if (held) return {};
    return {StatusKind::Gone, "", LinkErrorMeaning(LinkErrors::kPortFault, ErrorSource::Unknown)};
}

std::vector<LineScan::Leg> LineScan::Legs() const {
    std::vector<Leg> legs;
    for (const int baud : choice_.BaudIndexes) {
        if (speedIsOthers_ && !legs.empty()) break;
        for (const int protocol : choice_.Protocols) {
            Leg leg{protocol, baud, {}};
            for (const int address : choice_.Addresses) {
                if (HasAddress(protocol, address)) leg.Addresses.push_back({protocol, address});
            }
            legs.push_back(std::move(leg));
        }
    }
    return legs;
}

double LineScan::QuestionMs(const Leg& leg) const {
    constexpr double kCharacters = 20;  // of the longest question, and of what a meter waits before its reply
    return choice_.FirstCharacterMs * (speedIsOthers_ ? 2 : 1) + kCharacters * CharacterMs(leg.BaudIndex);
}

double LineScan::RestMs(const std::vector<Leg>& legs, std::size_t leg, std::size_t done) const {
    double restMs = 0;
    for (std::size_t i = leg; i < legs.size(); ++i) {
        const auto count = static_cast<double>(legs[i].Addresses.size() - (i == leg ? done : 0));
        restMs += count * QuestionMs(legs[i]);
    }
    return restMs;
}

ScanPlace LineScan::PlaceOf(const Leg& leg, int address) const {
    const bool known = !speedIsOthers_ || choice_.BaudIndexes.size() == 1;
    return {leg.SerialProtocol, known ? std::optional(leg.BaudIndex) : std::nullopt, address};
}

void LineScan::Become(const Leg& leg) {
    state_.SerialProtocol = leg.SerialProtocol;
    state_.ModbusLink = leg.SerialProtocol != Protocol::CustomAscii;
    state_.BaudIndex = leg.BaudIndex;
    state_.CharTimeMs = static_cast<float>(CharacterMs(leg.BaudIndex));
    port_.SetSettings(PortSettingsText(state_));
}

void LineScan::WakeUp() {
    port_.Output(kWakeUpFrame);
    WaitForOutput(link_);
    LinkDelay(link_, kRestMs);
}

bool LineScan::RunLegs() {
    const std::vector<Leg> legs = Legs();
    int asked = 0, all = 0;
    for (const Leg& leg : legs) all += static_cast<int>(leg.Addresses.size());
    for (std::size_t i = 0; i < legs.size(); ++i) {
        if (!RunLeg(legs, i, asked, all)) return false;
    }
    for (const Leg& leg : legs) {
        const bool last = &leg == &legs.back() || (&leg)[1].BaudIndex != leg.BaudIndex;
        if (last) Become({Protocol::CustomAscii, leg.BaudIndex, {}}), WakeUp();
    }
    return SerialLineHolds(link_);
}

bool LineScan::RunLeg(const std::vector<Leg>& legs, std::size_t number, int& asked, int all) {
    const Leg& leg = legs[number];
    Become(leg);
    if (leg.SerialProtocol == Protocol::CustomAscii) WakeUp();
    settled_.assign(leg.Addresses.size(), false);
    for (std::size_t i = 0; i < leg.Addresses.size(); ++i) {
        told_.Progress(PlaceOf(leg, leg.Addresses[i].Address), asked++, all, RestMs(legs, number, i));
        if (!Ask(leg, i)) return false;
    }
    return true;
}

// The question as meters below version 81 understand it, where that is another one.
ProbeReply LineScan::AskOld(ProbedAddress probed, double firstCharacterMs) {
    const std::string asked = ProbeFrame(probed);
    probed.OldCheck = true;
    const bool another = probed.SerialProtocol == Protocol::ModbusRtu && ProbeFrame(probed) != asked;
    return another ? Probe(link_, probed, firstCharacterMs) : ProbeReply::None;
}

ProbeReply LineScan::AskBriefly(const Leg& leg, const ProbedAddress& probed) {
    const ProbeReply reply = Probe(link_, probed, QuestionMs(leg));
    return reply == ProbeReply::None ? AskOld(probed, QuestionMs(leg)) : reply;
}

// What comes after its time is taken for the reply of the address before, which then has time. A reply over
// Modbus says whose it is. False where the line is gone.
bool LineScan::Ask(const Leg& leg, std::size_t index) {
    if (port_.InBufferCount() != 0 && index > 0 && !AskAgain(leg, index - 1)) return false;
    const ProbeReply reply = AskBriefly(leg, leg.Addresses[index]);
    if (reply == ProbeReply::None) return true;
    if (reply == ProbeReply::LineGone) return false;
    if (reply == ProbeReply::Meter && state_.ModbusLink) return Settle(leg, index, reply), true;
    return AskAgain(leg, index) && (settled_[index] || index == 0 || AskAgain(leg, index - 1));
}

// With all the time there is.
bool LineScan::AskAgain(const Leg& leg, std::size_t index) {
    if (settled_[index]) return true;
    const ProbedAddress& probed = leg.Addresses[index];
    LinkDelay(link_, kRestMs);
    ProbeReply reply = Probe(link_, probed, kLongFirstCharacterMs);
    if (reply == ProbeReply::None) reply = AskOld(probed, kLongFirstCharacterMs);
    if (reply != ProbeReply::None) Settle(leg, index, reply);
    return reply != ProbeReply::LineGone;
}

void LineScan::Settle(const Leg& leg, std::size_t index, ProbeReply reply) {
    settled_[index] = true;
    const ScanPlace place = PlaceOf(leg, leg.Addresses[index].Address);
    if (reply == ProbeReply::Meter) told_.Found(place);
    if (reply == ProbeReply::Senseless) told_.Senseless(place);
}

}  // namespace counter
