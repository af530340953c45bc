// A text of exactly N single bytes, padded on the right with blanks; longer text is cut.
#pragma once

#include <algorithm>
#include <array>
#include <concepts>
#include <cstddef>
#include <string>
#include <string_view>

#include "basics/text.h"

namespace tavernook {

template <std::size_t N>
class FixedString {
  public:
    static constexpr std::size_t size = N;

    FixedString() { bytes_.fill(' '); }
    FixedString(std::string_view text) { assign(text); }
    FixedString(const char* text) { assign(text); }
    FixedString(const std::string& text) { assign(text); }

    FixedString& operator=(std::string_view text) {
        assign(text);
        return *this;
    }
    FixedString& operator=(const char* text) { return *this = std::string_view(text); }
    FixedString& operator=(const std::string& text) { return *this = std::string_view(text); }

    // All N bytes, padding included.
    std::string_view stored() const { return {bytes_.data(), N}; }
    std::string_view right_trimmed() const { return trim_right(stored()); }
    std::string_view trimmed() const { return trim(stored()); }
    bool blank() const { return right_trimmed().empty(); }

    char* data() { return bytes_.data(); }
    const char* data() const { return bytes_.data(); }

    friend bool operator==(const FixedString& a, const FixedString& b) {
        return a.bytes_ == b.bytes_;
    }

    // Blanks at the end do not count; a text that does not fit is never equal.
    template <std::convertible_to<std::string_view> Text>
    friend bool operator==(const FixedString& a, const Text& b) {
        return a.right_trimmed() == trim_right(b);
    }

  private:
    // The text may lie inside this very string (`name = name.trimmed()`).
    void assign(std::string_view text) {
        const std::size_t kept = std::min(text.size(), N);
        if (kept > 0) std::char_traits<char>::move(bytes_.data(), text.data(), kept);
        std::fill(bytes_.begin() + static_cast<std::ptrdiff_t>(kept), bytes_.end(), ' ');
    }

    std::array<char, N> bytes_;
};

}  // namespace tavernook
