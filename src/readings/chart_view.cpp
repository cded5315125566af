#include "readings/chart_view.h"

#include "link/latest_cutter.h"

namespace counter {

ChartView::ChartView(Session& session, const ThirdNumber& third)
    : ReadingView(session, std::make_unique<LatestCutter>(session.Frames)), third_(third) {
    StatusLine = &lblStatus;
    Wire();
}

void ChartView::Wire() {
    LeadOn(txtMidVal, txtSmallVal);
    LeadOn(txtSmallVal, txtThird);
    LeadOn(txtThird, cmdOK);
    Controls.OnGotFocus(cmdNewScale, [this](Control&) {
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
    OpenScaleEntry(ScaleEntryOpen() ? Filling::AsItStands : Filling::NineBlanks);
}

void ChartView::PressOK() {
    if (const std::string objection = Objection(); !objection.empty()) {
        TellStatus(objection);
        Controls.SetFocus(txtThird);
        return;
    }
    ShowScaleEntry(false);
    TellStatus("");
    Controls.TellChanged();
    Controls.SetFocus(cmdPause);
    Run();
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
