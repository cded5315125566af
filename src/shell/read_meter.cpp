#include "shell/read_meter.h"

#include "link/waits.h"
#include "transfer/get_setup.h"

namespace counter {

namespace {

std::string TroubleOf(const Session& session, int writesBegun, const std::string& doubt) {
    if (session.Writes.Running > 0 || session.Writes.Begun != writesBegun)
        return "The meter was written while it was read: what came was not taken. Try once more.";
    const int error = session.LinkState.LinkError;
    if (error != 0)
        return "Failed to read the meter, check connections, then try again.      ( " +
               std::to_string(error) + ")";
    return doubt.empty() ? "" : "Not all of what came can be right, " + doubt + ".";
}

}  // namespace

std::string ReadWholeSetup(Session& session, const ReadSetup& into, const TransferScope& scope) {
    SetupTransfer transfer{session.Link, into.Image, into.Identity, into.Derived,
                           [&session](int percent) { session.Home.ProgressTo(percent); }};
    transfer.EndWanted = [&scope] { return scope.Cancelled(); };
    if (session.LinkState.ModbusLink) {
        GetSetupModbus(transfer);
    } else {
        GetSetupAscii(transfer);
    }
    return transfer.Doubt;
}

MeterReading ReadMeter(Session& session, const SetupImage& base) {
    const TransferScope transfer(session.Home);
    const int writesBegun = session.Writes.Begun;
    MeterReading reading{base, {}};
    MeterIdentity identity = session.Identity;
    DerivedValues derived = session.Derived;
    LinkDelay(session.Link, 5);
    session.Home.ProgressPercent = 0;
    session.Home.ShowProgress(true);
    const std::string doubt = ReadWholeSetup(session, {reading.Came, identity, derived}, transfer);
    reading.Trouble = transfer.Cancelled() ? "The meter was not read to its end: it was cancelled."
                                           : TroubleOf(session, writesBegun, doubt);
    return reading;
}

}  // namespace counter
