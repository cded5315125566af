#include "menu_view/menu_rules.h"

#include <algorithm>

#include "menu_view/menu_mnemonics.h"
#include "meter/field_code.h"

namespace counter {

namespace {

std::string BlankAnd(std::string_view text) {
    return std::string(" ").append(text);
}

// Where the panel lets a custom curve be chosen.
bool OffersCurve(const MenuFacts& facts) {
    int mode = facts.Mode();
    int function = facts.Function();
    if (mode == Mode::Rate) return function == Function::AOnly || function == Function::RateAndTotal;
    if (mode == Mode::Period || mode == Mode::Total || facts.IsVfMode()) {
        return function == Function::AOnly || function == Function::RateAndTotal ||
               function == Function::AMinusBUpDown ||
               (function >= Function::VfBurst && function <= Function::InhibitControl) ||
               function == Function::VfInverseRate;
    }
    return IsPhasePlusMinus180(mode, function);
}

std::string_view MarkOf(int deviationType) {
    constexpr std::string_view kMarks = "bHh";
    return kMarks.substr(static_cast<std::size_t>(deviationType), 1);
}

}  // namespace

std::string ModeText(const SetupImage&, const MenuFacts& facts) {
    return BlankAnd(EntryOrBlank(kModeMnemonics, facts.Mode()));
}

std::string Point1Text(const SetupImage&, const MenuFacts& facts) {
    return BlankAnd(EntryOrBlank(kPoints1, facts.Values.DecPt1));
}

std::string Point2Text(const SetupImage&, const MenuFacts& facts) {
    return BlankAnd(EntryOrBlank(kPoints2, facts.Values.DecPt2));
}

std::string ResolutionText(const SetupImage& image, const MenuFacts&) {
    return std::string(EntryOrBlank(kMultipliers, CodeOf(image, Field::Resolution)));
}

void CorrectSetup(const MenuFacts& facts, MenuDigits& digits) {
    if (facts.Values.ItemCount == 1) digits[4] = kBlankDigit;  // the form of a group that isn't there
}

void CorrectConfig(const MenuFacts& facts, MenuDigits& digits) {
    int& curve = digits[3];
    int& root = digits[4];
    constexpr int kNoCurve = 1, kCurve1 = 2;
    if (curve > kCurve1 && facts.Values.InputOption != InputBoard::VfConverter) curve = kCurve1;
    if (curve > kNoCurve && !OffersCurve(facts)) curve = kNoCurve;
    if (curve > kNoCurve || facts.NeverTakesRoot()) root = 0;
}

void CorrectDisplayItem(const MenuFacts& facts, MenuDigits& digits) {
    digits[5] = std::clamp(digits[5], 1, facts.Values.ItemCount);
}

void CorrectSources(const MenuFacts& facts, MenuDigits& digits) {
    if (facts.Values.RelayOption != RelayBoard::FourRelays) digits[4] = digits[5] = kBlankDigit;
}

// The four bits are two states of two bits each, 0 to 2, and the panel counts them as one digit 0 to 8:
// 3 * even alarm + odd alarm. Required, a stored state 3 included: it counts on and isn't taken for 2.
void CorrectAlarmStates(const MenuFacts&, MenuDigits& digits) {
    int& states = digits[3];
    if (states > 7) --states;
    if (states > 3) --states;
}

void CorrectAnalog(const MenuFacts& facts, MenuDigits& digits) {
    if (facts.Values.AnalogOption != AnalogBoard::Dual16Bit) digits[2] = digits[3] = kBlankDigit;
}

std::string_view Deviation1Mark(const SetupImage&, const MenuFacts& facts) {
    return MarkOf(DeviationFromCode(facts.DeviationCode, facts.FirmwareVersion).Type1);
}

std::string_view Deviation2Mark(const SetupImage&, const MenuFacts& facts) {
    return MarkOf(DeviationFromCode(facts.DeviationCode, facts.FirmwareVersion).Type2);
}

std::string_view Deviation3Mark(const SetupImage& image, const MenuFacts&) {
    return MarkOf(CodeOf(image, Field::Deviation3Type));
}

std::string_view Deviation4Mark(const SetupImage& image, const MenuFacts&) {
    return MarkOf(CodeOf(image, Field::Deviation4Type));
}

std::string_view FirstOutput(const SetupImage&, const MenuFacts& facts) {
    return facts.Values.AnalogOption == AnalogBoard::Dual16Bit ? " 1" : "";
}

}  // namespace counter
