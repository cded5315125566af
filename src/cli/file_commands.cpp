// default, show, fields, diff: setup files without a meter.
#include "cli/cli.h"
#include "cli/cli_output.h"
#include "cli/differences.h"
#include "cli/field_names.h"
#include "cli/suggest.h"
#include "meter/default_setup.h"
#include "shell/setup_files.h"

namespace counter {

namespace {

using Fields = std::vector<Field>;

Fields AllFields() {
    Fields fields;
    for (const FieldRow& row : FieldTable()) fields.push_back(row.Handle);
    return fields;
}

Json FieldsJson(const SetupImage& image, const Fields& fields) {
    Json list = Json::array();
    for (const Field field : fields) {
        const FieldRow& row = RowOf(field);
        Json line = {{"position", row.Pos}, {"digits", Utf8(FieldDigits(image, field))}};
        if (const std::string bits = BitsText(row); !bits.empty()) line["bits"] = bits;
        line["field"] = std::string(row.Name);
        line["value"] = FieldJson(image, field);
        list.push_back(std::move(line));
    }
    return list;
}

std::string FieldsTable(const SetupImage& image) {
    std::vector<std::vector<std::string>> lines = {{"Position", "Bits", "Digits", "Field", "Value"}};
    for (const FieldRow& row : FieldTable()) {
        lines.push_back({std::to_string(row.Pos), BitsText(row), Printable(FieldDigits(image, row.Handle)),
                         std::string(row.Name), FieldValueText(image, row.Handle)});
    }
    return Columns(lines);
}

int ShowFields(const CommandCall& call, const SetupImage& image) {
    if (call.Json) {
        WriteJson(call, FieldsJson(image, AllFields()));
    } else {
        call.World.Out << FieldsTable(image);
    }
    return kDone;
}

// The values alone: a line each, so that a script takes them as they are.
int ShowSome(const CommandCall& call, const SetupImage& image, const Fields& fields) {
    if (call.Json) {
        WriteJson(call, FieldsJson(image, fields));
        return kDone;
    }
    for (const Field field : fields) call.World.Out << FieldValueText(image, field) << "\n";
    return kDone;
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
    if (form != "fields" && form != "menu" && form != "setup") {
        return RefuseCall(call, "--as is fields, menu or setup");
    }
    SetupImage image;
    const Status status = LoadSetupFile(call.World.Store, call.Words[0], image);
    if (!status.Ok()) return RefuseStatus(call, status);
    if (form == "setup") return ShowSetup(call, image);
    return form == "menu" ? ShowMenu(call, image) : ShowFields(call, image);
}

int FieldsCommand(const CommandCall& call) {
    Fields fields;
    for (std::size_t i = 1; i < call.Words.size(); ++i) {
        const auto field = FieldNamed(call.Words[i]);
        if (!field)
            return RefuseCall(call, "no field '" + call.Words[i] + "'; counterctl fields FILE lists them" +
                                        DidYouMean(call.Words[i], FieldNames()));
        fields.push_back(*field);
    }
    SetupImage image;
    if (Status status = LoadSetupFile(call.World.Store, call.Words[0], image); !status.Ok())
        return RefuseStatus(call, status);
    return fields.empty() ? ShowFields(call, image) : ShowSome(call, image, fields);
}

int DiffCommand(const CommandCall& call) {
    SetupImage a;
    SetupImage b;
    if (Status status = LoadSetupFile(call.World.Store, call.Words[0], a); !status.Ok())
        return RefuseStatus(call, status);
    if (Status status = LoadSetupFile(call.World.Store, call.Words[1], b); !status.Ok())
        return RefuseStatus(call, status);
    const Differences differences = CompareFiles(a, b);
    if (call.Json) {
        WriteJson(call, DifferencesJson(differences));
    } else {
        call.World.Out << DifferencesTable(differences, call.Words[0], call.Words[1]);
    }
    return differences.empty() ? kDone : kDifferent;
}

}  // namespace counter
