#include "readings/chart_view.h"

#include "link/latest_cutter.h"
#include "meter/leading_number.h"
#include "meter/text.h"

namespace counter {

namespace {

std::string_view WordOf(RunState state) {
    switch (state) {
        case RunState::Stopped:
            return "Stopped";
        case RunState::Starting:
            return "Starting";
        case RunState::Running:
            return "Running";
        case RunState::Silent:
            return "No readings come";
        case RunState::Paused:
            return "Paused";
        case RunState::Full:
            return "Full";
    }
    return {};
}

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
    OnPress(cmdPause, [this] {
        if (!ScaleEntryOpen()) PressPause();
    });
    OnPress(cmdContinue, [this] {
        if (!ScaleEntryOpen()) PressContinue();
    });
    OnPress(cmdSave, [this] { PressSave(); });
    OnPress(cmdPrint, [this] { PressPrint(); });
    OnPress(cmdEnd, [this] { PressEnd(); });
}

void ChartView::LeadOn(Control& entry, Control& next) {
    Controls.OnEnter(entry, [this, &next](Control&) { Controls.SetFocus(next); });
}

void ChartView::Reset() {
    Chart.Clear();
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
    ShowScaleEntry(true);
    TellStatus("");
    Controls.TellChanged();  // what gets the focus must be on show
    Controls.SetFocus(txtMidVal);
}

void ChartView::ShowScaleEntry(bool shown) {
    for (Control* control :
         {&lblMidVal, &txtMidVal, &lblSmallVal, &txtSmallVal, &lblThird, &txtThird, &cmdOK})
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
    Run();
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
    if (value) TakeValue(*value);
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
