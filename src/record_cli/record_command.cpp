// record: the reading stream into a store of readings, and to a broker where one is named.
#include "cli/cli_output.h"
#include "record_cli/record_cli.h"
#include "record_cli/record_sink.h"

namespace counter {

namespace {

std::string Option(const CommandCall& call, const char* name) {
    return call.Has(name) ? call.Options.at(name) : std::string();
}

// Empty, or what is legal.
std::string ReadBroker(const CommandCall& call, RecordOrder& order) {
    BrokerAddress broker;
    if (call.Has("--mqtt")) {
        if (std::string legal = ParseBrokerUrl(Option(call, "--mqtt"), broker); !legal.empty()) return legal;
        order.Broker = broker;
    }
    const bool files = call.Has("--cafile") || call.Has("--cert") || call.Has("--key");
    if (files && !broker.Tls) return "--cafile, --cert and --key are for a broker with TLS, mqtts://";
    if (call.Has("--cert") != call.Has("--key")) return "--cert and --key are given together";
    if (!order.Broker) return {};
    order.Broker->CaFile = Option(call, "--cafile");
    order.Broker->CertFile = Option(call, "--cert");
    order.Broker->KeyFile = Option(call, "--key");
    return {};
}

// The client of the broker tells only that one of them is wrong.
Status TlsFilesStatus(const CommandCall& call) {
    std::string ignored;
    for (const char* option : {"--cafile", "--cert", "--key"}) {
        if (!call.Has(option)) continue;
        if (Status status = call.World.Store.Read(Option(call, option), ignored); !status.Ok()) return status;
    }
    return {};
}

}  // namespace

int RunRecord(const CommandCall& call) {
    StreamLimits limits;
    RecordOrder order{StorePath(call), Option(call, "--name"), Option(call, "--note"), {}};
    if (const std::string legal = ReadLimits(call, limits); !legal.empty()) return RefuseCall(call, legal);
    if (const std::string legal = ReadBroker(call, order); !legal.empty()) return RefuseCall(call, legal);
    if (call.Has("--name") && !IsTopicLevel(order.Name))
        return RefuseCall(call, "--name is a level of a topic: none of / + # in it");
    if (const Status status = TlsFilesStatus(call); !status.Ok()) return RefuseStatus(call, status);
    RecordSink sink(call, std::move(order));
    return RunStream(call, limits, sink);
}

}  // namespace counter
