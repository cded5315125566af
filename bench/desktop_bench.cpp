// bench_desktop: how long the views of the desktop tool take, each painted, off screen. Medians of many
// rounds.
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QStyleFactory>

#include "desktop/kit/chart_widget.h"
#include "figures.h"
#include "support/gui_bench.h"
#include "system/core_runtime.h"

namespace {

using counter::ViewId;
using counter::test::GuiBench;

constexpr int kRounds = 21;

// Milliseconds of the action and of painting what it changed.
double Timed(GuiBench& bench, const std::function<void()>& action) {
    return TimeOf([&] {
        action();
        bench.Desk->Window().repaint();
        counter::test::GuiPump::Settle();
    });
}

void FirstOpenings() {
    std::vector<double> times;
    for (int round = 0; round < kRounds; ++round) {
        GuiBench bench;
        bench.Choose("mnuDefaultSet");
        times.push_back(Timed(bench, [&] { bench.Desk->Open(ViewId::Setup); }));
    }
    Print("Setup view, the first opening", Median(times));
}

void Views() {
    GuiBench bench;
    bench.Choose("mnuDefaultSet");
    std::vector<double> setup, menu, modes;
    for (int round = 0; round < kRounds; ++round) {
        setup.push_back(Timed(bench, [&] { bench.Desk->Open(ViewId::Setup); }));
        auto* list = bench.Find<QComboBox>("cboMode");
        modes.push_back(Timed(bench, [&] {
            const int next = (list->currentIndex() + 1) % list->count();
            list->setCurrentIndex(next);
            emit list->activated(next);
        }));
        bench.Desk->GoHome();
        menu.push_back(Timed(bench, [&] { bench.Desk->Open(ViewId::Menu); }));
        bench.Desk->GoHome();
    }
    Print("Setup view, opened again", Median(setup));
    Print("a change of Mode", Median(modes));
    Print("Menu view", Median(menu));
}

// A strip chart of many points, once whole and then with one segment more.
void Chart() {
    constexpr int kPoints = 100000;
    counter::ChartSurface chart;
    chart.SetScale(-150, 215, 1020, -250);
    counter::ChartWidget widget(chart, nullptr);
    widget.resize(984, 560);
    widget.show();
    counter::test::GuiPump::Settle();
    const auto segment = [](int i) {
        return counter::ChartLine{i % 1000 + 0.0, (i * 7) % 400 - 200.0, i % 1000 + 1.0,
                                  (i * 13) % 400 - 200.0};
    };
    for (int i = 0; i < kPoints; ++i) chart.Draw(segment(i));
    const auto paint = [&] { widget.grab(); };
    Print("a chart of 100,000 points, the first time", TimeOf(paint));
    Print("the same exposed again", Median(TimesOf(kRounds, paint)));
    std::vector<double> times;
    for (int i = 0; i < kRounds; ++i) {
        chart.Draw(segment(i));
        times.push_back(TimeOf(paint));
    }
    Print("the same with one segment more", Median(times));
}

}  // namespace

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    counter::SettleLocale();
    QApplication::setStyle(QStyleFactory::create("Fusion"));
    FirstOpenings();
    Views();
    Chart();
}
