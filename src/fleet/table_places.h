// Where the meters of a table answer: now, and once they hold what the table wants.
//
// The row's protocol, baud and address are where the meter answers now. They go into its setup as well,
// unless a column of the table says otherwise: then a Put moves the meter, and it answers at one of two
// places, depending on whether that Put has been made. Parity and duplex come from the setup alone.
#pragma once

#include <string>
#include <vector>

#include "fleet/meter_table.h"
#include "meter/setup_image.h"
#include "settings/settings.h"

namespace counter {

// A row with its setup.
struct PlannedMeter {
    TableMeter Meter;
    SetupImage Now;     // the row's file with the row's own protocol, baud and address in it
    SetupImage Wanted;  // what the meter should hold
    bool HasSetup = true;
    std::vector<std::string> Consequences;  // of the values: "FIELD  A  ->  B", a line each
};

// The bits of protocol, baud and address in the image as the row has them.
SetupImage WithPlaceOf(const TableMeter& meter, SetupImage image);

// The settings of each place at which the meter may answer, the row's own first.
std::vector<SettingsLines> PlacesOf(const PlannedMeter& planned);
// "Custom ASCII, 9600 baud, address 5"
std::string PlaceWords(const SettingsLines& place);

// Two meters that one frame would reach, be it when some are moved and others not yet.
std::vector<TableFault> SharedPlaces(const std::vector<PlannedMeter>& meters);

}  // namespace counter
