#include "setup_view/mode_lists.h"

#include "meter/boards.h"
#include "meter/meter_words.h"
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

constexpr int kExtendedBit = 1;  // of the class code; beside it is the curve

Entries ModesOf(const DerivedValues& values) {
    switch (values.InputOption) {
        case InputBoard::None:
            return kNoMode;
        case InputBoard::DualSigCond:
            return values.ExtendedMeter ? Entries(kSigCondModes)
                                        : Entries(kSigCondModes).first(kBasicSigCondModes);
        case InputBoard::VfConverter:
            return kVfModes;
        case InputBoard::Quadrature:
            return kQuadratureModes;
        default:
            return {};  // a code that no board has
    }
}

// Mode 3 is not in the list, so those above it are one place lower.
int ModeEntry(const DerivedValues& values) {
    if (values.InputOption == InputBoard::DualSigCond)
        return values.ModeIndex > Mode::Total ? values.ModeIndex - 1 : values.ModeIndex;
    if (values.InputOption == InputBoard::VfConverter) return values.ModeIndex - Mode::Vf4To20mA;
    return 0;
}

}  // namespace

void ModeLists::Wire() {
    Bind({Mode.Inner, Field::Mode}, [this](Control&) { PickMode(); });
    Bind({Function.Inner, Field::Function}, [this](Control&) { PickFunction(); });
    Controls().On(optBasic, [this](Control&) { PickBasic(); });
    Controls().On(optExtended, [this](Control&) { PickExtended(); });
}

void ModeLists::Normalise() {
    NormaliseModeFunction(Values(), Meter().FirmwareVersion);
}

// Without a board Mode and Function are those that are stored, legal or not.
void ModeLists::PickInputBoard(int inputOption) {
    Values().InputOption = inputOption;
    if (inputOption == InputBoard::None) {
        Values().ModeIndex = CodeOf(Image(), Field::Mode);
        Values().FunctionIndex = CodeOf(Image(), Field::Function);
    }
    PutCode(Image(), Field::InputOption, InputOptionCode(inputOption));
    {
        SetupView::Quiet quiet(View);
        View.Input.DisplayTypeFill();  // a meter without a board has remote types alone
    }
    Normalise();
    ModeListFill();
    RebuildWithout(Mode.Inner);
}

// Each list that is filled goes on to the next by its selection. One that has none ends the chain, and the
// view follows the image all the same.
void ModeLists::RebuildWithout(const Control& list) {
    if (list.ListIndex < 0) View.InputRefresh();
}

void ModeLists::PickMode() {
    int before = Values().ModeIndex;
    ModeFromList();
    if (Values().ModeIndex != before) Values().FunctionIndex = Function::AandB;
    PutCode(Image(), Field::Mode, Values().ModeIndex);
    Normalise();
    FunctionListFill();
    RebuildWithout(Function.Inner);
}

void ModeLists::PickFunction() {
    FunctionFromList();
    if (Values().InputOption != InputBoard::None) PutCode(Image(), Field::Function, Values().FunctionIndex);
    View.InputRefresh();
}

// A Mode that only Extended meters have falls back to the first Mode and its first Function, as a pick of
// that Mode would; a Function of a V-F Mode that only they have, to the first of the list.
void ModeLists::PickBasic() {
    Values().ExtendedMeter = 0;
    PutCode(Image(), Field::ClassAndCurve, 0);
    int before = Values().ModeIndex;
    Normalise();
    if (Values().ModeIndex != before) Values().FunctionIndex = Function::AandB;
    const bool vf = Values().InputOption == InputBoard::VfConverter;
    if (vf && Values().FunctionIndex > LastFunction()) Values().FunctionIndex = Function::AOnly;
    ModeListFill();
    RebuildWithout(Mode.Inner);
}

void ModeLists::PickExtended() {
    Values().ExtendedMeter = 1;
    PutCode(Image(), Field::ClassAndCurve, CodeOf(Image(), Field::ClassAndCurve) | kExtendedBit);
    ModeListFill();
    RebuildWithout(Mode.Inner);
}

void ModeLists::ModeListFill() {
    const DerivedValues& values = Values();
    View.Input.Pulses.Frame.Visible = false;
    if (values.ItemLevel < 2)
        View.Scaling.Rd0In.Frame[values.ItemLevel].Visible = values.InputOption == InputBoard::VfConverter;
    Form::Fill(Mode.Inner, ModesOf(values));
    if (values.InputOption == InputBoard::Quadrature) {
        View.Input.Pulses.Frame.Visible = true;
        View.Input.Pulses.Inner.Text = TextOf(Field::PulsesPerRev);
    }
    Controls().SetIndex(Mode.Inner, ModeEntry(values));
}

int ModeLists::LastFunction() const {
    if (Values().ExtendedMeter) return kFunctions - 1;
    if (Values().ModeIndex == Mode::Quadrature) return Function::QuadratureTotal;
    return IsVfMode(Values().ModeIndex) ? Function::RateAndTotal : Function::AOnly;
}

void ModeLists::FunctionListFill() {
    int mode = Values().ModeIndex;
    Control& list = Function.Inner;
    Form::Fill(list, Values().InputOption == InputBoard::None ? Entries(kNoMode) : Entries());
    if (Values().InputOption == InputBoard::None) {
        Controls().SetIndex(list, 0);
        return;
    }
    bool basicVf = !Values().ExtendedMeter && IsVfMode(mode);
    int selected = -1;
    for (int f = 0; f <= LastFunction(); ++f) {
        if (basicVf && f == Function::Batch) continue;
        std::string_view name = FunctionName(mode, f);
        if (name.empty()) continue;
        if (f == Values().FunctionIndex) selected = static_cast<int>(list.Entries.size());
        list.Entries.push_back(name);
    }
    Controls().SetIndex(list, selected);
}

void ModeLists::ModeFromList() {
    int index = Mode.Inner.ListIndex;
    if (Values().InputOption == InputBoard::DualSigCond)
        Values().ModeIndex = index > Mode::Total ? index + 1 : index;
    if (Values().InputOption == InputBoard::VfConverter) Values().ModeIndex = index + Mode::Vf4To20mA;
    if (Values().InputOption == InputBoard::Quadrature) Values().ModeIndex = Mode::Quadrature;
}

// On a Basic meter the place of Function 2 is that of Function 3, which its list has instead. Without a board
// the one entry "None" stands for no Function, and the one there is stays.
void ModeLists::FunctionFromList() {
    if (Values().InputOption == InputBoard::None) return;
    int place = -1;
    for (int f = 0; f < kFunctions; ++f) {
        if (FunctionName(Values().ModeIndex, f).empty() || ++place < Function.Inner.ListIndex) continue;
        Values().FunctionIndex = !Values().ExtendedMeter && f == Function::Batch ? Function::RateAndTotal : f;
        return;
    }
}

void ModeLists::ShowClass() {
    Controls().SetOption(Values().ExtendedMeter ? optExtended : optBasic, true);
}

}  // namespace counter
