#include "menu_view/menu_facts.h"

#include "meter/boards.h"
#include "meter/field_code.h"

namespace counter {

namespace {

constexpr int kFirstCurve = 2;  // of Meter Class and Custom Curve

bool HidesCoordinates(const MenuFacts& facts, const SetupImage& image) {
    if (CodeOf(image, Field::ClassAndCurve) < kFirstCurve) return false;
    int function = facts.Function();
    if (facts.IsPair(Mode::Rate, Function::RateAndTotal)) return true;
    if (facts.Mode() <= Mode::Total) return function == Function::AOnly;
    return facts.Mode() >= Mode::Vf4To20mA && function != Function::AandB && function != Function::Batch;
}

bool ReadsAtZero(const MenuFacts& facts, const SetupImage& image) {
    bool vfBatch = facts.IsVfMode() && facts.Function() == Function::Batch;
    bool never = (facts.NeverTakesRoot() && facts.Mode() != Mode::DutyCycle) || vfBatch;
    return CodeOf(image, Field::SquareRoot) == 1 && !never;
}

// The panel has no point code 0.
void RepairPoint(SetupImage& image, Field field, int& decPt) {
    if (decPt != 0) return;
    decPt = 1;
    PutCode(image, field, decPt);
}

void ReadPoints(MenuFacts& facts, SetupImage& image) {
    DerivedValues& values = facts.Values;
    if (facts.ShowsPoint1()) RepairPoint(image, Field::DecimalPoint1, values.DecPt1);
    if (facts.ShowsPoint2()) RepairPoint(image, Field::DecimalPoint2, values.DecPt2);
    ItemDecPtMap(values);
}

}  // namespace

MenuFacts ReadMenuFacts(SetupImage& image, const MeterIdentity& meter, const DerivedValues& shared) {
    MenuFacts facts;
    facts.FirmwareVersion = meter.FirmwareVersion;
    facts.Values = DeriveFromImage(image, meter.FirmwareVersion, meter.MeterType);
    facts.Values.RelayOption = MenuRelayBoard(image);
    facts.Values.CommOption = MenuCommBoard(image);
    facts.Values.AnalogOption = MenuAnalogBoard(image, meter.FirmwareVersion, meter.MeterType);
    facts.Values.PresetActive = CountsBothWays(facts.Mode(), facts.Function());
    facts.Values.ClockMode = shared.ClockMode;
    facts.Values.ItemDecPts[3] = shared.ItemDecPts[3];

    facts.Coordinates1 = CodeOf(image, Field::Group1Form) == 1;
    facts.Coordinates2 = CodeOf(image, Field::Group2Form) == 1;
    facts.CutoffDisabled = CodeOf(image, Field::CutoffEnable) == 1;
    facts.CoordHidden = HidesCoordinates(facts, image);
    facts.Rd0Flag = ReadsAtZero(facts, image);
    facts.DeviationCode = CodeOf(image, Field::DeviationCode);
    ReadPoints(facts, image);
    return facts;
}

}  // namespace counter
