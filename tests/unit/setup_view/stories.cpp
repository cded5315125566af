#include "stories.h"

#include <charconv>

#include "meter/default_setup.h"

namespace counter::test {

namespace {

std::vector<std::string> Parts(const std::string& text) {
    std::vector<std::string> parts;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = std::min(text.find("; ", at), text.size());
        parts.push_back(text.substr(at, end - at));
        at = end + 2;
    }
    return parts;
}

int Number(const std::string& text) {
    int number = -1;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

std::string Entries(const Control& list) {
    std::string text;
    for (const std::string_view entry : list.Entries) text += (text.empty() ? "" : "|") + std::string(entry);
    return text;
}

std::string ColorText(const std::optional<Color>& color) {
    return color ? std::string(ColorName(*color)) : "none";
}

std::string Shown(const Control& control) {
    if (control.Kind == ControlKind::List)
        return control.ListIndex < 0
                   ? "(none)"
                   : std::string(control.Entries[static_cast<std::size_t>(control.ListIndex)]);
    if (control.Kind == ControlKind::Check || control.Kind == ControlKind::Option)
        return std::to_string(control.Value);
    return control.Kind == ControlKind::Value ? control.Text : control.Caption;
}

std::string Property(const Control& control, const std::string& name) {
    if (name == "on") return control.Enabled ? "1" : "0";
    if (name == "show") return control.Visible ? "1" : "0";
    if (name == "back") return ColorText(control.BackColor);
    if (name == "color") return ColorText(control.TextColor);
    if (name == "list") return Entries(control);
    return name.empty() ? Shown(control) : "no property " + name;
}

// What the last click asks digit entry for.
std::string Asked(const Session& session) {
    const ViewState& shared = session.Views;
    if (!shared.EntryTarget || shared.FieldText != shared.EntryTarget->Text) return "another text";
    const int time = session.Derived.TimeEntry;
    return "type " + std::to_string(shared.FieldType) + " at " + std::to_string(shared.FieldPos) +
           (time == 0 ? "" : " time " + std::to_string(time)) + (shared.LowPlace ? " low" : "");
}

}  // namespace

SetupBench::SetupBench(const std::string& given) {
    BuildDefaultSetup(Image());
    Bench.Program.Identity.MeterType = 3;
    for (const std::string& fact : Parts(given)) Give(fact);
}

void SetupBench::Give(const std::string& fact) {
    const std::size_t equals = fact.find('=');
    const std::string name = fact.substr(0, equals), value = fact.substr(equals + 1);
    Session& session = Bench.Program;
    if (Number(name) > 0) DigitsPut(Image(), Number(name), value);
    if (name == "type") session.Identity.MeterType = Number(value);
    if (name == "comms") session.Settings.CommsEnabled = Number(value);
    if (name == "modbus") session.LinkState.ModbusLink = Number(value);
    if (name == "parity") session.LinkState.ParityIndex = Number(value);
    if (name == "ether") session.LinkState.EthernetMode = Number(value);
    if (name == "nopanel") session.Identity.NoPanelModel = Number(value);
    if (name == "frommeter") session.Identity.SetupFromMeter = Number(value);
}

void SetupBench::Open() {
    try {
        View.Load();
        View.Activate();
    } catch (const ProcessEnded&) {
        Ended = true;
    }
}

void SetupBench::Do(const std::string& deeds) {
    for (const std::string& deed : Parts(deeds)) {
        if (deed == "reopen") {
            View.Activate();
        } else if (deed == "help") {
            View.HelpKey();
            View.ComeBack();
        } else if (deed[0] == '@') {
            Give(deed.substr(1));
        } else if (deed[0] == '!') {
            Refused(deed.substr(1));
        } else if (deed[0] == '~') {
            Bench.Pump.After(5, [this, slipsIn = deed.substr(1)] { Do(slipsIn); });
        } else {
            EXPECT_EQ(Act(deed), Refusal::None) << deed;
        }
    }
}

void SetupBench::Refused(const std::string& deed) {
    const std::string before = Image().SetupData;
    EXPECT_NE(Act(deed), Refusal::None) << deed;
    EXPECT_EQ(Image().SetupData, before) << deed;
}

Refusal SetupBench::Act(const std::string& deed) {
    const std::size_t blank = std::min(deed.find(' '), deed.size());
    const std::string name = deed.substr(0, blank);
    const std::string what = blank < deed.size() ? deed.substr(blank + 1) : "";
    if (name == "tab") return View.Controls.ComeToTab(Number(what));
    Control* control = View.Controls.FindFull(name);
    EXPECT_NE(control, nullptr) << name;
    if (!control) return Refusal::NoSuchAction;
    // At a screen a user first comes to the control's page; in a story that goes without saying.
    View.Controls.OnlyPageOnShow = false;
    if (what.empty()) return View.Controls.Click(*control);
    if (what[0] == '#') return View.Controls.Select(*control, Number(what.substr(1)));
    if (control->Kind == ControlKind::Value) return Enter(*control, what.substr(what.rfind(' ') + 1));
    return View.Controls.Check(*control, Number(what));
}

// In place of the dialog: what it stores, and the state in which it leaves the view.
Refusal SetupBench::Enter(Control& value, const std::string& digits) {
    const Refusal refusal = View.Controls.Click(value);
    if (refusal != Refusal::None) return refusal;
    ViewState& shared = Bench.Program.Views;
    EXPECT_EQ(shared.EntryTarget, &value);
    if (digits != "cancel") {
        DigitsPut(Image(), shared.FieldPos, digits);
        shared.EntryByte = ByteGet(Image(), shared.FieldPos);
        value.Text = std::to_string(shared.EntryByte);
    }
    shared.EntryReturn = 1;
    View.EntryClosed();
    return Refusal::None;
}

std::string SetupBench::Seen(const std::string& what, std::size_t length) {
    const std::vector<Message>& boxes = Bench.Boxes.Shown;
    if (what[0] == '@') return DigitsGet(Image(), Number(what.substr(1)), static_cast<int>(length));
    if (what == "tab") return std::to_string(View.CurrentTab());
    if (what.starts_with("tab"))
        return View.Buttons.tabSetup.Offered[static_cast<std::size_t>(what[3] - '0')] ? "1" : "0";
    if (what == "box") return boxes.empty() ? "no message" : boxes.back().Text;
    if (what == "boxes") return std::to_string(boxes.size());
    if (what == "parity") return std::to_string(Bench.Program.LinkState.ParityIndex);
    if (what == "asked") return Asked(Bench.Program);
    if (what == "ended") return Ended ? "1" : "0";
    const std::size_t point = std::min(what.find('.'), what.size());
    const Control* control = View.Controls.FindFull(what.substr(0, point));
    return control ? Property(*control, what.substr(std::min(point + 1, what.size()))) : "no control";
}

void RunStories(std::initializer_list<Story> stories) {
    for (const Story& story : stories) {
        SCOPED_TRACE(story.Name);
        SetupBench bench(story.Given);
        bench.Open();
        bench.Do(story.Does);
        for (const std::string& sight : Parts(story.Sees)) {
            const std::size_t equals = sight.find('=');
            const std::string what = sight.substr(0, equals), expected = sight.substr(equals + 1);
            EXPECT_EQ(bench.Seen(what, expected.size()), expected) << what;
        }
    }
}

}  // namespace counter::test
