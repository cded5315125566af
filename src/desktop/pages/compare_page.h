// ComparePage: the setup in memory beside another one, as a table.
#pragma once

#include "compare/compare_view.h"
#include "desktop/kit/binder.h"
#include "desktop/kit/status_strip.h"
#include "desktop/kit/view_page.h"

class QTableWidget;

namespace counter {

class ComparePage : public ViewPage {
  public:
    ComparePage(CompareView& view, QWidget* parent);
    ~ComparePage() override;

    QString Title() const override;
    void ComeToFront() override { view_.Activate(); }
    void PutAway() override { view_.PutAway(); }
    void Leave() override { view_.Controls.Click(view_.cmdMainMenu); }
    void HelpKey() override { AskHelp(CompareView::kHelpNumber); }
    QWidget* FirstFocus() override { return bound_.WidgetOf(view_.cmdFile); }

  private:
    QWidget* MakeChoices();
    void MakeTable();
    void ShowAll();
    void ShowRows();
    void TellMarks();

    CompareView& view_;
    Binder bound_;
    StatusStrip* strip_;
    QTableWidget* table_;
    std::vector<std::vector<std::string>> shown_;
};

}  // namespace counter
