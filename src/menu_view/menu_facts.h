// MenuFacts: what the menu takes from the image as a whole before it builds its rows.
#pragma once

#include "meter/derived_values.h"
#include "meter/meter_identity.h"
#include "meter/mode_tables.h"
#include "meter/setup_image.h"

namespace counter {

struct MenuFacts {
    // As the Setup view has them, apart from the boards, which are those of the menu (boards.h), and
    // PresetActive, which asks for neither Time Out nor Display Type.
    DerivedValues Values;
    int FirmwareVersion = 0;

    bool Coordinates1 = false;    // scaling group 1 is entered as coordinates
    bool Coordinates2 = false;    // group 2
    bool CutoffDisabled = false;  // the CutoFF row is left out
    bool CoordHidden = false;     // a curve takes the place of the scaling of item 1
    bool Rd0Flag = false;         // a square root, with its reading at zero input
    int DeviationCode = 0;        // 0..7, of alarms 1 and 2

    int Mode() const { return Values.ModeIndex; }
    int Function() const { return Values.FunctionIndex; }
    bool IsPair(int mode, int function) const { return Mode() == mode && Function() == function; }
    bool IsVfMode() const { return counter::IsVfMode(Mode()); }
    // One result of both scaling groups: A with B, CW with CCW.
    bool HasOneResult() const { return Values.ItemLevel == 2; }
    bool NeverTakesRoot() const {
        return Mode() == Mode::Total || Mode() == Mode::Quadrature ||
               (Mode() >= Mode::TimeInterval && Mode() <= Mode::DutyCycle);
    }

    // The meter shows points at all: a clock has colons in their place.
    bool ShowsPoint1() const { return Values.DisplayType != DisplayType::Clock; }
    bool ShowsPoint2() const { return ShowsPoint1() && Values.ItemCount >= 2; }
};

// Of `shared` counts what the image doesn't tell: ClockMode, as the Setup view left it, and the point of the
// third source where there are fewer than three items. A decimal point whose row is shown and whose code is 0
// becomes 1, in the image too; that is the only write.
MenuFacts ReadMenuFacts(SetupImage& image, const MeterIdentity& meter, const DerivedValues& shared);

}  // namespace counter
