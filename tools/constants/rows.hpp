// The table that ktl_constants prints: each constant as the code has it, beside what it was measured to be.
#pragma once

#include <cmath>
#include <cstdio>

namespace constants {

class Table {
public:
    explicit Table(int points) : points_(points) {
        std::printf("%-46s %-18s %-18s %-12s %s\n", "constant", "in the code", "measured", "must", "verdict");
    }

    /// States to try along each line.
    [[nodiscard]] int points() const { return points_; }

    /// The constant has the measured value, to within the allowed difference.
    void equal(const char* name, double code, double measured, double allowed) {
        row(name, code, measured, "be equal", std::fabs(code - measured) <= allowed);
    }
    /// The constant is a margin: no less than what was measured.
    void covers(const char* name, double code, double measured) {
        row(name, code, measured, "be larger", measured <= code);
    }
    /// The constant is a lower limit: no more than what was measured.
    void stays_below(const char* name, double code, double measured) {
        row(name, code, measured, "be smaller", code <= measured);
    }
    /// For a constant that no header offers: what it was measured to be.
    void shown(const char* name, double measured) {
        std::printf("%-46s %-18s %-18.10g %-12s %s\n", name, "-", measured, "-", "-");
    }

    [[nodiscard]] bool all_hold() const { return failures_ == 0 && rows_ > 0; }
    void end() const { std::printf("%d constants compared, %d do not hold\n", rows_, failures_); }

private:
    void row(const char* name, double code, double measured, const char* rule, bool holds) {
        std::printf("%-46s %-18.10g %-18.10g %-12s %s\n", name, code, measured, rule,
                    holds ? "holds" : "DOES NOT HOLD");
        ++rows_;
        failures_ += holds ? 0 : 1;
    }

    int points_;
    int rows_ = 0;
    int failures_ = 0;
};

/// The point between a and b where a condition that holds at a ends, to the last bits.
template <class Condition>
double last_point(Condition&& holds, double a, double b) {
    for (int pass = 0; pass < 100; ++pass) {
        const double middle = 0.5 * (a + b);
        (holds(middle) ? a : b) = middle;
    }
    return a;
}

/// Largest value of f at n + 1 evenly spaced points from a to b.
template <class Function>
double largest(Function&& f, double a, double b, int n) {
    double most = -INFINITY;
    for (int i = 0; i <= n; ++i) most = std::fmax(most, f(a + (b - a) * i / n));
    return most;
}

// One function for each group of constants.
void formulation(Table& table);
void named_routines(Table& table);
void transport(Table& table);
void elementary_functions(Table& table);
void rounding_of_equations(Table& table);
void overlaps(Table& table);
void critical_point(Table& table);
void divisions_of_the_range(Table& table);
void extrema_at_constant_quality(Table& table);
void extrema_of_saturated_phases(Table& table);

} // namespace constants
