// HomePage: the home view in the program's window; its menu is the window's.
#pragma once

#include <QMenuBar>

#include "desktop/kit/binder.h"
#include "desktop/kit/status_strip.h"
#include "desktop/kit/view_page.h"
#include "shell/home_view.h"

namespace counter {

class HomePage : public ViewPage {
  public:
    HomePage(HomeView& view, QWidget* parent);
    ~HomePage() override;

    // For the window; belongs to it once it is set there.
    QMenuBar* MenuBar() { return menu_; }

    QString Title() const override;
    void ComeToFront() override;
    void PutAway() override {}
    void Regain() override { view_.FollowChanges(); }
    void Leave() override { view_.Exit(); }
    void HelpKey() override { view_.HelpKey(); }
    QWidget* FirstFocus() override;

  private:
    void AddMenu();
    QMenu* AddHeading(Control& heading);
    QAction* AddEntry(Control& entry, QMenu& under, bool opensView);
    void AddRecent(QMenu& under);
    void AddText();
    void ShowText();

    HomeView& view_;
    Binder bound_;
    QMenuBar* menu_;
    QWidget* textArea_;
    StatusStrip* strip_;
};

}  // namespace counter
