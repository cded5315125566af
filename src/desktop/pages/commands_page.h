// CommandsPage: hand work on a live meter, in three columns.
#pragma once

#include "commands/commands_view.h"
#include "desktop/kit/binder.h"
#include "desktop/kit/status_strip.h"
#include "desktop/kit/view_page.h"

class QGroupBox;

namespace counter {

class CommandsPage : public ViewPage {
  public:
    CommandsPage(CommandsView& view, QWidget* parent);

    QString Title() const override;
    void HelpKey() override { AskHelp(3104); }
    void ComeToFront() override;
    void PutAway() override { view_.Unload(); }
    void Leave() override { view_.Controls.Click(view_.cmdOK); }
    QWidget* FirstFocus() override { return bound_.WidgetOf(view_.cmdItem1); }

    // From behind the curve dialog.
    void ComeBack() { view_.Activate(); }

  private:
    void Read();
    QGroupBox* AddGroup(Control& caption);
    QWidget* Readings();
    QWidget* Resets();
    QWidget* RemoteDisplay();
    QWidget* Curve();

    CommandsView& view_;
    Binder bound_;
    StatusStrip* strip_;
};

}  // namespace counter
