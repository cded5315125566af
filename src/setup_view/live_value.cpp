#include "setup_view/live_value.h"

#include <cmath>
#include <cstdlib>

#include "link/single_reading.h"
#include "link/waits.h"
#include "meter/meter_words.h"
#include "meter/text.h"
#include "setup_view/view_buttons.h"

namespace counter {

namespace {

constexpr double kBetweenReadingsMs = 1000;

// Over Modbus a reading is a count without its point.
std::string WithPoint(const std::string& count, int point) {
    return ReadingText(std::strtod(count.c_str(), nullptr) / std::pow(10, point - 1), point);
}

}  // namespace

std::string LiveValue::WhyNever() const {
    const bool none = session_.Settings.CommsEnabled == Comms::NoLink && !session_.LinkState.EthernetMode;
    return none ? "There is no link to a meter." : "";
}

bool LiveValue::MayAsk() const {
    const bool transfers = session_.Home.Transfers > 0 || session_.Writes.Running > 0;
    return !transfers && session_.LinkState.Awaited == nullptr && !(Busy && Busy());
}

// Begun again in one of its waits, the later run goes on and the earlier ends.
void LiveValue::Start() {
    if (on_ || !WhyNever().empty()) return;
    on_ = true;
    trouble_.clear();
    const int run = ++run_;
    Tell();
    while (on_ && run == run_) {
        if (MayAsk()) Ask();
        if (!on_ || run != run_) break;
        const double nextMs = session_.Pump.NowMs() + kBetweenReadingsMs;
        session_.Pump.WaitUntil(
            nextMs, [this, run] { return !on_ || run != run_; }, "next live value");
    }
    Tell();
}

// What comes after it was switched off is thrown away.
void LiveValue::Ask() {
    LinkState& link = session_.LinkState;
    const int run = run_;
    ReadSingle(session_.Link, ReadingKind::Item1);
    if (!on_ || run != run_) return;
    if (link.LinkError == 0 && !link.PortFault) {
        const std::string reading(Trimmed(link.RawReply));
        text_ = link.ModbusLink ? WithPoint(reading, ShownPoint(session_.Derived.ItemDecPts[1])) : reading;
    } else {
        on_ = false;
        trouble_ = "No reading: " + link.ErrorMeaning() + " (" + std::to_string(link.LinkError) + ").";
    }
    Tell();
}

}  // namespace counter
