#include "fleet/table_places.h"

#include <map>
#include <tuple>

#include "meter/field_code.h"
#include "meter/meter_words.h"
#include "meter/text.h"
#include "settings/settings_keys.h"
#include "transfer/put_setup.h"

namespace counter {

namespace {

void SetKey(SettingsLines& lines, std::string_view name, const std::string& value) {
    SetSettingsKey(lines, *FindSettingsKey(name), value);
}

// The setup's own version decides which Modbus RTU check its meter uses.
SettingsLines PlaceOf(const TableMeter& meter, const SetupImage& image) {
    SettingsLines lines = NewSettingsLines();
    SetKey(lines, "MeterType", std::to_string(CodeOf(image, Field::MeterType)));
    SetKey(lines, "FirmwareVersion",
           std::to_string(meter.Version.value_or(CodeOf(image, Field::FirmwareVersion))));
    SetKey(lines, "CommsEnabled", meter.Echo ? "2" : "1");
    if (meter.Line.IsNode()) {
        SetKey(lines, "NodeAddress", meter.Line.NodeAddress);
        SetKey(lines, "NodeIp", meter.Line.NodeIp);
        SetKey(lines, "TcpPort", std::to_string(meter.Line.NodeTcpPort));
    }
    lines.SettingsLine1 = LinkSettingsLine(lines.SettingsLine1, image);
    return lines;
}

int AddressIn(const Settings& settings) {
    return settings.ModbusLink ? settings.ModbusAddress : settings.MeterAddressValue;
}

}  // namespace

SetupImage WithPlaceOf(const TableMeter& meter, SetupImage image) {
    PutCode(image, Field::SerialProtocol, meter.Protocol);
    if (meter.BaudIndex) PutCode(image, Field::BaudRate, *meter.BaudIndex);
    PutCode(image, meter.Protocol == Protocol::CustomAscii ? Field::Address : Field::ModbusAddress,
            meter.Address);
    return image;
}

std::vector<SettingsLines> PlacesOf(const PlannedMeter& planned) {
    std::vector<SettingsLines> places = {PlaceOf(planned.Meter, planned.Now)};
    const SettingsLines later = PlaceOf(planned.Meter, planned.Wanted);
    if (later != places[0]) places.push_back(later);
    return places;
}

std::string PlaceWords(const SettingsLines& place) {
    Settings settings;
    ParseSettings(place, settings);
    const auto& protocols = RowOf(Field::SerialProtocol).Entries;
    return std::string(protocols[static_cast<std::size_t>(settings.SerialProtocol)]) + ", " +
           std::string(BaudTable[static_cast<std::size_t>(settings.BaudIndex)]) + " baud, address " +
           std::to_string(AddressIn(settings));
}

std::vector<TableFault> SharedPlaces(const std::vector<PlannedMeter>& meters) {
    std::vector<TableFault> faults;
    std::map<std::tuple<std::string, int, int>, int> rows;
    // Where they are now comes first: of two rows that meet, the one that moves there is told.
    for (const bool moved : {false, true}) {
        for (const PlannedMeter& planned : meters) {
            const std::vector<SettingsLines> places = PlacesOf(planned);
            if (moved && places.size() < 2) continue;
            Settings settings;
            ParseSettings(places[moved ? 1 : 0], settings);
            const int row = planned.Meter.Row;
            const auto [at, isNew] =
                rows.try_emplace({planned.Meter.Line.Key, settings.SerialProtocol, AddressIn(settings)}, row);
            if (isNew || at->second == row) continue;
            const std::string other = "row " + std::to_string(at->second);
            faults.push_back({row, "address",
                              moved ? "its setup moves the meter to " + PlaceWords(places[1]) +
                                          ", which is where " + other + " is or will be"
                                    : "is that of " + other + " on the same line"});
        }
    }
    return faults;
}

}  // namespace counter
