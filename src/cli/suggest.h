// Suggestions for a name that was mistyped.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace counter {

// The least number of letters to insert, leave out, change or swap with their neighbour, to make one word of
// the other. Capitals count as small letters.
int TypingDistance(std::string_view a, std::string_view b);

// "; did you mean 'get'?" with the nearest of the names, at most four that are equally near; empty where none
// is near enough. A name that begins with the whole word is near.
std::string DidYouMean(std::string_view word, std::span<const std::string> names);

}  // namespace counter
