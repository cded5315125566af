// Broker: the connections to an MQTT broker, made again and again until they hold: one that sends, and one
// that listens in a session which the broker keeps, so that what came while nobody listened is told later.
//
// They live in a thread of their own, the only one beside the pump's: names are looked up and connections
// made there, so nothing that a broker or a network does holds up the readings. What happens there is told as
// events, which the owner asks for.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/status.h"
#include "publishing/broker_address.h"

namespace counter {

struct BrokerEvent {
    enum class Kind {
        Connected,  // both, and what is listened to is subscribed
        Deaf,       // the same, but the broker's rules refuse the subscription
        Gone,       // or could not be reached: Text says why
        Taken,      // the broker has acknowledged the message Id
        Message,    // Topic and Text
    };
    Kind What = Kind::Gone;
    int Id = 0;
    std::string Topic = {};
    std::string Text = {};
};

// What the connections are for.
struct BrokerUse {
    BrokerAddress Address;
    std::string Client;  // what the broker knows the sending side by; the listening one has "/memory" behind
    std::string StatusTopic;       // holds "online" while there is a connection, and "offline" after it
    std::string Heard, AlsoHeard;  // topics
};

class Broker {
  public:
    explicit Broker(BrokerUse use);
    ~Broker();
    Broker(const Broker&) = delete;
    Broker& operator=(const Broker&) = delete;

    // Not Ok where no connection can ever come, such as by a certificate that can't be read.
    Status Start();
    // All since the last call.
    std::vector<BrokerEvent> Events();
    // At least once, QoS 1; the number that Taken tells, or 0 where there is no connection. What was not
    // acknowledged before a connection ended is not sent again by itself.
    int Publish(const std::string& topic, const std::string& text);
    // Off: messages stay with the broker, which counts them as not delivered, from the return of the call on.
    // A new connection listens.
    void Listen(bool on);
    // Says "offline" and ends the connection. A network that hangs is not waited for.
    void Stop();

    const BrokerAddress& Address() const;

  private:
    struct State;  // shared with the thread, which may outlive a Stop that did not wait for it
    std::shared_ptr<State> state_;
};

}  // namespace counter
