// Recorder: writes a run of readings into a store while they come, in batches.
//
// A reading is in the file at most kBatchMs after it was taken, which is what a kill can cost; a batch of 20
// readings takes about a millisecond of the caller's thread. A disk that is full, or a file that another
// program holds, is met by trying on, and the readings wait in memory.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/pump.h"
#include "recording/reading_store.h"

namespace counter {

class Recorder {
  public:
    static constexpr double kBatchMs = 500;
    static constexpr double kRetryMs = 1000;         // after a batch that could not be written
    static constexpr std::size_t kBatchMost = 1000;  // readings, after which none waits for the time
    static constexpr std::size_t kMemory = 100'000;  // readings that wait; over an hour of 20 a second

    // `pump` must outlive it. A wait of the pump, any one, writes what is due.
    explicit Recorder(Pump& pump) : pump_(pump) {}
    ~Recorder() { End(); }
    Recorder(const Recorder&) = delete;
    Recorder& operator=(const Recorder&) = delete;

    // Opens the store, which is laid down where there is none. Waits for another program that writes.
    Status Open(const std::string& path);
    // Begins a run in it. `facts` need no start: it is now, in the clock's zone.
    Status Begin(RunFacts facts);
    Status Begin(const std::string& path, RunFacts facts) {
        Status status = Open(path);
        return status.Ok() ? Begin(std::move(facts)) : status;
    }
    bool Recording() const { return ticker_ != nullptr; }
    // A frame as it came, with the time at which it did. Without a visible character it is no reading. Never
    // waits for long.
    void Take(std::string_view frame, const WallTime& time);
    void Take(std::string_view frame) { Take(frame, pump_.LocalTime()); }
    // Writes what waits; tells why where it can't. Another End tries once more. The store stays open to be
    // read.
    Status End();

    std::int64_t Run() const { return run_; }
    std::int64_t Taken() const { return taken_; }  // readings, in the file or waiting
    std::int64_t Written() const { return taken_ - static_cast<std::int64_t>(waiting_.size()); }
    std::int64_t Refused() const { return refused_; }  // for which memory had no more room
    // Why the last batch could not be written; good again as soon as one was.
    const Status& Trouble() const { return trouble_; }
    // The open store; null before Open.
    ReadingStore* Store() { return store_.get(); }

    std::function<void()> Wrote;           // a batch is in the file; may be empty
    std::function<void()> TroubleChanged;  // may be empty

  private:
    void WriteWhenDue();
    Status WriteBatch();

    Pump& pump_;
    std::unique_ptr<ReadingStore> store_;
    std::shared_ptr<Pump::Ticker> ticker_;
    std::vector<StoredReading> waiting_;
    double dueMs_ = 0;  // of the batch that waits
    std::int64_t run_ = 0, taken_ = 0, refused_ = 0;
    Status trouble_;
};

}  // namespace counter
