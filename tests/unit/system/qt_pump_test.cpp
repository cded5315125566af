#include "system/qt_pump.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>
#include <csignal>
#include <cstdio>
#include <optional>

#include "support/temp_folder.h"
#include "system/core_runtime.h"
#include "system/disk_files.h"

namespace counter {

const Pump::Condition kNever = [] { return false; };

// The two kinds of event loop order their work differently: the plain one may still go to sleep after a
// queued event has run. The parameter chooses the plain one.
class QtPumpTest : public testing::TestWithParam<bool> {
  protected:
    QtPumpTest() {
        if (GetParam()) qputenv("QT_NO_GLIB", "1");
        runtime_.emplace();
        qunsetenv("QT_NO_GLIB");
        pump_.emplace();
        alarm(30);  // a wait that never ends kills the test, not the run
    }
    ~QtPumpTest() override { alarm(0); }

    static void Queue(std::function<void()> act) {
        QMetaObject::invokeMethod(QCoreApplication::instance(), std::move(act), Qt::QueuedConnection);
    }
    bool Comes(double ms, const Pump::Condition& what) {
        return pump_->WaitUntil(pump_->NowMs() + ms, what, "test");
    }

    std::optional<CoreRuntime> runtime_;
    std::optional<QtPump> pump_;
};

INSTANTIATE_TEST_SUITE_P(EventLoops, QtPumpTest, testing::Bool(),
                         [](const auto& loop) { return loop.param ? "Plain" : "Default"; });

TEST_P(QtPumpTest, WaitThatIsOverRunsNothing) {
    bool ran = false;
    Queue([&] { ran = true; });
    EXPECT_FALSE(Comes(-1, kNever));
    EXPECT_TRUE(Comes(Pump::kForever, [] { return true; }));
    EXPECT_FALSE(ran);
    EXPECT_TRUE(Comes(Pump::kForever, [&] { return ran; }));
}

TEST_P(QtPumpTest, WaitSleepsUntilItsDeadline) {
    int turns = 0;
    EXPECT_FALSE(Comes(50, [&] { return ++turns < 0; }));
    EXPECT_LE(turns, 5);  // the first look, the ring, and a few wakes of the event loop's own
}

TEST_P(QtPumpTest, NestedWaitsEndEachAtItsOwnDeadline) {
    // A loop that is not the pump's, such as a progress dialog's, swallows the ring of the outer deadline.
    const auto innerWait = [&](double ms) { Comes(ms, kNever); };
    const auto otherLoop = [&](double ms) {
        QTimer timer;
        timer.setSingleShot(true);
        timer.start(static_cast<int>(ms));
        while (timer.isActive()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    };
    // clang-format off
    const struct { const char* Name; double OuterMs, InnerMs; std::function<void(double)> Inner; } cases[] = {
        {"inner longer",       20, 50, innerWait},
        {"inner shorter",      50, 20, innerWait},
        {"other loop longer",  20, 50, otherLoop},
    };
    // clang-format on
    for (const auto& c : cases) {
        bool innerEnded = false;
        Queue([&] { innerEnded = (c.Inner(c.InnerMs), true); });
        EXPECT_FALSE(Comes(c.OuterMs, kNever));
        EXPECT_TRUE(innerEnded) << c.Name;
    }
}

TEST_P(QtPumpTest, InterruptWakesTheWaitAndComesOnce) {
    pump_->InstallInterruptHandler();
    int interrupts = 0;
    pump_->OnInterrupt = [&] { ++interrupts; };
    for (const int signalNumber : {SIGINT, SIGTERM, SIGHUP, SIGQUIT}) {
        interrupts = 0;
        Queue([=] { raise(signalNumber); });
        EXPECT_TRUE(Comes(Pump::kForever, [&] { return interrupts > 0; }));
        Comes(5, kNever);
        EXPECT_EQ(interrupts, 1);
    }
    raise(SIGPIPE);  // would end the program
}

// nohup: the program outlives its terminal.
TEST_P(QtPumpTest, AHangUpThatIsIgnoredStaysIgnored) {
    const auto former = std::signal(SIGHUP, SIG_IGN);
    pump_->InstallInterruptHandler();
    bool interrupted = false;
    pump_->OnInterrupt = [&] { interrupted = true; };
    Queue([] { raise(SIGHUP); });
    Comes(5, kNever);
    EXPECT_FALSE(interrupted);
    pump_.reset();
    std::signal(SIGHUP, former);
}

TEST_P(QtPumpTest, LocalTimeIsTheSystems) {
    const std::time_t now = std::time(nullptr);
    const std::tm* local = std::localtime(&now);
    const WallTime time = pump_->LocalTime();
    EXPECT_EQ(time.Year * 12 + time.Month, (local->tm_year + 1900) * 12 + local->tm_mon + 1);
}

TEST_P(QtPumpTest, EndProcessFlushesFilesAndRunsNoLineMore) {
    const TempFolder folder;
    FILE* file = fopen(folder.At("words").c_str(), "w");
    EXPECT_EXIT((fputs("last words", file), pump_->EndProcess(130)), testing::ExitedWithCode(130), "");
    fclose(file);
    std::string words;
    DiskFiles().Read(folder.At("words"), words);
    EXPECT_EQ(words, "last words");
}

}  // namespace counter
