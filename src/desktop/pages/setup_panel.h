// SetupPanel: beside the pages of the Setup view, what there is to know about the field that had the focus
// last, and a live value of Item 1.
//
// It is filled when there is nothing else to do, so that no page is slower for it.
#pragma once

#include <QCheckBox>
#include <QLabel>
#include <QTextEdit>
#include <QVBoxLayout>
#include <functional>
#include <optional>
#include <string>

#include "setup_view/control_facts.h"
#include "setup_view/live_value.h"
#include "setup_view/setup_view.h"

namespace counter {

class SetupPanel : public QWidget {
  public:
    static constexpr int kColumns = 38;  // of its text, in average letters

    SetupPanel(SetupView& view, LiveValue& live, QWidget* parent);

    // The text of a help number, with its marks of emphasis; empty for none. Either may be empty.
    std::function<std::string(int helpNumber)> HelpText;
    // The setup as it came with the last Get; null before the first.
    std::function<const SetupImage*()> MeterSetup;

    // From now on it tells about this control.
    void TellOf(const Control& control);
    // What it tells may have changed.
    void Refresh();
    // Its width, in the font that it has.
    int Width() const;

  private:
    void AddLive(QVBoxLayout& column);
    void Fill();
    void ShowLive();

    SetupView& view_;
    LiveValue& live_;
    QTextEdit* txtFacts_;
    QCheckBox* chkLive_;
    QLabel* lblLive_;
    QLabel* lblTrouble_;
    const Control* told_ = nullptr;
    std::optional<ControlFacts> facts_;  // as they are shown
    int helpShown_ = 0;
    bool filling_ = false;
};

}  // namespace counter
