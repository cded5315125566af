#include "sim/options.h"

#include <algorithm>
#include <charconv>

#include "sim/hex.h"
#include "sim/memory.h"

namespace sim {

namespace {

constexpr int kBaudRates[] = {300, 600, 1200, 2400, 4800, 9600, 19200};
constexpr int kFirstVersion[] = {0, 0, 74, 78, 78};  // of the firmware that knows each analog board
constexpr int kAnalogOverModbus = 76;

}  // namespace

const char* const kDefaultImage =
    "002710000000000000000000000000"
    "0186A00000000186A0004E20002710"
    "002710002710000000000000002710"
    "002710000000000000000100000000"
    "000000000000000080640002271023"
    "112E050101040055070500012C000A"
    "000004012150490900000000000000"
    "000000000000000000000053030D00"
    "08000D00002710000000";

std::string StartImage(const MeterOptions& options) {
    std::string text = options.Image.empty() ? kDefaultImage : options.Image;
    for (const ImagePatch& patch : options.Patches) {
        const auto position = static_cast<std::size_t>(patch.Position - 1);
        if (position < text.size())
            text.replace(position, patch.Digits.size(), patch.Digits.substr(0, text.size() - position));
    }
    Memory memory;
    if (!memory.LoadImage(text)) return text;
    if (options.Version) memory.SetBits(233, 7, 0, *options.Version);
    if (options.Type) memory.SetBits(235, 7, 0, *options.Type);
    if (options.Protocol) memory.SetBits(109, 3, 2, static_cast<int>(*options.Protocol));
    if (options.Parity) memory.SetBits(109, 1, 0, *options.Parity);
    if (options.BaudIndex) memory.SetBits(191, 6, 4, *options.BaudIndex);
    if (options.Address) memory.SetBits(189, 4, 0, *options.Address);
    if (options.ModbusAddress) memory.SetBits(111, 7, 0, *options.ModbusAddress);
    if (options.AnalogBoard) memory.SetBits(143, 7, 0, *options.AnalogBoard);
    return memory.ImageText();
}

std::string WhyNotAnalog(const MeterOptions& options) {
    Memory memory;
    const int board = options.AnalogBoard.value_or(0);
    if (board == 0 || !memory.LoadImage(StartImage(options))) return "";
    const int version = memory.Bits(233, 7, 0);
    const auto from = [&](int first, const std::string& what) {
        return version >= first ? "" : what + " from firmware version " + std::to_string(first) + " on";
    };
    if (memory.Bits(109, 3, 2) != 0 && version < kAnalogOverModbus)
        return from(kAnalogOverModbus, "over Modbus a meter tells its analog board");
    return from(kFirstVersion[board], "there is analog board " + std::to_string(board));
}

std::optional<int> BaudIndexOf(int rate) {
    const auto found = std::find(std::begin(kBaudRates), std::end(kBaudRates), rate);
    if (found == std::end(kBaudRates)) return std::nullopt;
    return static_cast<int>(found - std::begin(kBaudRates));
}

int BaudRateOf(int index) {
    return index >= 0 && index < 7 ? kBaudRates[index] : 9600;
}

std::string ParsePatch(std::string_view text, ImagePatch& out) {
    ImagePatch patch;
    std::string_view digits = text;
    const bool positionGood = ParseNumber(CutAt(digits, '='), patch.Position) && patch.Position >= 1;
    const auto room = kImageDigits + 1 - patch.Position;
    const bool digitsGood =
        std::all_of(digits.begin(), digits.end(), [](char c) { return DigitValue(c) >= 0; });
    if (!positionGood || digits.empty() || !digitsGood || static_cast<int>(digits.size()) > room)
        return "illegal patch \"" + std::string(text) +
               "\": POSITION=DIGITS, position 1 to 260, upper-case hexadecimal digits that fit behind it";
    patch.Digits = digits;
    out = patch;
    return "";
}

std::string ParseRate(std::string_view text, std::optional<double>& out) {
    double rate = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), rate);
    const bool whole = error == std::errc{} && end == text.data() + text.size();
    if (text != "max" && !(whole && rate > 0 && rate <= 1000))
        return "illegal rate \"" + std::string(text) + "\": readings a second, above 0 to 1000, or max";
    out = text == "max" ? std::nullopt : std::optional(rate);
    return "";
}

std::string ParseLiveByte(std::string_view text, std::map<int, int>& out) {
    std::string_view byte = text;
    const std::string_view address = CutAt(byte, '=');
    const auto addressValue = NumberOf(address);
    const auto byteValue = NumberOf(byte);
    if (address.size() != 2 || byte.size() != 2 || !addressValue || !byteValue)
        return "illegal byte \"" + std::string(text) + "\": ADDRESS=BYTE, two hexadecimal digits each";
    out[static_cast<int>(*addressValue)] = static_cast<int>(*byteValue);
    return "";
}

}  // namespace sim
