// The desktop tool on a meter at an Ethernet node: what is in the home view's place until it has
// called.
#include <gtest/gtest.h>

#include <QAction>

#include "desktop/desktop.h"
#include "support/gui_pump.h"
#include "support/node_net.h"

namespace counter::test {
namespace {

struct NodeDesk : NodeBenchOf<GuiPump> {
    explicit NodeDesk(const std::vector<std::string>& faults = {}) : NodeBenchOf<GuiPump>({}, faults) {
        Start(Program);
        Desk = std::make_unique<Desktop>(Program, Desktop::Folders{{"help"}, {"boards"}});
        Desk->ShowFirst();
        Desk->Window().show();
        GuiPump::Settle();
    }
    std::string Title() { return Desk->Window().windowTitle().toStdString(); }
    ViewPage* OnShow() { return Desk->Window().Current(); }
    void Choose(const char* name) {
        Desk->Window().findChild<QAction*>(name)->trigger();
        GuiPump::Settle();
    }
    std::unique_ptr<Desktop> Desk;
};

TEST(DesktopNode, LogsInThenWorksTheMeterFromTheHomeView) {
    NodeDesk bench({"login:late=6000"});
    std::string text, title;
    int help = 0;
    bench.Pump.After(5000, [&] {
        bench.OnShow()->OpenHelp = [&help](int number) { help = number; };
        bench.OnShow()->HelpKey();
        text = bench.OnShow()->findChild<QLabel*>("lblNode")->text().toStdString();
        title = bench.Title();
    });
    bench.Desk->LogIn();
    EXPECT_EQ(text, "Asking the node at 192.168.0.5 to call TCP port 10001: try 2 of 10.");
    EXPECT_EQ(title, "COUNTER MAIN MENU                      Disconnected");
    EXPECT_EQ(help, 3120);
    EXPECT_EQ(bench.OnShow(), bench.Desk->PageOf(ViewId::Home));
    EXPECT_EQ(bench.Title(), "CTR Main Menu                    Connected");

    bench.Choose("mnuGet");
    EXPECT_EQ(bench.Desk->Home().lblPGText.Caption, "Getting data from the Counter.  Data received OK.");
    EXPECT_EQ(bench.Title(), "COUNTER MAIN MENU                    Connected");
    EXPECT_FALSE(bench.Desk->Window().findChild<QAction*>("mnuMRdgs")->isEnabled());
    bench.Choose("mnuSetup");
    EXPECT_NE(bench.Title(), "COUNTER MAIN MENU                    Connected");
    bench.Net.Break();
    bench.Pump.Pass(2000);
    EXPECT_NE(bench.Title(), "COUNTER MAIN MENU                      Disconnected")
        << "title of another view";
    bench.Desk->GoHome();
    EXPECT_EQ(bench.Title(), "COUNTER MAIN MENU                      Disconnected *")
        << "the Setup view has replaced the analog source";
    EXPECT_EQ(ExitOf([&] { bench.Choose("mnuExit"); }), 0);
    EXPECT_EQ(bench.Net.Both().Tcp.State(), SocketState::Closed);
}

TEST(DesktopNode, WhoClosesTheWindowNeedNotWaitForTheNode) {
    NodeDesk bench({"login:noreply"});
    bench.Pump.After(2500, [&] { bench.OnShow()->findChild<QWidget*>("cmdQuit")->setFocus(); });
    bench.Pump.After(3000, [&] { QTest::keyClick(bench.OnShow()->focusWidget(), Qt::Key_Space); });
    EXPECT_EQ(ExitOf([&] { bench.Desk->LogIn(); }), 0);
    EXPECT_EQ(bench.Net.Both().Tcp.State(), SocketState::Closed);
    EXPECT_LT(bench.Pump.NowMs(), 6000) << "the pauses of closing, not the ten tries";
}

}  // namespace
}  // namespace counter::test
