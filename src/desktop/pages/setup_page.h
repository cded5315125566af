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
#include "desktop/pages/field_finder.h"
#include "desktop/pages/setup_layout.h"
#include "desktop/pages/setup_panel.h"

namespace counter {

class SetupPage : public ViewPage {
  public:
    // Loads the view.
    SetupPage(SetupView& view, QWidget* parent);
    ~SetupPage() override;

    // The home view, for which this page is put away; may be empty. Help over this page ends in HelpClosed.
    std::function<void()> ShowMainMenu;
    // For the panel and the search: the text of a help number, with its marks of emphasis; may be empty.
    std::function<std::string(int helpNumber)> HelpText;
    // For the panel: the setup as it came with the last good Get, null before it; may be empty.
    std::function<const SetupImage*()> MeterSetup;
    // The setup in memory may have changed; may be empty.
    std::function<void(bool changed)> Acted;
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

    // A transfer under way keeps the way back to the setup before shut.
    void FollowTransfers();

    const SetupView& View() const { return view_; }
    const Binder& Bound() const { return bound_; }
    DigitEntryDialog& Entry() { return *dialog_; }

  protected:
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void AddPages();
    void AddPage(void (*layOut)(SetupLayout&, QWidget*), std::string_view caption);
    QWidget* MakeFoot();
    QPushButton* AddTool(QHBoxLayout& foot, const char* name, const QString& caption,
                         const QKeySequence& key);
    void ConnectTools();
    void Connect();
    void TellOfField(const QWidget* widget);
    void PlacePanel();
    bool PanelWanted() const;
    void MakePanel();
    void ComeToSearch();
    void GoTo(const Control& control);
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
    QHBoxLayout* beside_;  // the pages, and what is beside them
    QPushButton* cmdFind_ = nullptr;
    QPushButton* cmdPanel_ = nullptr;
    SetupPanel* panel_ = nullptr;    // made when it is first shown
    FieldFinder* finder_ = nullptr;  // likewise
    LiveValue live_;
    std::optional<bool> panelWished_;  // by the button; none: where no page would need more room for it
    bool placing_ = false;
    ChangesList* changes_ = nullptr;  // made when it is wanted first
    QPushButton* cmdChanges_;
    Control* edited_ = nullptr;  // the field of the digit entry that was opened last
    Control* wanted_ = nullptr;  // the one to come after it
    bool showingTabs_ = false;
};

}  // namespace counter
