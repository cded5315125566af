// Item plan: which Items a Mode and Function of the meter have, and where their decimal points are kept.
#pragma once

#include "sim/memory.h"

namespace sim {

enum class Reading { Item1 = 0, Item2 = 1, Item3 = 2, Peak, Valley };

// How an arrangement of Items shares the two decimal points of the setup.
enum class ItemLayout {
    Plain,     // Item 1 has the first, Item 2 the second
    Swapped,   // the other way round
    Combined,  // Item 1 has the second, Items 2 and 3, of which it is made, the first
    Batch,     // Item 1 has the first, Item 2 is a whole number, Item 3 has the second
};

struct ItemPlan {
    int Items = 1;  // active ones, 1 to 3
    ItemLayout Layout = ItemLayout::Plain;
    bool RateOfA = false;  // Item 1 is the frequency at input A times scale 1
};

// `modeFunction` is the byte of Mode (high digit) and Function. A pair that does not exist has one Item.
ItemPlan ItemPlanOf(int modeFunction);

// The Item that an alarm watches when its source is the filtered Item.
Reading FilteredItem(const ItemPlan& plan);

// Digits after the point of a reading, 0 to 5. Peak and valley are those of Item 1.
int DecimalsOf(const Memory& memory, const ItemPlan& plan, Reading which);

}  // namespace sim
