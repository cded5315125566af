#include "cli/setup_output.h"

#include <algorithm>

#include "meter/text.h"

namespace counter {

namespace {

// Columns of a page of text: the value beside a caption, then the control's name.
constexpr std::size_t kValueColumn = 34;
constexpr std::size_t kNameColumn = 64;
constexpr std::size_t kIndent = 2;

const Control* TabStrip(const Form& form) {
    const auto found = std::find_if(form.begin(), form.end(),
                                    [](const Control& c) { return c.Kind == ControlKind::TabStrip; });
    return found == form.end() ? nullptr : &*found;
}

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

// Children of a container, or of a page where it is null.
std::vector<const Control*> ChildrenOf(const Form& form, const Control* container, int tab) {
    std::vector<const Control*> children;
    for (const Control& control : form) {
        const bool here = control.Container == container && (container != nullptr || control.Tab == tab);
        if (here && control.Visible && control.Kind != ControlKind::TabStrip) children.push_back(&control);
    }
    return children;
}

// What is shown beside a control's caption: a box and an option have their mark in front of it.
std::string ValueOf(const Control& control) {
    const bool marked = control.Kind == ControlKind::Check || control.Kind == ControlKind::Option;
    return marked ? std::string() : ValueShown(control);
}

std::string CaptionOf(const Control& control) {
    std::string caption(Trimmed(control.Caption));
    switch (control.Kind) {
        case ControlKind::Check:
            return (control.Value == 1 ? "[x] " : "[ ] ") + caption;
        case ControlKind::Option:
            return (control.Value == 1 ? "(o) " : "( ) ") + caption;
        case ControlKind::Button:
            return "<" + caption + ">";
        default:
            return caption;
    }
}

bool IsField(const Control* control) {
    return control->Kind == ControlKind::List || control->Kind == ControlKind::Value;
}

class PageWriter {
  public:
    explicit PageWriter(const Form& form) : form_(form) {}

    void Page(int tab) { Children(ChildrenOf(form_, nullptr, tab), kIndent); }
    std::string Text;

  private:
    void Children(const std::vector<const Control*>& children, std::size_t indent) {
        for (const Control* child : children) {
            if (child->Kind == ControlKind::Frame) {
                Frame(*child, indent);
            } else {
                Line(indent, CaptionOf(*child), ValueOf(*child), *child);
            }
        }
    }

    // A frame that only wraps a field, and the labels beside it, is one line.
    void Frame(const Control& frame, std::size_t indent) {
        const std::vector<const Control*> children = ChildrenOf(form_, &frame, frame.Tab);
        if (children.empty()) return;
        const auto field = std::find_if(children.begin(), children.end(), IsField);
        const bool wraps =
            field != children.end() && std::all_of(children.begin(), children.end(), [&](auto* child) {
                return child == *field || child->Kind == ControlKind::Label;
            });
        if (!wraps) {
            Text += std::string(indent, ' ') + Printable(CaptionOf(frame)) + "\n";
            Children(children, indent + kIndent);
            return;
        }
        std::string value = ValueOf(**field);
        for (const Control* child : children) {
            if (child != *field) value += "  " + CaptionOf(*child);
        }
        Line(indent, CaptionOf(frame), value, **field);
    }

    // Caption, value and the name by which a script knows the control.
    void Line(std::size_t indent, const std::string& caption, const std::string& value,
              const Control& control) {
        if (caption.empty() && value.empty()) return;
        std::string line = std::string(indent, ' ') + Printable(caption);
        if (!value.empty()) {
            line.resize(std::max(line.size() + 2, kValueColumn), ' ');
            line += Printable(value);
        }
        line.resize(std::max(line.size() + 2, kNameColumn), ' ');
        Text += line + control.FullName() + (control.Enabled ? "\n" : "  (disabled)\n");
    }

    const Form& form_;
};

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

std::string ValueShown(const Control& control) {
    switch (control.Kind) {
        case ControlKind::Value:
        case ControlKind::Picture:
            return std::string(Trimmed(control.Text));
        case ControlKind::Check:
        case ControlKind::Option:
            return std::to_string(control.Value);
        case ControlKind::List:
        case ControlKind::TabStrip:
            if (control.ListIndex < 0) return "(none)";
            return std::string(Trimmed(control.Entries[static_cast<std::size_t>(control.ListIndex)]));
        default:
            return {};
    }
}

Json SetupJson(SetupRun& run) {
    const Form& form = run.View().Controls;
    Json document = Json::object();
    if (const Control* strip = TabStrip(form)) {
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
    PageWriter writer(form);
    if (const Control* strip = TabStrip(form)) {
        for (std::size_t tab = 0; tab < strip->Entries.size(); ++tab) {
            writer.Text += TabHeading(tab, strip->Entries[tab], strip->Offered[tab]);
            if (strip->Offered[tab]) writer.Page(static_cast<int>(tab));
        }
    }
    writer.Text += "--- beside the tabs ---\n";
    writer.Page(kEveryTab);
    return writer.Text + MessagesText(run.Messages());
}

}  // namespace counter
