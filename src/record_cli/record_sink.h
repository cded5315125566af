// Where the readings of `counterctl record` go: into a store, and from there to a broker.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "cli/stream_run.h"
#include "publishing/broker.h"
#include "publishing/publisher.h"
#include "recording/recorder.h"

namespace counter {

struct RecordOrder {
    std::string Store;  // path
    std::string Name;   // of the meter; empty: its address
    std::string Note;
    std::optional<BrokerAddress> Broker;
};

class RecordSink : public ReadingSink {
  public:
    RecordSink(const CommandCall& call, RecordOrder order) : call_(call), order_(std::move(order)) {}

    Status Open(LinkSession& link) override;
    // Reads the setup; a run without one is recorded as well.
    Status Begin(LinkSession& link) override;
    Status Take(const std::string& text) override;
    Status PassDone() override { return {}; }
    Status End() override;

  private:
    Status BeginToSend(LinkSession& link);
    void TellTrouble();
    void TellConnection(const std::string& why);
    void Report();

    const CommandCall& call_;
    RecordOrder order_;
    std::optional<Recorder> recorder_;
    std::unique_ptr<Broker> broker_;
    std::unique_ptr<Publisher> publisher_;
};

}  // namespace counter
