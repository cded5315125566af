// The Setup view's window: every control has its widget and follows it, a user reaches and reads all of it.
#include <gtest/gtest.h>

#include <QScrollArea>
#include <set>

#include "desktop/kit/column_list.h"
#include "support/setup_shown.h"
#include "support/setup_window.h"
#include "support/whole.h"

namespace counter::test {
namespace {

struct GivenSetup {
    const char *Name, *Given;
};

// clang-format off
constexpr GivenSetup kSetups[] = {
    {"Rate A, B",              ""},
    {"Batch",                  "199=02"},
    {"V-F with a curve",       "193=FC 199=83 185=0D"},
    {"V-F batch",              "193=FC 199=82"},
    {"Arithmetic, four relays", "193=39 199=0B"},
    {"Quadrature, Modbus",     "193=32 199=C1 109=0C"},
    {"Clock, Stopwatch",       "199=50 185=55"},
    {"Remote C",               "193=39 185=C4"},
    {"Dual analog",            "193=39 143=04"},
    {"Transmitter",            "type=7"},
    {"No input board",         "193=00"},
};
// clang-format on

TEST(SetupPage, NamesMatchBothWays) {
    SetupWindow window;
    for (const Control* control : window.Page->Bound().Unbound()) ADD_FAILURE() << control->FullName();
    static const QRegularExpression kControl(QStringLiteral("^(cbo|txt|fra|lbl|chk|opt|cmd|tab|pic)[A-Z]"));
    for (QWidget* widget : window.Page->findChildren<QWidget*>(kControl)) {
        // Digit entry has a form of its own, and what the page adds beside the form has keys of its own.
        if (widget->window() != &window.Window || widget->property("ownKey").toBool()) continue;
        const Control* control = window.View.Controls.FindFull(widget->objectName().toStdString());
        ASSERT_NE(control, nullptr) << widget->objectName().toStdString();
        EXPECT_EQ(window.Page->Bound().WidgetOf(*control), widget) << control->FullName();
    }
}

void ExpectSame(const SetupWindow& window, const std::string& when) {
    ExpectShown(*window.Page, when);
}

template <class Look>
void OnEveryPage(const Look& look) {
    for (const GivenSetup& setup : kSetups) {
        SetupWindow window(setup.Given);
        for (int tab = 0; tab < 7; ++tab) {
            window.ClickTab(tab);
            look(window, std::string(setup.Name) + ", tab " + std::to_string(tab));
        }
    }
}

bool TakesFocus(const Control& control) {
    return control.Kind != ControlKind::Frame && control.Kind != ControlKind::Label &&
           control.Kind != ControlKind::Picture && control.Kind != ControlKind::TabStrip;
}

TEST(SetupPage, WidgetsFollowTheFormOnEveryPage) {
    OnEveryPage(ExpectSame);
}

struct Edit {
    const char* Name;
    int Tab;
    const char* Control;
    int Entry;  // of a list, picked by keys; -1: a click
    int Pos;
    const char* Digits;
};

// clang-format off
constexpr Edit kEdits[] = {
    {"Display Type",        0, "cboDType",         1, 185, "1"},
    {"Mode",                0, "cboMode",          2, 199, "2"},
    {"control inputs",      0, "cboExtAB",         5, 198, "5"},
    {"Basic",               0, "optBasic",        -1, 186, "0"},
    {"Multiplier 1",        1, "cboMult1[0]",      3, 166, "3"},
    {"Coordinates 1",       1, "optCoord1[0]",    -1, 197, "2"},
    {"Time Constant",       2, "cboTimConst",      4, 196, "4"},
    {"Alarm 4 State",       3, "cboState[4]",      2, 232, "8"},
    {"Deviation Status",    3, "chkDevStatus",    -1, 201, "2"},
    {"Serial Protocol",     4, "cboProtocol",      2, 110, "8"},
    {"Include LF",          4, "chkLF",           -1, 189, "8"},
    {"Range 2",             5, "cboRange2",        1, 167, "4"},
    {"Lockout 0",           6, "chkLock[0]",      -1, 184, "8"},
};
// clang-format on

TEST(SetupPage, AUserEditsEachPageByMouseAndKeys) {
    for (const Edit& edit : kEdits) {
        SetupWindow window("193=39 143=04 165=00 167=00 169=55 184=0 189=01 196=0 197=00 201=00 231=00");
        window.ClickTab(edit.Tab);
        ASSERT_EQ(window.View.CurrentTab(), edit.Tab) << edit.Name;
        EXPECT_NE(window.Digits(edit.Pos, 1), edit.Digits) << edit.Name << ": a change can be seen";
        if (edit.Entry < 0) {
            window.Click(edit.Control);
        } else {
            window.Pick(edit.Control, edit.Entry);
        }
        EXPECT_EQ(window.Digits(edit.Pos, 1), edit.Digits) << edit.Name;
        ExpectSame(window, edit.Name);
    }
}

TEST(SetupPage, ATabThatIsNotOfferedSaysWhyAndIsNotComeTo) {
    SetupWindow window("193=01");
    window.ClickTab(kAlarmsTab);
    EXPECT_EQ(window.View.CurrentTab(), kInputTab);
    EXPECT_FALSE(window.Tabs().tabBar()->isTabEnabled(kAlarmsTab));
    EXPECT_EQ(window.Tabs().tabToolTip(kAlarmsTab), "There is no relay board.");
    window.Pick("cboRlyOpt", 2);
    EXPECT_TRUE(window.Tabs().tabToolTip(kAlarmsTab).isEmpty());
    window.Tabs().tabBar()->setFocus();
    QTest::keyClick(window.Tabs().tabBar(), Qt::Key_Right);
    QTest::keyClick(window.Tabs().tabBar(), Qt::Key_Right);
    QTest::keyClick(window.Tabs().tabBar(), Qt::Key_Right);
    EXPECT_EQ(window.View.CurrentTab(), kAlarmsTab);
}

TEST(SetupPage, AControlThatIsRefusedSaysWhy) {
    SetupWindow window;
    window.ClickTab(kScalingTab);
    QWidget *low = window.WidgetOf("txtLoIn1[0]"), *scale = window.WidgetOf("txtScale1[0]");
    EXPECT_EQ(low->toolTip(), "Low In 1 is disabled. The scale or a curve is in force.");
    EXPECT_EQ(scale->toolTip(), "");
    window.Of("txtScale1[0]").Enabled = false;  // and not shown yet
    window.Click("txtScale1[0]");
    EXPECT_EQ(scale->toolTip(), "Scale 1 is disabled. The coordinates or a curve are in force.");
    OnEveryPage([](const SetupWindow& shown, const std::string& when) {
        for (const Control& control : shown.View.Controls) {
            if (!TakesFocus(control) || shown.View.Controls.Reach(control) != Refusal::Disabled) continue;
            EXPECT_TRUE(shown.Page->Bound().WidgetOf(control)->toolTip().endsWith('.'))
                << when << ": no reason for " << control.FullName();
        }
    });
}

TEST(SetupPage, F1HelpsWithTheFocusAndKeepsThePage) {
    SetupWindow window("193=39");
    int helped = 0;
    window.Page->OpenHelp = [&helped](int helpNumber) { helped = helpNumber; };
    window.ClickTab(kCommunicationTab);
    QWidget* list = window.WidgetOf("cboBaudRate");
    list->setFocus(Qt::TabFocusReason);
    const int entry = static_cast<QComboBox*>(list)->currentIndex();
    QTest::keyClick(list, Qt::Key_F1);
    EXPECT_EQ(helped, 1175);
    window.Page->HelpClosed();
    window.Pump.Settle();
    EXPECT_EQ(window.Tabs().currentIndex(), kCommunicationTab);
    EXPECT_EQ(static_cast<QComboBox*>(list)->currentIndex(), entry);
    helped = 0;
    static_cast<QComboBox*>(list)->showPopup();
    QTest::keyClick(QApplication::activePopupWidget()->windowHandle(), Qt::Key_F1);
    EXPECT_EQ(helped, 1175) << "with the list dropped down";
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    window.Program.Views.PageTab = kInputTab;  // of an earlier help
    window.Of("lblAscTbl").Visible = true;
    window.View.Controls.TellChanged();
    QWidget* table = window.WidgetOf("lblAscTbl");
    QTest::mouseClick(table, Qt::LeftButton);
    EXPECT_EQ(helped, 1138);
    helped = 0;
    QTest::keyClick(table, Qt::Key_Space);
    EXPECT_EQ(helped, 1138);
    window.Page->HelpClosed();
    EXPECT_EQ(window.Tabs().currentIndex(), kCommunicationTab) << "where the table was asked for";
}

// What a user's Tab key comes past on the page, until it is back at the tabs.
std::vector<QWidget*> TabOrder(SetupWindow& window) {
    std::vector<QWidget*> order;
    QWidget* strip = window.Tabs().tabBar();
    strip->setFocus(Qt::TabFocusReason);
    for (int turns = 0; turns < 200; ++turns) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        if (QApplication::focusWidget() == strip) break;
        order.push_back(QApplication::focusWidget());
    }
    return order;
}

TEST(SetupPage, TabReachesEveryEnabledControlInReadingOrder) {
    OnEveryPage([](SetupWindow& window, const std::string& when) {
        const std::vector<QWidget*> order = TabOrder(window);
        const std::set<QWidget*> reached(order.begin(), order.end());
        for (Control& control : window.View.Controls) {
            if (!TakesFocus(control) || window.View.Controls.Reach(control) != Refusal::None) continue;
            EXPECT_TRUE(reached.contains(window.Page->Bound().WidgetOf(control)))
                << when << ": " << control.FullName();
        }
        for (std::size_t i = 1; i < order.size(); ++i) {
            if (order[i]->parentWidget()->parentWidget() != order[i - 1]->parentWidget()->parentWidget())
                continue;  // within one box: downwards, then to the right
            const QPoint here = order[i]->mapTo(&window.Window, QPoint());
            const QPoint before = order[i - 1]->mapTo(&window.Window, QPoint());
            EXPECT_TRUE(here.y() > before.y() || here.x() > before.x())
                << when << ": " << order[i]->objectName().toStdString();
        }
    });
}

TEST(SetupPage, NothingIsClipped) {
    for (const double factor : {1.0, 1.5, 2.0}) {
        const FontScale font(factor);
        OnEveryPage([factor](const SetupWindow& window, const std::string& when) {
            ExpectWhole(*window.Page, when + ", x " + std::to_string(factor), factor > 1.5);
            auto* scroll = static_cast<QScrollArea*>(window.Tabs().currentWidget());
            const QSize need = scroll->widget()->minimumSizeHint(), room = scroll->viewport()->size();
            EXPECT_TRUE(factor > 1 || (room.width() >= need.width() && room.height() >= need.height()))
                << when << " scrolls: " << QTest::toString(need) << QTest::toString(room);
        });
    }
}

TEST(SetupPage, ALargerFontReachesAnOpenPage) {
    SetupWindow window("193=39");
    const FontScale font(1.5);
    window.Pump.Settle();
    ExpectWhole(*window.Page, "larger");
    EXPECT_EQ(static_cast<CaptionRow*>(window.WidgetOf("fraGateTime"))->Caption().width(),
              static_cast<CaptionRow*>(window.WidgetOf("fraPwrOnTot"))->Caption().width());
}

TEST(SetupPage, WhatIsHiddenKeepsItsPlace) {
    SetupWindow window;
    QWidget* below = window.WidgetOf("cboAction");
    const QPoint before = below->mapTo(&window.Window, QPoint());
    ASSERT_FALSE(window.WidgetOf("fraDspyN")->isHidden());
    window.Pick("cboInOpt", 0);
    ASSERT_TRUE(window.WidgetOf("fraDspyN")->isHidden());
    ASSERT_FALSE(below->isHidden());
    EXPECT_EQ(below->mapTo(&window.Window, QPoint()), before);
}

TEST(ColumnList, EntriesStandUnderTheirHeadings) {
    const QString heading = "  One ------ Two ---- Three, both";
    EXPECT_EQ(SpreadEntry("A b   C  D e", heading), "  A b        C        D e");
    EXPECT_EQ(SpreadEntry("a word too long  C", heading), "  a word too longC") << "nothing is lost";
    EXPECT_EQ(SpreadEntry("", heading), "");
}

TEST(SetupPage, ABatchCountHasNoResolution) {
    SetupWindow window("199=02");
    window.ClickTab(kScalingTab);
    auto* row = static_cast<CaptionRow*>(window.WidgetOf("fraResoln[3]"));
    EXPECT_TRUE(row->Caption().isVisible());
    window.Pick("cboBatItm2", 1);
    EXPECT_FALSE(row->Caption().isVisible()) << "a caption without its list";
}

TEST(SetupPage, WritingTheClassBringsTheFocusToItsOption) {
    SetupWindow window;
    window.Click("cmdQBasic");
    EXPECT_EQ(QApplication::focusWidget(), window.WidgetOf("optBasic"));
    EXPECT_FALSE(static_cast<QAbstractButton*>(window.WidgetOf("optBasic"))->isChecked())
        << "the setup keeps its class";
}

TEST(SetupPage, ThePanelTellsOfTheFieldInFocusWhereThereIsRoom) {
    SetupWindow window("193=39");
    const auto panelShown = [&] {
        window.Pump.Settle();
        const auto* panel = window.Page->findChild<QWidget*>("setupPanel");
        return panel && panel->isVisible();
    };
    EXPECT_FALSE(panelShown());
    window.WidgetOf("txtGateTime")->setFocus(Qt::TabFocusReason);
    window.Window.resize(1300, 800);
    ASSERT_TRUE(panelShown());
    window.Pump.Settle();
    const QString facts = window.Page->findChild<QTextEdit*>("txtFacts")->toPlainText();
    EXPECT_TRUE(facts.contains("Range: 0.00 to 199.99\nCounted: seconds")) << facts.toStdString();
    QTest::keyClick(&window.Window, Qt::Key_F9);
    EXPECT_FALSE(panelShown());
    window.Window.resize(1000, 700);
    QTest::keyClick(&window.Window, Qt::Key_F9);
    EXPECT_TRUE(panelShown()) << "the user wants it";
    window.Window.resize(800, 600);
    EXPECT_FALSE(panelShown()) << "the tabs have no room";
}

TEST(SetupPage, SearchGoesToTheFieldOrSaysWhyNot) {
    SetupWindow window("193=59");  // two relays
    QTest::keyClick(&window.Window, Qt::Key_F, Qt::ControlModifier);
    auto* finder = window.Page->findChild<QDialog*>("fieldFinder");
    ASSERT_TRUE(finder && finder->isVisible());
    QTest::keyClicks(finder->focusWidget(), "setpoint 3");
    QTest::keyClick(finder->focusWidget(), Qt::Key_Return);
    EXPECT_TRUE(finder->isVisible());
    EXPECT_EQ(finder->findChild<QLabel*>("lblWhy")->text(), "This setup has no such field.");
    QTest::keyClicks(finder->focusWidget(), "\b2");
    QTest::keyClick(finder->focusWidget(), Qt::Key_Return);
    window.Pump.Settle();
    EXPECT_FALSE(finder->isVisible());
    EXPECT_EQ(window.View.CurrentTab(), kAlarmsTab);
    EXPECT_EQ(window.Window.focusWidget(), window.WidgetOf("txtSetpt[2]"));
}

}  // namespace
}  // namespace counter::test
