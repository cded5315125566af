#include "meter/boards.h"

#include <algorithm>
#include <array>

#include "meter/field_code.h"
#include "meter/firmware.h"
#include "meter/meter_words.h"

namespace counter {

namespace {

constexpr int kVfConverterCode = 4;
constexpr int kQuadratureCode = 2;

}  // namespace

int InputOptionFromSetup(const SetupImage& image) {
    const int code = CodeOf(image, Field::InputOption);
    if (code == kQuadratureCode) return InputBoard::Quadrature;
    if (code == kVfConverterCode) return InputBoard::VfConverter;
    return code;
}

int InputOptionCode(int inputOption) {
    if (inputOption == InputBoard::VfConverter) return kVfConverterCode;
    if (inputOption == InputBoard::Quadrature) return kQuadratureCode;
    return inputOption;
}

int RelayBoardOf(const SetupImage& image, int meterType) {
    return HasTwoRelaysOnly(meterType) ? RelayBoard::TwoRelays : MenuRelayBoard(image);
}

int CommBoardOf(const SetupImage& image) {
    return std::min<int>(CodeOf(image, Field::CommOption), CommBoard::Rs485);
}

int AnalogBoardOf(const SetupImage& image, int firmwareVersion, int meterType) {
    if (HasOnly12BitAnalog(firmwareVersion)) return AnalogBoard::Unipolar12Bit;
    if (BipolarAnalogOffered(firmwareVersion) && !HasPanel(meterType)) return AnalogBoard::Bipolar16Bit;
    return CodeOf(image, Field::AnalogOption);
}

int MenuRelayBoard(const SetupImage& image) {
    using enum RelayBoard::Code;
    constexpr std::array<int, 4> kByCode = {None, FourRelays, TwoRelays, TwoRelays};
    return kByCode[static_cast<std::size_t>(CodeOf(image, Field::RelayOption))];
}

int MenuCommBoard(const SetupImage& image) {
    return CodeOf(image, Field::CommOption);
}

int MenuAnalogBoard(const SetupImage& image, int firmwareVersion, int meterType) {
    if (HasPanel(meterType)) return CodeOf(image, Field::AnalogOption);
    if (HasOnly12BitAnalog(firmwareVersion)) return AnalogBoard::Unipolar12Bit;
    return BipolarAnalogOffered(firmwareVersion) ? AnalogBoard::Bipolar16Bit : AnalogBoard::Unipolar16Bit;
}

}  // namespace counter
