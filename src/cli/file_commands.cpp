// default, show, diff: setup files without a meter.
#include "cli/cli.h"
#include "cli/cli_output.h"
#include "meter/default_setup.h"
#include "meter/field_value.h"
#include "shell/setup_files.h"

namespace counter {

namespace {

Json FieldsJson(const SetupImage& image) {
    Json list = Json::array();
    for (const FieldRow& row : FieldTable()) {
        Json line = {{"position", row.Pos}, {"digits", Utf8(FieldDigits(image, row.Handle))}};
        if (const std::string bits = BitsText(row); !bits.empty()) line["bits"] = bits;
        line["field"] = std::string(row.Name);
        line["value"] = FieldJson(image, row.Handle);
        list.push_back(std::move(line));
    }
    return list;
}

std::string FieldsTable(const SetupImage& image) {
    std::vector<std::vector<std::string>> lines = {{"Position", "Bits", "Digits", "Field", "Value"}};
    for (const FieldRow& row : FieldTable()) {
        lines.push_back({std::to_string(row.Pos), BitsText(row), Utf8(FieldDigits(image, row.Handle)),
                         std::string(row.Name), FieldValueText(image, row.Handle)});
    }
    return Columns(lines);
}

int ShowFields(const CommandCall& call, const SetupImage& image) {
    if (call.Json) {
        WriteJson(call, FieldsJson(image));
    } else {
        call.World.Out << FieldsTable(image);
    }
    return kDone;
}

// What stands behind the 260 digits of an image belongs to no field.
std::string Surplus(const SetupImage& image) {
    return image.SetupData.size() > kImageDigits ? image.SetupData.substr(kImageDigits) : std::string();
}

// Values of the same text that are stored differently are told by their digits.
Json DifferenceJson(const SetupImage& a, const SetupImage& b, const FieldRow& row) {
    Json valueA = FieldJson(a, row.Handle);
    Json valueB = FieldJson(b, row.Handle);
    if (valueA == valueB) {
        valueA = Utf8(FieldDigits(a, row.Handle));
        valueB = Utf8(FieldDigits(b, row.Handle));
    }
    return {{"field", std::string(row.Name)},
            {"position", row.Pos},
            {"a", valueA},
            {"b", valueB},
            {"counts", true}};
}

Json Differences(const SetupImage& a, const SetupImage& b) {
    Json list = Json::array();
    for (const FieldRow& row : FieldTable()) {
        if (row.Kind == Mark::Overlap || FieldEqual(a, b, row.Handle)) continue;
        list.push_back(DifferenceJson(a, b, row));
    }
    if (Surplus(a) != Surplus(b)) {
        list.push_back({{"field", "Digits behind the setup"},
                        {"position", kImageDigits + 1},
                        {"a", Utf8(Surplus(a))},
                        {"b", Utf8(Surplus(b))},
                        {"counts", true}});
    }
    return list;
}

std::string PlainText(const Json& value) {
    return value.is_string() ? value.get<std::string>() : value.dump();
}

void PrintDifferences(const CommandCall& call, const Json& list) {
    if (call.Json) {
        WriteJson(call, list);
        return;
    }
    std::vector<std::vector<std::string>> lines = {{"Position", "Field", call.Words[0], call.Words[1]}};
    for (const Json& line : list) {
        lines.push_back({PlainText(line["position"]), PlainText(line["field"]), PlainText(line["a"]),
                         PlainText(line["b"])});
    }
    call.World.Out << (list.empty() ? "No field differs.\n" : Columns(lines));
}

}  // namespace

int DefaultCommand(const CommandCall& call) {
    SetupImage image;
    BuildDefaultSetup(image);
    const Status status = SaveSetupFile(call.World.Store, call.Words[0], image);
    return status.Ok() ? kDone : RefuseStatus(call, status);
}

int ShowCommand(const CommandCall& call) {
    const auto as = call.Options.find("--as");
    const std::string form = as == call.Options.end() ? "fields" : as->second;
    if (form == "menu" || form == "setup") return NotThereYet(call);
    if (form != "fields") return RefuseCall(call, "--as is fields, menu or setup");
    SetupImage image;
    const Status status = LoadSetupFile(call.World.Store, call.Words[0], image);
    return status.Ok() ? ShowFields(call, image) : RefuseStatus(call, status);
}

int DiffCommand(const CommandCall& call) {
    SetupImage a;
    SetupImage b;
    if (Status status = LoadSetupFile(call.World.Store, call.Words[0], a); !status.Ok())
        return RefuseStatus(call, status);
    if (Status status = LoadSetupFile(call.World.Store, call.Words[1], b); !status.Ok())
        return RefuseStatus(call, status);
    const Json list = Differences(a, b);
    PrintDifferences(call, list);
    return list.empty() ? kDone : kDifferent;
}

}  // namespace counter
