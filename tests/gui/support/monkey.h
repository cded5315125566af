// Monkey: a user without a plan at the window of the desktop tool. It clicks, types, chooses from the menu
// and closes windows by the dice, also in the middle of what it has begun: its acts are events on the virtual
// clock, so those of a later time run inside the waits of an earlier one.
#pragma once

#include <QAbstractButton>
#include <QComboBox>
#include <QLineEdit>
#include <QMenuBar>
#include <QPointer>
#include <QPrintDialog>
#include <QScrollBar>
#include <QWindow>
#include <deque>

#include "desktop/kit/qt_dialogs.h"
#include "support/dice.h"
#include "support/gui_bench.h"

namespace counter::test {

class Monkey {
  public:
    // `trouble` lets something go wrong in the world, and tells what. One that stays doesn't end the program.
    Monkey(Dice& dice, GuiPump& pump, Desktop& desk, RecordedDialogs& boxes, bool stays,
           std::function<std::string()> trouble)
        : dice_(dice), pump_(pump), desk_(desk), boxes_(boxes), stays_(stays), trouble_(std::move(trouble)) {
        desk_.Home().Controls.Find("mnuExit")->Enabled = !stays_;
        desk_.Home().Controls.TellChanged();
        screen_.SetParent(&desk_.Window());
        boxes_.Meanwhile = [this](const Message& message) { screen_.Show(message); };
    }
    // Acts this often, then closes what is open and comes back when no wait is under way.
    void Play(int acts) {
        left_ = acts;
        beats_ = true;
        Beat();
        while (left_ > 0) pump_.Pass(1000);
        pump_.Pass(kRestMs);
        beats_ = false;
        pump_.Pass(kLongestPauseMs);
        boxes_.Meanwhile = nullptr;
    }
    std::function<void()> AfterAct;
    // What it did last, a line each.
    std::string Story() const {
        std::string story;
        for (const std::string& line : story_) story += line + "\n";
        return story;
    }

  private:
    static constexpr int kDeepest = 10;             // acts inside of acts
    static constexpr std::size_t kStoryLines = 30;  // as many as a failure needs to be understood
    static constexpr double kLongestPauseMs = 20'000;
    static constexpr double kRestMs = 30'000;
    static constexpr double kLongestWaitMs = 1'800'000;  // no action that nobody disturbs takes half an hour

    struct Deeper {
        explicit Deeper(int& depth) : Depth(depth) { ++Depth; }
        ~Deeper() { --Depth; }
        int& Depth;
    };

    // The next beat is set before this one acts: it comes whatever that begins.
    void Beat() {
        if (!beats_) return;
        pump_.After(Pause(), [this] { Beat(); });
        if (left_ <= 0 || depth_ >= kDeepest) return Rest();
        --left_;
        lastActMs_ = pump_.NowMs();
        const Deeper deeper(depth_);
        Act();
        GuiPump::Settle();
        if (AfterAct) AfterAct();
    }
    void Rest() {
        if (pump_.NowMs() > lastActMs_ + kLongestWaitMs) throw EndlessWait("no end of: " + pump_.Reasons());
        if (QWidget* over = Over()) return Press(*over, Qt::Key_Escape);
        ViewPage* const page = desk_.Window().Current();
        const bool lasts = pump_.NowMs() > lastActMs_ + kRestMs / 2;
        if (lasts && page != first_ && page != desk_.PageOf(ViewId::Home)) page->Leave();
    }
    double Pause() {
        const int limits[] = {20, 20, 200, 200, 1000, 3000, static_cast<int>(kLongestPauseMs)};
        return left_ > 0 ? dice_.Below(dice_.Pick(limits)) : 500;
    }

    // What is over the window; null: nothing.
    static QWidget* Over() {
        QWidget* popup = QApplication::activePopupWidget();
        return popup ? popup : QApplication::activeModalWidget();
    }
    void Act() {
        QWidget* over = Over();
        QWidget& top = over ? *over : desk_.Window();
        // Its own questions run loops of their own, on which the virtual clock does not run.
        if (qobject_cast<QPrintDialog*>(over)) return Press(top, Qt::Key_Escape);
        boxes_.SaysYes = !dice_.OneIn(3);
        const int act = dice_.Below(100);
        if (act < 5) return Tell(trouble_());
        if (act < 10) return Close(top);
        const bool atHome = desk_.Window().Current() == desk_.PageOf(ViewId::Home);
        if (act < (atHome ? 50 : 15) && !over) return Choose();
        act < 65 ? Click(top) : Type(top);
    }
    void Choose() {
        // Most of the menu is help, of which little is enough.
        const char* const usual[] = {"mnuDefaultSet", "mnuGet",    "mnuGet",    "mnuPut",  "mnuSetup",
                                     "mnuSetup",      "mnuSetup",  "mnuMenu",   "mnuList", "mnuPlot",
                                     "mnuGraph",      "mnuCmdsGo", "mnuCmdsGo", "mnuOpen", "mnuSave",
                                     "mnuSaveAs",     "mnuCalibGo"};
        const HomeMenuRow& row = dice_.Pick(HomeMenu());
        if (row.Heading || (row.Name == "mnuExit" && !dice_.OneIn(8))) return;
        const char* const name = dice_.OneIn(4) ? row.Name.data() : dice_.Pick(usual);
        auto* entry = desk_.Window().findChild<QAction*>(QLatin1String(name));
        auto* menu = qobject_cast<QMenu*>(entry->parent());
        if (!desk_.Window().menuBar()->isVisible() || !entry->isEnabled() || !entry->isVisible()) return;
        if (menu && !menu->menuAction()->isEnabled()) return;
        Tell("choose " + std::string(name));
        entry->trigger();
    }
    void Close(QWidget& top) {
        ViewPage* const page = desk_.Window().Current();
        const bool ends = page == first_ || page == desk_.PageOf(ViewId::Home);
        if (&top == &desk_.Window() && ends && (stays_ || !dice_.OneIn(8))) return;
        if (!stays_ && dice_.OneIn(60)) {
            Tell("interrupt");
            return desk_.Interrupt();
        }
        Tell("close " + NameOf(top));
        top.close();
    }
    void Click(QWidget& top) {
        QWidget* widget = Aim(top);
        if (widget->objectName() == "cmdQuit" && !dice_.OneIn(8)) return;
        const QRect seen = widget->visibleRegion().boundingRect();
        if (seen.isEmpty() || !top.windowHandle()) return;
        // Boxes and options are hit on their mark at the left.
        QPoint at(seen.left() + std::min(8, seen.width() / 2), seen.center().y());
        if (dice_.OneIn(2))
            at = seen.topLeft() + QPoint(dice_.Below(seen.width()), dice_.Below(seen.height()));
        // The menu of a scroll bar runs a loop of its own, on which the virtual clock does not run.
        const bool bar = qobject_cast<QScrollBar*>(top.childAt(widget->mapTo(&top, at)));
        const auto button = !bar && dice_.OneIn(12) ? Qt::RightButton : Qt::LeftButton;
        Tell((button == Qt::LeftButton ? "click " : "right click ") + NameOf(*widget));
        QTest::mouseClick(top.windowHandle(), button, {}, widget->mapTo(&top, at));
    }
    // Any widget; mostly one that is there to be clicked.
    QWidget* Aim(QWidget& top) {
        std::vector<QWidget*> all, meant;
        for (QWidget* widget : top.findChildren<QWidget*>()) {
            if (!widget->isVisible() || widget->window() != &top) continue;
            all.push_back(widget);
            const bool takes = qobject_cast<QAbstractButton*>(widget) || qobject_cast<QLineEdit*>(widget) ||
                               qobject_cast<QComboBox*>(widget) || qobject_cast<QTabBar*>(widget);
            if (takes && widget->isEnabled()) meant.push_back(widget);
        }
        if (all.empty()) return &top;
        return meant.empty() || dice_.OneIn(6) ? dice_.Pick(all) : dice_.Pick(meant);
    }
    void Type(QWidget& top) {
        static constexpr Qt::Key kKeys[] = {Qt::Key_Return,   Qt::Key_Return, Qt::Key_Escape,  Qt::Key_F1,
                                            Qt::Key_Tab,      Qt::Key_Tab,    Qt::Key_Backtab, Qt::Key_Up,
                                            Qt::Key_Down,     Qt::Key_Down,   Qt::Key_Left,    Qt::Key_Right,
                                            Qt::Key_Space,    Qt::Key_Home,   Qt::Key_End,     Qt::Key_PageUp,
                                            Qt::Key_PageDown, Qt::Key_Delete};
        if (dice_.OneIn(12)) return Press(top, dice_.OneIn(3) ? Qt::Key_Y : Qt::Key_Z, Qt::ControlModifier);
        if (dice_.OneIn(10))
            return Press(top, static_cast<Qt::Key>(Qt::Key_A + dice_.Below(26)), Qt::AltModifier);
        if (!dice_.OneIn(3)) return Press(top, dice_.Pick(kKeys));
        for (int keys = 1 + dice_.Below(6); keys > 0 && Over() == (&top == &desk_.Window() ? nullptr : &top);
             --keys)
            Press(top, static_cast<Qt::Key>(dice_.Pick(std::string_view("0123456789000+-.AFX'#"))));
    }
    void Press(QWidget& top, Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        if (!top.windowHandle()) return;
        Tell("key " + QKeySequence(key | modifiers).toString().toStdString() + " on " + NameOf(top));
        // A box may end with the press, or with the release of the letter: no event may come behind that.
        const QPointer<QWindow> window = top.windowHandle();
        const bool alone = modifiers == Qt::NoModifier;
        const auto send = [&](bool press) {
            if (!alone) return QTest::simulateEvent(window, press, key, modifiers, {}, false);
            QTest::sendKeyEvent(press ? QTest::Press : QTest::Release, window, key, QTest::keyToAscii(key),
                                modifiers);
        };
        send(true);
        if (window) send(false);
    }

    static std::string NameOf(const QWidget& widget) {
        const QString name = widget.objectName().isEmpty() ? widget.windowTitle() : widget.objectName();
        return widget.metaObject()->className() + (" '" + name.toStdString() + "'");
    }
    void Tell(const std::string& what) {
        story_.push_back(std::to_string(pump_.NowMs()) + " ms, depth " + std::to_string(depth_) + ": " +
                         what);
        if (story_.size() > kStoryLines) story_.pop_front();
        if (loud_) qInfo("%s", story_.back().c_str());
    }

    Dice& dice_;
    GuiPump& pump_;
    Desktop& desk_;
    RecordedDialogs& boxes_;
    const bool stays_;
    std::function<std::string()> trouble_;
    QtDialogs screen_{pump_, "/nowhere"};
    const bool loud_ = qEnvironmentVariableIsSet("MONKEY_LOUD");
    ViewPage* const first_ = desk_.Window().Current();
    std::deque<std::string> story_;
    bool beats_ = false;
    int left_ = 0, depth_ = 0;
    double lastActMs_ = 0;
};

}  // namespace counter::test
