#include "setup_view/view_buttons.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "link/exchange.h"
#include "link/single_reading.h"
#include "link/waits.h"
#include "meter/hex_text.h"
#include "meter/leading_number.h"
#include "meter/meter_words.h"
#include "setup_view/setup_view.h"

namespace counter {

namespace {

constexpr float kBetweenReadingsS = 0.4F;
// Of a Modbus reply: address, function, byte count, the high byte of 32 bits, then the 24 bits that count.
constexpr std::size_t kNumberAt = 8;
constexpr std::size_t kNumberDigits = 6;
constexpr int kMostReading = 999999;
constexpr int kTwoTo24 = 16777216;

}  // namespace

ViewButtons::ViewButtons(SetupView& view) : Page(view, kEveryTab) {
    tabSetup.Entries.assign(kTabCaptions.begin(), kTabCaptions.end());
    tabSetup.Offered.assign(kTabCaptions.size(), true);
    tabSetup.ListIndex = kInputTab;
    Controls().SetTabStrip(tabSetup);
}

void ViewButtons::Wire() {
    Controls().On(tabSetup, [this](Control& strip) { View.CameTo(strip.ListIndex); });
    Controls().On(cmdMainMenu, [this](Control&) {
        View.PutAway();
        if (View.ShowMainMenu) View.ShowMainMenu();
    });
    Controls().On(cmdRead, [this](Control&) { PressRead(); });
}

void ViewButtons::ShowByMeterKind() {
    cmdRead.Visible = lblValue.Visible = !HasPanel(Meter().MeterType);
    if (!readRunning_) lblValue.BackColor = ColorRed;
}

void ViewButtons::StopReading() {
    readRunning_ = false;
    lblValue.BackColor = ColorRed;
    cmdRead.Caption = "Read";
}

// Pressed again during one of its waits, the inner press ends the loop of the outer one.
void ViewButtons::PressRead() {
    if (readRunning_) {
        StopReading();
        return;
    }
    readRunning_ = true;
    lblValue.BackColor = ColorGreen;
    cmdRead.Caption = "Stop";
    Controls().TellChanged();
    while (readRunning_) {
        ReadOnce();
        Delay(Program.Link, kBetweenReadingsS);
    }
}

// A reading that fails leaves the last number in place.
void ViewButtons::ReadOnce() {
    int point = std::clamp(Values().ItemDecPts[1], 1, 6);
    double reading = 0;
    if (!AskMeter(reading, point)) return;
    lblValue.Caption = ReadingText(reading, point);
    Controls().TellChanged();
}

bool ViewButtons::AskMeter(double& reading, int point) {
    LinkState& link = Program.LinkState;
    if (!link.ModbusLink) {
        AskValue(Program.Link, "B1");
        reading = LeadingNumber(link.ReplyText);
        return link.LinkError == 0;
    }
    AskModbus(Program.Link, "0400030002");
    if (link.LinkError != 0 || !CountAnswers(link)) return false;
    int number =
        static_cast<int>(ParseHex(std::string_view(link.ReplyText).substr(kNumberAt, kNumberDigits)));
    if (number > kMostReading) number -= kTwoTo24;
    reading = number / std::pow(10, point - 1);
    return true;
}

std::string ReadingText(double reading, int point) {
    char digits[64];
    std::snprintf(digits, sizeof digits, "%.*f", point - 1, reading);
    std::string text = digits;
    if (point == 1) text += ".";
    std::size_t zero = text.starts_with('-') ? 1 : 0;
    if (text.compare(zero, 2, "0.") == 0) text.erase(zero, 1);
    return text;
}

}  // namespace counter
