// SheetPage: the sheet of the setup in memory as it will be printed, and the ways to paper and files.
#pragma once

#include "desktop/kit/binder.h"
#include "desktop/kit/status_strip.h"
#include "desktop/kit/view_page.h"
#include "sheet/sheet_view.h"

class QTextBrowser;

namespace counter {

class SheetPage : public ViewPage {
  public:
    SheetPage(SheetView& view, QWidget* parent);
    ~SheetPage() override;

    QString Title() const override;
    void ComeToFront() override { view_.Activate(); }
    void PutAway() override {}
    void Leave() override { view_.Controls.Click(view_.cmdMainMenu); }
    void HelpKey() override { AskHelp(SheetView::kHelpNumber); }
    QWidget* FirstFocus() override { return bound_.WidgetOf(view_.cmdPrint); }

  private:
    void ShowAll();

    SheetView& view_;
    Binder bound_;
    StatusStrip* strip_;
    QTextBrowser* sheet_;
    std::string shown_;
};

}  // namespace counter
