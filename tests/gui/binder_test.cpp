// Widgets bound to a form: what the user does reaches it, what it refuses goes back, and no echo arises.
#include "desktop/kit/binder.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QComboBox>
#include <QTest>
#include <QVBoxLayout>
#include <array>
#include <cstdlib>

#include "controls/page_builder.h"
#include "desktop/kit/control_widget.h"
#include "desktop/kit/screen_colors.h"
#include "desktop/kit/status_strip.h"

namespace counter {
namespace {

constexpr std::array<std::string_view, 3> kEntries = {"one", "two", "three"};

int NoHelp(std::string_view) {
    return 0;
}

struct BinderBench {
    bool Live = true;
    Form Controls{Live};
    PageBuilder Build{Controls, kEveryTab, NoHelp};
    Framed List = Build.Wrap(ControlKind::List, nullptr, "cboX", "&Caption");
    Control& Box = Build.Add(ControlKind::Check, nullptr, "chkX", "A && B");
    Control& Button = Build.Add(ControlKind::Button, nullptr, "cmdX", "Go");
    Control& Text = Build.Add(ControlKind::Entry, nullptr, "txtX");
    Control& Value = Build.Add(ControlKind::Value, nullptr, "txtV");
    int Ran = 0;
    QWidget Window;
    Binder Bound{Controls};
    QWidget* Row = Bound.MakeRow(List.Frame, List.Inner, &Window);

    BinderBench() {
        auto* column = new QVBoxLayout(&Window);
        column->addWidget(Row);
        for (Control* control : {&Box, &Button, &Text, &Value})
            column->addWidget(Bound.Make(*control, &Window));
        Form::Fill(List.Inner, kEntries);
        for (Control& control : Controls) Controls.On(control, [this](Control&) { ++Ran; });
        Controls.TellChanged();
        Window.show();
    }
    template <class Widget>
    Widget* Of(const Control& control) {
        return static_cast<Widget*>(Bound.WidgetOf(control));
    }
};

TEST(Binder, ShowingWhatARuleSetIsNoActionOfAUser) {
    BinderBench bench;
    bench.Live = false;
    bench.Controls.SetIndex(bench.List.Inner, 2);
    bench.Controls.SetCheck(bench.Box, 1);
    bench.Text.Text = "rule";
    bench.Value.Visible = false;
    bench.Button.Enabled = false;
    bench.Live = true;
    bench.Controls.TellChanged();
    EXPECT_EQ(bench.Of<QComboBox>(bench.List.Inner)->currentIndex(), 2);
    EXPECT_TRUE(bench.Of<QWidget>(bench.Value)->isHidden());
    EXPECT_FALSE(bench.Of<QWidget>(bench.Button)->isEnabled());
    EXPECT_EQ(bench.Ran, 0);
}

// Another window is in front: there the toolkit itself leaves the focus where it was.
TEST(Binder, WhatGoesFromShowHandsTheFocusOn) {
    BinderBench bench;
    bench.Of<QWidget>(bench.Text)->setFocus();
    QWidget other;
    other.show();
    other.activateWindow();
    QTest::qWait(1);
    bench.Text.Visible = false;
    bench.Controls.TellChanged();
    EXPECT_EQ(bench.Window.focusWidget(), bench.Bound.WidgetOf(bench.Value));
    EXPECT_EQ(bench.Ran, 0);
}

TEST(Binder, AWheelLeavesAListAlone) {
    BinderBench bench;
    auto* list = bench.Of<QComboBox>(bench.List.Inner);
    list->setFocus();
    QWheelEvent turn(QPointF(5, 5), list->mapToGlobal(QPointF(5, 5)), {}, QPoint(0, -120), Qt::NoButton, {},
                     Qt::NoScrollPhase, false);
    QApplication::sendEvent(list, &turn);
    EXPECT_EQ(bench.Ran, 0);
}

TEST(Binder, WhatTheFormRefusesGoesBack) {
    BinderBench bench;
    bench.Box.Visible = false;  // and no refresh yet
    QTest::mouseClick(bench.Of<QWidget>(bench.Box), Qt::LeftButton, {}, QPoint(6, 10));
    EXPECT_EQ(bench.Box.Value, 0);
    EXPECT_FALSE(bench.Of<QAbstractButton>(bench.Box)->isChecked());
    EXPECT_TRUE(bench.Of<QWidget>(bench.Box)->isHidden());
}

// Typed with a character that the meter lacks in the middle: the text and the cursor stay as they were.
TEST(Binder, ATextIsInTheCharactersOfItsForm) {
    const auto type = [](QLineEdit* line, const char* text) {
        line->insert(QString::fromUtf8(text));
        emit line->textEdited(line->text());
    };
    BinderBench meter;
    auto* entry = meter.Of<QLineEdit>(meter.Text);
    meter.Bound.Unfit = [](const Control&, const std::string& typed) { EXPECT_EQ(typed, "5\u20AC\u00B5"); };
    type(entry, "5\u00B5");
    entry->setCursorPosition(1);
    type(entry, "\u20AC");
    EXPECT_EQ(meter.Text.Text, "5\xB5");
    EXPECT_EQ(entry->text(), QString::fromUtf8("5\u00B5"));
    EXPECT_EQ(entry->cursorPosition(), 1);

    Form form;
    Binder system(form, Characters::System);
    Control& path = PageBuilder(form, kEveryTab, NoHelp).Add(ControlKind::Entry, nullptr, "txtPath");
    QWidget window;
    auto* line = static_cast<QLineEdit*>(system.Make(path, &window));
    type(line, "/Z\u00E4hler\u20AC");
    EXPECT_EQ(path.Text, "/Z\u00E4hler\u20AC");
}

TEST(Colors, TextsCanBeReadOnEveryGround) {
    for (const Color& role : {ColorRed, ColorGreen}) {
        EXPECT_GT(qGray(StripColorOf(role).rgb()), 120) << "the strip is dark";
        for (const QColor ground : {QColor(Qt::white), QColor(32, 32, 32)}) {
            QPalette palette;
            palette.setColor(QPalette::Base, ground);
            EXPECT_GT(std::abs(qGray(TextColorOf(role, palette).rgb()) - qGray(ground.rgb())), 120);
        }
    }
}

TEST(StatusStrip, ALongTextWraps) {
    StatusStrip strip(nullptr);
    Control line;
    for (int i = 0; i < 60; ++i) line.Caption += "W\u00F6rd ";
    strip.ShowLine(line);
    EXPECT_TRUE(strip.Line().text().startsWith(QString::fromUtf8("W\u00F6rd "))) << "the system's text";
    EXPECT_LT(strip.minimumSizeHint().width(), 600);
}

TEST(Binder, EveryWidgetIsNamed) {
    BinderBench bench;
    EXPECT_TRUE(bench.Bound.Unbound().empty());
    EXPECT_EQ(bench.Of<QWidget>(bench.List.Inner)->accessibleName(), "Caption");
    EXPECT_EQ(bench.Of<QWidget>(bench.List.Inner)->objectName(), "cboX");
    EXPECT_EQ(static_cast<CaptionRow*>(bench.Row)->Caption().buddy(), bench.Of<QWidget>(bench.List.Inner));
}

}  // namespace
}  // namespace counter
