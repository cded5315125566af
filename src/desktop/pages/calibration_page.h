// CalibrationPage: the calibration procedure, step by step.
#pragma once

#include "calibration/calibration_view.h"
#include "desktop/kit/binder.h"
#include "desktop/kit/view_page.h"

namespace counter {

class CalibrationPage : public ViewPage {
  public:
    CalibrationPage(CalibrationView& view, QWidget* parent);

    QString Title() const override;
    void HelpKey() override { AskHelp(1210); }
    void ComeToFront() override { view_.Activate(); }
    void PutAway() override { view_.Unload(); }
    // While the procedure runs, the page can't be left.
    void Leave() override;
    QWidget* FirstFocus() override { return bound_.WidgetOf(view_.txtFreq); }

  private:
    CalibrationView& view_;
    Binder bound_;
};

}  // namespace counter
