// Fixed-width fields as formatted Fortran output writes them. Pure: text in, text out, no allocation.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace ktl::reports {

/// One line of output under construction, cut off at its fixed room.
class Line {
public:
    Line& text(std::string_view words);

    /// Descriptor 1PEw.d: one digit before the point, d after it, right-aligned in w characters.
    Line& real_1pe(double value, int w, int d);
    /// Descriptor Ew.d: a zero before the point, d digits after it.
    Line& real_e(double value, int w, int d);
    /// Descriptor Iw. An integer wider than its field is written as w asterisks.
    Line& integer(int value, int w);
    /// An integer item of list-directed output: right-aligned in 12 characters.
    Line& list_integer(int value) { return integer(value, 12); }

    [[nodiscard]] std::string_view view() const { return {room_.data(), size_}; }

private:
    Line& right_aligned(std::string_view field, int w);
    Line& fill(char c, int count);

    std::array<char, 256> room_;
    std::size_t size_ = 0;
};

} // namespace ktl::reports
