// What fuzz targets share: the input as text, and the end at a broken promise.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace counter::fuzz {

inline std::string_view TextOf(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

inline void Require(bool kept) {
    if (!kept) std::abort();
}

}  // namespace counter::fuzz
