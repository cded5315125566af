#include "meter/derived_values.h"

#include "meter/boards.h"
#include "meter/field_code.h"
#include "meter/mode_tables.h"

namespace counter {

namespace {

bool HasName(const DerivedValues& values) {
    return !FunctionName(values.ModeIndex, values.FunctionIndex).empty();
}

void NormaliseDualSigCond(DerivedValues& values) {
    if (values.ModeIndex < Mode::Rate || values.ModeIndex > Mode::DutyCycle ||
        values.ModeIndex == Mode::None) {
        values.ModeIndex = Mode::Rate;
        values.FunctionIndex = Function::AandB;
    }
    if (!HasName(values)) values.FunctionIndex = Function::AOnly;
    if (values.ExtendedMeter) return;
    if (values.ModeIndex > Mode::Stopwatch) values.ModeIndex = Mode::Rate;
    if (values.FunctionIndex > Function::AOnly) values.FunctionIndex = Function::AandB;
}

void NormaliseVfConverter(DerivedValues& values) {
    if (!IsVfMode(values.ModeIndex)) values.ModeIndex = Mode::Vf4To20mA;
    if (!HasName(values)) values.FunctionIndex = Function::AOnly;
    bool extendedOnly = values.FunctionIndex == Function::Batch;
    if (!values.ExtendedMeter && extendedOnly) values.FunctionIndex = Function::AOnly;
}

void NormaliseQuadrature(DerivedValues& values) {
    if (!values.ExtendedMeter) values.FunctionIndex = Function::QuadratureTotal;
    values.ModeIndex = Mode::Quadrature;
    if (!HasName(values)) values.FunctionIndex = Function::QuadratureTotal;
}

// The code that the point of an alarm or analog output comes from.
int PointOf(const SetupImage& image, const DerivedValues& values, Field sourceField, PointOfSource source) {
    int code = CodeOf(image, sourceField);
    if (source == PointOfSource::InForce) code = SourceInForce(values, code);
    return values.ItemDecPts[static_cast<std::size_t>(code)];
}

}  // namespace

void NormaliseModeFunction(DerivedValues& values, int firmwareVersion) {
    if (values.InputOption == InputBoard::DualSigCond) NormaliseDualSigCond(values);
    if (values.InputOption == InputBoard::VfConverter) NormaliseVfConverter(values);
    if (values.InputOption == InputBoard::Quadrature) NormaliseQuadrature(values);
    if (!HasName(values)) values.FunctionIndex = Function::AOnly;
    values.ModeWord = ModeWordOf(values.ModeIndex, values.FunctionIndex, firmwareVersion);
    values.ItemRow = ItemRowOfWord(values.ModeWord);
}

void ItemLevelUpdate(DerivedValues& values) {
    values.ItemLevel = LayoutOfWord(values.ModeWord);
    bool oneItem = values.ItemLevel == 0 && values.FunctionIndex != Function::RateAndTotal &&
                   values.ModeIndex != Mode::Stopwatch && (values.ModeWord & kWordTwoItems) == 0;
    values.ItemCount = oneItem ? 1 : values.ItemLevel < 2 ? 2 : 3;
}

void SrcUpdate(DerivedValues& values) {
    SourceCode source = EntryOf(SourceTable, values.ModeIndex, values.FunctionIndex);
    values.FilteredItem = source.FilteredItem;
    values.SourceItems = source.Items;
    int display = values.DisplayType;
    bool notNormal = display != DisplayType::Normal && !IsRemoteDisplay(display);
    if (source.Rule == 2 && notNormal) values.SourceItems = 2;
    if (source.Rule == 3 && display == DisplayType::Normal999999) values.SourceItems = 3;
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

bool TimesOut(const DerivedValues& values) {
    return (values.ModeWord & kWordTimeOut) != 0 || IsRemoteDisplay(values.DisplayType);
}

bool CountsBothWays(int mode, int function) {
    if (mode == Mode::Quadrature) return function == Function::QuadratureTotal;
    return mode == Mode::Total &&
           (function == Function::AMinusBUpDown || function == Function::UpDownControl);
}

void ClockModeUpdate(DerivedValues& values) {
    int display = values.DisplayType;
    bool showsTime = display == DisplayType::Seconds || display == DisplayType::Clock;
    values.ClockMode = values.ModeIndex == Mode::Stopwatch && showsTime ? display : 0;
}

void ActiveBoxesUpdate(DerivedValues& values) {
    int function = values.FunctionIndex;
    values.PresetActive = !TimesOut(values) && CountsBothWays(values.ModeIndex, function);
    values.CutoffActive =
        IsVfMode(values.ModeIndex) && (function == Function::Batch || function == Function::RateAndTotal);
}

int SourceInForce(const DerivedValues& values, int storedCode) {
    if (IsRemoteDisplay(values.DisplayType)) return Source::Item3;
    bool offered =
        storedCode == Source::FilteredItem ? values.FilteredItem != 0 : storedCode <= values.SourceItems;
    return offered ? storedCode : static_cast<int>(Source::Item1);
}

int Group2DecPt(const DerivedValues& values) {
    return values.ItemLevel == 2 ? values.DecPt1 : values.DecPt2;
}

void SettlePointOfSource(DerivedValues& values, int source) {
    int& point = values.ItemDecPts[static_cast<std::size_t>(source)];
    point = ShownPoint(point);
}

int PointCode(const SetupImage& image, const DerivedValues& values, const FieldRow& row,
              PointOfSource source) {
    switch (row.DecPt) {
        case Point::Code3:
            return 3;
        case Point::Code6:
            return 6;
        case Point::DecPt1:
            return values.DecPt1;
        case Point::Group2:
            return Group2DecPt(values);
        case Point::Alarm1Source:
            return PointOf(image, values, Field::Alarm1Source, source);
        case Point::Alarm2Source:
            return PointOf(image, values, Field::Alarm2Source, source);
        case Point::Alarm3Source:
            return PointOf(image, values, Field::Alarm3Source, source);
        case Point::Alarm4Source:
            return PointOf(image, values, Field::Alarm4Source, source);
        case Point::AnalogSource:
            return PointOf(image, values, Field::AnalogSource, source);
        case Point::AnalogSource2:
            return PointOf(image, values, Field::AnalogSource2, source);
        case Point::None:
        case Point::Code1:
        case Point::Stored:
            break;  // a stored point is taken from the field itself
    }
    return 1;
}

DerivedValues DeriveFromImage(const SetupImage& image, int firmwareVersion) {
    return DeriveFromImage(image, firmwareVersion, CodeOf(image, Field::MeterType));
}

DerivedValues DeriveFromImage(const SetupImage& image, int firmwareVersion, int meterType) {
    DerivedValues values;
    values.InputOption = InputOptionFromSetup(image);
    values.ModeIndex = CodeOf(image, Field::Mode);
    values.FunctionIndex = CodeOf(image, Field::Function);
    values.ExtendedMeter = ExtendedMeterFromSetup(image);
    values.DisplayType = CodeOf(image, Field::DisplayType);
    values.DecPt1 = CodeOf(image, Field::DecimalPoint1);
    values.DecPt2 = CodeOf(image, Field::DecimalPoint2);
    values.RelayOption = RelayBoardOf(image, meterType);
    values.CommOption = CommBoardOf(image);
    values.AnalogOption = AnalogBoardOf(image, firmwareVersion, meterType);
    values.ProtocolCode = CodeOf(image, Field::SerialProtocol);

    NormaliseModeFunction(values, firmwareVersion);
    ItemLevelUpdate(values);
    SrcUpdate(values);
    ItemDecPtMap(values);
    ActiveBoxesUpdate(values);
    ClockModeUpdate(values);
    return values;
}

}  // namespace counter
