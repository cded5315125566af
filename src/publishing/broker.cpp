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
constexpr int kLoopMs = 50;
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
    BrokerUse Use;
    std::mutex Listening;  // held while messages are taken in
    bool MayListen = true;
    std::mutex Guard;  // of all below
    std::condition_variable Wake;
    std::vector<BrokerEvent> Events;
    mosquitto* Sender = nullptr;  // once it is connected
    bool Subscribed = false, Deaf = false, Told = false;
    std::string Refusal;  // of the last connection, in the broker's words
    bool Stopping = false;
    bool Ended = false;

    void Tell(BrokerEvent event) {
        const std::lock_guard lock(Guard);
        Events.push_back(std::move(event));
    }
    int Make(Client& client, const std::string& name, bool forget);
    int MakeSender(Client& sender);
    int MakeListener(Client& listener);
    void Reached(mosquitto* sender, int refused);
    void TellBoth();
    int TakeIn(mosquitto* listener);
    std::size_t CountEvents();
    std::string Hold(mosquitto* sender, mosquitto* listener);
    std::string HoldBoth();
    void Work();
};

// A client a connection: an old one would send again what it thinks was not taken, which is the owner's to
// decide.
int Broker::State::Make(Client& client, const std::string& name, bool forget) {
    const BrokerAddress& address = Use.Address;
    client.reset(mosquitto_new(name.c_str(), forget, this));
    if (!client) return MOSQ_ERR_ERRNO;
    mosquitto_threaded_set(client.get(), true);
    mosquitto_max_inflight_messages_set(client.get(), 0);
    if (!address.User.empty())
        mosquitto_username_pw_set(client.get(), address.User.c_str(), OrNull(address.Password));
    if (!address.Tls) return MOSQ_ERR_SUCCESS;
    const char* system = address.CaFile.empty() ? "/etc/ssl/certs" : nullptr;
    return mosquitto_tls_set(client.get(), OrNull(address.CaFile), system, OrNull(address.CertFile),
                             OrNull(address.KeyFile), nullptr);
}

int Broker::State::MakeSender(Client& sender) {
    const int error = Make(sender, Use.Client, true);
    if (error != MOSQ_ERR_SUCCESS) return error;
    mosquitto_will_set(sender.get(), Use.StatusTopic.c_str(), 7, "offline", kQos, true);
    mosquitto_connect_callback_set(sender.get(), [](mosquitto* of, void* self, int refused) {
        State& state = *static_cast<State*>(self);
        if (refused == 0) SendText(of, nullptr, state.Use.StatusTopic, "online", true);
        state.Reached(of, refused);
    });
    mosquitto_publish_callback_set(sender.get(), [](mosquitto*, void* self, int id) {
        static_cast<State*>(self)->Tell({BrokerEvent::Kind::Taken, id});
    });
    return error;
}

int Broker::State::MakeListener(Client& listener) {
    const int error = Make(listener, Use.Client + "/memory", false);
    if (error != MOSQ_ERR_SUCCESS) return error;
    mosquitto_connect_callback_set(listener.get(), [](mosquitto* of, void* self, int refused) {
        const BrokerUse& use = static_cast<State*>(self)->Use;
        const char* topics[] = {use.Heard.c_str(), use.AlsoHeard.c_str()};
        if (refused == 0)
            mosquitto_subscribe_multiple(of, nullptr, 2, const_cast<char* const*>(topics), kQos, 0, nullptr);
    });
    mosquitto_subscribe_callback_set(listener.get(),
                                     [](mosquitto*, void* self, int, int count, const int* granted) {
                                         State& state = *static_cast<State*>(self);
                                         const std::lock_guard lock(state.Guard);
                                         state.Subscribed = true;
                                         for (int i = 0; i < count; ++i)
                                             state.Deaf = state.Deaf || granted[i] >= 0x80;
                                         state.TellBoth();
                                     });
    mosquitto_message_callback_set(
        listener.get(), [](mosquitto*, void* self, const mosquitto_message* message) {
            const auto size = static_cast<std::size_t>(message->payloadlen);
            static_cast<State*>(self)->Tell({BrokerEvent::Kind::Message, message->mid, message->topic,
                                             std::string(static_cast<const char*>(message->payload), size)});
        });
    return error;
}

void Broker::State::Reached(mosquitto* sender, int refused) {
    const std::lock_guard lock(Guard);
    if (refused != 0) {
        Refusal = mosquitto_connack_string(refused);
        return;
    }
    Sender = sender;
    TellBoth();
}

// With Guard held.
void Broker::State::TellBoth() {
    if (Sender == nullptr || !Subscribed || std::exchange(Told, true)) return;
    Events.push_back({Deaf ? BrokerEvent::Kind::Deaf : BrokerEvent::Kind::Connected});
}

// As long as something comes: a broker gives some at a time, and more when these are acknowledged.
int Broker::State::TakeIn(mosquitto* listener) {
    const std::lock_guard lock(Listening);
    int error = MOSQ_ERR_SUCCESS;
    for (std::size_t before = 0, now = 1; MayListen && error == MOSQ_ERR_SUCCESS && before != now;) {
        before = CountEvents();
        error = mosquitto_loop(listener, 2, 1);
        now = CountEvents();
    }
    return error;
}

std::size_t Broker::State::CountEvents() {
    const std::lock_guard lock(Guard);
    return Events.size();
}

// Both until one ends, and why it did.
std::string Broker::State::Hold(mosquitto* sender, mosquitto* listener) {
    const char* host = Use.Address.Host.c_str();
    int error = mosquitto_connect_async(sender, host, Use.Address.Port, kKeepAliveS);
    if (error == MOSQ_ERR_SUCCESS)
        error = mosquitto_connect_async(listener, host, Use.Address.Port, kKeepAliveS);
    while (error == MOSQ_ERR_SUCCESS) {
        error = mosquitto_loop(sender, kLoopMs, 1);
        if (error == MOSQ_ERR_SUCCESS) error = TakeIn(listener);
        const std::lock_guard lock(Guard);
        if (Stopping && Sender == nullptr) break;
    }
    return WordsOf(error);
}

std::string Broker::State::HoldBoth() {
    Client sender, listener;
    int error = MakeSender(sender);
    if (error == MOSQ_ERR_SUCCESS) error = MakeListener(listener);
    std::string why = error == MOSQ_ERR_SUCCESS ? Hold(sender.get(), listener.get()) : WordsOf(error);
    const std::lock_guard lock(Guard);
    Sender = nullptr;
    Subscribed = Deaf = Told = false;
    return Refusal.empty() ? why : std::exchange(Refusal, {});
}

void Broker::State::Work() {
    std::unique_lock lock(Guard);
    while (!Stopping) {
        lock.unlock();
        const std::string why = HoldBoth();
        lock.lock();
        Events.push_back({BrokerEvent::Kind::Gone, 0, {}, why});
        Wake.wait_for(lock, kAgain, [this] { return Stopping; });
    }
    Ended = true;
    Wake.notify_all();
}

Broker::Broker(BrokerUse use) : state_(std::make_shared<State>()) {
    state_->Use = std::move(use);
}

Broker::~Broker() {
    Stop();
}

Status Broker::Start() {
    mosquitto_lib_init();
    Client trial;
    if (const int error = state_->Make(trial, state_->Use.Client, true); error != MOSQ_ERR_SUCCESS)
        return {StatusKind::Illegal, state_->Use.Address.Name(), WordsOf(error)};
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
    if (state_->Sender == nullptr) return 0;
    return SendText(state_->Sender, &id, topic, text, false) == MOSQ_ERR_SUCCESS ? id : 0;
}

void Broker::Listen(bool on) {
    const std::lock_guard lock(state_->Listening);
    state_->MayListen = on;
}

void Broker::Stop() {
    std::unique_lock lock(state_->Guard);
    if (std::exchange(state_->Stopping, true)) return;
    if (state_->Sender != nullptr) {
        SendText(state_->Sender, nullptr, state_->Use.StatusTopic, "offline", true);
        mosquitto_disconnect(state_->Sender);
    }
    state_->Wake.notify_all();
    state_->Wake.wait_for(lock, kLeave, [this] { return state_->Ended; });
}

const BrokerAddress& Broker::Address() const {
    return state_->Use.Address;
}

}  // namespace counter
