// What `fleet` tells: lines for people, the document of --json, the exit status.
#include <algorithm>

#include "cli/fleet.h"

namespace counter {

namespace {

constexpr int kFleetBarCharacters = 40;

Json TextOrNull(const std::optional<std::string>& text) {
    return text ? Json(*text) : Json();
}

Json ReportedFieldsJson(const std::vector<ReportedField>& fields) {
    Json list = Json::array();
    for (const ReportedField& field : fields) {
        list.push_back({{"field", field.Field},
                        {"position", field.Position},
                        {"table", field.Wanted},
                        {"found", TextOrNull(field.Found)},
                        {"left", TextOrNull(field.Left)},
                        {"foundDiffers", field.FoundDiffers},
                        {"leftDiffers", field.LeftDiffers},
                        {"counts", field.Counts}});
    }
    return list;
}

int StatusOf(MeterEnd end) {
    switch (end) {
        case MeterEnd::Different:
            return kDifferent;
        case MeterEnd::LinkFailed:
            return kLinkFailed;
        case MeterEnd::Refused:
        case MeterEnd::NotReached:
            return kFileOrPort;
        case MeterEnd::Interrupted:
            return kInterrupted;
        default:
            return kDone;
    }
}

Json MeterJson(const MeterReport& meter) {
    const auto digits = [](const std::optional<SetupImage>& image) {
        return image ? Json(image->SetupData) : Json();
    };
    return {{"row", meter.Row},
            {"name", meter.Name},
            {"line", meter.Line},
            {"place", meter.Place},
            {"setup", meter.Setup},
            {"end", NameOf(meter.End)},
            {"status", StatusOf(meter.End)},
            {"LinkError", meter.LinkError},
            {"text", meter.Words},
            {"said", meter.Said},
            {"consequences", meter.Consequences},
            {"fields", ReportedFieldsJson(meter.Fields)},
            {"written", meter.Written},
            {"verified", meter.Verified},
            {"asFound", digits(meter.Images.Found)},
            {"asLeft", digits(meter.Images.Left)},
            {"backup", meter.Backup},
            {"file", meter.File},
            {"values", meter.Values},
            {"answersAt", meter.AnswersAt},
            {"seconds", meter.Seconds}};
}

std::string FieldLine(const ReportedField& field) {
    const bool left = field.LeftDiffers && field.Left;
    return field.Field + "  " + (left ? *field.Left : field.Found.value_or("")) +
           "  (table: " + field.Wanted + ")";
}

}  // namespace

std::string FleetLines(const MeterReport& meter, const std::string& action) {
    const std::string name = meter.Name + ": ";
    std::string text = name + OneLine(meter.Words) + "\n";
    for (const std::string& line : meter.Said) text += name + "  " + OneLine(line) + "\n";
    if (!meter.AnswersAt.empty())
        text += name + "  answers at " + meter.AnswersAt + " now, not where the table has it\n";
    if (meter.End == MeterEnd::Different) {
        for (const ReportedField& field : meter.Fields) {
            const bool differs = meter.Written.empty() ? field.FoundDiffers : field.LeftDiffers;
            if (differs && field.Counts) text += name + "  " + FieldLine(field) + "\n";
        }
    }
    if (action == "check") {
        for (const std::string& line : meter.Consequences)
            text += name + "  changed with it in the setup: " + line + "\n";
    }
    return text;
}

Json FleetJson(const FleetReport& report) {
    Json meters = Json::array();
    for (const MeterReport& meter : report.Meters) meters.push_back(MeterJson(meter));
    return {{"action", report.Action},
            {"table", report.Table},
            {"started", report.Started},
            {"ended", report.Ended},
            {"by", report.By},
            {"seconds", report.Seconds},
            {"interrupted", report.Interrupted},
            {"status", FleetStatus(report)},
            {"meters", meters}};
}

int FleetStatus(const FleetReport& report) {
    if (report.Interrupted) return kInterrupted;
    constexpr int kWorstFirst[] = {kInterrupted, kFileOrPort, kLinkFailed, kDifferent};
    for (const int status : kWorstFirst) {
        if (std::any_of(report.Meters.begin(), report.Meters.end(),
                        [status](const MeterReport& meter) { return StatusOf(meter.End) == status; }))
            return status;
    }
    return kDone;
}

void FleetBar::Show(std::size_t done) {
    if (!shown_) return;
    const std::size_t filled = all_ == 0 ? 0 : done * kFleetBarCharacters / all_;
    err_ << "\r[" << std::string(filled, '#') << std::string(kFleetBarCharacters - filled, ' ') << "] "
         << done << " of " << all_ << std::flush;
    onScreen_ = true;
}

void FleetBar::Hide() {
    if (std::exchange(onScreen_, false)) err_ << "\r\x1b[K" << std::flush;
}

}  // namespace counter
