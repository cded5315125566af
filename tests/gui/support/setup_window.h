// SetupWindow: the Setup view in the program's window, on the default setup of a Counter and no link.
#pragma once

#include <QComboBox>
#include <QTabWidget>
#include <QTest>
#include <string>

#include "desktop/main_window.h"
#include "desktop/pages/setup_page.h"
#include "meter/default_setup.h"
#include "support/bench_meter.h"
#include "support/gui_pump.h"

namespace counter::test {

struct SetupWindow {
    // "193=21 type=7": digits of the image by position, or the kind of meter.
    explicit SetupWindow(const std::string& given = "") {
        BuildDefaultSetup(Program.Image);
        Program.Identity.MeterType = 3;
        for (const QString& fact : QString::fromStdString(given).split(' ', Qt::SkipEmptyParts)) {
            const std::string value = fact.section('=', 1).toStdString();
            if (fact.startsWith(QLatin1String("type"))) {
                Program.Identity.MeterType = std::stoi(value);
            } else {
                DigitsPut(Program.Image, fact.section('=', 0, 0).toInt(), value);
            }
        }
        Page = new SetupPage(View, &Window);
        Window.AddPage(Page);
        Page->ComeToFront();
        Window.ShowPage(Page, false);
        Window.resize(1000, 700);  // as on a screen with room for it
        Window.show();
        Window.activateWindow();
        Pump.Settle();
    }

    Control& Of(const char* name) { return *View.Controls.FindFull(name); }
    QWidget* WidgetOf(const char* name) const {
        return Page->Bound().WidgetOf(*View.Controls.FindFull(name));
    }
    QTabWidget& Tabs() const { return *Page->findChild<QTabWidget*>(); }

    void ClickTab(int tab) {
        QTabBar* strip = Tabs().tabBar();
        QTest::mouseClick(strip, Qt::LeftButton, {}, strip->tabRect(tab).center());
        Pump.Settle();
    }
    void Click(const char* name) {
        QWidget* widget = WidgetOf(name);
        // A box or option is hit on its mark at the left.
        QTest::mouseClick(widget, Qt::LeftButton, {}, QPoint(8, widget->height() / 2));
        Pump.Settle();
    }
    // With the arrow keys, as many as it takes.
    void Pick(const char* name, int entry) {
        auto* list = static_cast<QComboBox*>(WidgetOf(name));
        list->setFocus(Qt::TabFocusReason);
        for (int turns = list->count(); turns > 0 && list->currentIndex() != entry; --turns)
            QTest::keyClick(list, list->currentIndex() < entry ? Qt::Key_Down : Qt::Key_Up);
        Pump.Settle();
    }
    std::string Digits(int pos, int count) const { return DigitsGet(Program.Image, pos, count); }

    GuiPump Pump;
    MemoryFiles Store;
    RecordedDialogs Boxes;
    MeterLine Line{Pump, {}};
    Session Program{Pump, Line, Boxes, {Store, "home"}};
    mutable SetupView View{Program};
    MainWindow Window;
    SetupPage* Page = nullptr;
};

}  // namespace counter::test
