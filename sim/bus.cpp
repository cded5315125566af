#include "sim/bus.h"

#include <algorithm>

namespace sim {

namespace {

// What a line carries that two pull at.
std::string Collided(std::string one, std::string other) {
    if (one.size() < other.size()) one.swap(other);
    for (std::size_t i = 0; i < other.size(); ++i) one[i] = static_cast<char>(one[i] & other[i]);
    return one;
}

}  // namespace

Bus::Bus(const std::vector<BusMeter>& meters) {
    for (const BusMeter& meter : meters) meters_.push_back({meter.Name, Meter(meter.Options)});
}

bool Bus::Receive(std::string_view bytes, std::optional<int> baud, double nowMs) {
    bool heard = false;
    for (Member& member : meters_) {
        if (baud && *baud != member.Meter.ActiveLine().Baud) continue;
        member.Meter.Receive(bytes, nowMs);
        heard = true;
    }
    return heard;
}

std::optional<double> Bus::NextDueMs() const {
    std::optional<double> next;
    for (const Member& member : meters_) {
        const auto due = member.Meter.NextDueMs();
        if (due) next = std::min(next.value_or(*due), *due);
    }
    return next;
}

std::string Bus::TakeDue(double nowMs) {
    std::string bytes;
    for (Member& member : meters_) {
        const std::string part = member.Meter.TakeDue(nowMs);
        bytes = Collided(std::move(bytes), part);
    }
    return bytes;
}

bool Bus::LineGone() const {
    return std::any_of(meters_.begin(), meters_.end(),
                       [](const Member& member) { return member.Meter.LineGone(); });
}

void Bus::LineBack() {
    for (Member& member : meters_) member.Meter.LineBack();
}

void Bus::FarEndClosed() {
    for (Member& member : meters_) member.Meter.FarEndClosed();
}

std::vector<std::string> Bus::TakeCommands() {
    std::vector<std::string> taken, foreign;
    for (Member& member : meters_) {
        const std::string head = member.Name.empty() ? "" : member.Name + " ";
        const auto& commands = member.Meter.Commands();
        for (const std::string& command : commands) {
            if (!command.starts_with('?')) taken.push_back(head + command);
        }
        if (&member == &meters_.front()) foreign = commands;
        member.Meter.ClearCommands();
    }
    return taken.empty() ? foreign : taken;
}

}  // namespace sim
