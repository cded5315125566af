// NodePage: what the window shows until the Ethernet node has called back, with a way out of waiting.
#pragma once

#include "desktop/kit/view_page.h"
#include "shell/home_view.h"
#include "shell/node_view.h"

class QLabel;

namespace counter {

class NodePage : public ViewPage {
  public:
    // It is in the place of the home view and has its title.
    NodePage(NodeView& view, HomeView& home, QWidget* parent);
    ~NodePage() override;

    QString Title() const override;
    void HelpKey() override { AskHelp(kNodeHelpTopic); }
    // Logs in, once.
    void ComeToFront() override { view_.Activate(); }
    void PutAway() override {}
    void Leave() override { home_.Exit(); }
    QWidget* FirstFocus() override { return quit_; }

  private:
    NodeView& view_;
    HomeView& home_;
    QLabel* text_;
    QWidget* quit_;
};

}  // namespace counter
