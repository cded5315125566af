// Digit entry over the Setup view: keys and clicks reach it, it is beside its field and closes as told.
#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>

#include "support/setup_window.h"

namespace counter::test {
namespace {

QWidget* PartOf(const SetupWindow& window, const QString& name) {
    return window.Page->Entry().findChild<QWidget*>(name);
}

// One step of a user: a named key, a button, "box4" for a click on a box, or characters that are typed.
void Do(SetupWindow& window, const QString& step) {
    static const std::map<QString, Qt::Key> kKeys = {
        {"left", Qt::Key_Left}, {"right", Qt::Key_Right},  {"enter", Qt::Key_Enter}, {"esc", Qt::Key_Escape},
        {"tab", Qt::Key_Tab},   {"back", Qt::Key_Backtab}, {"space", Qt::Key_Space}, {"f1", Qt::Key_F1}};
    DigitEntryDialog& dialog = window.Page->Entry();
    if (const auto key = kKeys.find(step); key != kKeys.end()) {
        QTest::keyClick(dialog.focusWidget(), key->second);
    } else if (step == "ok" || step == "cancel") {
        QTest::mouseClick(PartOf(window, step == "ok" ? "cmdOK" : "cmdCancel"), Qt::LeftButton);
    } else if (step.startsWith("box")) {
        QTest::mouseClick(PartOf(window, QString("txtDigit[%1]").arg(step.mid(3))), Qt::LeftButton);
    } else if (step == "close") {
        dialog.close();
    } else {
        QTest::keyClicks(dialog.focusWidget(), step);
    }
    window.Pump.Settle();
}

void DoAll(SetupWindow& window, const char* steps) {
    for (const QString& step : QString(steps).split(' ', Qt::SkipEmptyParts)) Do(window, step);
}

struct Entry {
    const char* Name;
    int Tab;
    const char *Control, *Steps;
    int Pos;
    const char* Digits;
    const char* Text;  // of the field
    bool Open;         // the dialog is still up
    int Beeps;
};

// Gate Time is 000.00 at 177, Scale 1 +1.00000 at 43, Low In 1 at 103.
// clang-format off
constexpr Entry kEntries[] = {
    {"typed, OK",             0, "txtGateTime", "01250 ok",         177, "04E2", "012.50",    false, 0},
    {"clicks on boxes",       0, "txtGateTime", "00000 box3 1 ok",  177, "03E8", "010.00",    false, 0},
    {"arrows",                0, "txtGateTime", "00000 left left 7 ok", 177, "02BC", "007.00", false, 0},
    {"rejected",              0, "txtGateTime", "9x00100 ok",       177, "0064", "001.00",    false, 2},
    {"Enter leaves it up",    0, "txtGateTime", "01250 enter",      177, "04E2", "012.50",    true,  0},
    {"Enter, then Escape",    0, "txtGateTime", "01250 enter esc",  177, "04E2", "012.50",    false, 0},
    {"Cancel",                0, "txtGateTime", "01250 cancel",     177, "",     "",          false, 0},
    {"Escape",                0, "txtGateTime", "01250 esc",        177, "",     "",          false, 0},
    {"the window's button",   0, "txtGateTime", "01250 close",      177, "",     "",          false, 0},
    {"Tab to OK",             0, "txtGateTime", "01250 tab space",  177, "04E2", "012.50",    false, 0},
    {"Tab, Enter on Cancel",  0, "txtGateTime", "01250 tab tab enter", 177, "",  "",          false, 0},
    {"and back",              0, "txtGateTime", "tab back 01250 ok", 177, "04E2", "012.50",   false, 0},
    {"a refused byte, anew",  4, "txtCusRecog", "256 ok 107 ok",    149, "6B",   "107",       false, 1},
    {"a sign",                1, "txtScale1[0]", "-200000 ok",       43, "",     " -2.00000", false, 0},
};
// clang-format on

TEST(DigitEntryDialog, KeysAndClicksReachTheEntry) {
    for (const Entry& entry : kEntries) {
        SetupWindow window("193=39 177=0000 149=2A 187=20");
        window.ClickTab(entry.Tab);
        const std::string stored = window.Digits(entry.Pos, 4), shown = window.Of(entry.Control).Text;
        window.Click(entry.Control);
        ASSERT_TRUE(window.Page->Entry().isVisible()) << entry.Name;
        DoAll(window, entry.Steps);
        const std::string digits = entry.Digits, text = entry.Text;
        const std::string wanted = text.empty() ? stored : digits;
        EXPECT_EQ(window.Digits(entry.Pos, static_cast<int>(wanted.size())), wanted) << entry.Name;
        const auto* field = static_cast<QLineEdit*>(window.WidgetOf(entry.Control));
        EXPECT_EQ(field->text().toStdString(), text.empty() ? shown : text) << entry.Name;
        EXPECT_EQ(window.Page->Entry().isVisible(), entry.Open) << entry.Name;
        EXPECT_EQ(window.Boxes.Beeps, entry.Beeps) << entry.Name;
        EXPECT_EQ(window.View.CurrentTab(), entry.Tab) << entry.Name;
        if (!entry.Open) {
            EXPECT_NE(window.Of(entry.Control).BackColor, ColorLightGreen) << entry.Name;
        }
    }
}

TEST(DigitEntryDialog, OpensByKeyAndGivesTheFocusToTheTabs) {
    SetupWindow window;
    QWidget* field = window.WidgetOf("txtGateTime");
    field->setFocus(Qt::TabFocusReason);
    QTest::keyClick(field, Qt::Key_Return);
    window.Pump.Settle();
    ASSERT_TRUE(window.Page->Entry().isVisible());
    EXPECT_EQ(window.Page->Entry().focusWidget()->objectName(), "digits");
    EXPECT_EQ(window.Of("txtGateTime").BackColor, ColorLightGreen);
    DoAll(window, "ok");
    EXPECT_EQ(window.Window.focusWidget(), window.Tabs().tabBar());
}

// The button that Enter presses looks like one already; the focus adds a frame.
TEST(DigitEntryDialog, TheFocusOnOkIsSeen) {
    SetupWindow window;
    window.Click("txtGateTime");
    const QWidget* ok = PartOf(window, "cmdOK");
    const auto marked = [ok] {
        const QImage picture = const_cast<QWidget*>(ok)->grab().toImage();
        const QColor frame = ok->palette().color(QPalette::Highlight);
        int dots = 0;
        for (int x = 0; x < picture.width(); ++x) dots += picture.pixelColor(x, 2) == frame;
        return dots;
    };
    EXPECT_EQ(marked(), 0);
    DoAll(window, "tab");
    EXPECT_GT(marked(), ok->width() / 2);
}

TEST(DigitEntryDialog, APointOnOkMovesTheFreePoint) {
    SetupWindow window("197=20");
    window.ClickTab(kScalingTab);
    window.Click("txtLoIn1[0]");
    DoAll(window, "+123456 tab .");
    EXPECT_TRUE(window.Page->Entry().isVisible());
    EXPECT_EQ(PartOf(window, "txtDigit[6]")->accessibleDescription(), QString::fromLatin1("\0.", 2));
}

// It is hidden in the pause after OK: presses on it store nothing more, and the field that is clicked then is
// the next one.
TEST(DigitEntryDialog, InThePauseAfterOkItIsGoneAndTheNextFieldWaits) {
    SetupWindow window("199=50 185=55");  // seconds as a clock value
    window.ClickTab(kScalingTab);
    window.Click("txtOffset1[0]");
    bool shown = true;
    window.Pump.After(5, [&] {
        shown = window.Page->Entry().isVisible();
        QTest::mouseClick(PartOf(window, "cmdOK"), Qt::LeftButton);
        QTest::keyClick(PartOf(window, "digits"), Qt::Key_Escape);
        window.Click("txtScale1[0]");
    });
    DoAll(window, "+010101 ok");
    EXPECT_FALSE(shown);
    EXPECT_EQ(window.Digits(37, 6), "000E4D") << "3661 seconds";
    EXPECT_TRUE(window.Page->Entry().isVisible());
    DoAll(window, "-200000 ok");
    EXPECT_EQ(window.Of("txtScale1[0]").Text, " -2.00000");
    EXPECT_FALSE(window.Page->Entry().isVisible());
}

TEST(DigitEntryDialog, F1ClosesItForTheHelpOfItsField) {
    SetupWindow window;
    int helped = 0;
    bool shown = true, green = true;
    window.Page->OpenHelp = [&](int helpNumber) {
        helped = helpNumber;
        shown = window.Page->Entry().isVisible();
        green = window.Of("txtGateTime").BackColor == ColorLightGreen;
    };
    window.Click("txtGateTime");
    DoAll(window, "01250 f1");
    EXPECT_EQ(helped, 1108);
    EXPECT_FALSE(shown) << "behind the help";
    EXPECT_FALSE(green) << "once help is asked for";
    window.Page->HelpClosed();
    EXPECT_EQ(window.Program.Views.EntryReturn, 0);
    EXPECT_NE(window.Of("txtGateTime").BackColor, ColorLightGreen);
}

TEST(DigitEntryDialog, APageThatIsPutAwayDropsIt) {
    SetupWindow window;
    window.ClickTab(kScalingTab);
    window.Click("txtScale1[0]");
    window.Page->PutAway();
    EXPECT_FALSE(window.Page->Entry().isVisible());
    window.Page->ComeToFront();
    EXPECT_EQ(window.View.CurrentTab(), kInputTab) << "built anew";
    EXPECT_NE(window.Of("txtScale1[0]").BackColor, ColorLightGreen);
}

TEST(DigitEntryDialog, ADigitTypedOnAFieldOpensItAndABoxThatRefusesBlinks) {
    SetupWindow window("177=0000");
    window.WidgetOf("txtGateTime")->setFocus(Qt::TabFocusReason);
    QTest::keyClick(window.WidgetOf("txtGateTime"), Qt::Key_1);
    window.Pump.Settle();
    ASSERT_TRUE(window.Page->Entry().isVisible());
    const QString title = window.Page->Entry().windowTitle();
    EXPECT_EQ(title, "Enter Decimal Value - Gate Time, 0.00 to 199.99 seconds");
    const QImage before = PartOf(window, "txtDigit[3]")->grab().toImage();
    DoAll(window, "x");
    EXPECT_NE(PartOf(window, "txtDigit[3]")->grab().toImage(), before);
    DoAll(window, "ok");
    EXPECT_EQ(window.Digits(177, 4), "2710");
}

TEST(DigitEntryDialog, ALitMarkIsNoOtherColourAlone) {
    SetupWindow window;
    window.Click("txtGateTime");
    const QImage lit = PartOf(window, "lblDP[2]")->grab().toImage().convertToFormat(QImage::Format_Mono);
    const QImage off = PartOf(window, "lblDP[1]")->grab().toImage().convertToFormat(QImage::Format_Mono);
    EXPECT_NE(lit, off);
}

struct Place {
    const char* Name;
    QRect Field;
    bool Low;
    QPoint At;
};

TEST(DigitEntryDialog, StandsBesideItsField) {
    const QRect screen(0, 0, 1366, 768);
    const QSize dialog(400, 150);
    const Place kPlaces[] = {
        {"below", QRect(100, 200, 120, 24), false, QPoint(100, 255)},
        {"lower", QRect(100, 200, 120, 24), true, QPoint(100, 279)},
        {"above", QRect(100, 640, 120, 24), false, QPoint(100, 482)},
        {"at the right", QRect(1300, 200, 60, 24), false, QPoint(965, 255)},
    };
    for (const Place& place : kPlaces) {
        const QPoint at = PlaceBeside(place.Field, dialog, screen, place.Low);
        EXPECT_EQ(at, place.At) << place.Name << " " << at.x() << "," << at.y();
        EXPECT_FALSE(QRect(at, dialog).intersects(place.Field)) << place.Name;
    }
}

}  // namespace
}  // namespace counter::test
