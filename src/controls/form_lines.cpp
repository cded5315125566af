#include "controls/form_lines.h"

#include <algorithm>

#include "meter/text.h"

namespace counter {

namespace {

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

class LineMaker {
  public:
    explicit LineMaker(const Form& form) : form_(form) {}

    void Page(int tab) { Children(ChildrenOf(form_, nullptr, tab), 0); }
    std::vector<FormLine> Lines;

  private:
    void Children(const std::vector<const Control*>& children, int level) {
        for (const Control* child : children) {
            if (child->Kind == ControlKind::Frame) {
                Frame(*child, level);
            } else {
                Add({level, child, false, CaptionOf(*child), ValueOf(*child), {}});
            }
        }
    }

    void Frame(const Control& frame, int level) {
        const std::vector<const Control*> children = ChildrenOf(form_, &frame, frame.Tab);
        if (children.empty()) return;
        const auto field = std::find_if(children.begin(), children.end(), IsField);
        const bool wraps =
            field != children.end() && std::all_of(children.begin(), children.end(), [&](auto* child) {
                return child == *field || child->Kind == ControlKind::Label;
            });
        if (!wraps) {
            Lines.push_back({level, &frame, true, CaptionOf(frame), {}, {}});
            return Children(children, level + 1);
        }
        std::string beside;
        for (const Control* child : children) {
            if (child != *field) beside += (beside.empty() ? "" : "  ") + CaptionOf(*child);
        }
        Add({level, *field, false, CaptionOf(frame), ValueOf(**field), beside});
    }

    void Add(FormLine line) {
        if (!line.Caption.empty() || !line.Value.empty()) Lines.push_back(std::move(line));
    }

    const Form& form_;
};

}  // namespace

std::vector<FormLine> LinesOfPage(const Form& form, int tab) {
    LineMaker maker(form);
    maker.Page(tab);
    return std::move(maker.Lines);
}

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

const Control* TabStripOf(const Form& form) {
    const auto found = std::find_if(form.begin(), form.end(),
                                    [](const Control& c) { return c.Kind == ControlKind::TabStrip; });
    return found == form.end() ? nullptr : &*found;
}

}  // namespace counter
