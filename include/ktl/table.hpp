// The temperatures or pressures that the rows of a printed steam table stand at: equal steps, or pressures that grow by
// about a tenth from row to row.
//
//     const ktl::table::Steps rows(0.01, 374.15, 1.0); // 0.01, 1, 2 .. 374, 374.15
//     for (std::size_t k = 0; k < rows.size(); ++k) std::printf("%g\n", rows[k]);
//
// The values are in any unit. Each is the number nearest to a decimal number of few digits, as the rows of tables are
// written, not the sum of rounded steps, if arithmetic rounds to nearest, as it does by default. No call allocates or throws.
#pragma once

#include <array>
#include <cmath>
#include <cstddef>

namespace ktl {
namespace table {

/// Tables with more rows than this are refused: Steps and Pressures are empty.
inline constexpr std::size_t most_rows = 10000;

namespace detail {

/// 10 to the power n, exact from 0 to 22.
inline double power_of_ten(int n) noexcept {
    double power = 1.0;
    for (; n > 0; --n) power *= 10.0;
    return power;
}

/// True if x differs from a whole number by rounding alone.
inline bool is_whole(double x, double tolerance) noexcept { return std::fabs(x - std::round(x)) <= tolerance; }

/// How many decimals x is written with, 12 at most.
inline int decimals(double x) noexcept {
    constexpr double rounding = 2.0e-15;
    int count = 0;
    for (; count < 12; ++count)
        if (const double whole = x * power_of_ten(count); is_whole(whole, rounding * std::fabs(whole))) break;
    return count;
}

} // namespace detail

/// The values from one to another by a step; both ends are rows.
///
/// If a whole number of steps leads from the first value to the last, steps are counted from the first: 5, 15 .. 95 from 5
/// to 95 by 10. Otherwise the rows between the ends are the multiples of the step: 0.01, 10, 20 .. from 0.01 by 10.
/// Empty (size 0) if a value is not finite, the step is not positive, the last value is below the first, or there are
/// more than most_rows.
class Steps {
public:
    Steps(double from, double to, double step) noexcept : from_(from), to_(to), step_(step) {
        constexpr double rounding = 1.0e-9; // of a step
        const double between = (to - from) / step;
        if (!std::isfinite(from) || !(step > 0.0) || !(between >= 0.0 && between < static_cast<double>(most_rows)))
            return;
        int decimals = detail::decimals(step);
        if (detail::is_whole(between, rounding)) {
            size_ = static_cast<std::size_t>(std::round(between)) + 1;
            if (const int of_from = detail::decimals(from); of_from > decimals) decimals = of_from;
            scale_ = detail::power_of_ten(decimals);
            origin_ = std::round(from * scale_);
        } else {
            const auto whole_below = [=](double x) {
                return detail::is_whole(x, rounding) ? std::round(x) : std::floor(x);
            };
            const double first = whole_below(from / step), past_last = -whole_below(-to / step);
            size_ = static_cast<std::size_t>(past_last - first) + 1;
            scale_ = detail::power_of_ten(decimals);
            origin_ = first * std::round(step * scale_);
        }
        if (size_ > most_rows) size_ = 0;
    }

    [[nodiscard]] std::size_t size() const noexcept { return size_; }
    /// The value of a row, k < size().
    [[nodiscard]] double operator[](std::size_t k) const noexcept {
        if (k == 0) return from_;
        if (k + 1 >= size_) return to_;
        return (origin_ + static_cast<double>(k) * std::round(step_ * scale_)) / scale_;
    }

private:
    double from_, to_, step_;
    double scale_ = 1.0;  ///< makes the step a whole number, and the first value if steps are counted from it
    double origin_ = 0.0; ///< what steps are counted from, times the scale
    std::size_t size_ = 0;
};

/// The pressures of printed tables from one to another, in any unit: 1, 1.1 .. 2, 2.2 .. 3, 3.5 .. 5, 6 .. 10 times a power
/// of ten, and both ends. Empty if an end is not a positive finite number of 1e-12 to 1e12, or the last is below the first.
class Pressures {
public:
    Pressures(double from, double to) noexcept : from_(from), to_(to) {
        if (!(from >= least && from <= to && to <= 1.0 / least)) return;
        constexpr double rounding = 1.0e-12;
        int next = decade * static_cast<int>(std::floor(std::log10(from))) - 1;
        while (value(next) <= from * (1.0 + rounding)) ++next; // a decade or two
        first_ = next;
        while (value(next) < to * (1.0 - rounding)) ++next; // at most 24 decades
        size_ = static_cast<std::size_t>(next - first_) + (from < to ? 2 : 1);
    }

    [[nodiscard]] std::size_t size() const noexcept { return size_; }
    /// The value of a row, k < size().
    [[nodiscard]] double operator[](std::size_t k) const noexcept {
        if (k == 0) return from_;
        return k + 1 >= size_ ? to_ : value(first_ + static_cast<int>(k) - 1);
    }

private:
    static constexpr double least = 1.0e-12;
    static constexpr std::array digits{10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 22,
                                       24, 26, 28, 30, 35, 40, 45, 50, 60, 70, 80, 90};
    static constexpr int decade = static_cast<int>(digits.size());

    /// Number n of all such pressures; number 0 is 1.
    static double value(int n) noexcept {
        const int power = (n >= 0 ? n : n - decade + 1) / decade;
        const double tens = digits[static_cast<std::size_t>(n - power * decade)];
        return power >= 1 ? tens * detail::power_of_ten(power - 1) : tens / detail::power_of_ten(1 - power);
    }

    double from_, to_;
    int first_ = 0; ///< number of the first pressure between the ends
    std::size_t size_ = 0;
};

} // namespace table
} // namespace ktl
