#include "session/take_setup.h"

#include <algorithm>
#include <utility>

#include "meter/field_value.h"
#include "platform/utc_time.h"

namespace counter {

namespace {

SetupOrigin OriginNow(const Session& session, SetupSource from, const std::string& path) {
    return {from, path, UtcMs(session.Pump.LocalTime()), session.Image, {}};
}

}  // namespace

void TakeSetup(Session& session, const SetupImage& image, SetupSource from, const std::string& doubt,
               const std::string& path) {
    HomeState& home = session.Home;
    session.Changes.Settle(session.Image);
    // What a failed Get has left makes no way back to the setup from before it impossible.
    const bool scrap =
        session.Origin.From == SetupSource::FailedGet && !session.Changes.ByUser() && session.SetupBefore;
    if (session.Origin.From != SetupSource::Nothing && !scrap)
        session.SetupBefore =
            KeptSetup{session.Image,   session.Origin,       session.Changes,
                      home.SetupDoubt, home.CurrentFileName, session.Identity.SetupFromMeter};
    session.Image = image;
    home.SetupDoubt = doubt;
    session.Identity.SetupFromMeter = from == SetupSource::Meter;
    if (from == SetupSource::File) home.CurrentFileName = path;
    session.Origin = OriginNow(session, from, path);
    session.Changes.Restart(session.Image);
}

void SetupIsSaved(Session& session, const std::string& path) {
    const std::string meter = session.Origin.Meter;
    session.Origin = OriginNow(session, SetupSource::File, path);
    session.Origin.Meter = meter;
    session.Changes.Settle(session.Image);
    session.Changes.Mark();
}

void NoteTransfer(Session& session, bool put, bool good) {
    const LinkState& link = session.LinkState;
    session.LastTransfer =
        TransferReport{put, good, link.LinkError, link.FailedIn, UtcMs(session.Pump.LocalTime())};
}

void GoBackToSetupBefore(Session& session) {
    HomeState& home = session.Home;
    KeptSetup& before = *session.SetupBefore;
    session.Changes.Settle(session.Image);
    std::swap(session.Image, before.Image);
    std::swap(session.Origin, before.Origin);
    session.Changes.Exchange(before.Changes);
    std::swap(home.SetupDoubt, before.Doubt);
    std::swap(home.CurrentFileName, before.FileName);
    std::swap(session.Identity.SetupFromMeter, before.FromMeter);
    before.Unasked = true;
}

int FieldsChanged(const Session& session) {
    if (session.Image == session.Origin.Image) return 0;
    return static_cast<int>(std::ranges::count_if(FieldTable(), [&session](const FieldRow& row) {
        return row.Kind != Mark::Overlap && !FieldEqual(session.Origin.Image, session.Image, row.Handle);
    }));
}

bool SetupChanged(const Session& session) {
    return session.Origin.From != SetupSource::Nothing && FieldsChanged(session) > 0;
}

}  // namespace counter
