// Desktop: the views of the program in its window, and the ways between them.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>

#include "calibration/calibration_view.h"
#include "commands/commands_view.h"
#include "compare/compare_view.h"
#include "curve/send_curve_view.h"
#include "desktop/kit/qt_printer.h"
#include "desktop/main_window.h"
#include "desktop/pages/help_dialog.h"
#include "desktop/pages/help_pages.h"
#include "desktop/pages/home_page.h"
#include "desktop/store_keeper.h"
#include "help/help_view.h"
#include "readings/graph_view.h"
#include "readings/list_view.h"
#include "readings/plot_view.h"
#include "session/session.h"
#include "setup_view/setup_view.h"
#include "sheet/sheet_view.h"
#include "shell/link_switch.h"
#include "shell/node_view.h"

namespace counter {

class LinkDialog;
class SendCurveDialog;
class SetupPage;
class MenuPage;

// Views live as long as the desktop. All but the home view are made when they are first opened.
class Desktop {
  public:
    // Where what comes with the program is looked for, best first.
    struct Folders {
        std::vector<std::string> Help;    // texts
        std::vector<std::string> Boards;  // drawings
    };
    // Without `trials` the link can't be switched.
    Desktop(Session& session, Folders folders, std::optional<LinkSwitch::World> trials = {});
    ~Desktop();
    Desktop(const Desktop&) = delete;
    Desktop& operator=(const Desktop&) = delete;

    MainWindow& Window() { return *window_; }
    HomeView& Home() { return home_; }

    // What the window shows first: the home view, or in its place the one that waits for the Ethernet node.
    void ShowFirst();
    // Waits for the node, where the settings name one, and goes on to the home view. Once.
    void LogIn();
    // The home view comes to the front, in the program's window.
    void GoHome();
    // False: there is no such view yet.
    bool Open(ViewId view);
    // The page of a view, made where it was not yet; null where there is no such view.
    ViewPage* PageOf(ViewId view);
    // Help over the page on show.
    void OpenHelp(int helpId, HelpFrom from, HelpPlace place = HelpPlace::Middle);

    // The program is told to end from outside: what the page on show has begun is ended first.
    void Interrupt();

  private:
    void MakeNode();
    ViewPage* MakePage(ViewId view);
    ViewPage* MakeSetup();
    ViewPage* MakeMenu();
    ViewPage* MakeCommands();
    ViewPage* MakeCalibration();
    ViewPage* MakeCompare();
    ViewPage* MakeSheet();
    ViewPage* MakeChart(ChartView& view, std::string_view title);
    ViewPage* MakeList();
    ViewPage* MakeHelpScreen(ViewId view);
    HelpWorld WorldOfHelp();
    void ShowReport(const std::string& title, const std::string& text);
    void MakeReading(ReadingView& view);
    void ShowHourglass();
    void ShowReplaced();
    // What shows how the setup in memory stands to its origin.
    void ShowChanged();
    void ComeToField(Field field);
    // True: a view must finish something first, and exits after it.
    bool HoldExit();
    void Connect();
    void SwitchLink();

    Session& session_;
    const Folders folders_;
    const std::optional<LinkSwitch::World> trials_;
    HomeView home_;
    HelpView help_;
    std::unique_ptr<MainWindow> window_;
    QtPrinter paper_;
    StoreKeeper keeper_;
    HomePage* homePage_;
    std::map<ViewId, ViewPage*> pages_;

    std::unique_ptr<LinkSwitch> link_;
    LinkDialog* linkDialog_ = nullptr;  // made when it is first opened
    std::unique_ptr<NodeView> node_;
    ViewPage* nodePage_ = nullptr;
    std::unique_ptr<SetupView> setup_;
    std::unique_ptr<CommandsView> commands_;
    std::unique_ptr<SendCurveView> curve_;
    std::unique_ptr<CalibrationView> calibration_;
    std::unique_ptr<CompareView> compare_;
    std::unique_ptr<SheetView> sheet_;
    std::unique_ptr<ListView> list_;
    std::unique_ptr<PlotView> plot_;
    std::unique_ptr<GraphView> graph_;
    SetupPage* setupPage_ = nullptr;
    MenuPage* menuPage_ = nullptr;
    bool hourglassShown_ = false;
};

}  // namespace counter
