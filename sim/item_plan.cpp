#include "sim/item_plan.h"

#include <algorithm>

namespace sim {

namespace {

struct Row {
    int FirstMode, LastMode, FirstFunction, LastFunction;
    int Items;
    ItemLayout Layout;
};

// All pairs with more than one Item.
// clang-format off
constexpr Row kRows[] = {
    { 0,  0,  0,  0, 2, ItemLayout::Plain},     // rates of A and B
    { 0,  0,  3,  3, 2, ItemLayout::Plain},     // rate and total of A
    { 0,  0,  5,  5, 2, ItemLayout::Plain},     // rate of A, total of B
    { 1,  2,  0,  0, 2, ItemLayout::Plain},     // periods or totals of A and B
    { 5,  5,  0, 15, 2, ItemLayout::Plain},     // stopwatch and grand total
    { 8, 10,  3,  3, 2, ItemLayout::Plain},     // V-F rate and total
    { 2,  2,  6,  7, 2, ItemLayout::Swapped},   // burst; total of B with rate of A
    { 8, 10,  8,  8, 2, ItemLayout::Swapped},   // V-F total and rate
    { 0,  0, 11, 15, 3, ItemLayout::Combined},  // arithmetic on rates, periods, totals
    { 1,  2, 11, 14, 3, ItemLayout::Combined},
    {12, 12,  1,  1, 3, ItemLayout::Combined},  // quadrature rates
    { 0,  0,  2,  2, 3, ItemLayout::Batch},
    { 8, 10,  2,  2, 3, ItemLayout::Batch},
};
// clang-format on

// Which of the two points, 1 or 2, a reading has; 0 for none.
int PointOf(const ItemPlan& plan, Reading which) {
    const int item = which == Reading::Item2 ? 2 : which == Reading::Item3 ? 3 : 1;
    switch (plan.Layout) {
        case ItemLayout::Plain:
            return item == 2 ? 2 : 1;
        case ItemLayout::Swapped:
        case ItemLayout::Combined:
            return item == 1 ? 2 : 1;
        case ItemLayout::Batch:
            return item == 1 ? 1 : item == 2 ? 0 : 2;
    }
    return 0;
}

}  // namespace

ItemPlan ItemPlanOf(int modeFunction) {
    const int mode = modeFunction >> 4, function = modeFunction & 0xF;
    ItemPlan plan;
    const auto row = std::find_if(std::begin(kRows), std::end(kRows), [&](const Row& r) {
        return mode >= r.FirstMode && mode <= r.LastMode && function >= r.FirstFunction &&
               function <= r.LastFunction;
    });
    if (row != std::end(kRows)) plan = {row->Items, row->Layout};
    plan.RateOfA = mode == 0 && plan.Layout == ItemLayout::Plain;
    return plan;
}

Reading FilteredItem(const ItemPlan& plan) {
    if (plan.Layout == ItemLayout::Swapped) return Reading::Item2;
    return plan.Layout == ItemLayout::Batch ? Reading::Item3 : Reading::Item1;
}

int DecimalsOf(const Memory& memory, const ItemPlan& plan, Reading which) {
    const int point = PointOf(plan, which);
    if (point == 0) return 0;
    const int code = point == 1 ? memory.Bits(151, 2, 0) : memory.Bits(151, 6, 4);
    return std::clamp(code, 1, 6) - 1;
}

}  // namespace sim
