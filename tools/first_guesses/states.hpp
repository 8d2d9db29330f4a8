// States drawn from the sub-regions, and their properties by the region equations.
#pragma once

#include "engine/guesses/guess_form.hpp"
#include "regions/phase_properties.hpp"

#include <random>
#include <string_view>
#include <vector>

namespace first_guesses {

using ktl::Pair;
using ktl::Region;
using ktl::engine::guesses::GuessPatch;

/// The letters of both values of a pair.
constexpr std::string_view name(Pair pair) {
    constexpr std::string_view names[ktl::pair_count]{
#define KTL_DEFINE_PAIR(pair, PAIR, a, b) #pair,
#include <ktl/pairs.def>
    };
    return names[static_cast<std::size_t>(pair)];
}
/// The name of a patch, as its enumerator; of all but the last, search.
std::string_view name(GuessPatch c);

struct State {
    Region region = Region::none;
    double first = 0.0; ///< p, v or quality
    double p = 0.0, t = 0.0, v = 0.0, h = 0.0, s = 0.0, x = 0.0;

    [[nodiscard]] double u() const { return h - 100.0 * p * v; }
    [[nodiscard]] double operator()(char letter) const;
    [[nodiscard]] bool two_phase() const { return region == Region::wet || region == Region::wet_near_critical; }
};

/// A homogeneous phase in the variables of its region, with all slopes.
ktl::PhaseProperties<double> phase(Region region, double first, double t);
State single(Region region, double first, double t);
/// Two phases at t.
State mixture(double t, double x);

double saturation_pressure(double t);
/// Saturated volumes of sub-region 3 at t: the outermost roots of p(v, t) = ps(t).
struct Volumes {
    double liquid, vapour;
};
Volumes saturated_volumes(double t);
/// Volume of sub-region 3 at p, t, on the outer side of the saturated volumes.
double volume3(double p, double t);

/// Up to this temperature both outer roots stand apart from the critical volume.
inline constexpr double last_apart = 374.1;
/// Up to this one they are roots at all.
inline constexpr double last_loop = 374.149;

/// This generator stays as it is: guesses_data.hpp is fitted to the states that it draws.
class Random {
public:
    explicit Random(std::uint64_t seed) : bits_(seed) {}
    double operator()() { return static_cast<double>(bits_() >> 11U) * 0x1p-53; }
    double operator()(double low, double high) { return low + (high - low) * (*this)(); }

private:
    std::mt19937_64 bits_;
};

/// One state of the equations that the patch uses, drawn over its whole range: even in t, and by halves even in p
/// and in ln p (sub-region 3: in p and in ln v; two phases: in quality).
State draw(Region region, Random& random);

/// The region whose equations hold in the patch; near the critical point that of steam.
Region region_of(GuessPatch c);
/// n states of a patch of the pair.
std::vector<State> draw(Pair pair, GuessPatch wanted, std::size_t n, std::uint64_t seed);
/// The patch where a state of the region belongs by its properties.
GuessPatch patch_of(Pair pair, const State& state);

} // namespace first_guesses
