// Which boards a setup and its meter mean, as numbers of meter_words.h.
//
// Two views judge the same digits by rules of their own: the Setup view knows what a meter of the kind and
// version can have at all, the meter's menu goes by the setup and by what a meter without a panel has.
#pragma once

#include "meter/setup_image.h"

namespace counter {

// The board that feeds the meter; a code that no board has is its own number.
int InputOptionFromSetup(const SetupImage& image);

// The code of such a board in the field Input Option.
int InputOptionCode(int inputOption);

// As the Setup view and whatever works on a meter have them.

// A meter of the transmitter kinds has two relays, whatever its setup says.
int RelayBoardOf(const SetupImage& image, int meterType);
// A code above those of the boards is an RS485 board.
int CommBoardOf(const SetupImage& image);
// An old meter has the 12 bit board and a new one without a panel the bipolar one, whatever the setup says.
int AnalogBoardOf(const SetupImage& image, int firmwareVersion, int meterType);

// As the meter's menu has them.

// By the setup alone, whatever the meter's kind.
int MenuRelayBoard(const SetupImage& image);
// As stored, 3 included, for which the menu has no rows.
int MenuCommBoard(const SetupImage& image);
// By the setup; a meter without a panel has the best board of its version.
int MenuAnalogBoard(const SetupImage& image, int firmwareVersion, int meterType);

}  // namespace counter
