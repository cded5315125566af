#include "system/line_settings.h"

#include <gtest/gtest.h>

namespace counter {

// On a wire and on a pseudo terminal. DTR and RTS are up on opening and nothing shakes hands, whatever the
// text.
TEST(LineSettings, LegalTextsSayWhatIsSetOnTheLine) {
    using Port = QSerialPort;
    // clang-format off
    const struct { const char* Text; const char* Name; LineSettings Line; } cases[] = {
        {"300,n,7,2",   "ttyUSB0", {300,   Port::NoParity,   Port::Data7, Port::TwoStop, Port::NoFlowControl, true, true}},
        {"9600,e,8,1",  "ttyS0",   {9600,  Port::EvenParity, Port::Data8, Port::OneStop, Port::NoFlowControl, true, true}},
        {"19200,o,8,1", "ttyUSB0", {19200, Port::OddParity,  Port::Data8, Port::OneStop, Port::NoFlowControl, true, true}},
        {"1200,o,7,2",  "pts/3",   {1200,  Port::NoParity,   Port::Data8, Port::TwoStop, Port::NoFlowControl, true, true}},
    };
    // clang-format on
    for (const auto& c : cases)
        EXPECT_EQ(SettingsFor(c.Name, ParseLineSettings(c.Text).value_or(LineSettings())), c.Line) << c.Text;
}

TEST(LineSettings, OthersAreIllegal) {
    for (const char* text :
         {"", ",n,8,1", "9600,n,8", "9600,n,8,1,", "9600,n,8,", "9601,n,8,1", "9600 ,n,8,1", "9600,x,8,1",
          "9600,,8,1", "9600,nn,8,1", "9600,n,9,1", "9600,n,8,0", "9600,n,8,1x"}) {
        EXPECT_FALSE(ParseLineSettings(text)) << '"' << text << '"';
    }
}

}  // namespace counter
