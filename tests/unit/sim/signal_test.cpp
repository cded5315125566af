#include "sim/signal.h"

#include <gtest/gtest.h>

namespace sim {
namespace {

TEST(Signal, ShapesRepeatWithThePeriod) {
    static constexpr struct {
        const char* Name;
        SignalKind Kind;
        double At[4];  // 0, 450, 1500 and 1999 ms of 2 s; 100 on 500
    } kCases[] = {
        // clang-format off
        {"constant", SignalKind::Constant, {500, 500,     500, 500}},
        {"ramp",     SignalKind::Ramp,     {500, 545,     550, 500.1}},
        {"sine",     SignalKind::Sine,     {500, 598.769, 400, 499.686}},
        {"steps",    SignalKind::Steps,    {500, 525,     575, 600}},
        // clang-format on
    };
    static constexpr double kMs[] = {0, 450, 1500, 1999};
    for (const auto& c : kCases)
        for (int i = 0; i < 8; ++i)
            EXPECT_NEAR(SignalAt({c.Kind, 500, 100, 2}, kMs[i % 4] + i / 4 * 6000), c.At[i % 4], 0.001)
                << c.Name << " " << i;
}

}  // namespace
}  // namespace sim
