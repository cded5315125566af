#include "compare/take_over.h"

#include <algorithm>

#include "meter/field_value.h"
#include "meter/text.h"
#include "offline/field_entry.h"
#include "offline/setup_desk.h"

namespace counter {

namespace {

std::string NameOf(Field field) {
    return std::string(Trimmed(RowOf(field).Name));
}

// A point that the rules have elsewhere leaves a value the same number.
bool Arrived(const SetupImage& now, const SetupImage& other, Field field) {
    return FieldEqual(now, other, field) || FieldText(now, field) == FieldText(other, field);
}

// Empty, or why not; the view is then on the setup from before.
std::string Enter(SetupDesk& desk, const SetupImage& other, Field field) {
    const SetupImage before = desk.Program().Image;
    const std::string value = FieldText(other, field);
    std::string why;
    const bool alive = desk.Do([&] {
        why = EnterField(desk.User(), field, value);
        desk.View().ViewRefresh();
    });
    if (!alive) {
        desk.Open(before);
        return "can't be taken: " + desk.WhyEnded();
    }
    const SetupImage& now = desk.Program().Image;
    if (why.empty() && !Arrived(now, other, field))
        why = "becomes '" + FieldText(now, field) + "' by the rules of the Setup view";
    if (why.empty()) return {};
    desk.Program().Views.EntryReturn = 0;
    desk.Open(before);
    return std::string(Trimmed(why));
}

// A value may need the decimal point or the mode of another row first: those that were refused are tried
// again while any is taken. What a later row changes again has not been taken.
void EnterAll(SetupDesk& desk, const SetupImage& other, const std::vector<Field>& fields, TakenOver& result) {
    std::vector<Field> left = fields, taken;
    for (std::size_t before = left.size() + 1; left.size() < before;) {
        before = left.size();
        result.Refused.clear();
        std::vector<Field> refused;
        for (const Field field : left) {
            const std::string why = Enter(desk, other, field);
            (why.empty() ? taken : refused).push_back(field);
            if (!why.empty()) result.Refused.push_back(NameOf(field) + " " + why);
        }
        left = refused;
    }
    for (const Field field : taken) {
        const SetupImage& now = desk.Program().Image;
        if (Arrived(now, other, field)) {
            result.Taken.push_back(NameOf(field));
        } else {
            result.Refused.push_back(NameOf(field) + " becomes '" + FieldText(now, field) +
                                     "' with the others");
        }
    }
}

bool Contains(const std::vector<Field>& fields, Field field) {
    return std::find(fields.begin(), fields.end(), field) != fields.end();
}

std::vector<std::string> ChangedBeside(const SetupImage& before, const SetupImage& after,
                                       const std::vector<Field>& fields) {
    std::vector<std::string> names;
    for (const FieldRow& row : FieldTable()) {
        if (row.Kind != Mark::Overlap && !Contains(fields, row.Handle) &&
            !FieldEqual(before, after, row.Handle))
            names.push_back(NameOf(row.Handle));
    }
    return names;
}

}  // namespace

TakenOver TakeOver(Session& session, const SetupImage& other, const std::vector<Field>& fields) {
    TakenOver result;
    SetupDesk desk(session);
    desk.User().NameOf = [](const Control&) { return std::string(); };  // the field is named in front
    if (!desk.Open(session.Image)) return {{}, {"The Setup view can't be opened: " + desk.WhyEnded()}, {}};
    EnterAll(desk, other, fields, result);
    if (result.Taken.empty()) return result;
    result.Changed = ChangedBeside(session.Image, desk.Program().Image, fields);
    const SetupActScope act(session.Changes, session.Image, {kTakenOverAct, "taken over", fields});
    session.Image = desk.Program().Image;
    session.Derived = desk.Program().Derived;
    return result;
}

}  // namespace counter
