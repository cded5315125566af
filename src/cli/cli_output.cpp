#include "cli/cli_output.h"

#include <algorithm>

#include "cli/cli_files.h"

namespace counter {

void WriteJson(const CommandCall& call, const Json& document) {
    call.World.Out << document.dump(2, ' ', false, Json::error_handler_t::replace) << "\n";
}

std::ostream& Complain(const CliWorld& world) {
    return world.Err << (world.ErrColors ? "\x1b[31mcounterctl:\x1b[0m " : "counterctl: ");
}

int OutputStatus(const CliWorld& world, int status) {
    world.Out.flush();
    if (world.Out || (status != kDone && status != kDifferent)) return status;
    Complain(world) << OutputFailed(world).Text() << "\n";
    return kFileOrPort;
}

std::string OneLine(std::string text) {
    std::replace(text.begin(), text.end(), '\n', ' ');
    return text;
}

int RefuseStatus(const CommandCall& call, const Status& status) {
    Complain(call.World) << OneLine(status.Text()) << "\n";
    return kFileOrPort;
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
    return Utf8(ValueOfField(image, field).Text);
}

std::string Columns(const std::vector<std::vector<std::string>>& lines) {
    std::vector<std::size_t> widths;
    for (const auto& line : lines) {
        widths.resize(std::max(widths.size(), line.size()));
        for (std::size_t i = 0; i < line.size(); ++i) widths[i] = std::max(widths[i], line[i].size());
    }
    std::string text;
    for (const auto& line : lines) {
        std::string row;
        for (std::size_t i = 0; i < line.size(); ++i) {
            row += line[i];
            if (i + 1 < line.size()) row += std::string(widths[i] - line[i].size() + 2, ' ');
        }
        row.erase(row.find_last_not_of(' ') + 1);
        text += row + "\n";
    }
    return text;
}

}  // namespace counter
