// Who changed which field, and what undo and redo do about it.
#include <gtest/gtest.h>

#include "session/change_list.h"
#include "session/take_setup.h"
#include "stories.h"

namespace counter::test {
namespace {

struct ActsBench : SetupBench {
    ActsBench() {
        Open();
        TakeSetup(Bench.Program, Image(), SetupSource::Default);
    }
    // "Mode: Rate > Total, picked; ..."
    std::string Changes() {
        std::string text;
        for (const SetupChange& change : ListChanges(Bench.Program))
            text += (text.empty() ? "" : "; ") + change.Name + ": " + change.Who;
        return text;
    }
    // Deeds of a story, and "undo", "redo", "save", "take", "raw", "back".
    void Play(const std::string& deeds) {
        for (std::size_t from = 0; from < deeds.size();) {
            const std::size_t end = std::min(deeds.find(" / ", from), deeds.size());
            const std::string deed = deeds.substr(from, end - from);
            from = end + 3;
            if (deed == "undo") {
                View.Undo();
            } else if (deed == "redo") {
                View.Redo();
            } else if (deed == "save") {
                SetupIsSaved(Bench.Program, "a.CT2");
            } else if (deed == "take") {
                TakeSetup(Bench.Program, Bench.Program.Origin.Image, SetupSource::Meter);
                Open();
            } else if (deed == "raw") {
                TakeSetup(Bench.Program, raw_, SetupSource::Default);
                Open();
            } else if (deed == "back") {
                GoBackToSetupBefore(Bench.Program);
                Open();
            } else {
                Do(deed);
            }
        }
    }

  private:
    const SetupImage raw_ = Image();  // that no view has been opened on
};

TEST(UserActs, TellWhoChangedWhatAndGoBackWhole) {
    const struct {
        const char *Deeds, *Changes;
        bool ByUser = true;
    } cases[] = {
        {"", "", false},
        {"tab 4; cboBaudRate #6", "Baud Rate: picked"},
        {"tab 4; cboBaudRate #6 / undo", "", false},
        {"tab 4; cboBaudRate #6 / undo / redo", "Baud Rate: picked"},
        {"tab 3; txtSetpt[1] := 003039", "Setpoint 1: typed"},
        {"tab 3; txtSetpt[1] := 003039 / undo / undo", "", false},
        {"cboMode #2",
         "Analog Source 2: rule, with Mode; Alarm 1 Source: rule, with Mode; Alarm 2 Source: rule, with "
         "Mode; "
         "Mode: picked"},
        {"cboMode #2 / undo", "", false},
        {"tab 4; cboBaudRate #6 / save", "", false},
        {"tab 4; cboBaudRate #6 / save / undo", "Baud Rate: undone"},
        {"tab 4; cboBaudRate #6 / take", "", false},
        {"tab 4; cboBaudRate #6 / take / back", "Baud Rate: picked"},
        {"tab 4; cboBaudRate #6 / take / back / undo", "", false},
        {"raw", "Analog Source: rule, as the view was opened", false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Deeds);
        ActsBench bench;
        bench.Play(c.Deeds);
        EXPECT_EQ(bench.Changes(), c.Changes);
        EXPECT_EQ(bench.Bench.Program.Changes.ByUser(), c.ByUser);
    }
}

TEST(UserActs, AFieldOfTheListIsComeTo) {
    const struct {
        Field Of;
        int Tab;
        const char* Why;
    } cases[] = {
        {Field::BaudRate, kCommunicationTab, ""},
        {Field::LowIn1, kScalingTab, "Low In 1 is "},
        {Field::ClassAndCurve, kInputTab, ""},
        {Field::MeterType, kInputTab, "has no control"},
    };
    for (const auto& c : cases) {
        ActsBench bench;
        const std::string why = bench.View.ComeToField(c.Of);
        EXPECT_NE(why.find(c.Why), std::string::npos) << why;
        EXPECT_EQ(why.empty(), *c.Why == '\0') << why;
        EXPECT_EQ(bench.View.CurrentTab(), c.Tab) << FieldName(c.Of);
    }
}

}  // namespace
}  // namespace counter::test
