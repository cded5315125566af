#include "cli/setup_output.h"

#include <algorithm>

#include "controls/form_lines.h"
#include "meter/text.h"

namespace counter {

namespace {

// Columns of a page of text: the value beside a caption, then the control's name.
constexpr std::size_t kValueColumn = 34;
constexpr std::size_t kNameColumn = 64;
constexpr std::size_t kIndent = 2;

// --- JSON ---

Json EntriesJson(const Control& list) {
    Json entries = Json::array();
    for (const std::string_view entry : list.Entries) entries.push_back(Utf8(entry));
    return entries;
}

Json ControlJson(const Control& control) {
    Json document = {{"visible", control.Visible}, {"enabled", control.Enabled}};
    switch (control.Kind) {
        case ControlKind::List:
            document["entries"] = EntriesJson(control);
            document["index"] = control.ListIndex;
            break;
        case ControlKind::Check:
        case ControlKind::Option:
            document["value"] = control.Value;
            break;
        case ControlKind::Value:
        case ControlKind::Picture:
            document["text"] = Utf8(control.Text);
            break;
        default:
            document["caption"] = Utf8(control.Caption);
            break;
    }
    if (control.TextColor) document["color"] = std::string(ColorName(*control.TextColor));
    if (control.BackColor) document["back"] = std::string(ColorName(*control.BackColor));
    return document;
}

Json ControlsJson(const Form& form) {
    Json document = Json::object();
    for (const Control& control : form) {
        if (control.Kind != ControlKind::TabStrip) document[control.FullName()] = ControlJson(control);
    }
    return document;
}

Json TabsJson(const Control& strip) {
    Json tabs = Json::array();
    for (std::size_t i = 0; i < strip.Entries.size(); ++i) {
        tabs.push_back(
            {{"caption", Utf8(strip.Entries[i])}, {"offered", static_cast<bool>(strip.Offered[i])}});
    }
    return tabs;
}

Json ValuesJson(const DerivedValues& values) {
    return {{"InputOption", values.InputOption},
            {"ModeIndex", values.ModeIndex},
            {"FunctionIndex", values.FunctionIndex},
            {"ExtendedMeter", values.ExtendedMeter ? 1 : 0},
            {"DisplayType", values.DisplayType},
            {"ClockMode", values.ClockMode},
            {"DecPt1", values.DecPt1},
            {"DecPt2", values.DecPt2},
            {"ItemLevel", values.ItemLevel},
            {"ItemCount", values.ItemCount},
            {"ItemRow", values.ItemRow},
            {"ModeWord", values.ModeWord},
            {"FilteredItem", values.FilteredItem},
            {"SourceItems", values.SourceItems},
            {"ItemDecPts", values.ItemDecPts},
            {"RelayOption", values.RelayOption},
            {"CommOption", values.CommOption},
            {"AnalogOption", values.AnalogOption},
            {"ProtocolCode", values.ProtocolCode},
            {"PresetActive", values.PresetActive ? 1 : 0},
            {"CutoffActive", values.CutoffActive ? 1 : 0}};
}

// --- text ---

// Caption, value and the name by which a script knows the control.
std::string LineText(const FormLine& line) {
    const std::string indent((static_cast<std::size_t>(line.Level) + 1) * kIndent, ' ');
    std::string text = indent + Printable(line.Caption);
    if (line.Heading) return text + "\n";
    if (!line.Value.empty()) {
        text.resize(std::max(text.size() + 2, kValueColumn), ' ');
        text += Printable(line.Value + (line.Beside.empty() ? "" : "  " + line.Beside));
    }
    text.resize(std::max(text.size() + 2, kNameColumn), ' ');
    return text + line.Of->FullName() + (line.Of->Enabled ? "\n" : "  (disabled)\n");
}

std::string PageText(const Form& form, int tab) {
    std::string text;
    for (const FormLine& line : LinesOfPage(form, tab)) text += LineText(line);
    return text;
}

std::string TabHeading(std::size_t tab, std::string_view caption, bool offered) {
    const std::string heading = "--- " + std::to_string(tab) + "  " + std::string(caption) + " ";
    return heading + (offered ? "---\n" : "--- not offered\n");
}

std::string MessagesText(const Json& messages) {
    std::string text;
    for (const Json& message : messages) text += "Message: " + message["text"].get<std::string>() + "\n";
    return text;
}

}  // namespace

Json SetupJson(SetupRun& run) {
    const Form& form = run.View().Controls;
    Json document = Json::object();
    if (const Control* strip = TabStripOf(form)) {
        document["tab"] = strip->ListIndex;
        document["tabs"] = TabsJson(*strip);
    }
    document["controls"] = ControlsJson(form);
    document["values"] = ValuesJson(run.Program().Derived);
    document["messages"] = run.Messages();
    document["ended"] = run.Ended();
    document["setup"] = Utf8(run.Program().Image.SetupData);
    return document;
}

std::string SetupText(SetupRun& run) {
    if (run.Ended()) return MessagesText(run.Messages()) + "The program has ended.\n";
    const Form& form = run.View().Controls;
    std::string text;
    if (const Control* strip = TabStripOf(form)) {
        for (std::size_t tab = 0; tab < strip->Entries.size(); ++tab) {
            text += TabHeading(tab, strip->Entries[tab], strip->Offered[tab]);
            if (strip->Offered[tab]) text += PageText(form, static_cast<int>(tab));
        }
    }
    text += "--- beside the tabs ---\n" + PageText(form, kEveryTab);
    return text + MessagesText(run.Messages());
}

}  // namespace counter
