// Publisher: sends the runs of a store to a broker, each reading once and in order, whenever there is one.
//
// A reading goes out after it is in the file, and is sent until the broker has acknowledged it; the file
// remembers how far that is. Whether one that was sent and not acknowledged has arrived, the broker itself
// knows: this side listens to what it sends, in a session that the broker keeps. It does not listen while a
// batch is underway, and only what the file remembers as taken is let go of there. So after each new
// connection, a kill before it included, a mark is sent: what comes back in front of it had arrived, all else
// had not.
#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <string>

#include "platform/pump.h"
#include "publishing/broker.h"
#include "recording/reading_store.h"

namespace counter {

// Under PREFIX/NAME: what a meter sends.
struct Topics {
    explicit Topics(const std::string& base)
        : Readings(base + "/readings"), Mark(base + "/mark"), Status(base + "/status") {}
    std::string Readings, Mark, Status;
};

class Publisher {
  public:
    static constexpr int kBatch = 500;         // readings underway; a broker may drop more than 1000
    static constexpr double kMarkMs = 10'000;  // for the mark, or a batch, to come back

    // All must outlive it. The store may be written by others as well.
    Publisher(Pump& pump, ReadingStore& store, Broker& broker, Topics topics);
    // From now on whatever wait is under way sends.
    void Begin();
    // New readings are in the file.
    void Notice() { idle_ = false; }
    // Waits up to that long until the broker has all that is in the file, and keeps what it has taken.
    void End(double ms);
    const std::string& To() const { return topics_.Readings; }

    std::function<void(const std::string& why)> ConnectionChanged;  // empty: it is there. May be empty

  private:
    enum class Phase {
        Away,
        Asking,    // until the mark comes back
        Ready,     // nothing is underway
        Underway,  // a batch, until the broker has acknowledged it; nobody listens
        Clearing,  // until the last of the batch has come back
    };
    struct Place {
        std::int64_t Run = 0, Number = 0;
        auto operator<=>(const Place&) const = default;
    };
    struct Message {
        int Id;
        Place Of;
        bool Taken;
    };

    void Look();
    void Act(const BrokerEvent& event);
    void Ask();
    void Lose(const std::string& why);
    void Hear(const BrokerEvent& message);
    void HearOwn(const std::string& text);
    void Acknowledged(int id);
    void Send();
    void EndBatch();
    bool Keep();

    Pump& pump_;
    ReadingStore& store_;
    Broker& broker_;
    Topics topics_;
    std::shared_ptr<Pump::Ticker> ticker_;
    Phase phase_ = Phase::Away;
    std::string mark_;             // whose return is awaited
    double dueMs_ = 0;             // when that is given up
    std::string why_ = "not yet";  // there is no connection; empty where there is one
    std::deque<Message> underway_;
    Place sent_, taken_, kept_;
    bool idle_ = false;  // nothing is in the file behind `sent_`
};

// What is sent of a reading: {"run": 1, "number": 5, "time": ..., "reading": ..., "items": [...]}, and
// "alarms", a text an item, where there are any. The time is told in UTC.
std::string PublishedText(const StoredReading& reading);

}  // namespace counter
