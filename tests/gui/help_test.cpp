// The help window: what it shows, where it is, and the ways to close it.
#include "desktop/pages/help_dialog.h"

#include <gtest/gtest.h>

#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QTextBlock>
#include <QTextEdit>

#include "desktop/pages/help_pages.h"
#include "support/bench_meter.h"
#include "support/failing_printer.h"
#include "support/gui_pump.h"

namespace counter::test {
namespace {

struct HelpBench {
    QWidget Behind;
    QPointer<HelpDialog> Window;
    int Closed = 0;

    explicit HelpBench(HelpContent content) {
        Behind.setGeometry(0, 0, 790, 500);
        Behind.show();
        Window = new HelpDialog(content, &Behind);
        Window->Closed = [this] { ++Closed; };
        Window->open();
        GuiPump::Settle();
    }
    QTextEdit& Text() { return *Window->findChild<QTextEdit*>("lblText"); }
    int Advance(const char* text) { return Text().fontMetrics().horizontalAdvance(text); }
    // "plain[bold]plain", by the formats of the document.
    std::string Marked() {
        QString marked;
        for (QTextBlock block = Text().document()->begin(); block.isValid(); block = block.next()) {
            if (block.blockNumber() > 0) marked += "\n";
            for (auto part = block.begin(); !part.atEnd(); ++part) {
                const bool bold = part.fragment().charFormat().fontWeight() == QFont::Bold;
                marked += bold ? "[" + part.fragment().text() + "]" : part.fragment().text();
            }
        }
        return marked.toStdString();
    }
};

TEST(HelpDialog, ShowsItsPiecesAndNothingCanBeTyped) {
    HelpBench bench(
        {"Menu Help", 5895, {{"one ", false}, {"two", true}, {" three\r\n\r\n<b>four</b>", false}}});
    EXPECT_EQ(bench.Marked(), "one [two] three\n\n<b>four</b>");
    EXPECT_EQ(bench.Window->windowTitle(), "Menu Help");
    EXPECT_EQ(bench.Window->windowModality(), Qt::WindowModal);
    EXPECT_EQ(bench.Text().lineWrapMode(), QTextEdit::WidgetWidth);
    EXPECT_EQ(bench.Window->width(), 5895 * bench.Window->logicalDpiX() / 1440);
    QTest::keyClick(&bench.Text(), Qt::Key_X);
    EXPECT_EQ(bench.Marked(), "one [two] three\n\n<b>four</b>");
    EXPECT_LT(bench.Advance("iiii"), bench.Advance("MMMM"));
}

// A print that fails is told in a box, each time once, and what is on the page stays what it was.
TEST(HelpPages, AFailedPrintIsTold) {
    BenchMeter meter;
    FailingPrinter printer;
    const auto world = [&] {
        return HelpWorld{meter.Store, {"none"}, {"none"}, printer, meter.Boxes, meter.Program.Views, [] {}};
    };
    QWidget window;
    BatchHelpPage batch(world(), BatchHelpKind::Rate, &window);
    JumperPage board(world(), kJumperScreens[0], &window);
    for (ViewPage* page : std::initializer_list<ViewPage*>{&batch, &board}) {
        page->ComeToFront();
        auto* print = page->findChild<QPushButton*>(page == &batch ? "cmdPrint" : "cmdPrinter");
        for (int i = 0; i < 2; ++i) print->click();
        ASSERT_EQ(meter.Boxes.Shown.size(), 2U);
        EXPECT_EQ(meter.Boxes.Shown[1].Title, page->Title().toStdString());
        EXPECT_EQ(meter.Boxes.Shown[1].Text, "lp0: out of paper");
        meter.Boxes.Shown.clear();
        meter.Program.Views.HelpId = 0;
        page->PutAway();
        EXPECT_EQ(meter.Program.Views.HelpId, 3101) << "that of the main view";
    }
    EXPECT_EQ(printer.Text, "The batch reference was not installed.");
}

TEST(HelpDialog, ATableKeepsItsColumns) {
    HelpBench bench({"", 0, {{"$20    blank   $", false}}, true});
    EXPECT_EQ(bench.Advance("iiii"), bench.Advance("MMMM"));
    EXPECT_EQ(bench.Text().lineWrapMode(), QTextEdit::NoWrap);
    EXPECT_EQ(bench.Marked(), "$20    blank   $");
}

TEST(HelpDialog, ClosesOnceHoweverTheUserDoesIt) {
    using Close = void (*)(HelpBench&);
    const std::pair<const char*, Close> ways[] = {
        {"OK",
         [](HelpBench& b) { QTest::mouseClick(b.Window->findChild<QPushButton*>("cmdOK"), Qt::LeftButton); }},
        {"Enter", [](HelpBench& b) { QTest::keyClick(b.Window, Qt::Key_Enter); }},
        {"Return in the text", [](HelpBench& b) { QTest::keyClick(&b.Text(), Qt::Key_Return); }},
        {"Escape", [](HelpBench& b) { QTest::keyClick(b.Window, Qt::Key_Escape); }},
        {"the window's button", [](HelpBench& b) { b.Window->close(); }},
    };
    for (const auto& [name, close] : ways) {
        HelpBench bench({"Help", 0, {{"text", false}}});
        close(bench);
        EXPECT_EQ(bench.Closed, 1) << name;
        GuiPump::Settle();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_TRUE(bench.Window.isNull()) << name;
    }
}

TEST(HelpDialog, StandsAtTheEdgeThatIsAsked) {
    HelpBench left({"Help", 3000, {}, false, HelpPlace::LeftEdge});
    EXPECT_EQ(left.Window->frameGeometry().left(), left.Behind.frameGeometry().left());
    HelpBench right({"Help", 3000, {}, false, HelpPlace::RightEdge});
    EXPECT_NEAR(right.Window->frameGeometry().right(), right.Behind.frameGeometry().right(), 2);
}

}  // namespace
}  // namespace counter::test
