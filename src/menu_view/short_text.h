// ShortText: a text of a few characters that lives where it is declared. A menu has some 400 cells of at most
// three characters, and none of them is worth an allocation.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace counter {

template <std::size_t Capacity>
class ShortText {
    static_assert(Capacity < 256);

  public:
    constexpr ShortText() = default;
    constexpr ShortText(std::string_view text) { Append(text); }
    constexpr ShortText(const char* text) { Append(text); }

    // What goes beyond the capacity is dropped.
    constexpr void Append(std::string_view text) {
        std::string_view fitting = text.substr(0, Capacity - size_);
        std::copy(fitting.begin(), fitting.end(), text_.begin() + size_);
        size_ = static_cast<std::uint8_t>(size_ + fitting.size());
    }
    constexpr std::string_view View() const { return {text_.data(), size_}; }
    constexpr operator std::string_view() const { return View(); }

    friend constexpr bool operator==(const ShortText& a, const ShortText& b) { return a.View() == b.View(); }

  private:
    std::array<char, Capacity> text_{};
    std::uint8_t size_ = 0;
};

}  // namespace counter
