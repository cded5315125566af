// GuiBench: the whole desktop tool on a simulated meter and the virtual clock.
#pragma once

#include <QMenu>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>
#include <QWidget>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "desktop/desktop.h"
#include "support/bench_meter.h"
#include "support/fixed_catalog.h"
#include "support/gui_pump.h"

namespace counter::test {

// Help texts and drawings, as they come with the program.
inline void TakeData(MemoryFiles& store) {
    for (const std::string folder : {"help", "boards"}) {
        for (const auto& entry : std::filesystem::directory_iterator(SHARE_FOLDER "/" + folder)) {
            std::ifstream file(entry.path(), std::ios::binary);
            store.Contents[folder + "/" + entry.path().filename().string()] = {
                std::istreambuf_iterator<char>(file), {}};
        }
    }
}

struct GuiBench : BenchMeterOf<GuiPump> {
    explicit GuiBench(sim::MeterOptions options = {}, const std::vector<std::string>& settings = {})
        : BenchMeterOf<GuiPump>(std::move(options), settings) {
        const Status started = SwitchOn();
        TakeData(Store);
        Desk = std::make_unique<Desktop>(Program, Desktop::Folders{{"help"}, {"boards"}},
                                         LinkSwitch::World{Line, Tried, Catalog});
        if (!started.Ok()) Program.Home.ShowStatus(started.Text(), ColorRed);
        Desk->GoHome();
        Desk->Window().resize(1000, 700);  // as on a screen with room for it
        Desk->Window().show();
        GuiPump::Settle();
    }

    // A menu entry, by its name, if it can be used now.
    bool Choose(const char* name) {
        auto* action = Desk->Window().findChild<QAction*>(name);
        if (!action || !action->isEnabled() || !action->isVisible()) return false;
        action->trigger();
        GuiPump::Settle();
        return true;
    }
    // A widget of the view on show, by the name of its control; null where it is not there.
    template <class Widget = QWidget>
    Widget* Find(const char* name) {
        return Desk->Window().Current()->findChild<Widget*>(name);
    }
    void Click(const char* name) {
        QTest::mouseClick(Find(name), Qt::LeftButton);
        GuiPump::Settle();
    }
    void ComeToTab(int tab) {
        QTabBar* strip = Desk->Window().Current()->findChild<QTabWidget*>()->tabBar();
        QTest::mouseClick(strip, Qt::LeftButton, {}, strip->tabRect(tab).center());
        GuiPump::Settle();
    }
    // The dialog over the window; null where there is none.
    static QWidget* Dialog() { return QApplication::activeModalWidget(); }
    QString StatusLine() { return QString::fromStdString(Desk->Home().lblPGText.Caption); }

    FixedCatalog Catalog;
    TriedDevice Tried;
    std::unique_ptr<Desktop> Desk;
};

}  // namespace counter::test
