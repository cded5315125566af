// The report for test benches. A meter that is not as the table says is a failure, one that could not be
// worked on an error, and one whose turn did not come is skipped.
#include <algorithm>
#include <array>
#include <cstdio>

#include "fleet/fleet_report.h"

namespace counter {

namespace {

std::string SecondsText(double seconds) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.3f", seconds);
    return text.data();
}

std::string Attribute(const char* name, const std::string& value) {
    return std::string(" ") + name + "=\"" + MarkupText(value) + "\"";
}

// "failure", "error" or "skipped"; null for a meter that is as it should be.
const char* Element(MeterEnd end) {
    if (IsGood(end)) return nullptr;
    if (end == MeterEnd::Different) return "failure";
    return end == MeterEnd::NotReached ? "skipped" : "error";
}

std::string CountOf(const FleetReport& report, std::string_view element) {
    return std::to_string(
        std::count_if(report.Meters.begin(), report.Meters.end(), [&](const MeterReport& meter) {
            const char* own = Element(meter.End);
            return own != nullptr && own == element;
        }));
}

std::string FieldLines(const MeterReport& meter) {
    std::string text;
    for (const ReportedField& field : meter.Fields) {
        text += field.Field + ": table " + field.Wanted;
        if (field.Found) text += ", found " + *field.Found;
        if (field.Left) text += ", left " + *field.Left;
        text += field.Counts ? "\n" : " (not counted)\n";
    }
    return text;
}

std::string CaseOf(const MeterReport& meter) {
    std::string text = "    <testcase" + Attribute("classname", meter.Line) + Attribute("name", meter.Name) +
                       Attribute("time", SecondsText(meter.Seconds)) + ">\n";
    const std::string fields = FieldLines(meter);
    if (const char* element = Element(meter.End)) {
        text += std::string("      <") + element + Attribute("message", meter.Words);
        if (meter.End != MeterEnd::NotReached) text += Attribute("type", NameOf(meter.End));
        text += ">" + MarkupText(fields) + "</" + element + ">\n";
    }
    std::string out = meter.Place + "\n" + meter.Words + "\n" + fields;
    for (const std::string& line : meter.Said) out += line + "\n";
    for (const std::string& frame : meter.Written) out += "written: " + frame + "\n";
    return text + "      <system-out>" + MarkupText(out) + "</system-out>\n    </testcase>\n";
}

}  // namespace

std::string JunitReport(const FleetReport& report) {
    const std::string name = "fleet " + report.Action + " " + report.Table;
    const std::string figures =
        Attribute("name", name) + Attribute("tests", std::to_string(report.Meters.size())) +
        Attribute("failures", CountOf(report, "failure")) + Attribute("errors", CountOf(report, "error")) +
        Attribute("skipped", CountOf(report, "skipped")) + Attribute("time", SecondsText(report.Seconds));
    const std::string host = report.By.substr(report.By.find('@') + 1);
    std::string text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<testsuites" + figures +
                       ">\n  <testsuite" + figures + Attribute("timestamp", report.Started) +
                       Attribute("hostname", host) + ">\n";
    for (const MeterReport& meter : report.Meters) text += CaseOf(meter);
    return text + "  </testsuite>\n</testsuites>\n";
}

}  // namespace counter
