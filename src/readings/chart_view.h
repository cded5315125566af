// ChartView: what the Plot and Graph views share - the chart, the scale entry and the buttons.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "platform/chart_surface.h"
#include "readings/chart_labels.h"
#include "readings/reading_view.h"

namespace counter {

// The third number of a scale, beside the middle and the small division.
struct ThirdNumber {
    std::string_view EntryName;
    std::string_view LabelName;
    std::string_view Label;
};

class ChartView : public ReadingView {
  public:
    // The view opens with the scale entry.
    void Activate() override;

    ChartSurface Chart;
    // Writes the chart as a BMP file, replacing one that is there; may be empty.
    std::function<Status(const std::string& path)> SaveBitmap;

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
    // clang-format on

  protected:
    // Clears the chart and runs with the scale as it is in the entries.
    virtual void Run() = 0;
    // Why OK refuses the third number; empty where it doesn't.
    virtual std::string ObjectionToThird() const { return NoNumber(lblThird, txtThird); }
    // What the axes span: "Values from 1. to 5., ...".
    virtual std::string RangeText() const = 0;
    // A reading of the item that is looked at.
    virtual void TakeValue(double value) = 0;
    virtual void PressPause() = 0;
    virtual void PressContinue() = 0;

    ValueScale TypedScale() const { return ReadValueScale(txtMidVal.Text, txtSmallVal.Text); }
    void Reset() override;
    void TakeReading(const std::string& text, bool onlySizes) override;

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
    void SendEnd() override;
};

}  // namespace counter
