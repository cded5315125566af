// Images of anything at all: the menu holds its bounds.
#include <gtest/gtest.h>

#include <random>

#include "menu_bench.h"

namespace counter::test {
namespace {

TEST(RandomImages, GiveAtMost49RowsOfFilledCells) {
    std::mt19937 dice(20260304);  // the same run each time
    auto below = [&](unsigned count) { return static_cast<int>(dice() % count); };
    int mostRows = 0;
    MenuBench bench;
    SetupImage& image = bench.Image;
    for (int run = 0; run < 50000; ++run) {
        // Each eighth is short or long, as after a failed Get or from a file; each fourth is not only digits.
        image.SetupData.resize(run % 8 == 0 ? static_cast<std::size_t>(below(400)) : 260);
        const std::size_t length = image.SetupData.size();
        for (char& c : image.SetupData) {
            bool digit = run % 4 != 1 || below(2) == 0;
            c = digit ? "0123456789ABCDEF"[below(16)] : static_cast<char>(below(256));
        }
        bench.Meter = {below(9), below(256)};
        bench.Shared.ClockMode = 5 * below(2);
        bench.Build();
        ASSERT_EQ(image.SetupData.size(), length);
        ASSERT_LE(bench.View.MenuRowCount, 49);
        ASSERT_LE(bench.View.SetPtRowCount, 4);
        ASSERT_GT(bench.View.NoChangePlace.Row, 0) << "CALib is always there";
        int filled = 0;
        for (const MenuRow& row : bench.Main()) {
            for (const MenuCell& cell : row.Cells) filled += cell.View().empty() ? 0 : 1;
        }
        ASSERT_EQ(filled, 7 * (bench.View.MenuRowCount + 1)) << "run " << run;
        mostRows = std::max(mostRows, bench.View.MenuRowCount);
    }
    EXPECT_GT(mostRows, 35) << "the images reach the long menus too";
}

}  // namespace
}  // namespace counter::test
