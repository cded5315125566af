#include "record_cli/record_sink.h"

#include "cli/cli_output.h"

namespace counter {

namespace {

// For the broker to take what is underway when the recording ends; what it does not take goes out the next
// time.
constexpr double kLastMs = 5000;

// The digits, or nothing where they did not come whole: that costs a recording its setup and not its
// readings. A line that has gone ends it, as it would end the stream.
std::string ReadSetup(LinkSession& link) {
    Session& program = link.Program();
    if (link.Get() == kDone) return program.Image.SetupData;
    int& error = program.LinkState.LinkError;
    if (error == LinkErrors::kPortFault) return {};
    link.Tell("the setup was not read (" + std::to_string(error) + "); the run is recorded without it");
    error = LinkErrors::kGood;
    return {};
}

}  // namespace

Status RecordSink::Open(LinkSession& link) {
    recorder_.emplace(link.Program().Pump);
    recorder_->TroubleChanged = [this] { TellTrouble(); };
    Status status = recorder_->Open(order_.Store);
    if (!status.Ok() || !order_.Broker) return status;
    if (order_.Name.empty()) order_.Name = std::to_string(link.Program().Settings.MeterAddressValue);
    return BeginToSend(link);
}

// What an earlier run left behind goes out while the meter is being asked.
Status RecordSink::BeginToSend(LinkSession& link) {
    const std::string base = order_.Broker->Prefix + "/" + order_.Name;
    const Topics topics(base);
    broker_ = std::make_unique<Broker>(
        BrokerUse{*order_.Broker, "counter-record/" + base, topics.Status, topics.Readings, topics.Mark});
    publisher_ = std::make_unique<Publisher>(link.Program().Pump, *recorder_->Store(), *broker_, topics);
    publisher_->ConnectionChanged = [this](const std::string& why) { TellConnection(why); };
    recorder_->Wrote = [this] { publisher_->Notice(); };
    Status status = broker_->Start();
    if (status.Ok()) publisher_->Begin();
    return status;
}

Status RecordSink::Begin(LinkSession& link) {
    const Settings& settings = link.Program().Settings;
    RunFacts facts = FactsOf(settings);
    facts.Setup = ReadSetup(link);
    if (link.Program().LinkState.LinkError != LinkErrors::kGood) return {};
    if (!order_.Name.empty()) facts.Meter = order_.Name;
    facts.Note = order_.Note;
    if (publisher_) facts.Topic = Topics(order_.Broker->Prefix + "/" + order_.Name).Readings;
    Status status = recorder_->Begin(facts);
    if (status.Ok() && !call_.Json)
        link.Tell("run " + std::to_string(recorder_->Run()) + " into " + order_.Store);
    return status;
}

Status RecordSink::Take(const std::string& text) {
    recorder_->Take(text);
    return {};
}

Status RecordSink::End() {
    const Status status = recorder_->End();
    if (publisher_) {
        publisher_->End(kLastMs);
        broker_->Stop();
    }
    Report();
    return status;
}

void RecordSink::TellTrouble() {
    const Status& trouble = recorder_->Trouble();
    Complain(call_.World) << (trouble.Ok() ? order_.Store + ": written again"
                                           : OneLine(trouble.Text()) + "; the readings wait in memory")
                          << std::endl;
}

void RecordSink::TellConnection(const std::string& why) {
    Complain(call_.World) << "broker " << order_.Broker->Name() << ": "
                          << (why.empty() ? "connected" : OneLine(why) + "; the readings wait in the store")
                          << std::endl;
}

void RecordSink::Report() {
    const std::int64_t lost = recorder_->Refused() + recorder_->Taken() - recorder_->Written();
    std::int64_t unsent = 0;
    if (publisher_) recorder_->Store()->CountToSend(publisher_->To(), unsent);
    if (call_.Json) {
        Json document = {{"run", recorder_->Run()}, {"readings", recorder_->Written()}, {"lost", lost}};
        if (publisher_) document["unsent"] = unsent;
        WriteJson(call_, document);
    } else {
        call_.World.Out << "run " << recorder_->Run() << ": " << recorder_->Written() << " readings\n";
    }
    if (lost > 0) Complain(call_.World) << lost << " readings were lost\n";
    if (unsent > 0)
        Complain(call_.World) << unsent << " readings wait in the store for the broker; record sends them\n";
}

}  // namespace counter
