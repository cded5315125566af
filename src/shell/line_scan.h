// LineScan: which addresses of a line answer, in which protocol and at which speed?
//
// Every address is asked by one question that reads (src/link/probe.h). Who answers in Custom ASCII, which
// does not say whose a reply is, or makes no sense, is asked once more with all the time that a reply may
// take. Speeds come one after the other, and at each its protocols: Custom ASCII first, behind a wake-up
// string. Wake-ups at the end rid meters of Custom ASCII of what they took for the beginning of a command. No
// line has parity.
#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "link/probe.h"

namespace counter {

struct ScanChoice {
    std::vector<int> Protocols;    // Protocol
    std::vector<int> BaudIndexes;  // into BaudTable
    std::vector<int> Addresses;    // those that a protocol does not have are left out there
    // Beside the time that the question takes on the wire. Longer on a network: see LineScan::Run.
    double FirstCharacterMs = 250;
};

// Where a meter answers. The speed is nothing on a line whose server sets it, unless one alone was chosen.
struct ScanPlace {
    int SerialProtocol = 0;
    std::optional<int> BaudIndex;
    int Address = 0;
};

struct ScanTold {
    std::function<void(const ScanPlace&)> Found;
    std::function<void(const ScanPlace&)> Senseless;  // something came, twice, that no meter says
    // Before each address: how many were asked, of how many, and how long all others take if nobody answers.
    std::function<void(const ScanPlace& next, int done, int all, double restMs)> Progress;
};

class LineScan {
  public:
    LineScan(Pump& pump, SerialPort& port, ScanChoice choice, ScanTold told);

    // Opens the port, asks and closes it. On a line whose server sets the speed each address is asked once in
    // each protocol, and has twice the time. Gone, without a path, where the line went away; what was told
    // until then holds.
    Status Run();

  private:
    struct Leg {
        int SerialProtocol = 0, BaudIndex = 0;
        std::vector<ProbedAddress> Addresses;
    };

    std::vector<Leg> Legs() const;
    double QuestionMs(const Leg& leg) const;
    double RestMs(const std::vector<Leg>& legs, std::size_t leg, std::size_t done) const;
    void Become(const Leg& leg);
    void WakeUp();
    bool RunLegs();
    bool RunLeg(const std::vector<Leg>& legs, std::size_t number, int& asked, int all);
    bool Ask(const Leg& leg, std::size_t index);
    bool AskAgain(const Leg& leg, std::size_t index);
    void Settle(const Leg& leg, std::size_t index, ProbeReply reply);
    ProbeReply AskOld(ProbedAddress probed, double firstCharacterMs);
    ProbeReply AskBriefly(const Leg& leg, const ProbedAddress& probed);
    ScanPlace PlaceOf(const Leg& leg, int address) const;

    SerialPort& port_;
    ScanChoice choice_;
    ScanTold told_;
    LinkState state_;
    Link link_;
    bool speedIsOthers_ = false;
    std::vector<bool> settled_;  // of the leg: this address has been told of
};

}  // namespace counter
