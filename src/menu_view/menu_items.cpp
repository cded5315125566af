#include "menu_view/menu_items.h"

#include <algorithm>
#include <initializer_list>

#include "menu_view/menu_rules.h"
#include "meter/mode_tables.h"

namespace counter {

namespace {

using F = const MenuFacts&;
using Shown = bool (*)(F);
using enum ValueForm;

// When an item is in the menu.
constexpr Shown kAlways = [](F) { return true; };
constexpr Shown kPulses = [](F f) { return f.IsPair(Mode::Quadrature, Function::QuadratureTotal); };
constexpr Shown kCutoff = [](F f) { return f.Values.CutoffActive && !f.CutoffDisabled; };
// Whatever the display: the panel knows no Time Out of a remote one.
constexpr Shown kTimeOut = [](F f) { return (f.Values.ModeWord & kWordTimeOut) != 0; };
constexpr Shown kBatch = [](F f) { return f.Function() == Function::Batch; };  // of any Mode, required
constexpr Shown kFilter = [](F f) { return FilterItemOfWord(f.Values.ModeWord) != 0; };
constexpr Shown kSlopes = [](F f) { return f.Values.InputOption == InputBoard::DualSigCond; };
constexpr Shown kPoint1 = [](F f) { return f.ShowsPoint1(); };
constexpr Shown kPoint2 = [](F f) { return f.ShowsPoint2(); };
constexpr Shown kScale1 = [](F f) { return !f.Coordinates1 && !f.CoordHidden; };
constexpr Shown kCoord1 = [](F f) { return f.Coordinates1 && !f.CoordHidden; };
constexpr Shown kScale2 = [](F f) {
    return f.Values.ItemCount >= 2 && !f.Coordinates2 && !f.Rd0Flag && !f.CoordHidden;
};
constexpr Shown kCoord2 = [](F f) {
    return f.Values.ItemCount != 1 && f.Coordinates2 && f.Values.InputOption != InputBoard::VfConverter;
};
constexpr Shown kRead0 = [](F f) { return f.Values.ItemLevel < 2 && (f.Rd0Flag || f.CoordHidden); };
constexpr Shown kResolution = [](F f) { return f.HasOneResult() || f.Function() == Function::Batch; };
constexpr Shown kPreset = [](F f) { return f.Values.PresetActive; };
constexpr Shown kRelays = [](F f) { return f.Values.RelayOption != RelayBoard::None; };
constexpr Shown kFourRelays = [](F f) { return f.Values.RelayOption == RelayBoard::FourRelays; };
// Takes the deviations of all four alarms out of the menu; it alone, in meters of every version.
constexpr int kNoDeviations = 4;
constexpr Shown kDeviations = [](F f) { return kRelays(f) && f.DeviationCode != kNoDeviations; };
constexpr Shown kDeviations34 = [](F f) { return kFourRelays(f) && f.DeviationCode != kNoDeviations; };
constexpr Shown kAnalog = [](F f) { return f.Values.AnalogOption != AnalogBoard::None; };
constexpr Shown kDualAnalog = [](F f) { return f.Values.AnalogOption == AnalogBoard::Dual16Bit; };
constexpr Shown kSerial = [](F f) {
    return f.Values.CommOption == CommBoard::Rs232 || f.Values.CommOption == CommBoard::Rs485;
};

using Correction = void (*)(F, MenuDigits&);
using NameEnd = std::string_view (*)(const SetupImage&, F);
using TextRule = std::string (*)(const SetupImage&, F);

constexpr MenuItem Value(int order, std::string_view name, int code, int kind, Shown shown, MenuValue value,
                         NameEnd end = nullptr) {
    return {order, name, code, kind, MenuCellsBy::Value, shown, value, {}, nullptr, nullptr, end};
}

// `last` are the last of the six digits; those in front are blank.
constexpr MenuItem Digits(int order, std::string_view name, int code, int kind, Shown shown,
                          std::initializer_list<MenuBits> last, Correction correct = nullptr) {
    MenuItem item{order, name, code, kind, MenuCellsBy::Digits, shown, {}, {}, correct, nullptr, nullptr};
    std::copy(last.begin(), last.end(), item.Digits.end() - last.size());
    return item;
}

constexpr MenuItem Text(int order, std::string_view name, int code, int kind, Shown shown, MenuCellsBy by,
                        Field field, TextRule text) {
    return {order, name, code, kind, by, shown, {field}, {}, nullptr, text, nullptr};
}

// Names may go on, see NameEnd. Of bits: position, high bit, low bit.
// clang-format off
constexpr auto kItems = std::to_array<MenuItem>({
    //        name     code kind shown         content
    Text  ( 1, "InPut",   1, 5, kAlways,       MenuCellsBy::Text, Field::Mode, ModeText),
    Digits( 2, "SEtuP",   2, 6, kAlways,       {{197,7,7}, {197,6,6}, {197,5,5}, {197,4,4}, {197,3,0}}, CorrectSetup),
    Digits( 3, "ConFiG",  3, 6, kAlways,       {{185,7,4}, {185,3,2}, {185,1,1}, {185,0,0}}, CorrectConfig),
    Digits( 4, "dSPyno",  4, 6, kAlways,       {{157,3,2}, {157,1,0}}, CorrectDisplayItem),
    Value ( 5, "PULSES",  5, 0, kPulses,       {Field::PulsesPerRev}),
    Value ( 6, "CutoFF",  5, 0, kCutoff,       {Field::CutoffValue, BlanksInFront}),
    Value ( 7, "GAtE t",  6, 0, kAlways,       {Field::GateTime, BlanksBehind}),
    Value ( 8, "ti Out",  7, 0, kTimeOut,      {Field::TimeOut, BlanksBehind}),
    Digits( 9, "bAtCH",   8, 6, kBatch,        {{171,5,4}, {171,3,3}, {171,2,2}, {171,1,1}, {171,0,0}}),
    Digits(10, "FiLtEr",  9, 6, kFilter,       {{195,6,6}, {195,5,5}, {195,4,4}, {195,3,3}, {195,2,0}}),
    Digits(11, "SLOPE",  10, 6, kSlopes,       {{159,1,1}, {159,0,0}}),
    Text  (12, "DecPt1", 11, 4, kPoint1,       MenuCellsBy::Points, Field::DecimalPoint1, Point1Text),
    Text  (13, "DecPt2", 12, 4, kPoint2,       MenuCellsBy::Points, Field::DecimalPoint2, Point2Text),
    Value (14, "SCALE1", 13, 3, kScale1,       {Field::Scale1}),
    Value (15, "OFFSt1", 14, 2, kScale1,       {Field::Offset1, Clock}),
    Value (16, "Lo In1", 15, 4, kCoord1,       {Field::LowIn1}),
    Value (17, "Lo rd1", 16, 2, kCoord1,       {Field::LowRead1}),
    Value (18, "Hi In1", 17, 4, kCoord1,       {Field::HighIn1}),
    Value (19, "Hi rd1", 18, 2, kCoord1,       {Field::HighRead1}),
    Value (20, "SCALE2", 19, 3, kScale2,       {Field::Scale2}),
    Value (21, "OFFSt2", 20, 2, kScale2,       {Field::Offset2, Clock}),
    Value (22, "Lo In2", 21, 4, kCoord2,       {Field::LowIn2}),
    Value (23, "Lo rd2", 22, 2, kCoord2,       {Field::LowRead2}),
    Value (24, "Hi In2", 23, 4, kCoord2,       {Field::HighIn2}),
    Value (25, "Hi rd2", 24, 2, kCoord2,       {Field::HighRead2}),
    Value (26, "rd0 In", 25, 4, kRead0,        {Field::Read0In}),
    Text  (27, "rESoLn", 26, 5, kResolution,   MenuCellsBy::Multiplier, Field::Resolution, ResolutionText),
    Value (28, "PrESEt", 20, 2, kPreset,       {Field::Preset}),
    Digits(29, "SourcE", 27, 6, kRelays,       {{169,7,6}, {169,5,4}, {169,3,2}, {169,1,0}}, CorrectSources),
    Digits(30, "AL SEt", 28, 6, kRelays,       {{203,7,6}, {203,5,4}, {203,3,0}, {201,5,3}, {201,2,0}}, CorrectAlarmStates),
    Digits(31, "AL S34", 29, 6, kFourRelays,   {{231,7,6}, {231,5,4}, {231,3,0}, {229,5,3}, {229,2,0}}, CorrectAlarmStates),
    Value (32, "dEUn1",  30, 2, kDeviations,   {Field::Deviation1}, Deviation1Mark),
    Value (33, "dEUn2",  31, 2, kDeviations,   {Field::Deviation2}, Deviation2Mark),
    Value (34, "dEUn3",  32, 2, kDeviations34, {Field::Deviation3}, Deviation3Mark),
    Value (35, "dEUn4",  33, 2, kDeviations34, {Field::Deviation4}, Deviation4Mark),
    Digits(36, "An SEt", 34, 6, kAnalog,       {{167,7,6}, {167,5,4}, {167,3,2}, {167,1,0}}, CorrectAnalog),
    Value (37, "An Lo",  35, 2, kAnalog,       {Field::AnalogLo}, FirstOutput),
    Value (38, "An Hi",  36, 2, kAnalog,       {Field::AnalogHi}, FirstOutput),
    Value (39, "An Lo 2", 37, 2, kDualAnalog,  {Field::Analog2Lo}),
    Value (40, "An Hi 2", 38, 2, kDualAnalog,  {Field::Analog2Hi}),
    Digits(41, "SEr 1",  39, 6, kSerial,       {{191,7,7}, {191,6,4}, {191,3,0}}),
    Digits(42, "SEr 2",  40, 6, kSerial,       {{189,7,7}, {189,6,6}, {189,5,5}, {189,4,0}}),
    Digits(43, "SEr 3",  41, 6, kSerial,       {{187,7,7}, {187,6,5}, {187,4,4}, {187,3,3}, {187,2,0}}),
    Digits(44, "SEr 4",  42, 6, kSerial,       {{109,5,4}, {109,3,2}, {109,1,0}}),
    Value (45, "CALib",  43, 1, kAlways,       {Field::Calibration}),
    Digits(46, "Loc 1",  44, 6, kAlways,       {{183,3,3}, {183,2,2}, {183,1,1}, {183,0,0}}),
    Digits(47, "Loc 2",  45, 6, kAlways,       {{183,7,7}, {183,6,6}, {183,5,5}, {183,4,4}}),
    Digits(48, "Loc 3",  46, 6, kAlways,       {{181,3,3}, {181,2,2}, {181,1,1}, {181,0,0}}),
    Digits(49, "Loc 4",  47, 6, kAlways,       {{181,7,7}, {181,6,6}, {181,5,5}, {181,4,4}}),
});

constexpr SetpointItem kSetpoints[] = {
    {"SETPT1", {Field::Setpoint1}, Field::Alarm1State, RelayBoard::TwoRelays},
    {"SETPT2", {Field::Setpoint2}, Field::Alarm2State, RelayBoard::TwoRelays},
    {"SETPT3", {Field::Setpoint3}, Field::Alarm3State, RelayBoard::FourRelays},
    {"SETPT4", {Field::Setpoint4}, Field::Alarm4State, RelayBoard::FourRelays},
};
// clang-format on

consteval bool OrdersCount() {
    for (std::size_t i = 0; i < kItems.size(); ++i) {
        if (kItems[i].Order != static_cast<int>(i) + 1) return false;
    }
    return true;
}
static_assert(OrdersCount(), "items stand in their order");

}  // namespace

std::span<const MenuItem> MenuItems() {
    return kItems;
}

MenuDigits DigitsOfItem(const SetupImage& image, const MenuFacts& facts, const MenuItem& item) {
    MenuDigits digits;
    for (std::size_t i = 0; i < digits.size(); ++i) {
        const MenuBits& bits = item.Digits[i];
        digits[i] = bits.Pos == 0 ? kBlankDigit : BitsGet(image, bits.HiBit, bits.LoBit, bits.Pos);
    }
    if (item.Correct != nullptr) item.Correct(facts, digits);
    return digits;
}

std::span<const SetpointItem> SetpointItems() {
    return kSetpoints;
}

}  // namespace counter
