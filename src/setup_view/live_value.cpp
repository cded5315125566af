#include "setup_view/live_value.h"

#include <cmath>
#include <cstdlib>

#include "link/single_reading.h"
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

// In a wait of anybody else (a transfer, another reading, a rule, a box that is on show) it would only make
// that longer, and the meter answers one at a time.
void LiveValue::AskIfFree() {
    if (asking_ || session_.Pump.Waits() > 1) return;
    asking_ = true;
    Ask();
    asking_ = false;
}

void LiveValue::Start() {
    if (on_ || !WhyNever().empty()) return;
    on_ = true;
    trouble_.clear();
    ++run_;
    ticker_ = session_.Pump.Every(kBetweenReadingsMs, [this] { AskIfFree(); });
    Tell();
    AskIfFree();
}

void LiveValue::Stop() {
    on_ = false;
    ticker_.reset();
}

// As the meter has it: by what was put into it last, or read from it.
int LiveValue::PointOfItem1() const {
    const auto& last = session_.LastTransfer;
    const auto& got = session_.MeterAtLastGet;
    const bool put = last && last->Put && last->Good;
    if (!put && !got) return session_.Derived.ItemDecPts[1];
    return DeriveFromImage(put ? last->Sent : got->Image, session_.Identity.FirmwareVersion,
                           session_.Identity.MeterType)
        .ItemDecPts[1];
}

// What comes after it was switched off is thrown away.
void LiveValue::Ask() {
    LinkState& link = session_.LinkState;
    const int run = run_;
    ReadSingle(session_.Link, ReadingKind::Item1);
    if (!on_ || run != run_) return;
    if (link.LinkError == 0 && !link.PortFault) {
        const std::string reading(Trimmed(link.RawReply));
        text_ = link.ModbusLink ? WithPoint(reading, ShownPoint(PointOfItem1())) : reading;
    } else {
        Stop();
        trouble_ = "No reading: " + link.ErrorMeaning() + " (" + std::to_string(link.LinkError) + ").";
    }
    Tell();
}

}  // namespace counter
