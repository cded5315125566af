#include "setup_view/alarms_page.h"

#include "meter/field_lists.h"
#include "meter/meter_words.h"
#include "setup_view/setup_view.h"

namespace counter {

namespace {

struct AlarmFields {
    Field Source, State, Type, RelayState, Setpoint, DeviationType, Deviation;
};

// clang-format off
constexpr std::array<AlarmFields, AlarmsPage::kAlarms> kFields = {{
    {Field::Alarm1Source, Field::Alarm1State, Field::Alarm1Type, Field::Relay1State, Field::Setpoint1, Field::Deviation1Type, Field::Deviation1},
    {Field::Alarm2Source, Field::Alarm2State, Field::Alarm2Type, Field::Relay2State, Field::Setpoint2, Field::Deviation2Type, Field::Deviation2},
    {Field::Alarm3Source, Field::Alarm3State, Field::Alarm3Type, Field::Relay3State, Field::Setpoint3, Field::Deviation3Type, Field::Deviation3},
    {Field::Alarm4Source, Field::Alarm4State, Field::Alarm4Type, Field::Relay4State, Field::Setpoint4, Field::Deviation4Type, Field::Deviation4},
}};
// clang-format on

const AlarmFields& FieldsOf(int alarm) {
    return kFields[static_cast<std::size_t>(alarm) - 1];
}

constexpr int kNotInMenu = 4;      // deviation code of a menu without deviations
constexpr int kFirstSpanCode = 5;  // span hysteresis for alarm 1, 0..2 more for alarm 2
constexpr int kSpan = 2;           // entry of the list

std::array<Binding, 5> Bound(const AlarmsPage& page, int alarm) {
    const AlarmFields& fields = FieldsOf(alarm);
    return {{{page.State.Inner[alarm], fields.State},
             {page.AlmType.Inner[alarm], fields.Type},
             {page.RlyState.Inner[alarm], fields.RelayState},
             {page.Setpt.Inner[alarm], fields.Setpoint},
             {page.Dev.Inner[alarm], fields.Deviation}}};
}

std::array<Binding, 2> Readings(const AlarmsPage& page) {
    return {{{page.NumRdgsAlms.Inner[0], Field::NumRdgsAlarms12},
             {page.NumRdgsAlms.Inner[1], Field::NumRdgsAlarms34}}};
}

}  // namespace

AlarmsPage::AlarmsPage(SetupView& view) : Page(view, kAlarmsTab) {
    AlmType.Frame[1].Caption += " ";  // the one blank too many is required
    constexpr std::string_view kCaptions[] = {"Alarms 1,2  No. Rdgs to Alarm",
                                              "Alarms 3,4  No. Rdgs to Alarm"};
    for (int i = 0; i < 2; ++i) {
        auto place = static_cast<std::size_t>(i);
        Framed pair = Build.Wrap(ControlKind::List, nullptr, "cboNumRdgsAlms", kCaptions[place], i);
        NumRdgsAlms.Frame.Elements[place] = &pair.Frame;
        NumRdgsAlms.Inner.Elements[place] = &pair.Inner;
    }
}

void AlarmsPage::Wire() {
    Bind(Readings(*this));
    for (int i = 1; i <= kAlarms; ++i) {
        Bind(Bound(*this, i));
        Bind({AlmSource.Inner[i], FieldsOf(i).Source}, [this, i](Control& list) {
            PutCode(Image(), FieldsOf(i).Source, SourceOfEntry(list.ListIndex));
        });
        Bind({DevTyp.Inner[i], FieldsOf(i).DeviationType},
             [this, i](Control&) { i <= 2 ? PickDeviationType12() : PickDeviationType34(); });
    }
    Controls().On(chkDevStatus, [this](Control&) { PickDeviationStatus(); });
}

void AlarmsPage::FillLists() {
    for (int i = 1; i <= kAlarms; ++i) Fill(Bound(*this, i));
    Fill(Readings(*this));
    FillDeviationTypes();
}

void AlarmsPage::FillDeviationTypes() {
    bool span = SpanHysteresisOffered(Meter().FirmwareVersion);
    for (int i = 1; i <= kAlarms; ++i) {
        Control& list = DevTyp.Inner[i];
        Form::Fill(list, lists::kDeviationType);
        if (!span) list.Entries[1] = lists::kPlainHysteresis;
        if (!span || i > 2) list.Entries.resize(2);
    }
}

void AlarmsPage::ShowFields() {
    for (int i = 1; i <= kAlarms; ++i) Show(Bound(*this, i));
    Show(Readings(*this));
    ShowDeviationTypes();
    ShowDeviationStatus();
}

void AlarmsPage::ShowDeviationTypes() {
    DeviationCode code = DeviationFromCode(CodeOf(Image(), Field::DeviationCode), Meter().FirmwareVersion);
    Controls().SetIndex(DevTyp.Inner[1], code.Type1);
    Controls().SetIndex(DevTyp.Inner[2], code.Type2);
    Show(DevTyp.Inner[3], Field::Deviation3Type);
    Show(DevTyp.Inner[4], Field::Deviation4Type);
}

// Checking the box runs its handler even while the view is being opened, so an older meter's code 5 to 7 is
// rewritten as 4: required. A view that is opened again begins with the box unchecked.
void AlarmsPage::ShowDeviationStatus() {
    bool panel = HasPanel(Meter().MeterType);
    chkDevStatus.Visible = panel;
    chkDevStatus.Value = 0;
    EnableDeviations();
    DeviationCode code = DeviationFromCode(CodeOf(Image(), Field::DeviationCode), Meter().FirmwareVersion);
    if (!panel || !code.NotInMenu) return;
    SetupView::Live live(View);
    Controls().SetCheck(chkDevStatus, 1);
}

void AlarmsPage::RefreshSourcesAndValues() {
    for (int i = 1; i <= kAlarms; ++i) {
        int source = RefreshSources(AlmSource.Inner[i], FieldsOf(i).Source);
        SettlePointOfSource(Values(), source);
        Setpt.Inner[i].Text = TextOf(FieldsOf(i).Setpoint);
        Dev.Inner[i].Text = TextOf(FieldsOf(i).Deviation);
    }
}

// Span for alarm 2 alone is no state that the meter knows.
void AlarmsPage::PickDeviationType12() {
    int first = DevTyp.Inner[1].ListIndex;
    if (first < kSpan && DevTyp.Inner[2].ListIndex == kSpan) Controls().SetIndex(DevTyp.Inner[2], 1);
    int second = DevTyp.Inner[2].ListIndex;
    PutCode(Image(), Field::DeviationCode, first < kSpan ? first + 2 * second : kFirstSpanCode + second);
}

// The bit above the two types ends up 0.
void AlarmsPage::PickDeviationType34() {
    PutCode(Image(), Field::Spare229, CodeOf(Image(), Field::Spare229) & ~1);
    PutCode(Image(), Field::Deviation3Type, DevTyp.Inner[3].ListIndex);
    PutCode(Image(), Field::Deviation4Type, DevTyp.Inner[4].ListIndex);
}

// Unchecking stores "band" for alarms 1 and 2 whatever their lists show, until one of them is changed.
void AlarmsPage::PickDeviationStatus() {
    PutCode(Image(), Field::DeviationCode, chkDevStatus.Value == 1 ? kNotInMenu : 0);
    EnableDeviations();
}

void AlarmsPage::EnableDeviations() {
    for (int i = 1; i <= kAlarms; ++i)
        DevTyp.Inner[i].Enabled = Dev.Inner[i].Enabled = chkDevStatus.Value == 0;
}

}  // namespace counter
