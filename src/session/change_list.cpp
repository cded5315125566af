#include "session/change_list.h"

#include <algorithm>

#include "meter/field_value.h"
#include "transfer/compare_setups.h"

namespace counter {

namespace {

std::string WhoChanged(const SetupChanges& changes, Field field) {
    const SetupChanges::Step* step = changes.LastOn(field);
    if (!step) return changes.TakenBack() ? "undone" : "transfer";
    const SetupAct& act = step->Act;
    if (act.Control.empty()) return "rule, " + act.What;
    const bool himself = std::ranges::find(act.Fields, field) != act.Fields.end();
    if (act.Control == kTakenOverAct) return himself ? act.What : "rule, with what was " + act.What;
    if (!himself) return "rule, with " + act.What;
    return act.Typed ? "typed" : "picked";
}

}  // namespace

std::vector<SetupChange> ListChanges(const Session& session) {
    std::vector<SetupChange> list;
    const SetupImage &before = session.Origin.Image, &now = session.Image;
    if (session.Origin.From == SetupSource::Nothing || before == now) return list;
    for (const FieldRow& row : FieldTable()) {
        if (row.Kind == Mark::Overlap || FieldEqual(before, now, row.Handle)) continue;
        const FieldDifference difference = DifferenceIn(row.Handle, before, now);
        list.push_back({row.Handle, std::string(row.Name), difference.A.Text, difference.B.Text,
                        WhoChanged(session.Changes, row.Handle)});
    }
    return list;
}

std::string OriginInWords(const SetupOrigin& origin) {
    switch (origin.From) {
        case SetupSource::Default:
            return "the Default Setup";
        case SetupSource::Meter:
            return "what was read from the meter";
        case SetupSource::File:
            return "the file " + origin.Path.substr(origin.Path.rfind('/') + 1);
        case SetupSource::FailedGet:
            return "what a Get that failed left";
        case SetupSource::Nothing:
            break;
    }
    return "nothing";
}

}  // namespace counter
