// ChartPage: the strip chart or the histogram, with its scale entry.
#pragma once

#include "desktop/kit/binder.h"
#include "desktop/kit/chart_widget.h"
#include "desktop/kit/paper_page.h"
#include "desktop/kit/status_strip.h"
#include "desktop/kit/view_page.h"
#include "desktop/pages/chart_explorer.h"
#include "readings/chart_view.h"

namespace counter {

class ChartPage : public ViewPage, public PaperPage {
  public:
    ChartPage(ChartView& view, std::string_view title, QWidget* parent);
    ~ChartPage() override;

    QString Title() const override;
    void HelpKey() override { AskHelp(3105); }
    void ComeToFront() override;
    void PutAway() override { view_.Unload(); }
    // The chart as lines and letters, under a head of title, date, meter and scale.
    PaperWork OnPaper() override;
    void Leave() override { view_.Controls.Click(view_.cmdEnd); }

  private:
    void NameChart();
    void AddScaleEntry(class QVBoxLayout& column);
    QHBoxLayout* MakeOptions();
    void Explain();

    ChartView& view_;
    const QString title_;
    Binder bound_;
    ChartWidget* chart_;
    ChartExplorer explorer_;
    StatusStrip* strip_;
    QString described_;  // what a reader of the screen was last told of the state
};

}  // namespace counter
