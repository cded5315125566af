// The report for people: a page without anything from elsewhere, that prints as it is read.
#include "fleet/fleet_report.h"

namespace counter {

namespace {

constexpr const char* kStyle = R"(
body { font: 14px/1.4 sans-serif; color: #111; background: #fff; max-width: 60em; margin: 2em auto; padding: 0 1em; }
h1 { font-size: 1.5em; } h2 { font-size: 1.1em; margin: 1.5em 0 .3em; }
table { border-collapse: collapse; width: 100%; } th, td { text-align: left; vertical-align: top; padding: .2em .6em .2em 0; border-bottom: 1px solid #bbb; }
td.value { font-family: monospace; white-space: pre-wrap; overflow-wrap: anywhere; } .differs { font-weight: bold; }
.good::before { content: "\2713\a0"; } .bad::before { content: "\2717\a0"; } .bad { font-weight: bold; }
.facts th { width: 9em; font-weight: normal; color: #444; }
@media print { body { font-size: 9.5pt; max-width: none; margin: 0; padding: 0; } section, tr { break-inside: avoid; } h2 { break-after: avoid; }
  thead { display: table-header-group; } a { color: inherit; text-decoration: none; } @page { margin: 15mm; } }
)";

std::string Fact(const char* name, const std::string& value) {
    if (value.empty()) return {};
    return std::string("<tr><th>") + name + "</th><td>" + MarkupText(value) + "</td></tr>\n";
}

std::string Ending(const MeterReport& meter) {
    return std::string("<span class=\"") + (IsGood(meter.End) ? "good" : "bad") + "\">" +
           MarkupText(meter.Words) + "</span>";
}

std::string Anchor(const MeterReport& meter) {
    return "row" + std::to_string(meter.Row);
}

std::string Joined(const std::vector<std::string>& words, const char* between) {
    std::string text;
    for (const std::string& word : words) text += (text.empty() ? "" : between) + word;
    return text;
}

std::string WrittenWords(const MeterReport& meter) {
    if (!meter.WrittenKnown) return "not known: its process ended";
    if (meter.Written.empty()) return "nothing";
    return Joined(meter.Written, " ") + (meter.Verified ? "; read back, all as the table says" : "");
}

std::string ValueCell(const std::optional<std::string>& value, bool differs) {
    const std::string mark = differs ? "value differs" : "value";
    return "<td class=\"" + mark + "\">" + (value ? MarkupText(*value) : "\xE2\x80\x93") + "</td>";
}

std::string FieldRows(const MeterReport& meter) {
    if (meter.Fields.empty()) return {};
    std::string text =
        "<table><thead><tr><th>Field</th><th>Table</th><th>As found</th><th>As "
        "left</th><th></th></tr></thead>\n<tbody>\n";
    for (const ReportedField& field : meter.Fields) {
        text += "<tr><td>" + MarkupText(field.Field) + "</td>" + ValueCell(field.Wanted, false) +
                ValueCell(field.Found, field.FoundDiffers) + ValueCell(field.Left, field.LeftDiffers) +
                "<td>" + (field.Counts ? "" : "not counted: the meter's own, or not written over this link") +
                "</td></tr>\n";
    }
    return text + "</tbody></table>\n";
}

std::string MeterSection(const FleetReport& report, const MeterReport& meter) {
    std::string text = "<section id=\"" + Anchor(meter) + "\"><h2>" + MarkupText(meter.Name) + "</h2>\n<p>" +
                       Ending(meter) + "</p>\n<table class=\"facts\">\n" + Fact("Line", meter.Line) +
                       Fact("Answers at", meter.Place) + Fact("Found at", meter.AnswersAt) +
                       Fact("Setup", meter.Setup);
    if (report.Action == "put") text += Fact("Written", WrittenWords(meter));
    text += Fact("Setup as found", meter.Backup) + Fact("File", meter.File) +
            Fact("Reading", Joined(meter.Values, ", "));
    for (const std::string& line : meter.Said) text += Fact("Note", line);
    for (const std::string& line : meter.Consequences) text += Fact("Changed with it", line);
    return text + "</table>\n" + FieldRows(meter) + "</section>\n";
}

std::string Overview(const FleetReport& report) {
    std::string text =
        "<table><thead><tr><th>Row</th><th>Meter</th><th>Line</th><th>Result</th></tr></thead>\n<tbody>\n";
    for (const MeterReport& meter : report.Meters) {
        text += "<tr><td>" + std::to_string(meter.Row) + "</td><td><a href=\"#" + Anchor(meter) + "\">" +
                MarkupText(meter.Name) + "</a></td><td>" + MarkupText(meter.Line) + "</td><td>" +
                Ending(meter) + "</td></tr>\n";
    }
    return text + "</tbody></table>\n";
}

}  // namespace

std::string HtmlReport(const FleetReport& report) {
    const std::string title = "Meters of " + report.Table + ": " + report.Action;
    std::string text =
        "<!DOCTYPE html>\n<html lang=\"en\"><head><meta charset=\"utf-8\">"
        "<meta name=\"viewport\" content=\"width=device-width\">\n<title>" +
        MarkupText(title) + "</title>\n<style>" + kStyle + "</style></head>\n<body>\n<h1>" +
        MarkupText(title) + "</h1>\n<table class=\"facts\">\n" + Fact("Begun", report.Started) +
        Fact("Ended", report.Ended) + Fact("By", report.By) +
        Fact("Result", SummaryOf(report) + (report.Interrupted ? "; interrupted" : "")) +
        "</table>\n<h2>All meters</h2>\n" + Overview(report);
    for (const MeterReport& meter : report.Meters) text += MeterSection(report, meter);
    return text + "</body></html>\n";
}

}  // namespace counter
