#include "controls/page_builder.h"

namespace counter {

Control& PageBuilder::Add(ControlKind kind, Control* container, std::string_view name,
                          std::string_view caption, int index) {
    Control control;
    control.Kind = kind;
    control.Name = name;
    control.Index = index;
    control.Tab = tab_;
    control.Container = container;
    control.HelpNumber = help_(name);
    control.Caption = caption;
    return form_.Add(std::move(control));
}

Framed PageBuilder::Wrap(ControlKind kind, Control* container, std::string_view name,
                         std::string_view caption, int index) {
    std::string frameName = "fra" + std::string(name.substr(3));
    Control& frame = Add(ControlKind::Frame, container, frameName, caption, index);
    Control& inner = Add(kind, &frame, name, {}, index);
    frame.HelpNumber = inner.HelpNumber;
    return {frame, inner};
}

std::string PageBuilder::Numbered(std::string_view caption, int index) {
    std::string text(caption);
    if (const std::size_t mark = text.find('#'); mark != std::string::npos)
        text.replace(mark, 1, std::to_string(index));
    return text;
}

}  // namespace counter
