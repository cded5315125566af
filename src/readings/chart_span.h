// Round numbers along a span of an axis.
#pragma once

#include <functional>
#include <string>

namespace counter {

// Multiples of 1, 2 or 5 times a power of ten from one end to the other, which may be the lower one, at least
// `apart` from one another, as part of the span. `draw` gets where it lies, 0 at `from` to 1 at `to`, and its
// text.
void AlongSpan(double from, double to, double apart,
               const std::function<void(double part, const std::string& text)>& draw);

}  // namespace counter
