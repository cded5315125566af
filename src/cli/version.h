// The version that the programs tell.
#pragma once

namespace counter {

inline constexpr const char* kVersion = "0.1.0";

}  // namespace counter
