// SetupPage: the Setup view in the program's window, its seven pages under tabs, and its digit entry.
#pragma once

#include <QTabBar>
#include <QTabWidget>
#include <QVBoxLayout>
#include <functional>

#include "desktop/kit/binder.h"
#include "desktop/kit/view_page.h"
#include "desktop/pages/changes_list.h"
#include "desktop/pages/digit_entry_dialog.h"
#include "desktop/pages/setup_layout.h"

namespace counter {

class SetupPage : public ViewPage {
  public:
    // Loads the view.
    SetupPage(SetupView& view, QWidget* parent);
    ~SetupPage() override;

    // The home view, for which this page is put away; may be empty. Help over this page ends in HelpClosed.
    std::function<void()> ShowMainMenu;
    // The setup in memory may have changed; may be empty.
    std::function<void()> Acted;
    // The setup that was in memory before comes back; may be empty.
    std::function<void()> GoBack;
    // Brings the user to the control of a field, or tells why it can't be come to.
    void ComeToField(Field field);

    QString Title() const override { return QStringLiteral("Setup"); }
    // Rebuilds the view from the image.
    void ComeToFront() override;
    // Ends the Read loop, and an open digit entry without a trace.
    void PutAway() override;
    void Leave() override;
    void HelpKey() override { view_.HelpKey(); }
    QWidget* FirstFocus() override { return tabs_->tabBar(); }
    // The view is rebuilt and comes back to the page on which help was asked for.
    void HelpClosed();

    const SetupView& View() const { return view_; }
    const Binder& Bound() const { return bound_; }
    DigitEntryDialog& Entry() { return *dialog_; }

  protected:
    void changeEvent(QEvent* event) override;

  private:
    void AddPages();
    void AddPage(void (*layOut)(SetupLayout&, QWidget*), std::string_view caption);
    QWidget* MakeFoot();
    void Connect();
    void ShowAll();
    void ShowTabs();
    void ShowWhy();
    void OfferChanges(QVBoxLayout* column);
    void MakeChanges(QVBoxLayout* column);
    void ShowChanges();
    void MoveFocus(const Control& control);
    void OpenEntry();
    void CloseEntry();
    void DropEntry();
    void Unmark();

    SetupView& view_;
    Binder bound_;
    SetupLayout layout_;
    DigitEntry entry_;
    QTabWidget* tabs_;
    DigitEntryDialog* dialog_;
    ChangesList* changes_ = nullptr;  // made when it is wanted first
    QPushButton* cmdChanges_;
    Control* edited_ = nullptr;  // the field of the digit entry that was opened last
    Control* wanted_ = nullptr;  // the one to come after it
    bool showingTabs_ = false;
};

}  // namespace counter
