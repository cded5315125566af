// ReadingStore: an SQLite file of readings, run by run. docs/formats.md tells its tables.
//
// Several programs may have one file open and write into it. What a call has written is whole after a kill:
// each is one transaction of the file's write-ahead log. Nothing is kept in memory between calls.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "link/reading_items.h"
#include "platform/status.h"
#include "recording/run_facts.h"

namespace counter {

class StoreQueries;

struct StoredRun : RunFacts {
    std::int64_t Id = 0;        // from 1 on, in the order in which they began
    std::int64_t Readings = 0;  // how many are in the file
    std::int64_t LastMs = 0;    // time of the last; that of the start where there is none
};

struct StoredReading {
    std::int64_t Run = 0;
    std::int64_t Number = 0;  // within its run, from 1 on without a gap
    std::int64_t TimeMs = 0;  // UTC since 1970
    std::vector<ReadingItem> Items;
};

class ReadingStore {
  public:
    // The tables as this version writes them; a file of a later one is refused.
    static constexpr int kSchema = 1;
    // How long a call waits while another program writes. For whoever must not stall: a batch that finds the
    // file busy can be written later.
    static constexpr int kPatientMs = 5000;
    static constexpr int kHastyMs = 100;

    // `Make` lays down a file that isn't there; `Read` changes nothing.
    enum class Use { Make, Read };
    // Refuses what is no store of readings. Needs an application object that lives longer, and belongs to its
    // thread.
    static Status Open(const std::string& path, Use use, std::unique_ptr<ReadingStore>& store);
    ~ReadingStore();
    ReadingStore(const ReadingStore&) = delete;
    ReadingStore& operator=(const ReadingStore&) = delete;

    void WaitAtMost(int ms);
    const std::string& Path() const { return path_; }

    Status BeginRun(const RunFacts& facts, std::int64_t& run);
    // All or none.
    Status Add(std::span<const StoredReading> readings);

    Status Runs(std::vector<StoredRun>& runs);
    // Those of a run in their order, from `first` on, at most `most`.
    Status Readings(std::int64_t run, std::int64_t first, int most, std::vector<StoredReading>& readings);

    // What the broker has not taken: of all runs that are sent there, in the order of runs and numbers, what
    // comes behind that reading; at most `most`.
    Status ToSend(const std::string& topic, std::int64_t run, std::int64_t number, int most,
                  std::vector<StoredReading>& readings);
    Status CountToSend(const std::string& topic, std::int64_t& count);
    // The broker has taken this reading and all before it. One that it had taken already changes nothing.
    Status Sent(const std::string& topic, std::int64_t run, std::int64_t number);
    // The last reading that the broker has taken; 0 and 0 for none.
    Status LastSent(const std::string& topic, std::int64_t& run, std::int64_t& number);

  private:
    ReadingStore(std::string path, std::unique_ptr<StoreQueries> queries);

    std::string path_;
    std::unique_ptr<StoreQueries> queries_;
};

}  // namespace counter
