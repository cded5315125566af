// What the chart widget shows: a picture that grows entry by entry is the same as one painted whole.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QImage>
#include <QPrinter>
#include <QProcess>
#include <QTemporaryDir>

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
                EXPECT_EQ(ChartPicture({&desk.Of.Chart}, size, ratio), ChartPicture({&before}, size, ratio))
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
        chart.Draw(ChartText{i == 10 ? "" : "123456.", TextAnchor::Center, 10.0 * i, 60, 0});
    ChartSurface sparse;
    sparse.SetScale(0, 100, 100, 0);
    for (int i = 0; i <= 5; i += 5) sparse.Draw(ChartText{"123456.", TextAnchor::Center, 10.0 * i, 60, 0});
    EXPECT_EQ(ChartPicture({&chart}, {100, 60}, 4), ChartPicture({&sparse}, {100, 60}, 4));
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
    QProcess text;
    text.start("pdftotext", {"-layout", folder.filePath("plot.pdf"), "-"});
    if (!text.waitForFinished()) GTEST_SKIP() << "no pdftotext";
    const QString words = text.readAllStandardOutput();
    for (const char* word : {"PLOT", "Meter address", "Mid-Scale Value 500", "900.", "60."})
        EXPECT_TRUE(words.contains(word)) << word;
}

TEST(Chart, AReaderOfTheScreenHearsWhatTheChartShows) {
    ChartDesk<PlotView> desk("0", "1", "10");
    desk.Widget.Describe = [&desk] { return QString::fromStdString(desk.Of.Describe()); };
    desk.Read("12.5");
    QAccessibleInterface* access = QAccessible::queryAccessibleInterface(&desk.Widget);
    EXPECT_EQ(access->role(), QAccessible::Chart);
    EXPECT_EQ(access->text(QAccessible::Description),
              "Running. Last reading 12.5. Values from -20. to 20., time from 0 to 10 seconds.");
    const QImage unfocused = desk.OnScreen();
    desk.Widget.setFocus(Qt::TabFocusReason);
    GuiPump::Settle();
    EXPECT_NE(desk.OnScreen(), unfocused) << "the focus is seen";
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
