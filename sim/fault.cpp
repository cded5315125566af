#include "sim/fault.h"

namespace sim {

namespace {

void Add(const Fault& fault, Strike& strike) {
    switch (fault.Kind) {
        case FaultKind::NoReply:
            strike.NoReply = true;
            break;
        case FaultKind::Cut:
            strike.Cut = fault.Value;
            break;
        case FaultKind::Extra:
            strike.Extra = true;
            break;
        case FaultKind::Garbage:
            strike.Garbage = true;
            break;
        case FaultKind::BadCheck:
            strike.BadCheck = true;
            break;
        case FaultKind::Exception:
            strike.Exception = fault.Value;
            break;
        case FaultKind::Late:
            strike.LateMs += fault.Value;
            break;
        case FaultKind::Pause:
            strike.PauseAt = fault.Value;
            strike.PauseMs = fault.Value2;
            break;
        case FaultKind::Paced:
            strike.Paced = true;
            break;
        case FaultKind::Echo:
            strike.Echo = true;
            break;
        case FaultKind::BadEcho:
            strike.BadEcho = true;
            break;
        case FaultKind::Gone:
            strike.Gone = fault.Value;
            break;
        case FaultKind::WrongId:
            strike.WrongId = true;
            break;
        case FaultKind::Pieces:
            strike.PiecesAt = fault.Value;
            strike.PiecesMs = fault.Value2;
            break;
        case FaultKind::Close:
            strike.Close = fault.Value;
            break;
        case FaultKind::Status:
            strike.Status = true;
            break;
        case FaultKind::Twice:
            strike.Twice = true;
            break;
    }
}

}  // namespace

FaultList::FaultList(std::vector<Fault> faults) {
    for (Fault& fault : faults) faults_.push_back({std::move(fault), 0});
}

Strike FaultList::Next(std::string_view command) {
    Strike strike;
    for (Counted& fault : faults_) {
        if (fault.What.Command != "*" && !command.starts_with(fault.What.Command)) continue;
        ++fault.Seen;
        if (fault.What.Time == 0 || fault.What.Time == fault.Seen) Add(fault.What, strike);
    }
    return strike;
}

}  // namespace sim
