// The whole program on the real widgets: a session from start to exit, and presses in the middle of waits.
#include <gtest/gtest.h>

#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QTextEdit>
#include <QTreeWidget>

#include "desktop/kit/page_body.h"
#include "support/gui_bench.h"
#include "support/spoken_tree.h"
#include "support/whole.h"
#include "tour.h"

namespace counter::test {
namespace {

TEST(DesktopSession, FromGetOverEditAndFilesToPutAndExit) {
    GuiBench bench;
    EXPECT_EQ(bench.Desk->Window().windowTitle(), "COUNTER MAIN  MENU");
    EXPECT_FALSE(bench.Choose("mnuPut"));
    ASSERT_TRUE(bench.Choose("mnuGet"));
    EXPECT_EQ(bench.StatusLine(), "Getting data from the Counter.  Data received OK.");

    ASSERT_TRUE(bench.Choose("mnuSetup"));
    bench.ComeToTab(3);
    bench.Click("txtSetpt[1]");
    QWidget* entry = GuiBench::Dialog();
    ASSERT_NE(entry, nullptr);
    QTest::keyClicks(QApplication::focusWidget(), "+012345");
    QTest::mouseClick(entry->findChild<QPushButton*>("cmdOK"), Qt::LeftButton);
    bench.Pump.Pass(20);
    EXPECT_EQ(GuiBench::Dialog(), nullptr);
    EXPECT_EQ(DigitsGet(bench.Program.Image, 55, 6), "003039");
    EXPECT_EQ(bench.Find<QLineEdit>("txtSetpt[1]")->text().trimmed(), "+012345.");
    bench.Click("cmdMainMenu");

    ASSERT_TRUE(bench.Choose("mnuMenu"));
    EXPECT_EQ(bench.Desk->Window().windowTitle(), "CTR  MENU *");
    bench.Click("cmdMainMenu");

    bench.Boxes.Path = "kept.CT2";
    ASSERT_TRUE(bench.Choose("mnuSaveAs"));
    ASSERT_TRUE(bench.Choose("mnuDefaultSet"));
    EXPECT_NE(DigitsGet(bench.Program.Image, 55, 6), "003039");
    ASSERT_TRUE(bench.Choose("mnuOpen"));
    ASSERT_TRUE(bench.Choose("mnuPut"));
    EXPECT_EQ(bench.StatusLine(), "Putting data to the Counter.  Data appears to have Transferred O.K.");
    EXPECT_EQ(bench.Line.Meter().ImageText().substr(54, 6), "003039") << "the meter's own memory";
    EXPECT_EQ(ExitOf([&] { bench.Choose("mnuExit"); }), 0);
}

void DoubleClickLast(QAbstractItemView* list) {
    const QPoint at = list->visualRect(list->model()->index(list->model()->rowCount() - 1, 0)).center();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, at);
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, at);
    GuiPump::Settle();
}

TEST(DesktopSession, ChangesAreMarkedListedUndoneAndAskedAbout) {
    GuiBench bench;
    MainWindow& window = bench.Desk->Window();
    const auto rows = [&] { return bench.Find<QTreeWidget>("lstChanges"); };
    bench.Choose("mnuGet");
    bench.Choose("mnuSetup");
    bench.Pump.Pass(5000);
    bench.Click("cmdChanges");
    const int byRules = rows()->topLevelItemCount();
    bench.ComeToTab(4);
    QTest::keyClick(bench.Find<QComboBox>("cboBaudRate"), Qt::Key_Down);
    GuiPump::Settle();
    EXPECT_EQ(window.windowTitle(), "Setup *");
    ASSERT_EQ(rows()->topLevelItemCount(), byRules + 1);
    QTest::keyClick(&window, Qt::Key_Z, Qt::ControlModifier);
    GuiPump::Settle();
    EXPECT_EQ(rows()->topLevelItemCount(), byRules);
    EXPECT_EQ(window.windowTitle(), byRules > 0 ? "Setup *" : "Setup");
    QTest::keyClick(&window, Qt::Key_Y, Qt::ControlModifier);
    GuiPump::Settle();
    ASSERT_EQ(rows()->topLevelItemCount(), byRules + 1);
    EXPECT_EQ(rows()->topLevelItem(byRules)->text(3), "picked");
    bench.ComeToTab(0);
    bench.Click("cmdMainMenu");
    EXPECT_EQ(window.windowTitle(), "COUNTER MAIN  MENU *");

    DoubleClickLast(rows());
    bench.Pump.Pass(5000);
    EXPECT_EQ(window.windowTitle(), "Setup *");
    EXPECT_EQ(bench.Find<QTabWidget>("")->currentIndex(), 4);
    EXPECT_EQ(QApplication::focusWidget(), bench.Find<QComboBox>("cboBaudRate"));
    bench.Click("cmdMainMenu");

    bench.Boxes.SaysYes = false;
    bench.Choose("mnuExit");
    EXPECT_EQ(bench.Boxes.Shown.back().Title, "Exit");
    DoubleClickLast(bench.Find<QListWidget>("lstBackups"));
    EXPECT_EQ(bench.Program.Origin.From, SetupSource::Meter);
    bench.Boxes.SaysYes = true;
    DoubleClickLast(bench.Find<QListWidget>("lstBackups"));
    EXPECT_EQ(bench.Program.Origin.From, SetupSource::File);
    EXPECT_EQ(window.windowTitle(), "COUNTER MAIN  MENU");
    bench.Click("cmdBackTo");
    EXPECT_EQ(bench.Program.Origin.From, SetupSource::Meter);
    EXPECT_EQ(window.windowTitle(), "COUNTER MAIN  MENU *");
    EXPECT_NE(bench.Find<QLabel>("factSetup")->text().indexOf("but for"), -1);
}

// The window goes home in the middle of the write: focus and help are the home view's from then on.
TEST(DesktopSession, AViewThatWasLeftMovesNeitherFocusNorHelp) {
    GuiBench bench;
    bench.Choose("mnuGet");
    bench.Choose("mnuSetup");
    const std::string digits = bench.Program.Image.SetupData;
    bench.Pump.After(150, [&] { bench.Click("cmdMainMenu"); });
    bench.Click("cmdQBasic");
    ASSERT_EQ(bench.Desk->Window().windowTitle(), "COUNTER MAIN  MENU *") << "a rule replaced a source";
    ASSERT_NE(bench.Desk->Window().focusWidget(), nullptr);
    EXPECT_TRUE(bench.Desk->Window().focusWidget()->isVisible());
    QTest::keyClick(bench.Desk->Window().focusWidget(), Qt::Key_Space);
    EXPECT_EQ(bench.Program.Image.SetupData, digits);
    EXPECT_EQ(bench.Program.Views.HelpId, 3101);
}

struct Screen {
    const char* Name;
    QSize Size;
    double Font;  // of 9 points at 96 dots an inch
};

// What the frame of a window takes of a screen.
constexpr QSize kFrame(8, 32);

TEST(DesktopSession, NothingIsClippedInAnyViewAtAnyScale) {
    const Screen kScreens[] = {
        {"1000 x 700", {1008, 732}, 1.0},
        {"1000 x 700, large", {1008, 732}, 1.34},
        {"800 x 600", {800, 600}, 1.0},
        {"1280 x 800", {1280, 800}, 1.0},
        {"1280 x 800 at 144 dpi", {1280, 800}, 1.5},
        {"1920 x 1080 at 200 percent", {1920, 1080}, 2.0},
        {"2560 x 1440", {2560, 1440}, 1.0},
    };
    for (const Screen& screen : kScreens) {
        const FontScale font(screen.Font);
        const QSize room = screen.Size - kFrame;
        int stops = 0;
        Tour(
            [&](const QWidget& shown, const std::string& name) {
                EXPECT_TRUE(shown.isVisible()) << name;
                const std::string when = name + " on " + screen.Name;
                const bool dialog = shown.parentWidget() != nullptr;
                const QSize most = dialog ? room.expandedTo(QSize(800, 800)) : room;
                EXPECT_EQ(shown.size().boundedTo(most), shown.size()) << when;
                ExpectWhole(shown, when);
                ++stops;
            },
            room);
        EXPECT_EQ(stops, 28);
    }
}

// With the title that a window manager draws above it.
TEST(DesktopSession, TheWindowBeginsWholeOnItsScreen) {
    const FontScale font(2);
    const MainWindow window;
    const int title = ScreenRoom(window).top();
    const QRect frame(window.pos(), window.size() + QSize(0, title));
    EXPECT_GT(title, 0);
    EXPECT_TRUE(window.screen()->availableGeometry().contains(frame)) << QTest::toString(frame);
}

TEST(DesktopSession, EveryViewSpeaksAndHasItsKeys) {
    Tour([](const QWidget& shown, const std::string& name) {
        ExpectSpoken(QAccessible::queryAccessibleInterface(const_cast<QWidget*>(&shown)), name);
        const KeysOf keys(shown, name);
        if (name != "home" && name != "counter-link") return;
        EXPECT_TRUE(shown.findChild<QProgressBar*>()->accessibleName().startsWith("Progress of")) << name;
    });
}

// The keys of the menu are keys of the home view alone.
TEST(DesktopSession, KeysOfTheMenuAndOfAReading) {
    GuiBench bench;
    QWidget& window = bench.Desk->Window();
    QTest::keyClick(&window, Qt::Key_G, Qt::ControlModifier);
    EXPECT_EQ(bench.StatusLine(), "Getting data from the Counter.  Data received OK.");
    bench.Choose("mnuSetup");
    const std::size_t sent = bench.Line.Sent().size();
    QTest::keyClick(window.focusWidget(), Qt::Key_G, Qt::ControlModifier);
    EXPECT_EQ(bench.Line.Sent().size(), sent) << "the menu isn't on show";
    bench.Click("cmdMainMenu");
    bench.Choose("mnuCmdsGo");
    QTest::keyClick(window.focusWidget(), Qt::Key_F5);
    EXPECT_FALSE(bench.Find<QLabel>("picItem1")->text().isEmpty());
}

TEST(DesktopSession, EscapeCancelsAGetAndTheFileMenuKnowsRecentFiles) {
    GuiBench bench;
    QWidget& window = bench.Desk->Window();
    bench.Pump.After(1500, [&] {
        EXPECT_TRUE(bench.Find("cmdCancel")->isVisible());
        QTest::keyClick(&window, Qt::Key_Escape);
    });
    bench.Choose("mnuGet");
    EXPECT_EQ(bench.StatusLine(), "Get Setup was cancelled. What is in memory is as it was.");
    bench.Store.Contents["/s/a & b.CT2"] = std::string(260, '0') + "\r\n";
    bench.Boxes.Path = "/s/a & b.CT2";
    bench.Choose("mnuOpen");
    auto* recent = window.findChild<QMenu*>("mnuRecent");
    emit static_cast<QMenu*>(recent->parentWidget())->aboutToShow();
    ASSERT_EQ(recent->actions().size(), 1);
    EXPECT_EQ(recent->actions()[0]->text(), "&1  /s/a && b.CT2");
    bench.Store.Contents.erase("/s/a & b.CT2");
    recent->actions()[0]->trigger();
    EXPECT_TRUE(bench.StatusLine().startsWith("/s/a & b.CT2")) << bench.StatusLine().toStdString();
    EXPECT_EQ(bench.Desk->Home().RecentSetups().size(), 1U) << "it may come back";
}

TEST(DesktopSession, F1InTheCurveDialogOpensItsHelpOverIt) {
    GuiBench bench;
    bench.Choose("mnuGet");
    bench.Choose("mnuCmdsGo");
    bench.Click("cmdSendPRM");
    QWidget* curve = GuiBench::Dialog();
    ASSERT_NE(curve, nullptr);
    QTest::keyClicks(QApplication::focusWidget(), "CURVE");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_F1);
    GuiPump::Settle();
    QWidget* help = GuiBench::Dialog();
    ASSERT_NE(help, curve);
    EXPECT_EQ(help->windowTitle(), "APPLICATION  HELP");
    const auto* text = help->findChild<QTextEdit*>("lblText");
    EXPECT_TRUE(text->toPlainText().startsWith("Send .PRM File\n"));
    EXPECT_GT(text->verticalScrollBar()->maximum(), 0);
    EXPECT_EQ(text->verticalScrollBar()->value(), 0) << "a long text begins at its beginning";
    QTest::keyClick(help, Qt::Key_Return);
    bench.Pump.Pass(50);
    ASSERT_EQ(GuiBench::Dialog(), curve);
    EXPECT_EQ(curve->findChild<QLineEdit*>("txtFileName")->text(), "CURVE");
    EXPECT_EQ(curve->focusWidget()->objectName(), "txtFileName");
}

// The meter has a test scale from 6.6 seconds on, and would have its own again at 14.
TEST(DesktopSession, ExitAndClosingTheWindowPutTheScaleOfACalibrationBack) {
    for (const bool close : {false, true}) {
        GuiBench bench;
        bench.Choose("mnuGet");
        const std::string before = bench.Program.Image.SetupData.substr(36, 12);
        bench.Choose("mnuCalibGo");
        bench.Pump.After(7000, [&] {
            EXPECT_NE(bench.Line.Meter().ImageText().substr(36, 12), before);
            close ? static_cast<void>(bench.Desk->Window().close()) : bench.Desk->Interrupt();
        });
        QTest::keyClicks(QApplication::focusWidget(), "1000");
        const int status = ExitOf([&] {
            bench.Find<QLineEdit>("txtFreq")->returnPressed();
            bench.Pump.Pass(1000);
        });
        EXPECT_EQ(status, close ? -1 : 0) << "closing the window ends the run and stays";
        EXPECT_EQ(bench.Line.Meter().ImageText().substr(36, 12), before);
        if (!close) continue;
        EXPECT_EQ(bench.Desk->Window().focusWidget(), bench.Find("cmdOK"));
        QTest::keyClick(bench.Find("cmdOK"), Qt::Key_Return);
        GuiPump::Settle();
        EXPECT_EQ(bench.Desk->Window().windowTitle(), "COUNTER MAIN  MENU");
    }
}

TEST(LinkWindow, ClosingItEndsItsSearch) {
    LinkWindowBench bench;
    bench.Line.Unplug();
    bench.Pump.After(10000, [&] { bench.Window.close(); });
    bench.View.Controls.Click(bench.View.cmdFind);
    EXPECT_EQ(bench.View.lblResult.Caption, "Stopped.");
}

TEST(DesktopSession, AnExitComesAfterTheMetersStopAlsoDuringEnd) {
    for (const char* entry : {"mnuList", "mnuPlot", "mnuGraph"}) {
        for (const bool during : {false, true}) {
            SCOPED_TRACE(entry);
            GuiBench bench;
            bench.Choose("mnuGet");
            bench.Choose(entry);
            if (bench.Find("txtMidVal")) {
                TypeScale(bench, {"10000", "150", "30"});
                EXPECT_EQ(bench.Find<QLineEdit>("txtMidVal")->text().trimmed(), "10000");
                EXPECT_EQ(bench.Desk->Window().focusWidget()->objectName(), "cmdPause");
            }
            bench.Pump.Pass(1500);
            bench.Pump.After(100, [&bench] { bench.Desk->Interrupt(); });
            EXPECT_EQ(ExitOf([&] {
                          if (during) bench.Click("cmdEnd");
                          bench.Pump.Pass(2000);
                      }),
                      0);
            EXPECT_EQ(bench.Line.Sent().back(), "*1A1\r\n");
        }
    }
}

TEST(DesktopSession, AReadingFitsItsColumn) {
    GuiBench bench;
    bench.Choose("mnuGet");
    bench.Choose("mnuList");
    bench.Pump.Pass(1500);
    for (const QWidget* grid : bench.Desk->Window().findChildren<QWidget*>()) {
        if (grid->accessibleName() != "Readings") continue;
        EXPECT_LE(grid->fontMetrics().horizontalAdvance("00000000"), grid->width() / ListView::kColumns);
    }
}

}  // namespace
}  // namespace counter::test
