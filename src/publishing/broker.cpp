#include "publishing/broker.h"

#include <mosquitto.h>

#include <cerrno>
#include <chrono>
#include <condition_variable>
#include <cstring>
#include <mutex>
#include <thread>
#include <utility>

namespace counter {

namespace {

constexpr int kKeepAliveS = 15;
constexpr int kLoopMs = 200;
constexpr auto kAgain = std::chrono::seconds(1);  // after a connection that failed or ended
constexpr auto kLeave = std::chrono::seconds(2);  // for a good-bye
constexpr int kQos = 1;

struct Destroy {
    void operator()(mosquitto* client) const { mosquitto_destroy(client); }
};
using Client = std::unique_ptr<mosquitto, Destroy>;

std::string WordsOf(int error) {
    return error == MOSQ_ERR_ERRNO ? std::strerror(errno) : mosquitto_strerror(error);
}

const char* OrNull(const std::string& text) {
    return text.empty() ? nullptr : text.c_str();
}

int SendText(mosquitto* client, int* id, const std::string& topic, const std::string& text, bool retain) {
    return mosquitto_publish(client, id, topic.c_str(), static_cast<int>(text.size()), text.data(), kQos,
                             retain);
}

}  // namespace

struct Broker::State {
    BrokerAddress Address;
    std::string Name, StatusTopic;
    std::mutex Guard;  // of all below
    std::condition_variable Wake;
    std::vector<BrokerEvent> Events;
    mosquitto* Connected = nullptr;
    std::string Refusal;  // of the last connection, in the broker's words
    bool Stopping = false;
    bool Ended = false;

    void Tell(BrokerEvent event) {
        const std::lock_guard lock(Guard);
        Events.push_back(std::move(event));
    }
    int Make(Client& client);
    std::string Hold(mosquitto* client);
    void Work();
};

// A client a connection: an old one would send again what it thinks was not taken, which is the owner's to
// decide.
int Broker::State::Make(Client& client) {
    client.reset(mosquitto_new(Name.c_str(), false, this));
    if (!client) return MOSQ_ERR_ERRNO;
    mosquitto_threaded_set(client.get(), true);
    mosquitto_max_inflight_messages_set(client.get(), 0);
    mosquitto_will_set(client.get(), StatusTopic.c_str(), 7, "offline", kQos, true);
    if (!Address.User.empty())
        mosquitto_username_pw_set(client.get(), Address.User.c_str(), OrNull(Address.Password));
    mosquitto_connect_callback_set(client.get(), [](mosquitto* of, void* self, int refused) {
        State& state = *static_cast<State*>(self);
        if (refused == 0) SendText(of, nullptr, state.StatusTopic, "online", true);
        const std::lock_guard lock(state.Guard);
        if (refused != 0) state.Refusal = mosquitto_connack_string(refused);
        if (refused != 0) return;
        state.Connected = of;
        state.Events.push_back({BrokerEvent::Kind::Connected});
    });
    mosquitto_publish_callback_set(client.get(), [](mosquitto*, void* self, int id) {
        static_cast<State*>(self)->Tell({BrokerEvent::Kind::Taken, id});
    });
    mosquitto_subscribe_callback_set(
        client.get(), [](mosquitto*, void* self, int id, int, const int* granted) {
            const bool refused = granted[0] >= 0x80;
            static_cast<State*>(self)->Tell(
                {refused ? BrokerEvent::Kind::Refused : BrokerEvent::Kind::Subscribed, id});
        });
    mosquitto_message_callback_set(
        client.get(), [](mosquitto*, void* self, const mosquitto_message* message) {
            static_cast<State*>(self)->Tell({BrokerEvent::Kind::Message, message->mid, message->topic,
                                             std::string(static_cast<const char*>(message->payload),
                                                         static_cast<std::size_t>(message->payloadlen))});
        });
    if (!Address.Tls) return MOSQ_ERR_SUCCESS;
    const char* system = Address.CaFile.empty() ? "/etc/ssl/certs" : nullptr;
    return mosquitto_tls_set(client.get(), OrNull(Address.CaFile), system, OrNull(Address.CertFile),
                             OrNull(Address.KeyFile), nullptr);
}

// One connection to its end, and why it ended.
std::string Broker::State::Hold(mosquitto* client) {
    int error = mosquitto_connect_async(client, Address.Host.c_str(), Address.Port, kKeepAliveS);
    while (error == MOSQ_ERR_SUCCESS) {
        error = mosquitto_loop(client, kLoopMs, 1);
        const std::lock_guard lock(Guard);
        if (Stopping && Connected == nullptr) break;
    }
    std::string words = WordsOf(error);
    const std::lock_guard lock(Guard);
    Connected = nullptr;
    return Refusal.empty() ? words : std::exchange(Refusal, {});
}

void Broker::State::Work() {
    std::unique_lock lock(Guard);
    while (!Stopping) {
        lock.unlock();
        Client client;
        const int error = Make(client);
        const std::string why = error == MOSQ_ERR_SUCCESS ? Hold(client.get()) : WordsOf(error);
        client.reset();
        lock.lock();
        Events.push_back({BrokerEvent::Kind::Gone, 0, {}, why});
        Wake.wait_for(lock, kAgain, [this] { return Stopping; });
    }
    Ended = true;
    Wake.notify_all();
}

Broker::Broker(BrokerAddress address, std::string client, std::string statusTopic)
    : state_(std::make_shared<State>()) {
    state_->Address = std::move(address);
    state_->Name = std::move(client);
    state_->StatusTopic = std::move(statusTopic);
}

Broker::~Broker() {
    Stop();
}

Status Broker::Start() {
    mosquitto_lib_init();
    Client trial;
    if (const int error = state_->Make(trial); error != MOSQ_ERR_SUCCESS)
        return {StatusKind::Illegal, state_->Address.Name(), WordsOf(error)};
    std::thread([state = state_] { state->Work(); }).detach();
    return {};
}

std::vector<BrokerEvent> Broker::Events() {
    const std::lock_guard lock(state_->Guard);
    return std::exchange(state_->Events, {});
}

int Broker::Publish(const std::string& topic, const std::string& text) {
    const std::lock_guard lock(state_->Guard);
    int id = 0;
    if (state_->Connected == nullptr) return 0;
    return SendText(state_->Connected, &id, topic, text, false) == MOSQ_ERR_SUCCESS ? id : 0;
}

bool Broker::Subscribe(const std::string& topic) {
    const std::lock_guard lock(state_->Guard);
    return state_->Connected != nullptr &&
           mosquitto_subscribe(state_->Connected, nullptr, topic.c_str(), kQos) == MOSQ_ERR_SUCCESS;
}

void Broker::Stop() {
    std::unique_lock lock(state_->Guard);
    if (std::exchange(state_->Stopping, true)) return;
    if (state_->Connected != nullptr) {
        SendText(state_->Connected, nullptr, state_->StatusTopic, "offline", true);
        mosquitto_disconnect(state_->Connected);
    }
    state_->Wake.notify_all();
    state_->Wake.wait_for(lock, kLeave, [this] { return state_->Ended; });
}

const BrokerAddress& Broker::Address() const {
    return state_->Address;
}

}  // namespace counter
