// bench_stream_window: the reading stream over a pseudo terminal into the real windows: frames a second,
// processor time at 20 readings a second, and how long it takes from a byte on the line to the painted pixel.
#include <QApplication>
#include <QMainWindow>
#include <QStyleFactory>
#include <cstdio>
#include <functional>

#include "desktop/pages/chart_page.h"
#include "desktop/pages/list_page.h"
#include "figures.h"
#include "line_end.h"
#include "readings/graph_view.h"
#include "readings/plot_view.h"
#include "readings/readings_bench.h"
#include "system/core_runtime.h"
#include "system/qt_pump.h"
#include "system/qt_serial_port.h"

namespace {

using namespace counter;

constexpr int kFast = 40'000;  // frames of the run at full speed
constexpr int kSlow = 200;     // of the one at 20 a second
constexpr double kSlowMs = 50;
constexpr int kSingle = 101;  // of the one that measures delays
constexpr double kLongestMs = 60'000;

// Tells when what a window had to paint was painted and handed to the display.
class TimedApplication : public QApplication {
  public:
    using QApplication::QApplication;
    double PaintedMs = 0;
    bool notify(QObject* object, QEvent* event) override {
        const bool painting = event->type() == QEvent::UpdateRequest;
        const bool done = QApplication::notify(object, event);
        if (painting) PaintedMs = SteadyMs();
        return done;
    }
};

struct OnePort : PortCatalog {
    explicit OnePort(std::string device) : Device(std::move(device)) {}
    std::vector<PortDescription> Ports() const override { return {}; }
    std::string DeviceOf(int) const override { return Device; }
    std::string Device;
};

struct Bench {
    explicit Bench(const LineEnd& far) : Far(far), Catalog(far.Device()) {
        if (const Status status = Port.Open(); !status.Ok()) std::exit(1);
    }
    void Wait(double ms, const Pump::Condition& ready) {
        Waits.WaitUntil(Waits.NowMs() + ms, ready, "bench");
    }
    void WaitFor(int frames) {
        Wait(kLongestMs, [this, frames] { return Taken >= frames; });
    }
    const LineEnd& Far;
    OnePort Catalog;
    QtPump Waits;
    QtSerialPort Port{Catalog};
    test::MemoryFiles Store;
    test::RecordedDialogs Boxes;
    Session Program{Waits, Port, Boxes, {Store, "home"}};
    int Taken = 0;
};

// Of this process, all its threads.
double OwnCpuMs() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return CpuMs(usage);
}

void CountFrames(Bench& bench, ReadingView& view) {
    view.Stream.TakeFrame = [&bench, take = view.Stream.TakeFrame](const Frame& frame) {
        take(frame);
        ++bench.Taken;
    };
}

// Frames a second, everything painted that the display can take. The chart takes the latest of an arrival
// and drops the rest, so only the list's frames can be counted out.
void FullSpeed(Bench& bench) {
    const int before = bench.Taken;
    const double cpu = OwnCpuMs(), start = SteadyMs();
    bench.Far.Send({kFast, 0});
    bench.WaitFor(before + kFast);
    Print("  frames as fast as the line takes them", kFast * 1e3 / (SteadyMs() - start), "a second");
    Print("  processor time of each", (OwnCpuMs() - cpu) * 1e3 / kFast, "us");
}

void AtTwentyASecond(Bench& bench) {
    const int before = bench.Taken;
    const double cpu = OwnCpuMs(), start = SteadyMs();
    bench.Far.Send({kSlow, kSlowMs});
    bench.WaitFor(before + kSlow);
    Print("  20 readings a second", 100 * (OwnCpuMs() - cpu) / (SteadyMs() - start), "percent of a core");
}

void Delays(Bench& bench, TimedApplication& application) {
    std::vector<double> delays;
    for (int i = 0; i < kSingle; ++i) {
        const int before = bench.Taken;
        bench.Far.Send({1, 0});
        bench.WaitFor(before + 1);
        bench.Wait(1000, [&] { return application.PaintedMs > bench.Far.LastSentMs(); });
        delays.push_back(application.PaintedMs - bench.Far.LastSentMs());
        bench.Wait(7, [] { return false; });  // so that no two fall into the same beat
    }
    Print("  from the byte to the pixel, median", Median(delays));
}

void Measure(const char* name, Bench& bench, TimedApplication& application, ReadingView& view,
             ViewPage& page) {
    QMainWindow window;
    window.resize(1000, 700);
    window.setCentralWidget(&page);
    window.show();
    CountFrames(bench, view);
    page.ComeToFront();
    if (auto* chart = dynamic_cast<ChartView*>(&view)) test::StartChart(*chart, "1000", "40", "60");
    bench.Far.Send({20, 20});
    bench.WaitFor(15);
    bench.Wait(1000, [] { return false; });
    std::printf("%s\n", name);
    AtTwentyASecond(bench);
    Delays(bench, application);
    if (dynamic_cast<ListView*>(&view)) FullSpeed(bench);
    view.Unload();
    window.takeCentralWidget();
}

template <class View>
void MeasureChart(const char* name, const LineEnd& far, TimedApplication& application) {
    Bench bench(far);
    View view(bench.Program);
    ChartPage page(view, name, nullptr);
    Measure(name, bench, application, view, page);
}

}  // namespace

int main(int argc, char** argv) {
    const LineEnd far[3];  // before there are threads
    TimedApplication application(argc, argv);
    SettleLocale();
    QApplication::setStyle(QStyleFactory::create("Fusion"));
    {
        Bench bench(far[0]);
        ListView list(bench.Program);
        ListPage page(list, nullptr);
        Measure("List", bench, application, list, page);
    }
    MeasureChart<PlotView>("Plot", far[1], application);
    MeasureChart<GraphView>("Graph", far[2], application);
}
