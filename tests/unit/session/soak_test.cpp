// Transfers for days on end: nothing may grow.
#include "readings/readings_bench.h"
#include "shell/get_action.h"
#include "shell/put_action.h"
#include "support/heap.h"
#include "support/meter_kinds.h"

namespace counter::test {
namespace {

TEST(Soak, TenThousandGetsAndPutsLeaveTheHeapAsItWas) {
    constexpr int kRounds = 1700, kWarm = 200;  // a Get and a Put each, in each of three protocols
    for (const LinkKind& kind : kLinkKinds) {
        SCOPED_TRACE(kind.Name);
        BenchMeterOf<DayPump> bench(MeterOf(kind), {kind.Setting});
        ASSERT_TRUE(bench.SwitchOn().Ok());
        std::size_t warm = 0;
        for (int round = 0; round < kRounds; ++round) {
            GetSetup(bench.Program);
            ASSERT_EQ(bench.Program.LinkState.LinkError, 0) << round;
            PutSetup(bench.Program);
            ASSERT_EQ(bench.Program.LinkState.LinkError, 0) << round;
            bench.Line.Forget();
            if (round == kWarm) warm = HeapInUse();  // a hundred backups are kept by now
        }
        EXPECT_TRUE(bench.Program.Home.StatusText.ends_with("Transferred O.K.")) << "as all before it";
        EXPECT_LE(HeapInUse(), warm + 4096);
    }
}

}  // namespace
}  // namespace counter::test
