// The one wait: what nests, what wakes it, what it says when it would never end.
#include "platform/pump.h"

#include <gtest/gtest.h>

#include "support/virtual_pump.h"

namespace counter::test {
namespace {

bool Never() {
    return false;
}

TEST(Wait, EndsByConditionOrDeadlineAndRunsNothingWhenAlreadyDue) {
    VirtualPump pump;
    int runs = 0;
    pump.After(0, [&] { ++runs; });
    EXPECT_TRUE(pump.WaitUntil(
        pump.NowMs() + 10, [] { return true; }, "holds"));
    EXPECT_FALSE(pump.WaitUntil(pump.NowMs(), Never, "past"));
    EXPECT_EQ(runs, 0);
    EXPECT_FALSE(pump.WaitUntil(pump.NowMs() + 10, Never, "later"));
    EXPECT_EQ(runs, 1);
    EXPECT_EQ(pump.NowMs(), 1010);
}

TEST(Wait, AnInnerWaitRunsToItsEndInsideTheOuter) {
    VirtualPump pump;
    std::string order;
    pump.After(5, [&] {
        pump.WaitUntil(pump.NowMs() + 100, Never, "inner");
        order += "inner@" + std::to_string(static_cast<int>(pump.NowMs())) + " ";
    });
    pump.WaitUntil(pump.NowMs() + 10, Never, "outer");
    order += "outer@" + std::to_string(static_cast<int>(pump.NowMs()));
    EXPECT_EQ(order, "inner@1105 outer@1105");
}

TEST(Wait, WithoutDeadlineAndWithNothingDueFailsWithItsReasons) {
    VirtualPump pump;
    pump.After(1, [&] { pump.WaitUntil(Pump::kForever, Never, "inner"); });
    try {
        pump.WaitUntil(Pump::kForever, Never, "outer");
        FAIL() << "the wait came back";
    } catch (const EndlessWait& wait) {
        EXPECT_STREQ(wait.what(), "endless wait: outer > inner");
    }
    EXPECT_EQ(pump.Reasons(), "");
}

TEST(Wait, AnInterruptIsToldOnceAtTheNextTurn) {
    VirtualPump pump;
    int interrupts = 0;
    pump.OnInterrupt = [&] { ++interrupts; };
    pump.After(5, [&] { pump.RequestInterrupt(); });
    pump.After(7, [] {});
    pump.WaitUntil(pump.NowMs() + 10, Never, "wait");
    EXPECT_EQ(interrupts, 1);
}

TEST(Every, TicksInWhateverWaitIsUnderWay) {
    VirtualPump pump;
    std::string ticks;
    auto ticker = pump.Every(100, [&] { ticks += std::to_string(static_cast<int>(pump.NowMs())) + " "; });
    pump.After(150, [&] { pump.WaitUntil(pump.NowMs() + 100, Never, "inner"); });
    pump.WaitUntil(pump.NowMs() + 320, Never, "outer");
    EXPECT_EQ(ticks, "1100 1200 1300 ");
    ticker.reset();
    EXPECT_THROW(pump.WaitUntil(Pump::kForever, Never, "nothing is due any more"), EndlessWait);
}

}  // namespace
}  // namespace counter::test
