// What the chart widget shows: a picture that grows entry by entry is the same as one painted whole.
#include <gtest/gtest.h>

#include <QImage>

#include "desktop/kit/chart_widget.h"
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

// A run of many readings, of which the record keeps only what can be seen of them.
TEST(Chart, AGraphLooksTheSameWhenItsRecordIsMadeAnew) {
    for (const char* vertical : {"1000", "20"}) {  // the second doubles its scale
        ChartDesk<GraphView> desk("0", "1", vertical);
        for (const char* reading : {"3", "3", "-5", "0", "3"}) desk.Read(reading, 60);
        desk.Read("-99");
        const int generation = desk.Of.Chart.Generation();
        const QImage before = desk.Whole();
        for (int i = 0; desk.Of.Chart.Generation() == generation && i < 4000; ++i) desk.Read("-99", 2);
        EXPECT_NE(desk.Of.Chart.Generation(), generation);
        EXPECT_EQ(desk.Whole(), before) << vertical;
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
