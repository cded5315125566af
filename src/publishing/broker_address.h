// Where a broker is, as a user writes it.
#pragma once

#include <string>

namespace counter {

struct BrokerAddress {
    bool Tls = false;
    std::string Host;
    int Port = 1883;   // 8883 with TLS
    std::string User;  // empty for none
    std::string Password;
    std::string Prefix;  // of all topics; without "/" at its ends, never empty
    // With TLS: the authorities that the broker is judged by, empty for the system's own; and with what this
    // side tells who it is, empty for nothing.
    std::string CaFile, CertFile, KeyFile;

    // "HOST:PORT", for messages: without the password.
    std::string Name() const { return Host + ":" + std::to_string(Port); }
};

// "mqtt://[USER:PASSWORD@]HOST[:PORT]/PREFIX", or mqtts:// with TLS; an IPv6 address in brackets. Returns
// empty, or what is legal.
std::string ParseBrokerUrl(const std::string& url, BrokerAddress& address);

// A level of a topic: not empty, and none of "/", "+", "#".
bool IsTopicLevel(const std::string& text);

}  // namespace counter
