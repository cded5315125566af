// Truth: what must hold whatever the user does. Memory is one whole setup or said not to be, and so is every
// file; when the line at the bottom says that a transfer is done, memory and meter have the same.
#pragma once

#include <gtest/gtest.h>

#include "session/session.h"
#include "support/memory_files.h"
#include "transfer/compare_setups.h"

namespace counter::test {

class Truth {
  public:
    // On a calm day nothing fails, so that what is said to be done must be.
    Truth(Session& program, MemoryFiles& store, bool calm, std::function<std::string()> meterImage)
        : program_(program), store_(store), calm_(calm), meterImage_(std::move(meterImage)) {
        const std::function<void()> shown = program_.Home.Changed;
        program_.Home.Changed = [this, shown] {
            shown();
            Hear(program_.Home.StatusText);
        };
    }
    // At any moment, also in the middle of a wait.
    void Look() {
        const std::string& digits = program_.Image.SetupData;
        doubted_ = doubted_ || !program_.Home.SetupDoubt.empty();
        EXPECT_TRUE(IsWholeSetup(digits) || !program_.Home.SetupDoubt.empty()) << WhyNoWholeSetup(digits);
        for (const auto& [path, text] : store_.Contents) {
            // The user may have saved a table under that name.
            if (!path.ends_with("kept.CT2") || doubted_ || text.starts_with("field,position,")) continue;
            EXPECT_EQ(WhyNoWholeSetup(text.substr(0, text.find('\r'))), "");
        }
    }

  private:
    void Hear(const std::string& text) {
        if (text == std::exchange(heard_, text) || !calm_ || !program_.Home.SetupDoubt.empty()) return;
        if (text == "Putting data to the Counter.") {
            put_ = program_.Image;
            writes_ = program_.Writes.Begun;
            road_ = RoadOf(program_.LinkState);
        } else if (text == "Getting data from the Counter.  Data received OK.") {
            ExpectInMeter(program_.Image, RoadOf(program_.LinkState));
        } else if (text.ends_with("appears to have Transferred O.K.") && program_.Writes.Begun == writes_) {
            ExpectInMeter(put_, road_);
        }
    }
    // But for what a transfer settles by itself: line settings, data type, boards, the duplex of some.
    void ExpectInMeter(SetupImage image, PutRoad road) {
        SetupImage meter{meterImage_()};
        for (SetupImage* each : {&image, &meter}) {
            for (const int pos : {109, 111, 185, 187, 193, 199}) DigitsPut(*each, pos, "00");
        }
        for (const FieldDifference& field : CompareSetups(image, meter, road, 83))
            EXPECT_FALSE(field.Counts()) << field.Name << " at " << field.Position << ", " << heard_;
    }

    Session& program_;
    MemoryFiles& store_;
    const bool calm_;
    std::function<std::string()> meterImage_;
    std::string heard_;
    SetupImage put_;
    PutRoad road_ = PutRoad::AsciiSerial;
    int writes_ = 0;
    bool doubted_ = false;  // such a setup may have been saved
};

}  // namespace counter::test
