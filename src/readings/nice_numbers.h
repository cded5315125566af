// Round numbers for scales: 1, 2 and 5 times a power of ten.
#pragma once

namespace counter {

// The smallest such number that is not below `least`; 1 where that is 0 or no number.
double NiceAtLeast(double least);

// Digits after the point that tell multiples of a step apart, 0..6: 2 for 0.05.
int DecimalsOfStep(double step);

}  // namespace counter
