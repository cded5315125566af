// ChartView: what the Plot and Graph views share - the chart, the scale entry and the buttons.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/chart_surface.h"
#include "readings/auto_scale.h"
#include "readings/chart_labels.h"
#include "readings/close_look.h"
#include "readings/kept_scales.h"
#include "readings/reading_view.h"
#include "readings/setpoints.h"

namespace counter {

// The third number of a scale, beside the middle and the small division.
struct ThirdNumber {
    std::string_view View;
    std::string_view EntryName;
    std::string_view LabelName;
    std::string_view Label;
    std::string_view Usual;  // what Auto takes where nothing is typed
};

class ChartView : public ReadingView, public CloseLook {
  public:
    // The view opens with the scale entry.
    void Activate() override;

    ChartSurface Chart;
    // Writes the chart as a BMP file, replacing one that is there; may be empty.
    std::function<Status(const std::string& path)> SaveBitmap;
    // Writes it as a picture of the kind that the name ends in; may be empty.
    std::function<Status(const std::string& path)> SavePicture;

    bool AtRest() const override;
    void DrawMarks(ChartSurface& chart, const ChartWindow& window) const override;

    // For those who can't see the chart: its state, the last reading, what the axes span.
    std::string Describe() const;
    // For the head of a print: "Mid-Scale Value 500, ...", of the run.
    std::string ScaleText() const;
    bool ScaleEntryOpen() const { return cmdOK.Visible; }

  protected:
    ChartView(Session& session, const ThirdNumber& third);

  private:
    ThirdNumber third_;

  public:
    // clang-format off
    Control& Picture1    = Build.Add(ControlKind::Picture, nullptr, "Picture1");
    Control& lblMidVal   = Build.Add(ControlKind::Label,   nullptr, "lblMidVal",   "Mid-Scale Value");
    Control& txtMidVal   = Build.Add(ControlKind::Entry,   nullptr, "txtMidVal");
    Control& lblSmallVal = Build.Add(ControlKind::Label,   nullptr, "lblSmallVal", "Small Division Value");
    Control& txtSmallVal = Build.Add(ControlKind::Entry,   nullptr, "txtSmallVal");
    Control& lblThird    = Build.Add(ControlKind::Label,   nullptr, third_.LabelName, third_.Label);
    Control& txtThird    = Build.Add(ControlKind::Entry,   nullptr, third_.EntryName);
    Control& cmdOK       = Build.Add(ControlKind::Button,  nullptr, "cmdOK",       "OK");
    Control& cmdNewScale = Build.Add(ControlKind::Button,  nullptr, "cmdNewScale", "New Scale");
    Control& cmdPause    = Build.Add(ControlKind::Button,  nullptr, "cmdPause",    "Pause");
    Control& cmdContinue = Build.Add(ControlKind::Button,  nullptr, "cmdContinue", "Continue");
    Control& cmdSave     = Build.Add(ControlKind::Button,  nullptr, "cmdSave",     "Save");
    Control& cmdPrint    = Build.Add(ControlKind::Button,  nullptr, "cmdPrint",    "Print");
    Control& cmdEnd      = Build.Add(ControlKind::Button,  nullptr, "cmdEnd",      "End");
    Control& lblStatus   = Build.Add(ControlKind::Label,   nullptr, "lblStatus");

    // In the scale entry: the three numbers by the latest readings, or as they were last.
    Control& cmdAuto     = Build.Add(ControlKind::Button,  nullptr, "cmdAuto",     "Auto");
    Control& cmdLast     = Build.Add(ControlKind::Button,  nullptr, "cmdLast",     "Last");
    Control& chkSetpoints = Build.Add(ControlKind::Check,  nullptr, "chkSetpoints", "Setpoints");
    Control& cmdPicture  = Build.Add(ControlKind::Button,  nullptr, "cmdPicture",  "Save As Picture");
    // clang-format on

    // How the chart is looked at, beside the buttons; in the order in which they stand.
    std::vector<Control*> Options = {&chkSetpoints};

  protected:
    // Clears the chart and runs with the scale as it is in the entries.
    void Run();
    // Clears the chart and everything drawn so far is forgotten; the readings go on.
    virtual void DrawAnew() = 0;
    // The same in the middle of a run, for another item: its time goes on.
    virtual void DrawOn() { DrawAnew(); }
    // A reading came that has no value of the item.
    virtual void PassBy() {}
    // Why OK refuses the third number; empty where it doesn't.
    virtual std::string ObjectionToThird() const { return NoNumber(lblThird, txtThird); }
    // What the axes span: "Values from 1. to 5., ...".
    virtual std::string RangeText() const = 0;
    // How many small divisions an automatic scale is to fill.
    virtual int AutoDivisions() const = 0;
    // Where a value lies in the data area, and whether it is a height or a place in the width.
    virtual double PartOfValue(double value) const = 0;
    virtual bool ValuesGoUp() const = 0;
    // A reading of the item that is looked at.
    virtual void TakeValue(double value) = 0;
    virtual void PressPause() = 0;
    virtual void PressContinue() = 0;

    ValueScale TypedScale() const { return ReadValueScale(txtMidVal.Text, txtSmallVal.Text); }
    void Reset() override;
    void TakeReading(const std::string& text, bool onlySizes) override;
    // What is looked at is another thing: a run begins anew, one that is held does so when it goes on.
    void RunAnew();
    void OnPick(Control& list, std::function<void()> action);

  private:
    enum class Filling { NineBlanks, AsItStands };
    // Why OK is refused, and what the user is to change; nothing where it isn't.
    struct Refused {
        std::string Text;
        Control* Entry = nullptr;
    };
    Refused Objection();
    static std::string NoNumber(const Control& label, const Control& entry);
    std::string TakenAs() const;
    void Wire();
    void LeadOn(Control& entry, Control& next);
    void OpenScaleEntry(Filling filling);
    void ShowScaleEntry(bool shown);
    void PressNewScale();
    void PressOK();
    void PressSave();
    void PressAuto();
    void PressLast();
    void PressPicture();
    void FillEntries(const ScaleTexts& texts);
    void ItemChosen() override;
    void PickSetpoints();
    std::vector<ShownSetpoint> Setpoints() const;
    void SendEnd() override;

    RecentReadings recent_;
    ScaleTexts kept_;        // the scale that the view was last run with
    bool runsAnew_ = false;  // the next Continue begins a new run
};

}  // namespace counter
