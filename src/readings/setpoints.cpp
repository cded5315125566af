#include "readings/setpoints.h"

#include <algorithm>
#include <array>

#include "meter/derived_values.h"
#include "meter/field_code.h"
#include "meter/field_value.h"
#include "meter/leading_number.h"
#include "readings/chart_labels.h"

namespace counter {

namespace {

struct Alarm {
    Field Source, State, Setpoint;
};

constexpr std::array<Alarm, 4> kAlarms = {{
    {Field::Alarm1Source, Field::Alarm1State, Field::Setpoint1},
    {Field::Alarm2Source, Field::Alarm2State, Field::Setpoint2},
    {Field::Alarm3Source, Field::Alarm3State, Field::Setpoint3},
    {Field::Alarm4Source, Field::Alarm4State, Field::Setpoint4},
}};

constexpr int kDisabled = 2;  // code of an alarm's state, and those above it

int AlarmsOfBoard(int relayBoard) {
    if (relayBoard == RelayBoard::FourRelays) return 4;
    return relayBoard == RelayBoard::TwoRelays ? 2 : 0;
}

int ItemOfSource(const DerivedValues& values, int storedCode) {
    const int source = SourceInForce(values, storedCode);
    return source == Source::FilteredItem ? values.FilteredItem : source;
}

// A setpoint is a number without blanks: "+010000.", "-0074.565".
ShownSetpoint Read(const SetupImage& image, int alarm, Field field) {
    const std::string text = ValueOfField(image, field).Text;
    const std::size_t point = text.find('.');
    const int decimals = point == std::string::npos ? 0 : static_cast<int>(text.size() - point - 1);
    const double value = LeadingNumber(text);
    return {alarm, value, DecimalText(value, decimals)};
}

}  // namespace

std::vector<ShownSetpoint> SetpointsOf(const SetupImage& image, int firmwareVersion, int meterType,
                                       int item) {
    const DerivedValues values = DeriveFromImage(image, firmwareVersion, meterType);
    std::vector<ShownSetpoint> list;
    for (int i = 0; i < AlarmsOfBoard(values.RelayOption); ++i) {
        const Alarm& alarm = kAlarms[static_cast<std::size_t>(i)];
        const bool enabled = CodeOf(image, alarm.State) < kDisabled;
        if (enabled && ItemOfSource(values, CodeOf(image, alarm.Source)) == item)
            list.push_back(Read(image, i + 1, alarm.Setpoint));
    }
    return list;
}

}  // namespace counter
