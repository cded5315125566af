// The store of readings as a recorder fills it: what is in the file when, and what it refuses.
#include <gtest/gtest.h>

#include <fstream>

#include "platform/utc_time.h"
#include "recording/recorder.h"
#include "support/temp_folder.h"
#include "support/virtual_pump.h"
#include "system/core_runtime.h"
#include "system/sql/store_queries.h"

namespace counter::test {
namespace {

struct RecordingTest : testing::Test {
    CoreRuntime Runtime;
    TempFolder Folder;
    VirtualPump Clock;
    const std::string Path = Folder.At("r.db");

    std::vector<StoredReading> InFile(std::int64_t run) {
        std::unique_ptr<ReadingStore> store;
        std::vector<StoredReading> readings;
        EXPECT_TRUE(ReadingStore::Open(Path, ReadingStore::Use::Read, store).Ok());
        EXPECT_TRUE(store->Readings(run, 1, 100'000, readings).Ok());
        return readings;
    }
    Status OpenToRead() {
        std::unique_ptr<ReadingStore> store;
        return ReadingStore::Open(Path, ReadingStore::Use::Read, store);
    }
};

TEST_F(RecordingTest, AReadingIsInTheFileWithItsItemsAfterABatch) {
    Recorder recorder(Clock);
    RunFacts facts;
    facts.Meter = "press \xC3\xA4", facts.Setup = "00FF", facts.Address = 17, facts.Baud = 9600;
    ASSERT_TRUE(recorder.Begin(Path, facts).Ok());
    recorder.Take("\r ");  // none
    recorder.Take("+  12.50A- 3.0\x9B\r");
    EXPECT_TRUE(InFile(1).empty()) << "not one by one";
    Clock.WaitUntil(
        Clock.NowMs() + Recorder::kBatchMs + 200, [] { return false; }, "a batch");
    const auto readings = InFile(1);
    ASSERT_EQ(readings.size(), 1U);
    EXPECT_EQ(IsoTime(WallTimeAt(readings[0].TimeMs, -210)), "2026-03-04T05:06:07.089-03:30");
    ASSERT_EQ(readings[0].Items.size(), 2U);
    EXPECT_EQ(readings[0].Items[0].Sent, "+  12.50A");
    EXPECT_EQ(readings[0].Items[0].Number, "12.50");
    EXPECT_EQ(readings[0].Items[0].Alarms, "A");
    EXPECT_EQ(readings[0].Items[1].Sent, "- 3.0\x9B");
    std::vector<StoredRun> runs;
    ASSERT_TRUE(recorder.Store()->Runs(runs).Ok());
    EXPECT_EQ(runs[0].Meter + runs[0].Setup, facts.Meter + facts.Setup);
    EXPECT_EQ(runs[0].Address * 100'000 + runs[0].Baud, 1'709'600);
    EXPECT_EQ(runs[0].MinutesEast, -210);
    EXPECT_EQ(runs[0].LastMs, readings[0].TimeMs);
}

// Two recorders take turns; one that finds the file held goes on trying and loses nothing, up to what memory
// is for.
TEST_F(RecordingTest, AFileThatIsHeldIsTriedAgain) {
    Recorder one(Clock), other(Clock);
    ASSERT_TRUE(one.Begin(Path, {}).Ok());
    ASSERT_TRUE(other.Begin(Path, {}).Ok());
    {
        StoreQueries holder(Path);
        ASSERT_TRUE(holder.Open("").Ok());
        StoreQueries::Transaction held(holder);
        ASSERT_TRUE(held.Begin().Ok());
        for (int i = 0; i < 1500; ++i)
            one.Take("+1."), Clock.WaitUntil(
                                 Clock.NowMs() + 1, [] { return false; }, "");
        other.Take("+2.");
        EXPECT_EQ(one.Trouble().Kind, StatusKind::Busy);
        EXPECT_EQ(one.Written(), 0);
        for (std::size_t i = 1500; i < Recorder::kMemory + 5; ++i) one.Take("+1.");
        EXPECT_EQ(one.Refused(), 5);
    }
    EXPECT_TRUE(one.End().Ok());
    EXPECT_TRUE(other.End().Ok());
    EXPECT_EQ(InFile(1).size(), Recorder::kMemory);
    EXPECT_EQ(InFile(1).back().Number, static_cast<std::int64_t>(Recorder::kMemory));
    EXPECT_EQ(InFile(2).size(), 1U);
}

TEST_F(RecordingTest, WhatIsNoStoreOfThisVersionIsRefused) {
    EXPECT_EQ(OpenToRead().Kind, StatusKind::NotFound);
    std::ofstream(Path) << std::string(5000, 'x');
    EXPECT_EQ(OpenToRead().Reason, "is no store of readings");
    EXPECT_EQ(Recorder(Clock).Begin(Path, {}).Reason, "is no store of readings");
    for (const auto& [statement, reason] :
         {std::pair("PRAGMA user_version=2",
                    "was written by a later version: its tables are of schema 2, and "
                    "this version knows schema 1"),
          std::pair("PRAGMA application_id=7", "is no store of readings")}) {
        std::remove(Path.c_str());
        Recorder(Clock).Begin(Path, {});
        {
            StoreQueries other(Path);
            ASSERT_TRUE(other.Open("").Ok() && other.Do(statement).Ok());
        }
        EXPECT_EQ(OpenToRead().Reason, reason);
        EXPECT_EQ(Recorder(Clock).Begin(Path, {}).Reason, reason);
    }
    EXPECT_EQ(Recorder(Clock).Begin(Folder.At("none/r.db"), {}).Reason, "No such file or directory");
    EXPECT_EQ(Recorder(Clock).Begin(Folder.Path, {}).Reason, "Is a directory");
}

// What the broker has taken is left behind run by run; what it took of another topic is its own.
TEST_F(RecordingTest, WhatTheBrokerHasNotTakenComesInOrder) {
    Recorder runs[] = {Recorder(Clock), Recorder(Clock), Recorder(Clock)};
    const char* topics[] = {"a", "b", "a"};
    for (int i = 0; i < 3; ++i) {
        RunFacts facts;
        facts.Topic = topics[i];
        ASSERT_TRUE(runs[i].Begin(Path, facts).Ok());
        for (int n = 0; n < 3; ++n) runs[i].Take("+1.+2.");
        ASSERT_TRUE(runs[i].End().Ok());
    }
    ReadingStore& store = *runs[0].Store();
    const auto next = [&](std::int64_t run, std::int64_t number, int most) {
        std::vector<StoredReading> readings;
        EXPECT_TRUE(store.ToSend("a", run, number, most, readings).Ok());
        std::string text;
        for (const auto& r : readings) text += std::to_string(r.Run) + "." + std::to_string(r.Number) + " ";
        return text;
    };
    EXPECT_EQ(next(0, 0, 2), "1.1 1.2 ");
    EXPECT_EQ(next(1, 2, 9), "1.3 ");
    EXPECT_EQ(next(1, 3, 9), "3.1 3.2 3.3 ");
    ASSERT_TRUE(store.Sent("a", 3, 1).Ok());
    ASSERT_TRUE(store.Sent("a", 1, 1).Ok()) << "late, and nothing new";
    EXPECT_EQ(next(0, 0, 9), "3.2 3.3 ");
    std::int64_t run = 0, number = 0, waiting = 0;
    ASSERT_TRUE(store.CountToSend("a", waiting).Ok());
    EXPECT_EQ(waiting, 2);
    ASSERT_TRUE(store.LastSent("a", run, number).Ok());
    EXPECT_EQ(run * 10 + number, 31);
}

}  // namespace
}  // namespace counter::test
