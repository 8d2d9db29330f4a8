// A witness for entropy and quality: the whole saturation line at a distance of 0.001 K and less, against which the states
// that ktl::states() and ktl::state() give are compared.
#pragma once

#include <string>
#include <vector>

namespace sweep {

/// Up to this difference, relative (below 1 kJ/(kg K) absolute), a value has the state whose entropy it misses.
inline constexpr double entropy_tolerance = 1.0e-10;

/// A temperature range in which the scan sees states, and how many: more than one number only where the entropy comes
/// within 1.5 tolerances of an extremum or an end of the line, or passes it by no more than the equations round.
struct Place {
    double from, to;
    int least, most;
    bool gap; // on the line of sub-regions 1 and 2 continued past 350 degC
};

/// A point of the line, degC and kJ/(kg K).
struct LinePoint {
    double t, s;
};

class QualityScan {
public:
    QualityScan();

    /// Where the scan sees mixtures of that entropy and quality.
    [[nodiscard]] std::vector<Place> places(double s, double x) const;
    /// What is wrong with the states that the library gives, or nothing.
    [[nodiscard]] std::string fault(double s, double x) const;

    /// Extrema of entropy at quality x, and the ends of the line and both sides of 350 degC.
    [[nodiscard]] std::vector<LinePoint> extrema(double x) const;
    /// Temperatures at which the quality whose entropy has an extremum at t has its own extrema.
    [[nodiscard]] static std::vector<LinePoint> extrema_of_extremum_quality();

    /// Points along a part of the line.
    struct Part {
        std::vector<double> t, liquid, vapour;
        [[nodiscard]] double entropy(std::size_t n, double x) const { return liquid[n] + x * (vapour[n] - liquid[n]); }
    };

private:
    [[nodiscard]] Place gap(double s, double x, double tolerance) const;

    Part low_, high_, continued_;
};

} // namespace sweep
