// Desktop: the views of the program in its window, and the ways between them.
#pragma once

#include <functional>
#include <memory>

#include "platform/qt/widgets/home_page.h"
#include "platform/qt/widgets/main_window.h"
#include "platform/qt/widgets/qt_dialogs.h"
#include "session/session.h"

namespace counter {

// Views live as long as the desktop; the pages of all but the home view are made when they are first opened.
class Desktop {
  public:
    explicit Desktop(Session& session);
    ~Desktop();
    Desktop(const Desktop&) = delete;
    Desktop& operator=(const Desktop&) = delete;

    MainWindow& Window() { return *window_; }
    HomeView& Home() { return home_; }

    // The home view comes to the front, in the program's window.
    void GoHome();
    // False: there is no such view yet.
    bool Open(ViewId view);
    ViewPage* PageOf(ViewId view);

  private:
    void ShowHourglass();
    ViewPage* MakePage(ViewId view);

    Session& session_;
    HomeView home_;
    std::unique_ptr<MainWindow> window_;
    HomePage* homePage_;
    std::map<ViewId, ViewPage*> pages_;
    bool hourglassShown_ = false;
};

}  // namespace counter
