// ListPage: the readings as a running table.
#pragma once

#include "desktop/kit/binder.h"
#include "desktop/kit/status_strip.h"
#include "desktop/kit/view_page.h"
#include "readings/list_view.h"

namespace counter {

class ReadingGrid;

class ListPage : public ViewPage {
  public:
    ListPage(ListView& view, QWidget* parent);
    ~ListPage() override;

    QString Title() const override;
    void HelpKey() override { AskHelp(3105); }
    void ComeToFront() override;
    void PutAway() override { view_.Unload(); }
    void Leave() override { view_.Controls.Click(view_.cmdEnd); }

  protected:
    // The table takes no input: a press beside it is a beep as well.
    void mousePressEvent(QMouseEvent* event) override;

  private:
    ListView& view_;
    Binder bound_;
    ReadingGrid* grid_;
    StatusStrip* strip_;
};

}  // namespace counter
