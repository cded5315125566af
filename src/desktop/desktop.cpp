#include "desktop/desktop.h"

#include <QApplication>
#include <cstdio>

#include "desktop/pages/calibration_page.h"
#include "desktop/pages/chart_page.h"
#include "desktop/pages/commands_page.h"
#include "desktop/pages/compare_page.h"
#include "desktop/pages/link_dialog.h"
#include "desktop/pages/list_page.h"
#include "desktop/pages/menu_page.h"
#include "desktop/pages/node_page.h"
#include "desktop/pages/report_dialog.h"
#include "desktop/pages/send_curve_dialog.h"
#include "desktop/pages/setup_page.h"
#include "desktop/pages/sheet_page.h"
#include "link/prepare_readings.h"
#include "session/take_setup.h"
#include "shell/start.h"

namespace counter {

namespace {

HelpContent ContentOf(const HelpView& help, HelpPlace place) {
    HelpContent content{std::string(help.Title), help.Width, {}, help.FixedPitch, place};
    for (const HelpSegment& segment : help.Segments)
        content.Pieces.push_back({segment.Text, segment.Emphasised});
    return content;
}

}  // namespace

Desktop::Desktop(Session& session, Folders folders, std::optional<LinkSwitch::World> trials)
    : session_(session),
      folders_(std::move(folders)),
      trials_(trials),
      home_(session),
      help_(session, folders_.Help),
      window_(std::make_unique<MainWindow>()),
      paper_(session.Pump, [this] { return static_cast<QWidget*>(window_->Current()); }),
      keeper_(session) {
    homePage_ = new HomePage(home_, session_, window_.get());
    window_->AddPage(homePage_);
    window_->setMenuBar(homePage_->MenuBar());
    pages_[ViewId::Home] = homePage_;
    Connect();
    home_.Load();
}

// The pages go first: they hold on to their views.
Desktop::~Desktop() {
    session_.Home.Replaced = nullptr;
    if (hourglassShown_) QApplication::restoreOverrideCursor();
    window_.reset();
}

void Desktop::Connect() {
    home_.Open = [this](ViewId view) { return Open(view); };
    home_.OpenHelp = [this](int helpId) { OpenHelp(helpId, HelpFrom::Home); };
    home_.PrepareStream = [this] {
        PrepareReadings(session_.Link, session_.Identity.FirmwareVersion, session_.Frames);
    };
    home_.ShowReport = [this](const std::string& title, const std::string& text) { ShowReport(title, text); };
    if (trials_) home_.SwitchLink = [this] { SwitchLink(); };
    home_.CloseSockets = [this] { session_.Node.Close(); };
    home_.HoldExit = [this] { return HoldExit(); };
    home_.TellOutside = [](const std::string& text) { std::fprintf(stderr, "%s\n", text.c_str()); };
    session_.Home.Replaced = [this] { ShowReplaced(); };
    homePage_->FieldChosen = [this](Field field) { ComeToField(field); };
    const std::function<void()> shown = session_.Home.Changed;
    session_.Home.Changed = [this, shown] {
        shown();
        ShowHourglass();
        ShowChanged();
        if (compare_) compare_->Follow();
    };
    help_.ClearMenuMark = [this] {
        if (menuPage_) menuPage_->ClearMark();
    };
    help_.RestorePage = [this] {
        if (setupPage_) setupPage_->HelpClosed();
    };
}

bool Desktop::HoldExit() {
    for (ReadingView* view : {static_cast<ReadingView*>(list_.get()), static_cast<ReadingView*>(plot_.get()),
                              static_cast<ReadingView*>(graph_.get())}) {
        if (view && view->HoldExit()) return true;
    }
    return calibration_ && calibration_->HoldExit();
}

void Desktop::ShowFirst() {
    if (!session_.LinkState.NodeFirstRun) return GoHome();
    MakeNode();
    window_->ShowPage(nodePage_, false);
    window_->FocusFirst();
}

void Desktop::LogIn() {
    if (nodePage_) nodePage_->ComeToFront();
}

void Desktop::MakeNode() {
    node_ = std::make_unique<NodeView>(session_);
    nodePage_ = new NodePage(*node_, home_, window_.get());
    nodePage_->OpenHelp = [this](int helpId) { OpenHelp(helpId, HelpFrom::Home); };
    node_->ShowTitle = [this](std::string_view title) {
        home_.Title = title;
        window_->ShowTitle();
    };
    node_->ShowHome = [this] { GoHome(); };
    node_->Load();
    window_->AddPage(nodePage_);
}

void Desktop::GoHome() {
    if (ViewPage* page = window_->Current(); page && page != homePage_) page->PutAway();
    window_->ShowPage(homePage_, true);
    homePage_->ComeToFront();
    window_->FocusFirst();
    ShowHourglass();
}

// The page is on show before it begins to work: some do so by exchanges with the meter.
bool Desktop::Open(ViewId view) {
    ViewPage* page = PageOf(view);
    if (!page) return false;
    window_->ShowPage(page, false);
    page->ComeToFront();
    if (window_->Current() == page) window_->FocusFirst();
    return true;
}

ViewPage* Desktop::PageOf(ViewId view) {
    if (auto made = pages_.find(view); made != pages_.end()) return made->second;
    ViewPage* page = MakePage(view);
    if (!page) return nullptr;
    window_->AddPage(page);
    return pages_[view] = page;
}

ViewPage* Desktop::MakePage(ViewId view) {
    switch (view) {
        case ViewId::Setup:
            return MakeSetup();
        case ViewId::Menu:
            return MakeMenu();
        case ViewId::Commands:
            return MakeCommands();
        case ViewId::Calibration:
            return MakeCalibration();
        case ViewId::Compare:
            return MakeCompare();
        case ViewId::Sheet:
            return MakeSheet();
        case ViewId::List:
            return MakeList();
        case ViewId::Plot:
            plot_ = std::make_unique<PlotView>(session_);
            return MakeChart(*plot_, PlotView::kTitle);
        case ViewId::Graph:
            graph_ = std::make_unique<GraphView>(session_);
            return MakeChart(*graph_, GraphView::kTitle);
        default:
            return MakeHelpScreen(view);
    }
}

ViewPage* Desktop::MakeSetup() {
    setup_ = std::make_unique<SetupView>(session_);
    setupPage_ = new SetupPage(*setup_, window_.get());
    setupPage_->ShowMainMenu = [this] { GoHome(); };
    setupPage_->Acted = [this](bool changed) { window_->MarkTitle(changed); };
    setupPage_->GoBack = [this] { home_.GoBack(); };
    setupPage_->OpenHelp = [this](int helpId) { OpenHelp(helpId, HelpFrom::Setup); };
    setupPage_->MeterSetup = [this] {
        return session_.MeterAtLastGet ? &session_.MeterAtLastGet->Image : nullptr;
    };
    setupPage_->HelpText = [this](int helpId) {
        return FirstHelpText(session_.Folder.Store, folders_.Help, helpId).value_or("");
    };
    return setupPage_;
}

ViewPage* Desktop::MakeMenu() {
    menuPage_ = new MenuPage(session_, paper_, window_.get());
    menuPage_->GoHome = [this] { GoHome(); };
    menuPage_->OpenRowHelp = [this](int helpId, HelpPlace place) { OpenHelp(helpId, HelpFrom::Menu, place); };
    return menuPage_;
}

ViewPage* Desktop::MakeCommands() {
    commands_ = std::make_unique<CommandsView>(session_);
    curve_ = std::make_unique<SendCurveView>(session_);
    auto* page = new CommandsPage(*commands_, window_.get());
    auto* dialog = new SendCurveDialog(*curve_, page);
    commands_->ShowMainMenu = [this] { GoHome(); };
    commands_->OpenSendCurve = [page, dialog] { dialog->OpenFresh([page] { page->ComeBack(); }); };
    page->OpenHelp = dialog->OpenHelp = [this](int helpId) { OpenHelp(helpId, HelpFrom::Home); };
    return page;
}

ViewPage* Desktop::MakeCalibration() {
    calibration_ = std::make_unique<CalibrationView>(session_);
    calibration_->ShowMainMenu = [this] { GoHome(); };
    calibration_->ExitProgram = [this] { home_.Exit(); };
    auto* page = new CalibrationPage(*calibration_, window_.get());
    page->OpenHelp = [this](int helpId) { OpenHelp(helpId, HelpFrom::Home); };
    return page;
}

ViewPage* Desktop::MakeCompare() {
    compare_ = std::make_unique<CompareView>(session_);
    compare_->ShowMainMenu = [this] { GoHome(); };
    auto* page = new ComparePage(*compare_, window_.get());
    page->OpenHelp = [this](int helpId) { OpenHelp(helpId, HelpFrom::Home); };
    return page;
}

ViewPage* Desktop::MakeSheet() {
    sheet_ = std::make_unique<SheetView>(session_, paper_);
    sheet_->ShowMainMenu = [this] { GoHome(); };
    auto* page = new SheetPage(*sheet_, window_.get());
    page->OpenHelp = [this](int helpId) { OpenHelp(helpId, HelpFrom::Home); };
    return page;
}

ViewPage* Desktop::MakeList() {
    list_ = std::make_unique<ListView>(session_);
    MakeReading(*list_);
    auto* page = new ListPage(*list_, window_.get());
    page->OpenHelp = [this](int helpId) { OpenHelp(helpId, HelpFrom::Home); };
    return page;
}

ViewPage* Desktop::MakeChart(ChartView& view, std::string_view title) {
    MakeReading(view);
    auto* page = new ChartPage(view, title, window_.get());
    page->OpenHelp = [this](int helpId) { OpenHelp(helpId, HelpFrom::Home); };
    return page;
}

HelpWorld Desktop::WorldOfHelp() {
    return {session_.Folder.Store, folders_.Help,  folders_.Boards,     paper_,
            session_.Dialogs,      session_.Views, [this] { GoHome(); }};
}

ViewPage* Desktop::MakeHelpScreen(ViewId view) {
    ViewPage* page = nullptr;
    if (view == ViewId::SetupHelp) page = new SetupHelpPage(WorldOfHelp(), window_.get());
    if (view == ViewId::RateBatchHelp)
        page = new BatchHelpPage(WorldOfHelp(), BatchHelpKind::Rate, window_.get());
    if (view == ViewId::VFBatchHelp)
        page = new BatchHelpPage(WorldOfHelp(), BatchHelpKind::VF, window_.get());
    for (const JumperScreen& screen : kJumperScreens) {
        if (screen.View == view) page = new JumperPage(WorldOfHelp(), screen, window_.get());
    }
    if (page) page->OpenHelp = [this](int helpId) { OpenHelp(helpId, HelpFrom::Home); };
    return page;
}

void Desktop::MakeReading(ReadingView& view) {
    view.Paper = &paper_;
    view.Keeper = &keeper_;
    view.ExitProgram = [this] { home_.Exit(); };
    view.ShowMainMenu = [this] { GoHome(); };
}

void Desktop::OpenHelp(int helpId, HelpFrom from, HelpPlace place) {
    if (help_.Shown() || !help_.Open(helpId, from)) return;
    // Over a dialog, where one is open: the window behind it takes no key.
    QWidget* const over = QApplication::activeModalWidget();
    auto* dialog = new HelpDialog(ContentOf(help_, place), over ? over : window_.get());
    dialog->Closed = [this] { help_.Ok(); };
    dialog->open();
}

void Desktop::ShowReport(const std::string& title, const std::string& text) {
    QWidget* const over = QApplication::activeModalWidget();
    (new ReportDialog(title, text, over ? over : window_.get()))->open();
}

void Desktop::SwitchLink() {
    if (!linkDialog_) {
        link_ = std::make_unique<LinkSwitch>(session_, *trials_);
        linkDialog_ = new LinkDialog(*link_, window_.get());
        linkDialog_->OpenHelp = [this](int helpId) { OpenHelp(helpId, HelpFrom::Home); };
        linkDialog_->Closed = [this] { home_.FollowLink(); };
    }
    linkDialog_->OpenFresh();
}

void Desktop::Interrupt() {
    if (ViewPage* page = window_->Current(); page && page != homePage_) page->Leave();
    home_.ExitFromOutside();
}

// A view that was opened in a wait of a Get shows the setup from before it.
void Desktop::ShowReplaced() {
    ViewPage* const page = window_->Current();
    if (page && (page == setupPage_ || page == menuPage_)) page->ComeToFront();
    if (compare_) compare_->Follow();
    if (sheet_ && page == pages_[ViewId::Sheet]) sheet_->Refresh();
}

void Desktop::ShowChanged() {
    window_->MarkTitle(SetupChanged(session_));
    homePage_->ShowFacts();
    if (setupPage_ && window_->Current() == setupPage_) setupPage_->FollowTransfers();
}

// Out of the list of the home view: the Setup view has the control.
void Desktop::ComeToField(Field field) {
    if (!setupPage_ || window_->Current() != setupPage_) {
        ReopenLine(session_);
        Open(ViewId::Setup);
    }
    if (setupPage_ && window_->Current() == setupPage_) setupPage_->ComeToField(field);
}

void Desktop::ShowHourglass() {
    if (session_.Home.Hourglass == hourglassShown_) return;
    hourglassShown_ = session_.Home.Hourglass;
    if (hourglassShown_) {
        QApplication::setOverrideCursor(Qt::WaitCursor);
    } else {
        QApplication::restoreOverrideCursor();
    }
}

}  // namespace counter
