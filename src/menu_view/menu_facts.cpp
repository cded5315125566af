#include "menu_view/menu_facts.h"

#include "meter/firmware_rules.h"

namespace counter {

namespace {

constexpr int kNoPanelMeter = 7;

int RelayOptionOf(const SetupImage& image) {
    constexpr std::array<int, 4> kOptions = {0, 2, 1, 1};
    return kOptions[static_cast<std::size_t>(BitsGet(image, 6, 5, 193))];
}

// A meter without a panel has the best board of its version, whatever its setup says.
int AnalogOptionOf(const SetupImage& image, const MeterIdentity& meter) {
    if (meter.MeterType != kNoPanelMeter) return ByteGet(image, 143);
    if (HasOnly12BitAnalog(meter.FirmwareVersion)) return 1;
    return BipolarAnalogOffered(meter.FirmwareVersion) ? 3 : 2;
}

bool HasPreset(const MenuFacts& facts) {
    return facts.IsPair(2, 4) || facts.IsPair(2, 9) || facts.IsPair(12, 0);
}

bool HidesCoordinates(const MenuFacts& facts, const SetupImage& image) {
    bool curve = BitsGet(image, 3, 3, 185) == 1;
    int mode = facts.Mode();
    int function = facts.Function();
    return curve && (facts.IsPair(0, 3) || (mode < 3 && function == 1) ||
                     (mode >= 8 && function != 0 && function != 2));
}

bool ReadsAtZero(const MenuFacts& facts, const SetupImage& image) {
    int mode = facts.Mode();
    bool never = mode == 2 || mode == 4 || mode == 5 || mode == 6 || mode == 12 ||
                 (facts.IsVfMode() && facts.Function() == 2);
    return BitsGet(image, 1, 1, 185) == 1 && !never;
}

// The panel has no point code 0.
void RepairPoint(SetupImage& image, int hiBit, int loBit, int& decPt) {
    if (decPt != 0) return;
    decPt = 1;
    BitsPut(image, hiBit, loBit, 151, decPt);
}

void ReadPoints(MenuFacts& facts, SetupImage& image) {
    DerivedValues& values = facts.Values;
    if (facts.ShowsPoint1()) RepairPoint(image, 2, 0, values.DecPt1);
    if (facts.ShowsPoint2()) RepairPoint(image, 6, 4, values.DecPt2);
    ItemDecPtMap(values);
    bool oneResult = facts.Combines() || facts.IsPair(0, 15) || facts.IsPair(12, 1);
    facts.Item2Dp = oneResult ? values.DecPt1 : values.DecPt2;
    auto pointOfSource = [&](int hiBit, int pos) {
        return values.ItemDecPts[static_cast<std::size_t>(BitsGet(image, hiBit, hiBit - 1, pos))];
    };
    facts.AlarmPoints = {pointOfSource(7, 169), pointOfSource(5, 169), pointOfSource(3, 169),
                         pointOfSource(1, 169)};
    facts.AnalogPoints = {pointOfSource(1, 167), pointOfSource(5, 167)};
}

}  // namespace

MenuFacts ReadMenuFacts(SetupImage& image, const MeterIdentity& meter, const DerivedValues& shared) {
    MenuFacts facts;
    facts.FirmwareVersion = meter.FirmwareVersion;
    facts.Values = DeriveFromImage(image, meter.FirmwareVersion, meter.MeterType);
    facts.Values.RelayOption = RelayOptionOf(image);
    facts.Values.CommOption = BitsGet(image, 4, 3, 193);
    facts.Values.AnalogOption = AnalogOptionOf(image, meter);
    facts.Values.PresetActive = HasPreset(facts) ? 1 : 0;
    facts.Values.ClockMode = shared.ClockMode;
    facts.Values.ItemDecPts[3] = shared.ItemDecPts[3];

    facts.Coordinates1 = BitsGet(image, 5, 5, 197) == 1;
    facts.Coordinates2 = BitsGet(image, 4, 4, 197) == 1;
    facts.CutoffDisabled = BitsGet(image, 0, 0, 185) == 1;
    facts.CoordHidden = HidesCoordinates(facts, image);
    facts.Rd0Flag = ReadsAtZero(facts, image);
    facts.DeviationCode = BitsGet(image, 5, 3, 201);
    ReadPoints(facts, image);
    return facts;
}

}  // namespace counter
