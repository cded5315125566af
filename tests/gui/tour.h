// Tour: through every view and page of the program, on a simulated meter.
#pragma once

#include <QCheckBox>
#include <QLineEdit>
#include <QTabWidget>
#include <functional>
#include <string>

#include "desktop/pages/link_window.h"
#include "support/fixed_catalog.h"
#include "support/gui_bench.h"

namespace counter::test {

// `stop` is called with what is on show and a name for it.
using TourStop = std::function<void(const QWidget& shown, const std::string& name)>;

inline void TourSetup(GuiBench& bench, const TourStop& stop) {
    QWidget& window = bench.Desk->Window();
    bench.Choose("mnuSetup");
    auto* tabs = bench.Desk->Window().Current()->findChild<QTabWidget*>();
    for (int tab = 0; tab < tabs->count(); ++tab) {
        if (!tabs->isTabEnabled(tab)) continue;
        bench.ComeToTab(tab);
        stop(window, "setup-" + std::to_string(tab + 1));
        if (tab != 3) continue;
        bench.Click("txtSetpt[1]");
        if (QWidget* dialog = GuiBench::Dialog()) {
            stop(*dialog, "digit-entry");
            QTest::keyClick(dialog, Qt::Key_Escape);
        }
        bench.Desk->Window().Current()->HelpKey();
        GuiPump::Settle();
        if (QWidget* help = GuiBench::Dialog()) {
            stop(*help, "help");
            QTest::keyClick(help, Qt::Key_Escape);
            bench.Pump.Pass(50);
        }
    }
    bench.Click("cmdMainMenu");
}

// The numbers of a chart's scale by keys alone, each ended by Return; then Return again, on OK.
inline void TypeScale(const GuiBench& bench, std::initializer_list<const char*> numbers) {
    for (const char* number : numbers) {
        QTest::keyClicks(bench.Desk->Window().focusWidget(), number);
        QTest::keyClick(bench.Desk->Window().focusWidget(), Qt::Key_Return);
    }
    QTest::keyClick(bench.Desk->Window().focusWidget(), Qt::Key_Return);
    GuiPump::Settle();
}

inline void TourReadings(GuiBench& bench, const TourStop& stop) {
    const auto chart = [&](const char* entry, const char* name, std::initializer_list<const char*> scale) {
        bench.Choose(entry);
        TypeScale(bench, scale);
        bench.Pump.Pass(40000);
        stop(bench.Desk->Window(), name);
        bench.Click("cmdEnd");
    };
    chart("mnuPlot", "plot", {"500", "20", "60"});
    chart("mnuGraph", "graph", {"500", "30", "20"});
    bench.Choose("mnuList");
    bench.Pump.Pass(9000);
    stop(bench.Desk->Window(), "list");
    bench.Click("cmdEnd");
}

// A verified setup that differs, a comparison of all fields with the meter, the sheet.
inline void TourTools(GuiBench& bench, const TourStop& stop) {
    const SetupImage got = bench.Program.Image;
    DigitsPut(bench.Program.Image, 55, "003039");
    bench.Choose("mnuVerify");
    if (QWidget* dialog = GuiBench::Dialog()) {
        stop(*dialog, "verify");
        QTest::keyClick(dialog, Qt::Key_Escape);
    }
    bench.Choose("mnuCompare");
    bench.Click("cmdMeter");
    bench.Find<QCheckBox>("chkDiffer")->click();
    stop(bench.Desk->Window(), "compare");
    bench.Find<QCheckBox>("chkDiffer")->click();
    bench.Click("cmdMainMenu");
    bench.Choose("mnuPrintSetup");
    stop(bench.Desk->Window(), "setup-sheet");
    bench.Click("cmdMainMenu");
    bench.Program.Image = got;
}

struct LinkWindowBench {
    FixedCatalog Catalog;
    GuiPump Pump;
    MemoryFiles Store;
    MeterLine Line{Pump, {}};
    TriedDevice Tried;
    LinkSetup View{{Pump, Line, Tried, Catalog, {Store, "home"}}};
    LinkWindow Window{View};

    LinkWindowBench() {
        Catalog.Known = {{"/dev/ttyUSB0", "USB-Serial Converter", ""}};
        View.Load();
        Window.show();
    }
};

inline void TourLink(const TourStop& stop, QSize room) {
    LinkWindowBench bench;
    bench.Window.resize(bench.Window.sizeHint().boundedTo(room));
    bench.View.Controls.Click(bench.View.cmdTest);
    GuiPump::Settle();
    stop(bench.Window, "counter-link");
}

// In a window of this size.
inline void Tour(const TourStop& stop, QSize size = {1000, 700}) {
    sim::MeterOptions options;
    options.Signal = {sim::SignalKind::Sine, 500, 200, 20};
    GuiBench bench(options);
    MainWindow& window = bench.Desk->Window();
    window.resize(size);
    GuiPump::Settle();
    stop(window, "home");
    bench.Choose("mnuGet");
    stop(window, "home-after-get");
    bench.Choose("mnuLink");
    if (QWidget* dialog = GuiBench::Dialog()) {
        stop(*dialog, "link");
        QTest::keyClick(dialog, Qt::Key_Escape);
    }
    TourTools(bench, stop);
    TourSetup(bench, stop);
    bench.Choose("mnuMenu");
    stop(window, "menu");
    bench.Click("cmdMainMenu");
    bench.Choose("mnuCmdsGo");
    bench.Click("cmdActiveP");
    stop(window, "commands");
    bench.Click("cmdSendPRM");
    if (QWidget* dialog = GuiBench::Dialog()) {
        dialog->resize(dialog->sizeHint().boundedTo(size));
        stop(*dialog, "send-curve");
        QTest::keyClick(dialog, Qt::Key_Escape);
    }
    bench.Click("cmdOK");
    bench.Choose("mnuCalibGo");
    stop(window, "calibration");
    bench.Click("cmdCANCEL");
    TourReadings(bench, stop);
    for (const char* entry : {"mnuItem", "mnuRBatch", "mnuDualG", "mnuPS", "mnuRS485H"}) {
        bench.Choose(entry);
        stop(window, std::string("help-") + (entry + 3));
        window.Current()->Leave();
    }
    TourLink(stop, size);
}

}  // namespace counter::test
