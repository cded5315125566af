#include "cli/cli_output.h"

#include <algorithm>

#include "cli/cli_files.h"

namespace counter {

// The library escapes those below 20 only. As UTF-8 the others are C2 and their own byte, or 7F, and in the
// text of a document they can be in strings alone.
std::string JsonText(const Json& document, int indent) {
    const std::string dumped = document.dump(indent, ' ', false, Json::error_handler_t::replace);
    std::string text;
    for (std::size_t i = 0; i < dumped.size(); ++i) {
        const auto code = static_cast<unsigned char>(dumped[i]);
        const auto next = static_cast<unsigned char>(i + 1 < dumped.size() ? dumped[i + 1] : 0);
        if (code == 0x7F) {
            text += "\\u007f";
        } else if (code == 0xC2 && next >= 0x80 && next < 0xA0) {
            text += next < 0x90 ? "\\u008" : "\\u009";
            text += "0123456789abcdef"[next & 0x0F];
            ++i;
        } else {
            text += dumped[i];
        }
    }
    return text;
}

void WriteJson(const CommandCall& call, const Json& document) {
    call.World.Out << JsonText(document, 2) << "\n";
}

std::ostream& Complain(const CliWorld& world) {
    return world.Err << (world.ErrColors ? "\x1b[31mcounterctl:\x1b[0m " : "counterctl: ");
}

namespace {

int TellStatus(const CliWorld& world, const Status& status) {
    const bool interrupted = status.Kind == StatusKind::Interrupted;
    Complain(world) << (interrupted ? "interrupted" : OneLine(status.Text())) << "\n";
    return interrupted ? kInterrupted : kFileOrPort;
}

}  // namespace

int OutputStatus(const CliWorld& world, int status) {
    world.Out.flush();
    if (world.Out || (status != kDone && status != kDifferent)) return status;
    return TellStatus(world, OutputFailed(world));
}

std::string OneLine(std::string text) {
    std::replace(text.begin(), text.end(), '\n', ' ');
    return text;
}

int RefuseStatus(const CommandCall& call, const Status& status) {
    return TellStatus(call.World, status);
}

int RefuseCall(const CommandCall& call, const std::string& reason) {
    Complain(call.World) << OneLine(reason) << "\n";
    return kUsage;
}

std::string BitsText(const FieldRow& row) {
    if (row.IsValue() || row.Digits != 2) return {};
    if (row.HiBit == row.LoBit) return std::to_string(row.HiBit);
    return std::to_string(row.HiBit) + ".." + std::to_string(row.LoBit);
}

Json ValueJson(const FieldValue& value) {
    return value.IsNumber ? Json(value.Number) : Json(Utf8(value.Text));
}

Json FieldJson(const SetupImage& image, Field field) {
    return ValueJson(ValueOfField(image, field));
}

std::string FieldValueText(const SetupImage& image, Field field) {
    return Printable(ValueOfField(image, field).Text);
}

}  // namespace counter
