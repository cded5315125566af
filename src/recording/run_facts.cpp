#include "recording/run_facts.h"

#include <charconv>

namespace counter {

namespace {

int BaudOf(int index) {
    int baud = 0;
    if (index < 0 || index >= static_cast<int>(BaudTable.size())) return 0;
    const std::string_view text = BaudTable[static_cast<std::size_t>(index)];
    std::from_chars(text.data(), text.data() + text.size(), baud);
    return baud;
}

}  // namespace

RunFacts FactsOf(const Settings& settings) {
    RunFacts facts;
    facts.Meter = std::to_string(settings.MeterAddressValue);
    facts.Address = settings.MeterAddressValue;
    facts.Baud = BaudOf(settings.BaudIndex);
    return facts;
}

}  // namespace counter
