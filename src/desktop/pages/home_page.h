// HomePage: the home view in the program's window; its menu is the window's.
#pragma once

#include <QMenuBar>
#include <QVBoxLayout>

#include "desktop/kit/binder.h"
#include "desktop/kit/status_strip.h"
#include "desktop/kit/view_page.h"
#include "desktop/pages/changes_list.h"
#include "desktop/pages/facts_block.h"
#include "shell/home_view.h"

namespace counter {

class HomePage : public ViewPage {
  public:
    HomePage(HomeView& view, const Session& session, QWidget* parent);
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

    // A field in the list of changes; may be empty.
    std::function<void(Field)> FieldChosen;
    // What stands below the text, where it is on show.
    void ShowFacts();

  private:
    void AddMenu();
    QMenu* AddHeading(Control& heading);
    QAction* AddEntry(Control& entry, QMenu& under, bool opensView);
    void AddRecent(QMenu& under);
    void AddText();
    void ShowText();
    void MakeChanges();

    HomeView& view_;
    Binder bound_;
    QMenuBar* menu_;
    QWidget* textArea_;
    StatusStrip* strip_;
    const Session& session_;
    FactsBlock* facts_;
    ChangesList* changes_ = nullptr;  // made when there is a setup
    QVBoxLayout* column_ = nullptr;   // of what scrolls
};

}  // namespace counter
