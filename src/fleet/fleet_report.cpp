#include "fleet/fleet_report.h"

#include <algorithm>
#include <array>

#include "meter/text.h"

namespace counter {

namespace {

std::string ValueText(const SetupImage& image, Field field) {
    return Printable(ValueOfField(image, field).Text);
}

const FieldDifference* DifferenceAt(const std::vector<FieldDifference>& differences, const FieldRow& row) {
    const auto found =
        std::find_if(differences.begin(), differences.end(), [&](const FieldDifference& difference) {
            return difference.Position == row.Pos && difference.Name == row.Name;
        });
    return found == differences.end() ? nullptr : &*found;
}

std::vector<FieldDifference> DifferencesOf(const SetupImage& wanted, const std::optional<SetupImage>& met,
                                           const ReadImages& read) {
    if (!met) return {};
    return CompareSetups(wanted, *met, read.Road, read.FirmwareVersion);
}

// Of the two of a difference, the text that shows it; else the value.
std::optional<std::string> MetText(const std::optional<SetupImage>& met, const FieldDifference* difference,
                                   Field field) {
    if (!met) return std::nullopt;
    return difference != nullptr ? Printable(difference->B.Text) : ValueText(*met, field);
}

struct EndWords {
    MeterEnd End;
    const char* Name;
    const char* Counted;  // behind a number, in a summary
    bool Good;
};

constexpr std::array<EndWords, 9> kEnds = {{
    {MeterEnd::AsWanted, "as wanted", "as the table says", true},
    {MeterEnd::Written, "written", "written and read back", true},
    {MeterEnd::Got, "got", "read into files", true},
    {MeterEnd::Read, "read", "read", true},
    {MeterEnd::Different, "different", "not as the table says", false},
    {MeterEnd::LinkFailed, "link failed", "failed", false},
    {MeterEnd::Refused, "refused", "could not be worked on", false},
    {MeterEnd::Interrupted, "interrupted", "interrupted", false},
    {MeterEnd::NotReached, "not reached", "not reached", false},
}};

const EndWords& WordsOf(MeterEnd end) {
    return *std::find_if(kEnds.begin(), kEnds.end(),
                         [end](const EndWords& words) { return words.End == end; });
}

// What no document of XML 1.0 may hold.
bool IsNoXml(unsigned char code) {
    return (code < 0x20 && code != '\t' && code != '\n' && code != '\r') || code == 0x7F;
}

}  // namespace

const char* NameOf(MeterEnd end) {
    return WordsOf(end).Name;
}

MeterEnd EndNamed(std::string_view name) {
    const auto found = std::find_if(kEnds.begin(), kEnds.end(),
                                    [name](const EndWords& words) { return words.Name == name; });
    return found == kEnds.end() ? MeterEnd::Refused : found->End;
}

bool IsGood(MeterEnd end) {
    return WordsOf(end).Good;
}

std::vector<ReportedField> ReportedFields(const SetupImage& wanted, const ReadImages& read,
                                          const std::vector<Field>& columns) {
    const std::vector<FieldDifference> found = DifferencesOf(wanted, read.Found, read);
    const std::vector<FieldDifference> left = DifferencesOf(wanted, read.Left, read);
    std::vector<ReportedField> fields;
    for (const FieldRow& row : FieldTable()) {
        const FieldDifference *asFound = DifferenceAt(found, row), *asLeft = DifferenceAt(left, row);
        const FieldDifference* shown = asFound != nullptr ? asFound : asLeft;
        const bool column = std::find(columns.begin(), columns.end(), row.Handle) != columns.end();
        if (shown == nullptr && !column) continue;
        fields.push_back({std::string(row.Name), row.Pos,
                          shown != nullptr ? Printable(shown->A.Text) : ValueText(wanted, row.Handle),
                          MetText(read.Found, asFound, row.Handle), MetText(read.Left, asLeft, row.Handle),
                          asFound != nullptr, asLeft != nullptr, shown == nullptr || shown->Counts()});
    }
    return fields;
}

std::string SummaryOf(const FleetReport& report) {
    std::string text =
        std::to_string(report.Meters.size()) + (report.Meters.size() == 1 ? " meter:" : " meters:");
    const char* before = " ";
    for (const EndWords& words : kEnds) {
        const auto count = std::count_if(report.Meters.begin(), report.Meters.end(),
                                         [&](const MeterReport& meter) { return meter.End == words.End; });
        if (count == 0) continue;
        text += before + std::to_string(count) + " " + words.Counted;
        before = ", ";
    }
    return text;
}

std::string MarkupText(std::string_view text) {
    std::string marked;
    for (const char c : text) {
        switch (c) {
            case '&':
                marked += "&amp;";
                break;
            case '<':
                marked += "&lt;";
                break;
            case '>':
                marked += "&gt;";
                break;
            case '"':
                marked += "&quot;";
                break;
            case '\'':
                marked += "&#39;";
                break;
            default:
                marked += IsNoXml(static_cast<unsigned char>(c)) ? "\xEF\xBF\xBD" : std::string(1, c);
        }
    }
    return marked;
}

}  // namespace counter
