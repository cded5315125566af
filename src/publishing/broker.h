// Broker: the connection to an MQTT broker, made again and again until it holds.
//
// It lives in a thread of its own, the only one beside the pump's: names are looked up and connections made
// there, so nothing that a broker or a network does holds up the readings. What happens there is told as
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
        Connected,
        Gone,   // or could not be reached: Text says why
        Taken,  // the broker has acknowledged the message Id
        Subscribed,
        Refused,  // a subscription, by the broker's rules
        Message,  // Topic and Text
    };
    Kind What = Kind::Gone;
    int Id = 0;
    std::string Topic = {};
    std::string Text = {};
};

class Broker {
  public:
    // `client` is what the broker knows this side by: it keeps the session of that name while nobody is
    // connected. `statusTopic` holds "online" while there is a connection, and "offline" after it.
    Broker(BrokerAddress address, std::string client, std::string statusTopic);
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
    bool Subscribe(const std::string& topic);
    // Says "offline" and ends the connection. A network that hangs is not waited for.
    void Stop();

    const BrokerAddress& Address() const;

  private:
    struct State;  // shared with the thread, which may outlive a Stop that did not wait for it
    std::shared_ptr<State> state_;
};

}  // namespace counter
