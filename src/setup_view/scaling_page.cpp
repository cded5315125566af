#include "setup_view/scaling_page.h"

#include "meter/field_lists.h"
#include "meter/meter_words.h"
#include "meter/mode_tables.h"
#include "meter/value_codec.h"
#include "setup_view/setup_view.h"

namespace counter {

namespace {

constexpr int kPlainTime = 1;  // TimeEntry: a clock display's digits as a plain number
constexpr int kSeconds = 2;    // TimeEntry: seconds shown as hours, minutes, seconds
constexpr int kScaleForm = 0;
constexpr int kCoordinatesForm = 1;
constexpr double kBetweenListsMs = 10;

constexpr GroupFields kGroup1 = {Field::Scale1,   Field::Multiplier1, Field::Offset1,   Field::LowIn1,
                                 Field::LowRead1, Field::HighIn1,     Field::HighRead1, Field::Group1Form};
constexpr GroupFields kGroup2 = {Field::Scale2,   Field::Multiplier2, Field::Offset2,   Field::LowIn2,
                                 Field::LowRead2, Field::HighIn2,     Field::HighRead2, Field::Group2Form};

bool IsRateBatch(const DerivedValues& values) {
    return values.ModeIndex == Mode::Rate && values.FunctionIndex == Function::Batch;
}

}  // namespace

ScalingGroup::ScalingGroup(PageBuilder& build, const ControlArray<4>& places, char number,
                           const GroupFields& fields)
    : Fields(fields) {
    auto wrap = [&](ControlKind kind, const std::string& name, const std::string& caption) {
        return build.WrapEach<4>(kind, places, name + number, caption + " " + number);
    };
    auto option = [&](const std::string& name, std::string_view caption) {
        return build.AddEach<4>(ControlKind::Option, places, name + number, caption);
    };
    optScale = option("optScale", "Scale, Offset");
    Scale = wrap(ControlKind::Value, "txtScale", "Scale");
    Mult = wrap(ControlKind::List, "cboMult", "Multiplier");
    Offset = wrap(ControlKind::Value, "txtOffset", "Offset");
    optCoord = option("optCoord", "Coordinates");
    LoIn = wrap(ControlKind::Value, "txtLoIn", "Low In");
    LoRd = wrap(ControlKind::Value, "txtLoRd", "Low Read");
    HiIn = wrap(ControlKind::Value, "txtHiIn", "High In");
    HiRd = wrap(ControlKind::Value, "txtHiRd", "High Read");
}

ScalingPage::ScalingPage(SetupView& view)
    : Page(view, kScalingTab),
      Group1(Build, {{&fraItem1[0], &fraItem2[1], &fraItem2[2], &fraItem1[3]}}, '1', kGroup1),
      Group2(Build, {{&fraItem2[0], &fraItem1[1], &fraItem3[2], &fraItem3[3]}}, '2', kGroup2) {}

void ScalingPage::Wire() {
    WireGroup(Group1);
    WireGroup(Group2);
    WireDecimalPoints();
    WireCurve();
    WireBatch();
    for (int level = 0; level < kLevels; ++level) {
        Bind({TrigSlpA.Inner[level], Field::TriggerSlopeA});
        if (Resoln.Inner.Has(level)) Bind({Resoln.Inner[level], Field::Resolution});
    }
    for (int i = 0; i <= kSecondItemSlopeB; ++i) Bind({TrigSlpB.Inner[i], Field::TriggerSlopeB});
    for (int level = 0; level < 2; ++level) {
        Bind({Rd0In.Inner[level], Field::Read0In},
             [this](Control& box) { OpenEntry(box, Field::Read0In, true); });
    }
}

void ScalingPage::WireGroup(ScalingGroup& group) {
    const GroupFields& fields = group.Fields;
    for (int level = 0; level < kLevels; ++level) {
        const Binding plain[] = {
            {group.Scale.Inner[level], fields.Scale}, {group.Mult.Inner[level], fields.Mult},
            {group.LoIn.Inner[level], fields.LoIn},   {group.LoRd.Inner[level], fields.LoRd},
            {group.HiIn.Inner[level], fields.HiIn},   {group.HiRd.Inner[level], fields.HiRd},
        };
        Bind(plain);
        Bind({group.optScale[level], fields.Form, kScaleForm},
             [this, &group](Control&) { PickForm(group, kScaleForm); });
        Bind({group.optCoord[level], fields.Form, kCoordinatesForm},
             [this, &group](Control&) { PickForm(group, kCoordinatesForm); });
    }
    WireOffset(group);
}

// Seconds are entered as a clock value in Offset 1 alone, though both offsets show them so: required.
void ScalingPage::WireOffset(ScalingGroup& group) {
    bool first = &group == &Group1;
    for (int level = 0; level < kLevels; ++level) {
        Bind({group.Offset.Inner[level], group.Fields.Offset}, [this, &group, first](Control& box) {
            if (Values().DisplayType == DisplayType::Clock) Values().TimeEntry = kPlainTime;
            if (first && Values().ClockMode == DisplayType::Clock) Values().TimeEntry = kSeconds;
            OpenEntry(box, group.Fields.Offset);
        });
    }
}

void ScalingPage::PickForm(ScalingGroup& group, int form) {
    PutCode(Image(), group.Fields.Form, form);
    ScaleCoord();
}

void ScalingPage::ScaleCoord() {
    SetupView::Quiet quiet(View);
    bool scale1 = ShowForm(Group1);
    if (IsRateBatch(Values()) && scale1) Group1.optCoord[Level()].Enabled = false;
    bool scale2 = ShowForm(Group2);
    if (IsVfMode(Values().ModeIndex) && scale2) Group2.optCoord[Level()].Enabled = false;

    Values().DecPt1 = ShownPoint(Values().DecPt1);
    ShowTexts(Group1);
    ShowTexts(Group2);
    for (ScalingGroup* group : {&Group1, &Group2}) {
        MarkImpossible(*group);
        ShowClockOffset(*group);
    }

    MultiplierFill(Group1.Mult.Inner[Level()]);
    if (!View.LetUserAct(kBetweenListsMs)) return;
    MultiplierFill(Group2.Mult.Inner[Level()]);
    Show(Group1.Mult.Inner[Level()], Field::Multiplier1);
    Show(Group2.Mult.Inner[Level()], Field::Multiplier2);
}

// Enables the form that is stored, or none while a curve is in force; both stay on show. True for Scale.
bool ScalingPage::ShowForm(ScalingGroup& group) {
    int level = Level();
    bool curve = CurveChosen() && curveInForce_;
    bool coordinates = !curve && CodeOf(Image(), group.Fields.Form) == kCoordinatesForm;
    bool scale = !curve && !coordinates;
    group.optScale[level].Enabled = group.optCoord[level].Enabled = !curve;
    for (FramedArray<4>* pair : {&group.Scale, &group.Mult, &group.Offset})
        pair->Frame[level].Enabled = pair->Inner[level].Enabled = scale;
    for (FramedArray<4>* pair : {&group.LoIn, &group.LoRd, &group.HiIn, &group.HiRd})
        pair->Frame[level].Enabled = pair->Inner[level].Enabled = coordinates;
    group.optScale[level].Value = scale ? 1 : 0;
    group.optCoord[level].Value = coordinates ? 1 : 0;
    return scale;
}

void ScalingPage::ShowTexts(ScalingGroup& group) {
    int level = Level();
    const GroupFields& fields = group.Fields;
    group.Scale.Inner[level].Text = TextOf(fields.Scale);
    group.Offset.Inner[level].Text =
        TextOf(fields.Offset, Values().ClockMode == DisplayType::Clock ? kSeconds : 0);
    Values().TimeEntry = 0;  // a digit entry that was cancelled has left it
    group.LoIn.Inner[level].Text = TextOf(fields.LoIn);
    group.LoRd.Inner[level].Text = TextOf(fields.LoRd);
    group.HiIn.Inner[level].Text = TextOf(fields.HiIn);
    group.HiRd.Inner[level].Text = TextOf(fields.HiRd);
}

// Coordinates can't make a clock value; they are marked and nothing is prevented.
void ScalingPage::MarkImpossible(ScalingGroup& group) {
    int level = Level();
    bool impossible = Values().DisplayType == DisplayType::Clock && !group.Scale.Inner[level].Enabled;
    for (FramedArray<4>* pair : {&group.LoIn, &group.LoRd, &group.HiIn, &group.HiRd})
        pair->Inner[level].BackColor = impossible ? ColorRed : ColorWhite;
}

void ScalingPage::ShowClockOffset(ScalingGroup& group) {
    if (Values().DisplayType != DisplayType::Clock) return;
    std::string& text = group.Offset.Inner[Level()].Text;
    text = AddClkDP(WithoutBlanksAndPoints(text));
}

// The Resolution is selected whichever list this is; the multipliers get their own selection afterwards.
void ScalingPage::MultiplierFill(Control& list) {
    Form::Fill(list, lists::kMultiplier);
    Show(list, Field::Resolution);
}

void ScalingPage::SlopeListFill(Control& list) {
    Form::Fill(list, lists::kSlope);
}

void ScalingPage::RefreshSlopeA() {
    Control& list = TrigSlpA.Inner[Level()];
    SlopeListFill(list);
    Show(list, Field::TriggerSlopeA);
    Form::SetFrameActive(TrigSlpA.Frame[Level()], list, Values().InputOption < InputBoard::VfConverter);
}

void ScalingPage::RefreshSlopeB() {
    auto show = [this](int element) {
        TrigSlpB.Frame[element].Visible = true;
        SlopeListFill(TrigSlpB.Inner[element]);
        Show(TrigSlpB.Inner[element], Field::TriggerSlopeB);
    };
    const DerivedValues& values = Values();
    TrigSlpB.Frame[Level()].Visible = false;
    if (Level() == 0) TrigSlpB.Frame[kSecondItemSlopeB].Visible = false;
    if (Level() == 0 && (values.ModeWord & kWordTwoItems) != 0) {
        show(kSecondItemSlopeB);
    } else if (Level() == 0 && (values.ModeWord & kWordInnerSlopeB) != 0) {
        show(0);
    }
    if (Level() == 1 && values.FunctionIndex == Function::BTotalARate) show(1);
    if (Level() == 2) show(2);
    if (values.ModeIndex == Mode::Stopwatch && values.FunctionIndex == Function::StopwatchInverseAToB)
        show(0);
}

void ScalingPage::Read0InRefresh() {
    Control& frame = Rd0In.Frame[Level()];
    frame.Visible = (Values().ModeWord & 0xFF) != 0;
    if (!frame.Visible) return;
    Rd0In.Inner[Level()].Text = TextOf(Field::Read0In);
    bool used = CodeOf(Image(), Field::SquareRoot) == 1 || CurveChosen();
    frame.Enabled = Rd0In.Inner[Level()].Enabled = used;
}

}  // namespace counter
