#include "readings/chart_view.h"

#include <utility>

#include "link/latest_cutter.h"
#include "meter/leading_number.h"
#include "meter/text.h"

namespace counter {

namespace {

// Labels of setpoints stand below one another, so that two that are close can both be read.
constexpr double kLabelPitch = 0.06;  // of the data area's height
constexpr double kLabelGap = 12;      // units between an upright line and its label

}  // namespace

ChartView::ChartView(Session& session, const ThirdNumber& third)
    : ReadingView(session, std::make_unique<LatestCutter>(session.Frames)), third_(third) {
    StatusLine = &lblStatus;
    Wire();
}

void ChartView::Wire() {
    LeadOn(txtMidVal, txtSmallVal);
    LeadOn(txtSmallVal, txtThird);
    LeadOn(txtThird, cmdOK);
    // Who only passes by with the Tab key keeps his run.
    Controls.OnPickedFocus(cmdNewScale, [this](Control&) {
        if (Acts()) OpenScaleEntry(Filling::NineBlanks);
    });
    OnPress(cmdNewScale, [this] { PressNewScale(); });
    OnPress(cmdOK, [this] { PressOK(); });
    // A scale entry is left by OK, by a new one or by the end of the view.
    OnPick(chkSetpoints, [this] { PickSetpoints(); });
    OnPress(cmdAuto, [this] { PressAuto(); });
    OnPress(cmdLast, [this] { PressLast(); });
    OnPress(cmdPicture, [this] { PressPicture(); });
    OnPress(cmdPause, [this] {
        if (!ScaleEntryOpen()) PressPause();
    });
    OnPress(cmdContinue, [this] {
        if (ScaleEntryOpen()) return;
        if (std::exchange(runsAnew_, false)) {
            Run();
        } else {
            PressContinue();
        }
    });
    OnPress(cmdSave, [this] { PressSave(); });
    OnPress(cmdPrint, [this] { PressPrint(); });
    OnPress(cmdEnd, [this] { PressEnd(); });
}

void ChartView::LeadOn(Control& entry, Control& next) {
    Controls.OnEnter(entry, [this, &next](Control&) { Controls.SetFocus(next); });
}

void ChartView::OnPick(Control& list, std::function<void()> action) {
    Controls.On(list, [this, act = std::move(action)](Control&) {
        if (Acts()) act();
    });
}

void ChartView::Reset() {
    Chart.Clear();
    recent_.Clear();
    runsAnew_ = false;
    ShowScaleEntry(false);
}

// The focus comes to New Scale, which opens the scale entry and hands it on to the first number.
void ChartView::Activate() {
    ComeUp();
    Program.Port.SetRtsEnable(true);
    OpenScaleEntry(Filling::NineBlanks);
}

void ChartView::OpenScaleEntry(Filling filling) {
    StopRun();
    Chart.Clear();
    if (filling == Filling::NineBlanks)
        txtMidVal.Text = txtSmallVal.Text = txtThird.Text = std::string(9, ' ');
    kept_ = KeptScale(Program.Folder, third_.View);
    cmdLast.Enabled = kept_ != ScaleTexts();
    ShowScaleEntry(true);
    TellStatus("");
    Controls.TellChanged();  // what gets the focus must be on show
    Controls.SetFocus(txtMidVal);
}

void ChartView::ShowScaleEntry(bool shown) {
    for (Control* control : {&lblMidVal, &txtMidVal, &lblSmallVal, &txtSmallVal, &lblThird, &txtThird, &cmdOK,
                             &cmdAuto, &cmdLast})
        control->Visible = shown;
}

// Of a click the coming of the focus alone fills the entries; the click itself leaves what is typed.
void ChartView::PressNewScale() {
    const bool keeps = ScaleEntryOpen() || Controls.Focused() == &cmdNewScale;
    OpenScaleEntry(keeps ? Filling::AsItStands : Filling::NineBlanks);
}

void ChartView::PressOK() {
    if (const Refused refused = Objection(); refused.Entry) {
        TellStatus(refused.Text);
        Controls.TellChanged();
        Controls.SetFocus(*refused.Entry);
        return;
    }
    ShowScaleEntry(false);
    TellStatus(TakenAs());
    Controls.TellChanged();
    Controls.SetFocus(cmdPause);
    runsAnew_ = false;
    KeepScale(Program.Folder, third_.View,
              {std::string(Trimmed(txtMidVal.Text)), std::string(Trimmed(txtSmallVal.Text)),
               std::string(Trimmed(txtThird.Text))});
    Run();
}

void ChartView::FillEntries(const ScaleTexts& texts) {
    txtMidVal.Text = texts[0];
    txtSmallVal.Text = texts[1];
    txtThird.Text = texts[2];
    TellStatus("");
    Controls.TellChanged();
    Controls.SetFocus(cmdOK);
}

void ChartView::PressAuto() {
    const std::optional<ScaleNumbers> scale = AutoScale(recent_, AutoDivisions());
    if (!scale) {
        TellStatus("No reading has come in this view yet: let it run with any scale, then press New Scale.");
        return;
    }
    const bool typed = TypedNumber(txtThird.Text) != 0;
    const std::string third(typed ? Trimmed(txtThird.Text) : kept_[2].empty() ? third_.Usual : kept_[2]);
    FillEntries({scale->Mid, scale->Small, third});
}

void ChartView::PressLast() {
    FillEntries(kept_);
}

void ChartView::PressPicture() {
    if (!SavePicture) return;
    // The last of the kinds is what a name without one gets.
    const std::string path =
        Program.Dialogs.AskSaveFile({"Save As Picture", "Pictures|*.SVG *.BMP *.PNG", true});
    if (path.empty()) return;
    const Status status = SavePicture(path);
    TellStatus(status.Ok() ? "" : status.Text());
}

// Of another item the readings so far tell nothing.
void ChartView::ItemChosen() {
    recent_.Clear();
    if (ScaleEntryOpen() || Statistics.Readings == 0) return;  // nothing was drawn yet
    runsAnew_ = Stream.ReadingPaused == 1;
    if (!runsAnew_) DrawOn();
}

void ChartView::Run() {
    DrawAnew();
    Controls.TellChanged();
    if (Holds(StartRun())) Stream.Attach();
}

void ChartView::RunAnew() {
    if (ScaleEntryOpen()) return;
    runsAnew_ = Stream.ReadingPaused == 1;
    if (!runsAnew_) Run();
}

void ChartView::PickSetpoints() {
    TellStatus("");
    if (chkSetpoints.Value == 0) return;
    const std::vector<ShownSetpoint> setpoints = Setpoints();
    std::string beyond;
    for (const ShownSetpoint& setpoint : setpoints) {
        const double part = PartOfValue(setpoint.Value);
        if (!(part >= 0 && part <= 1))
            beyond += (beyond.empty() ? "Beyond the scale: SP" : ", SP") + std::to_string(setpoint.Alarm) +
                      " " + setpoint.Text;
    }
    if (!beyond.empty() && !ScaleEntryOpen()) TellStatus(beyond + ".");
    if (!setpoints.empty()) return;
    TellStatus(Program.Home.ViewEnabled
                   ? "No relay alarm of the setup in memory watches item " + std::to_string(Item) + "."
                   : "There is no setup in memory: get one from the meter or open a file first.");
}

std::vector<ShownSetpoint> ChartView::Setpoints() const {
    if (!Program.Home.ViewEnabled) return {};
    return SetpointsOf(Program.Image, Program.Identity.FirmwareVersion, Program.Identity.MeterType, Item);
}

bool ChartView::AtRest() const {
    const RunState state = State();
    return !ScaleEntryOpen() && (state == RunState::Paused || state == RunState::Full) && Spots() > 0;
}

void ChartView::DrawMarks(ChartSurface& chart, const ChartWindow& window) const {
    if (chkSetpoints.Value == 0 || ScaleEntryOpen()) return;
    const ChartScale area = DataArea();
    const auto x = [&](double part) { return area.Left + part * (area.Right - area.Left); };
    const auto y = [&](double part) { return area.Bottom + part * (area.Top - area.Bottom); };
    for (const ShownSetpoint& setpoint : Setpoints()) {
        const double whole = PartOfValue(setpoint.Value);
        const double at = ValuesGoUp() ? window.Up(whole) : window.Across(whole);
        if (!(at >= 0 && at <= 1)) continue;
        const std::string label = "SP" + std::to_string(setpoint.Alarm) + " " + setpoint.Text;
        ChartLine line{x(0), y(at), x(1), y(at), 2, LineStyle::Dashed, ChartInk::Setpoint};
        ChartText text{label, TextAnchor::Right, x(1), y(at), -2, ChartInk::Setpoint, true};
        if (!ValuesGoUp()) {
            const bool leftOf = at > 0.5;
            line = {x(at), y(0), x(at), y(1), 2, LineStyle::Dashed, ChartInk::Setpoint};
            text.Anchor = leftOf ? TextAnchor::Right : TextAnchor::Left;
            text.X = x(at) + (leftOf ? -kLabelGap : kLabelGap);
            text.Y = y(1 - kLabelPitch * (setpoint.Alarm - 1));
            text.HalfHeights = 0;
        }
        chart.Draw(line);
        chart.Draw(text);
    }
}

std::string ChartView::NoNumber(const Control& label, const Control& entry) {
    if (JudgeTyped(entry.Text) != Typed::NoNumber) return {};
    return label.Caption + " is no number: \"" + std::string(Trimmed(entry.Text)) + "\".";
}

ChartView::Refused ChartView::Objection() {
    if (const std::string text = NoNumber(lblMidVal, txtMidVal); !text.empty()) return {text, &txtMidVal};
    if (const std::string text = NoNumber(lblSmallVal, txtSmallVal); !text.empty())
        return {text, &txtSmallVal};
    if (const std::string text = ObjectionToThird(); !text.empty()) return {text, &txtThird};
    return {};
}

// A number is what a text begins with. Who typed more than one is told what was made of it.
std::string ChartView::TakenAs() const {
    const std::pair<const Control*, const Control*> entries[] = {
        {&lblMidVal, &txtMidVal}, {&lblSmallVal, &txtSmallVal}, {&lblThird, &txtThird}};
    std::string text;
    for (const auto& [label, entry] : entries) {
        if (JudgeTyped(entry->Text) != Typed::NumberAndMore) continue;
        text += (text.empty() ? "" : " ") + label->Caption + " \"" + std::string(Trimmed(entry->Text)) +
                "\" is taken as " + ShortNumber(AsTyped(TypedNumber(entry->Text))) + ".";
    }
    return text;
}

std::string ChartView::ScaleText() const {
    std::string text;
    for (const auto& [label, entry] :
         {std::pair(&lblMidVal, &txtMidVal), std::pair(&lblSmallVal, &txtSmallVal),
          std::pair(&lblThird, &txtThird)}) {
        const std::string_view typed = Trimmed(entry->Text);
        if (!typed.empty()) text += (text.empty() ? "" : ", ") + label->Caption + " " + std::string(typed);
    }
    return text;
}

std::string ChartView::Describe() const {
    if (ScaleEntryOpen()) return "The scale is being entered.";
    std::string text(WordOf(State()));
    if (const ItemFigures& figures = Statistics.Of(Item); figures.Count > 0)
        text += ". Last reading " + DecimalText(figures.Current, figures.Decimals);
    return text + ". " + RangeText() + ".";
}

// The first item is the eight characters that the stream is cut to; a frame may lack the others.
void ChartView::TakeReading(const std::string& text, bool) {
    const std::optional<double> value = Item == 1 ? LeadingNumber(text) : ItemValue(Item);
    if (!value) return PassBy();
    recent_.Add(*value, Statistics.Of(Item).Decimals);
    TakeValue(*value);
}

void ChartView::PressSave() {
    const std::string path = Program.Dialogs.AskSaveFile({"Save Graph As", ".BMP files (*.BMP)|*.BMP"});
    if (path.empty() || !SaveBitmap) return;
    const Status status = SaveBitmap(path);
    TellStatus(status.Ok() ? "" : status.Text());
}

void ChartView::SendEnd() {
    ReadingView::SendEnd();
    Chart.Clear();
}

}  // namespace counter
