#include "shell/line_words.h"

#include <array>
#include <span>
#include <string_view>

#include "meter/field_lists.h"
#include "meter/meter_words.h"

namespace counter {

namespace {

constexpr std::array<std::string_view, 3> kParityNames = {"", ", odd parity", ", even parity"};

std::string WordOf(std::span<const std::string_view> table, int index) {
    const bool there = index >= 0 && index < static_cast<int>(table.size());
    return there ? std::string(table[static_cast<std::size_t>(index)]) : "?";
}

}  // namespace

std::string LineInWords(const Settings& settings) {
    const std::string protocol = WordOf(lists::kProtocol, settings.SerialProtocol);
    if (settings.EthernetMode) return "node " + settings.NodeIp + ", " + protocol;
    return "port " + std::to_string(settings.CommPortNumber) + ", " + protocol + " at " +
           WordOf(BaudTable, settings.BaudIndex) + " baud" +
           (settings.ModbusLink ? WordOf(kParityNames, settings.ParityIndex) : "");
}

std::string MeterKindInWords(int meterType) {
    if (meterType == MeterKind::Dpm) return "DPM";
    if (meterType == MeterKind::WeightMeter) return "Weight Meter";
    return IsTransmitter(meterType) ? "Counter Transmitter" : "Counter";
}

int AddressOnLine(const Settings& settings) {
    return settings.ModbusLink ? settings.ModbusAddress : settings.MeterAddressValue;
}

std::string MeterOnLine(const Settings& settings) {
    return "address " + std::to_string(AddressOnLine(settings)) +
           (settings.EthernetMode ? " at the node " + settings.NodeIp
                                  : " on port " + std::to_string(settings.CommPortNumber));
}

std::string LinkInWords(const Settings& settings) {
    return "address " + std::to_string(AddressOnLine(settings)) + ", " + LineInWords(settings);
}

}  // namespace counter
