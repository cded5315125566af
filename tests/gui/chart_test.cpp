// What the chart widget shows: a picture that grows entry by entry is the same as one painted whole.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QImage>
#include <QPrinter>
#include <QTemporaryDir>
#include <QTest>

#include "desktop/kit/chart_files.h"
#include "desktop/kit/chart_widget.h"
#include "desktop/kit/qt_printer.h"
#include "desktop/pages/chart_page.h"
#include "readings/graph_view.h"
#include "readings/plot_view.h"
#include "readings/readings_bench.h"
#include "support/gui_pump.h"

namespace counter::test {
namespace {

// A view whose stream the test plays, and the widget that follows it.
template <class View>
struct ChartDesk : BenchMeterOf<GuiPump> {
    ChartDesk(const char* mid, const char* small, const char* third) {
        Line.Unplug();
        SwitchOn();
        Of.Activate();
        Widget.resize(984, 560);
        Widget.show();
        StartChart(Of, mid, small, third);
        Line.Inject("rest\r");
        GuiPump::Settle();
    }
    void Read(const std::string& reading, int times = 1) {
        for (int i = 0; i < times; ++i) Line.Inject(reading + "\r");
        Widget.Follow();
        GuiPump::Settle();
    }
    // What has come to the screen bit by bit.
    QImage OnScreen() {
        return Widget.screen()->grabWindow(Widget.winId()).toImage().convertToFormat(QImage::Format_RGB32);
    }
    // Painted again from the whole record.
    QImage Whole() const {
        ChartWidget fresh(Of.Chart, nullptr);
        fresh.resize(Widget.size());
        return fresh.grab().toImage().convertToFormat(QImage::Format_RGB32);
    }
    View Of{Program};
    ChartWidget Widget{Of.Chart, nullptr};
};

// Where two pictures of one size differ; empty: nowhere.
std::string Difference(const QImage& a, const QImage& b) {
    QRect differs;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            if (a.pixel(x, y) != b.pixel(x, y)) differs |= QRect(x, y, 1, 1);
        }
    }
    return differs.isEmpty() ? "" : QTest::toString(differs);
}

// A run of many readings, of which the record keeps only what can be seen of them: wiped arrows that took a
// piece of a wide label along and bars that were higher under an earlier scale included.
TEST(Chart, AGraphLooksTheSameWhenItsRecordIsMadeAnew) {
    const struct {
        const char *Mid, *Small, *Vertical;  // all but the first double their scale
        std::vector<const char*> Readings;
        const char* Outside;
    } cases[] = {{"0", "1", "1000", {"3", "3", "-5", "0", "3"}, "-99"},
                 {"0", "1", "20", {"3", "3", "-5", "0", "3"}, "-99"},
                 {"-1500.250", "0.001", "0.5", {"-1500.25", "-1500.25", "-1500.247"}, "-1700"},
                 {"1500.250", "0.001", "3", {"1500.25", "1500.25"}, "1700"}};
    for (const auto& c : cases) {
        ChartDesk<GraphView> desk(c.Mid, c.Small, c.Vertical);
        desk.Read(c.Readings.back());
        desk.Read(c.Readings.front(), 5);
        for (const char* reading : c.Readings) desk.Read(reading, 60);
        for (int wiped = 0; wiped < 2; ++wiped) desk.Read(c.Outside);
        desk.Read(c.Readings.front(), 150);
        desk.Read(c.Outside);
        const int generation = desk.Of.Chart.Generation();
        const ChartSurface before = desk.Of.Chart;
        for (int i = 0; desk.Of.Chart.Generation() == generation && i < 4000; ++i) desk.Read(c.Outside, 2);
        EXPECT_NE(desk.Of.Chart.Generation(), generation);
        for (const QSize size : {QSize(984, 560), QSize(700, 420)}) {
            for (const double ratio : {1.0, 1.5, 2.0, 3.0})
                EXPECT_EQ(Difference(ChartPicture({&desk.Of.Chart}, size, ratio),
                                     ChartPicture({&before}, size, ratio)),
                          "")
                    << c.Vertical << " at " << ratio << ", " << size.width();
        }
    }
}

// A line across the chart is the same part of the picture, and a picture at twice the ratio has twice the
// pixels. Labels that would run into one another are left out, and the last one stays.
TEST(Chart, APictureHasItsTrueResolutionAndLinesOfTheSamePart) {
    ChartSurface chart;
    chart.SetScale(0, 100, 100, 0);
    chart.Draw(ChartLine{0, 50, 100, 50});
    const auto inked = [&chart](double ratio) {
        const QImage picture = ChartPicture({&chart}, {200, 100}, ratio);
        EXPECT_EQ(picture.size(), QSize(200, 100) * ratio);
        int rows = 0;
        for (int y = 0; y < picture.height(); ++y) rows += picture.pixel(20, y) == qRgb(0, 0, 0);
        return rows / ratio;
    };
    EXPECT_EQ(inked(1), 2);
    EXPECT_EQ(inked(3), 2);
    chart.SetScale(0, 100, 100, 0);
    for (int i = 0; i <= 10; ++i)
        chart.Draw(ChartText{i == 10 ? "" : "123456789012", TextAnchor::Center, 10.0 * i, 60, 0});
    ChartSurface sparse;
    sparse.SetScale(0, 100, 100, 0);
    for (int i = 0; i < 10; i += 2)
        sparse.Draw(ChartText{"123456789012", TextAnchor::Center, 10.0 * i, 60, 0});
    EXPECT_EQ(ChartPicture({&chart}, {600, 360}, 1), ChartPicture({&sparse}, {600, 360}, 1));
}

// On paper a chart is lines and letters, black on white on a dark screen too, under a head.
TEST(Chart, ADarkChartIsPrintedLightAndAsLines) {
    BenchMeterOf<GuiPump> bench;
    PlotView view(bench.Program);
    ChartPage page(view, "PLOT", nullptr);
    page.resize(1000, 700);
    page.setPalette(QPalette(QColor(0x30, 0x30, 0x30)));
    page.show();
    page.ComeToFront();
    StartChart(view, "500", "20", "60");
    GuiPump::Settle();
    const QTemporaryDir folder;
    QtPrinter printer(
        bench.Pump, [&page] { return &page; },
        [&](QPrinter& paper, const auto& done) {
            paper.setOutputFormat(QPrinter::PdfFormat);
            paper.setOutputFileName(folder.filePath("plot.pdf"));
            done(true);
        });
    ASSERT_TRUE(printer.PrintView().Ok());
    EXPECT_LT(page.palette().color(QPalette::Base).lightness(), 128) << "the screen stays dark";
    QFile file(folder.filePath("plot.pdf"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_TRUE(file.readAll().contains("/FontFile")) << "letters, which the picture of a page has none of";
    const PaperWork work = page.OnPaper();
    EXPECT_EQ(work.Head.join("|").section("    ", 0, 0), "PLOT");
    EXPECT_TRUE(work.Head[1].startsWith("Mid-Scale Value 500, Small Division Value 20, ")) << "the scale";
    QImage paper(work.Part->size(), QImage::Format_RGB32);
    QPainter painter(&paper);
    work.Draw(painter);
    EXPECT_EQ(paper.pixel(5, 5), qRgb(255, 255, 255));
}

TEST(Chart, AReaderOfTheScreenHearsWhatTheChartShows) {
    ChartDesk<PlotView> desk("0", "1", "10");
    desk.Widget.Describe = [&desk] { return QString::fromStdString(desk.Of.Describe()); };
    desk.Read("12.5");
    QAccessibleInterface* access = QAccessible::queryAccessibleInterface(&desk.Widget);
    EXPECT_EQ(access->role(), QAccessible::Chart);
    EXPECT_EQ(access->text(QAccessible::Description),
              "Running. Last reading 12.5. Values from -20. to 20., time from 0 to 10 seconds.");
    desk.Widget.activateWindow();
    GuiPump::Settle();
    desk.Widget.clearFocus();
    const QImage unfocused = desk.Widget.grab().toImage();
    desk.Widget.setFocus(Qt::TabFocusReason);
    ASSERT_TRUE(desk.Widget.hasFocus());
    EXPECT_NE(desk.Widget.grab().toImage(), unfocused) << "the focus is seen";
}

// At rest a user looks closer by mouse and keys; what he looked at is gone when readings come again.
TEST(Chart, AtRestAUserLooksCloserAndCopies) {
    BenchMeterOf<GuiPump> bench;
    bench.Line.Unplug();
    bench.SwitchOn();
    PlotView view(bench.Program);
    ChartPage page(view, "PLOT", nullptr);
    page.resize(1000, 700);
    page.show();
    page.ComeToFront();
    StartChart(view, "0", "1", "10");
    bench.Line.Inject("rest\r");
    for (const char* reading : {"0", "5", "10"}) {
        bench.Pump.Pass(1000);
        bench.Line.Inject(std::string(reading) + "\r");
    }
    auto* chart = page.findChild<QWidget*>("Picture1");
    ASSERT_NE(chart, nullptr);
    const auto shot = [&] { return GuiPump::Settle(), chart->grab().toImage(); };
    const QImage running = shot();
    QTest::keyClick(chart, Qt::Key_Right);
    EXPECT_EQ(shot(), running) << "no cursor on a run";
    view.Controls.Click(view.cmdPause);
    const QImage paused = shot();
    const auto heard = [chart] {
        return QAccessible::queryAccessibleInterface(chart)
            ->text(QAccessible::Description)
            .section("Cursor: ", 1);
    };
    QTest::keyClick(chart, Qt::Key_Right);
    EXPECT_EQ(heard(), "2.000 s   10.");
    QTest::keyClick(chart, Qt::Key_Left);
    EXPECT_EQ(heard(), "1.000 s   5.");
    EXPECT_NE(shot(), paused);
    QTest::keyClick(chart, Qt::Key_Plus);
    const QImage closer = shot();
    QTest::keyClick(chart, Qt::Key_Right, Qt::ControlModifier);
    EXPECT_NE(shot(), closer);
    QTest::keyClick(chart, Qt::Key_Home);
    EXPECT_EQ(shot(), paused);
    QTest::keyClick(chart, Qt::Key_C, Qt::ControlModifier);
    EXPECT_TRUE(QApplication::clipboard()->text().contains("1.000\t5\n"));
    EXPECT_EQ(QApplication::clipboard()->image().size(), chart->size() * chart->devicePixelRatioF());
    QTest::mousePress(chart, Qt::LeftButton, {}, {200, 100});
    QTest::mouseMove(chart, {400, 300});
    QTest::mouseRelease(chart, Qt::LeftButton, {}, {400, 300});
    EXPECT_NE(shot(), paused);
    view.Controls.Click(view.cmdContinue);
    bench.Line.Inject("rest\r10\r");
    view.Controls.Click(view.cmdPause);
    EXPECT_EQ(heard(), "");
    auto* newScale = page.findChild<QWidget*>("cmdNewScale");
    for (const auto& [reason, opens] :
         {std::pair(Qt::TabFocusReason, false), std::pair(Qt::MouseFocusReason, true)}) {
        view.Controls.SetFocus(view.cmdContinue);
        QFocusEvent comes(QEvent::FocusIn, reason);
        QApplication::sendEvent(newScale, &comes);
        EXPECT_EQ(view.ScaleEntryOpen(), opens);
    }
}

TEST(Chart, APictureIsOfTheKindThatItsNameEndsIn) {
    ChartSurface chart;
    chart.SetScale(0, 100, 100, 0);
    chart.Draw(ChartText{"label", TextAnchor::Left, 10, 60, 0});
    const QTemporaryDir folder;
    const std::pair<const char*, QByteArray> cases[] = {
        {"a.png", "\x89PNG"}, {"a.SVG", "<?xml"}, {"a.Bmp", "BM"}, {"plain", "\x89PNG"}};
    for (const auto& [name, begin] : cases) {
        const QString path = folder.filePath(name);
        ASSERT_TRUE(
            SaveChartPicture({&chart}, {300, 200}, 2, path.toStdString(), PictureFormatOf(name)).Ok());
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const QByteArray content = file.readAll();
        EXPECT_TRUE(content.startsWith(begin)) << name;
        EXPECT_TRUE(begin != "<?xml" || content.contains(">label<")) << "letters";
    }
}

// Of each reading only the part that it touches is painted.
TEST(Chart, ReadingByReadingTheScreenComesToTheWholePicture) {
    const char* const readings[] = {"0",   "5", "-19", "30", "30",  "-40", "12.5",
                                    "-99", "3", "99",  "99", "-99", "1"};
    ChartDesk<PlotView> plot("0", "1", "10");
    ChartDesk<GraphView> graph("0", "1", "1");
    for (int round = 0; round < 2; ++round) {
        for (const char* reading : readings) {
            plot.Pump.Pass(70);
            plot.Read(reading);
            graph.Read(reading);
            ASSERT_EQ(plot.OnScreen(), plot.Whole()) << reading;
            ASSERT_EQ(graph.OnScreen(), graph.Whole()) << reading;
        }
    }
    EXPECT_GT(graph.Of.Current().BarScale, 1);
}

// An arrow is erased by a box of the chart's own units, whatever the window's shape makes of them.
TEST(Chart, ArrowsVanishInAWindowOfAnyShape) {
    for (const QSize size : {QSize(984, 560), QSize(700, 900), QSize(1900, 300)}) {
        ChartDesk<GraphView> desk("0", "1", "10");
        desk.Widget.resize(size);
        const QImage before = desk.Whole();
        for (const char* reading : {"99", "99", "-99", "-99"}) desk.Read(reading);
        EXPECT_EQ(desk.Whole(), before) << size.width() << " x " << size.height();
    }
}

}  // namespace
}  // namespace counter::test
