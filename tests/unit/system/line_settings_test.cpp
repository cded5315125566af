#include "system/line_settings.h"

#include <gtest/gtest.h>

#include <string>

namespace counter {

TEST(LineSettings, LegalTextsAreTakenApart) {
    for (const std::string text : {"300,n,7,2", "9600,e,8,1", "19200,o,8,1"}) {
        const LineSettings s = ParseLineSettings(text).value_or(LineSettings());
        EXPECT_EQ(std::to_string(s.Baud) + "," + s.Parity + "," + std::to_string(s.DataBits) + "," +
                      std::to_string(s.StopBits),
                  text);
    }
}

TEST(LineSettings, OthersAreIllegal) {
    for (const char* text :
         {"", ",n,8,1", "9600,n,8", "9600,n,8,1,", "9600,n,8,", "9601,n,8,1", "9600 ,n,8,1", "9600,x,8,1",
          "9600,,8,1", "9600,nn,8,1", "9600,n,9,1", "9600,n,8,0", "9600,n,8,1x"}) {
        EXPECT_FALSE(ParseLineSettings(text)) << '"' << text << '"';
    }
}

}  // namespace counter
