// HomeView: frmMMenu, the view that lives for the whole run; every other view opens from its menu.
#pragma once

#include <array>
#include <functional>
#include <string>
#include <vector>

#include "controls/form.h"
#include "controls/page_builder.h"
#include "session/session.h"
#include "shell/home_menu.h"

namespace counter {

class HomeView {
  public:
    static constexpr std::string_view kTitle = "COUNTER MAIN  MENU";
    // On the status line, until what was called off has ended.
    static constexpr const char* kStopping = "Stopping after the frame in hand.";
    static constexpr std::string_view kSetupFilter = "Setup files (*.CT2)|*.CT2";

    explicit HomeView(Session& session);
    ~HomeView();
    HomeView(const HomeView&) = delete;
    HomeView& operator=(const HomeView&) = delete;

    // Of its window; through a node it tells the state of the connection.
    std::string Title{kTitle};

    // Once, before the first Activate.
    void Load();
    // The view comes to the front, also on return from another view.
    void Activate();
    // The window comes to the front, with this view in it: what another program has made of the settings
    // meanwhile is taken over, and the status line says so.
    void FollowChanges();
    // The text area, its buttons and the status line as they are at rest; for other views too.
    void RestoreScreen();
    // F1: help on what the user touched last.
    void HelpKey();
    // Asks before changes are lost. Settings written, port closed, process ended. Returns only where the end
    // has to wait for what is under way to be left in good order; then that calls it again, and so may an
    // impatient user: the second request is not held. What of a setup was written is told in a box, or where
    // the request comes from outside, by TellOutside.
    void Exit();
    void ExitFromOutside();
    // The setup that was in memory before the last one came is there again. Only where there is one.
    void GoBack();

    // The view that switches the link, over this one; a box where it can't be switched now. Only where there
    // is a hook for it.
    void OpenLink();
    // It has closed: what can be used follows the link.
    void FollowLink();

    // Stops what is under way between meter and memory at its next wait: a Get hands over nothing; a Put only
    // after a question that tells what went out.
    void CancelTransfer();
    // As Open does with the file that was chosen. One that can't be read is told on the status line.
    void OpenFile(const std::string& path);
    // The same with a backup, which Save then does not write over.
    void OpenBackup(const std::string& path);
    // That were opened or saved, the last one first.
    std::vector<std::string> RecentSetups() const;

    // The text area is at its full height, 6000 units of 1/1440 inch, otherwise at 2700.
    bool TallText() const { return tallText_; }

    // Hooks into what shows the view; each may be empty.
    std::function<void(ViewId)> Open;
    std::function<void()> CloseViews;                // those that were opened from here
    std::function<void(int helpNumber)> OpenHelp;    // over this view
    std::function<void()> PrepareStream;             // the stream's frame rules are asked of the meter
    std::function<void(Control& heading)> DropDown;  // the entries under a heading can be used now
    std::function<void(const std::string& title, const std::string& text)> ShowReport;  // to read and to copy
    std::function<void()> SwitchLink;    // the view that does it
    std::function<bool()> HoldExit;      // true: something must be finished first, and calls Exit
    std::function<void()> CloseSockets;  // before the end
    std::function<void(const std::string& text)> TellOutside;  // where it is seen though the window is gone

    Form Controls;

    Control& Menu(HomeItem item) { return *items_[static_cast<std::size_t>(item)]; }

  private:
    // The captions of the lines on show are the form's own.
    Control& Add(ControlKind kind, std::string_view name, std::string_view caption = {});
    void AddMenu();
    void Wire();
    void On(Control& control, void (HomeView::*action)());
    void OfferEntries();
    void ShowState();

    void MenuHelp();
    void ShowGlossary();
    void EndMenuHelp();
    void ComeToHeading(const HomeMenuRow& row, Control& heading);
    void ComeToReadings(Control& heading);
    void OpenView(const HomeMenuRow& row);
    void WantEnd(EndWish wish);
    void TellWritten();
    void EndProgram();

    // home_files.cpp
    void DefaultSetup();
    void OpenSetup();
    bool LoadFile(const std::string& path, bool saveThere = true);
    void SaveSetup();
    void SaveSetupAs();
    bool WriteSetup(const std::string& path);
    void OfferLoaded();
    void Get();
    void Put();
    bool PutIsMeant();
    bool OtherMeterIsMeant();
    bool CancelIsMeant();
    bool ChangesMayGo(const char* title, const char* yes);
    void Verify();
    void VerifyPut();
    void ToggleVerify();

    Session& session_;
    std::array<Control*, static_cast<std::size_t>(HomeItem::Count)> items_ = {};
    bool tallText_ = true;
    bool preparing_ = false;
    bool askingToCancel_ = false;
    bool asking_ = false;  // whether changes may be lost at the end
    std::string putLine_;  // the status text of the last Put, beside which it can be verified

  public:
    // clang-format off
    Control& picText     = Add(ControlKind::Picture,  "picText");
    Control& cmdMenuHelp = Add(ControlKind::Button,   "cmdMenuHelp", "Menu Help");
    Control& cmdOK       = Add(ControlKind::Button,   "cmdOK", "OK");
    Control& cmdVerify   = Add(ControlKind::Button,   "cmdVerify", "Verify");
    Control& cmdLink     = Add(ControlKind::Button,   "cmdLink", "Link...");
    Control& lblPGText   = Add(ControlKind::Label,    "lblPGText");
    Control& pbBar       = Add(ControlKind::Progress, "pbBar");
    Control& cmdCancel   = Add(ControlKind::Button,   "cmdCancel", "Cancel");
    Control& lblWait     = Add(ControlKind::Label,    "lblWait", "Wait");
    // For service: the last reply. They are on show only while the debug flag is set, which a start clears.
    Control& lblTest     = Add(ControlKind::Label,    "lblTest");
    Control& lblTest1    = Add(ControlKind::Label,    "lblTest1");
    Control& lblTest2    = Add(ControlKind::Label,    "lblTest2");
    // clang-format on
};

}  // namespace counter
