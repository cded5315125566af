#include "setup_view/mode_lists.h"

#include "meter/boards.h"
#include "meter/mode_tables.h"
#include "setup_view/setup_view.h"

namespace counter {

namespace {

using Entries = std::span<const std::string_view>;

// As the list spells them: Mode 9 has two blanks here and one elsewhere, required.
constexpr std::string_view kNoMode[] = {"None"};
constexpr std::string_view kSigCondModes[] = {"Rate",      "Period", "Total",     "Time Interval",
                                              "Stopwatch", "Phase",  "Duty Cycle"};
constexpr std::size_t kBasicSigCondModes = 5;
constexpr std::string_view kVfModes[] = {"VF 4-20 mA", "VF  0-1 mA", "VF 0-10 V"};
constexpr std::string_view kQuadratureModes[] = {"Quadrature"};

constexpr int kFirstVfMode = 8;
constexpr int kQuadratureMode = 12;

Entries ModesOf(const DerivedValues& values) {
    switch (values.InputOption) {
        case 0:
            return kNoMode;
        case 1:
            return values.ExtendedMeter ? Entries(kSigCondModes)
                                        : Entries(kSigCondModes).first(kBasicSigCondModes);
        case 2:
            return kVfModes;
        case 3:
            return kQuadratureModes;
        default:
            return {};  // a code that no board has
    }
}

// Mode 3 is not in the list, so those above it stand one place lower.
int ModeEntry(const DerivedValues& values) {
    if (values.InputOption == 1) return values.ModeIndex > 2 ? values.ModeIndex - 1 : values.ModeIndex;
    if (values.InputOption == 2) return values.ModeIndex - kFirstVfMode;
    return 0;
}

}  // namespace

void ModeLists::Wire() {
    Controls().On(Mode.Inner, [this](Control&) { PickMode(); });
    Controls().On(Function.Inner, [this](Control&) { PickFunction(); });
    Controls().On(optBasic, [this](Control&) { PickBasic(); });
    Controls().On(optExtended, [this](Control&) { PickExtended(); });
}

void ModeLists::Normalise() {
    NormaliseModeFunction(Values(), Meter().FirmwareVersion);
}

void ModeLists::PickInputBoard(int inputOption) {
    Values().InputOption = inputOption;
    Put(Field::InputOption, InputOptionCode(inputOption));
    Normalise();
    FillModes();
}

void ModeLists::PickMode() {
    int before = Values().ModeIndex;
    ModeFromList();
    if (Values().ModeIndex != before) Values().FunctionIndex = 0;
    Put(Field::Mode, Values().ModeIndex);
    Normalise();
    FillFunctions();
}

void ModeLists::PickFunction() {
    FunctionFromList();
    Put(Field::Function, Values().FunctionIndex);
    View.InputRefresh();
}

// A Mode that only Extended meters have falls back to the first Mode and its first Function, as a pick of
// that Mode would.
void ModeLists::PickBasic() {
    Values().ExtendedMeter = 0;
    Put(Field::ClassAndCurve, 0);
    int before = Values().ModeIndex;
    Normalise();
    if (Values().ModeIndex != before) Values().FunctionIndex = 0;
    FillModes();
}

void ModeLists::PickExtended() {
    Values().ExtendedMeter = 1;
    BitsPut(Image(), 2, 2, 185, 1);
    FillModes();
}

void ModeLists::FillModes() {
    const DerivedValues& values = Values();
    View.Input.Pulses.Frame.Visible = false;
    if (values.ItemLevel < 2) View.Scaling.Rd0In.Frame[values.ItemLevel].Visible = values.InputOption == 2;
    Form::Fill(Mode.Inner, ModesOf(values));
    if (values.InputOption == 3) {
        View.Input.Pulses.Frame.Visible = true;
        View.Input.Pulses.Inner.Text = TextOf(Field::PulsesPerRev);
    }
    Controls().SetIndex(Mode.Inner, ModeEntry(values));
}

int ModeLists::LastFunction() const {
    if (Values().ExtendedMeter) return kFunctions - 1;
    if (Values().ModeIndex == kQuadratureMode) return 0;
    return IsVfMode(Values().ModeIndex) ? 3 : 1;
}

void ModeLists::FillFunctions() {
    int mode = Values().ModeIndex;
    Control& list = Function.Inner;
    Form::Fill(list, Values().InputOption == 0 ? Entries(kNoMode) : Entries());
    if (Values().InputOption == 0) {
        Controls().SetIndex(list, 0);
        return;
    }
    bool basicVf = !Values().ExtendedMeter && IsVfMode(mode);
    int selected = -1;
    for (int f = 0; f <= LastFunction(); ++f) {
        if (basicVf && f == 2) continue;
        std::string_view name = FunctionName(mode, f);
        if (name.empty()) continue;
        if (f == Values().FunctionIndex) selected = static_cast<int>(list.Entries.size());
        list.Entries.push_back(name);
    }
    Controls().SetIndex(list, selected);
}

void ModeLists::ModeFromList() {
    int index = Mode.Inner.ListIndex;
    if (Values().InputOption == 1) Values().ModeIndex = index > 2 ? index + 1 : index;
    if (Values().InputOption == 2) Values().ModeIndex = index + kFirstVfMode;
    if (Values().InputOption == 3) Values().ModeIndex = kQuadratureMode;
}

// On a Basic meter the place of Function 2 is that of Function 3, which its list has instead. Without a board
// the one entry "None" is the first Function that the Mode has: required.
void ModeLists::FunctionFromList() {
    int place = -1;
    for (int f = 0; f < kFunctions; ++f) {
        if (FunctionName(Values().ModeIndex, f).empty() || ++place < Function.Inner.ListIndex) continue;
        Values().FunctionIndex = !Values().ExtendedMeter && f == 2 ? 3 : f;
        return;
    }
}

void ModeLists::ShowClass() {
    Controls().SetOption(Values().ExtendedMeter ? optExtended : optBasic, true);
}

}  // namespace counter
