#include "meter/text.h"

#include <gtest/gtest.h>

#include <utility>

namespace counter {
namespace {

TEST(AsciiName, NamesControlsAndShowsOthers) {
    const std::pair<int, const char*> cases[] = {{0, "nul"},  {7, "bel"},    {8, "bs "},  {13, "cr "},
                                                 {16, "dle"}, {17, "dc1"},   {24, "can"}, {25, "em "},
                                                 {31, "us "}, {32, "sp "},   {33, "!"},   {35, "#"},
                                                 {126, "~"},  {255, "\xFF"}, {-1, ""},    {256, ""}};
    for (auto [code, name] : cases) EXPECT_EQ(AsciiName(code), name) << "code " << code;
}

}  // namespace
}  // namespace counter
