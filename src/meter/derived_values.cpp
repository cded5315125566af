#include "meter/derived_values.h"

#include <algorithm>

#include "meter/firmware_rules.h"
#include "meter/mode_tables.h"

namespace counter {

namespace {

bool HasName(const DerivedValues& values) {
    return !FunctionName(values.ModeIndex, values.FunctionIndex).empty();
}

void NormaliseDualSigCond(DerivedValues& values) {
    if (values.ModeIndex < 0 || values.ModeIndex > 7 || values.ModeIndex == 3) {
        values.ModeIndex = 0;
        values.FunctionIndex = 0;
    }
    if (!HasName(values)) values.FunctionIndex = 1;
    if (values.ExtendedMeter) return;
    if (values.ModeIndex > 5) values.ModeIndex = 0;
    if (values.FunctionIndex > 1) values.FunctionIndex = 0;
}

void NormaliseVfConverter(DerivedValues& values) {
    if (!IsVfMode(values.ModeIndex)) values.ModeIndex = 8;
    if (!HasName(values)) values.FunctionIndex = 1;
    bool extendedOnly = values.FunctionIndex == 2 || values.FunctionIndex == 4;
    if (!values.ExtendedMeter && extendedOnly) values.FunctionIndex = 1;
}

void NormaliseQuadrature(DerivedValues& values) {
    if (!values.ExtendedMeter) values.FunctionIndex = 0;
    values.ModeIndex = 12;
    if (!HasName(values)) values.FunctionIndex = 0;
}

int RelayOptionOf(const SetupImage& image, int meterType) {
    if (meterType >= 5) return 1;  // such a meter has two relays, whatever its setup says
    int code = std::min(BitsGet(image, 6, 5, 193), 2);
    return code == 0 ? 0 : 3 - code;
}

int AnalogOptionOf(const SetupImage& image, int firmwareVersion, int meterType) {
    if (HasOnly12BitAnalog(firmwareVersion)) return 1;
    if (BipolarAnalogOffered(firmwareVersion) && meterType == 7) return 3;
    return ByteGet(image, 143);
}

}  // namespace

void NormaliseModeFunction(DerivedValues& values, int firmwareVersion) {
    if (values.InputOption == 1) NormaliseDualSigCond(values);
    if (values.InputOption == 2) NormaliseVfConverter(values);
    if (values.InputOption == 3) NormaliseQuadrature(values);
    if (!HasName(values)) values.FunctionIndex = 1;
    values.ModeWord = ModeWordOf(values.ModeIndex, values.FunctionIndex, firmwareVersion);
    values.ItemRow = ItemRowOfWord(values.ModeWord);
}

void ItemLevelUpdate(DerivedValues& values) {
    values.ItemLevel = LayoutOfWord(values.ModeWord);
    bool oneItem = values.ItemLevel == 0 && values.FunctionIndex != 3 && values.ModeIndex != 5 &&
                   (values.ModeWord & kWordTwoItems) == 0;
    values.ItemCount = oneItem ? 1 : values.ItemLevel < 2 ? 2 : 3;
}

void SrcUpdate(DerivedValues& values) {
    SourceCode source = EntryOf(SourceTable, values.ModeIndex, values.FunctionIndex);
    values.FilteredItem = source.FilteredItem;
    values.SourceItems = source.Items;
    if (source.Rule == 2 && values.DisplayType >= 1 && values.DisplayType <= 5) values.SourceItems = 2;
    if (source.Rule == 3 && values.DisplayType == 1) values.SourceItems = 3;
}

void ItemDecPtMap(DerivedValues& values) {
    int first = values.DecPt1;
    int second = values.DecPt2;
    std::array<int, 4>& points = values.ItemDecPts;
    if (values.ItemCount == 3 && values.ItemLevel == 2) {
        points = {second, second, first, first};
    } else if (values.ItemCount == 3) {
        points = {second, first, 1, second};  // the second item is a grand total or a count, without decimals
    } else if (values.ItemCount == 2 && values.ItemLevel == 1) {
        points = {first, second, first, points[3]};
    } else {
        points = {first, first, second, points[3]};
    }
}

void ActiveBoxesUpdate(DerivedValues& values) {
    int mode = values.ModeIndex;
    int function = values.FunctionIndex;
    bool timeOut = (values.ModeWord & kWordTimeOut) != 0 || values.DisplayType > 5;
    bool countsBothWays = (mode == 2 && (function == 4 || function == 9)) || (mode == 12 && function == 0);
    values.PresetActive = !timeOut && countsBothWays ? 1 : 0;
    values.CutoffActive = IsVfMode(mode) && (function == 2 || function == 3) ? 1 : 0;
}

int SourceInForce(const DerivedValues& values, int storedCode) {
    if (values.DisplayType > 5) return 3;
    bool offered = storedCode == 0 ? values.FilteredItem != 0 : storedCode <= values.SourceItems;
    return offered ? storedCode : 1;
}

int Group2DecPt(const DerivedValues& values) {
    return values.ItemLevel == 2 ? values.DecPt1 : values.DecPt2;
}

DerivedValues DeriveFromImage(const SetupImage& image, int firmwareVersion) {
    return DeriveFromImage(image, firmwareVersion, ByteGet(image, 235));
}

DerivedValues DeriveFromImage(const SetupImage& image, int firmwareVersion, int meterType) {
    DerivedValues values;
    values.InputOption = InputOptionFromSetup(image);
    values.ModeIndex = BitsGet(image, 7, 4, 199);
    values.FunctionIndex = BitsGet(image, 3, 0, 199);
    values.ExtendedMeter = ExtendedMeterFromSetup(image);
    values.DisplayType = BitsGet(image, 7, 4, 185);
    values.DecPt1 = BitsGet(image, 2, 0, 151);
    values.DecPt2 = BitsGet(image, 6, 4, 151);
    values.RelayOption = RelayOptionOf(image, meterType);
    values.CommOption = std::min(BitsGet(image, 4, 3, 193), 2);
    values.AnalogOption = AnalogOptionOf(image, firmwareVersion, meterType);
    values.ProtocolCode = BitsGet(image, 3, 2, 109);

    NormaliseModeFunction(values, firmwareVersion);
    ItemLevelUpdate(values);
    SrcUpdate(values);
    ItemDecPtMap(values);
    ActiveBoxesUpdate(values);
    bool showsTime = values.DisplayType == 4 || values.DisplayType == 5;
    values.ClockMode = values.ModeIndex == 5 && showsTime ? values.DisplayType : 0;
    return values;
}

}  // namespace counter
