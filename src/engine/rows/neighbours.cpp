#include "engine/rows/neighbours.hpp"

#include "engine/lanes/scalar.hpp"
#include "regions/saturation.hpp"

#include <array>
#include <cmath>

namespace ktl::engine {

namespace {

using guesses::GuessPatch;

/// The order in which sub-regions claim a state: 1 and 2, their mixtures, then sub-region 3.
constexpr std::array precedence{GuessPatch::water,
                                GuessPatch::steam_thin,
                                GuessPatch::steam,
                                GuessPatch::steam_dense,
                                GuessPatch::wet_low_s,
                                GuessPatch::wet,
                                GuessPatch::wet_near_critical,
                                GuessPatch::liquid_like,
                                GuessPatch::vapour_like};

/// The patch of saturated steam of that temperature, degC, up to 350. steam_dense_from: where its entropy is dense_limit, 281.19 degC.
GuessPatch saturated_steam(double t) {
    constexpr double steam_dense_from = 281.2;
    return t < guesses::thin_temperature ? GuessPatch::steam_thin
           : t < steam_dense_from        ? GuessPatch::steam
                                         : GuessPatch::steam_dense;
}
/// The patch of mixtures up to 350 degC that begins next to these phases.
GuessPatch mixture_beside(PhaseKind kind, Pair pair, double volume) {
    const bool low = kind == PhaseKind::water || (pair >= Pair::vh && volume < guesses::wet_volume_limit);
    return low ? GuessPatch::wet_low_s : GuessPatch::wet;
}

using Patches = std::span<const GuessPatch>;

/// The patches on both sides of a border that the search of a patch ended beside: the saturation line up to 350 degC, or the isotherm of
/// 350 degC in water well above it. Otherwise all.
Patches beside_border(GuessPatch patch, const EndOfSearch& ended) {
    static constexpr std::array beside_water{GuessPatch::water, GuessPatch::wet_low_s, GuessPatch::wet};
    static constexpr std::array beside_steam{GuessPatch::steam_thin, GuessPatch::steam, GuessPatch::steam_dense,
                                             GuessPatch::wet_low_s, GuessPatch::wet};
    static constexpr std::array at_isotherm{GuessPatch::water, GuessPatch::liquid_like};
    constexpr double beside = 1.0e-4;       // of the pressure
    constexpr double little = 1.0e-2;       // of quality
    constexpr double around_350 = 10.0;     // K
    constexpr double dense_volume = 0.0016; // m3/kg, at 350 degC under 224 bar
    constexpr double dense_pressure = 224.0;
    const PhaseKind kind = kind_of[static_cast<std::size_t>(patch)];
    if (!(ended.t < ktl_lc.t3min - around_350)) {
        const bool near = ended.t < ktl_lc.t3min + around_350;
        const bool dense = (kind == PhaseKind::water && ended.primary > dense_pressure) ||
                           (kind == PhaseKind::near_critical && ended.primary < dense_volume);
        return near && dense ? Patches(at_isotherm) : precedence;
    }
    const auto on_line = [&] {
        const double ps = saturation::terms(Scalar(ended.t)).p.value;
        return std::fabs(ended.primary - ps) < beside * ps;
    };
    switch (kind) {
    case PhaseKind::water: return on_line() ? Patches(beside_water) : precedence;
    case PhaseKind::steam: return on_line() ? Patches(beside_steam) : precedence;
    case PhaseKind::wet:
        if (std::fabs(ended.primary) < little) return beside_water;
        if (std::fabs(ended.primary - 1.0) < little) return beside_steam;
        return precedence;
    default: return precedence;
    }
}

} // namespace

GuessPatch patch_across(Pair pair, GuessPatch patch, double a, const EndOfSearch& ended) noexcept {
    // It costs less than to ask for the ends of lines, but not if the search went astray.
    const bool astray = !(ended.t > ktl_lc.tmin - 1.0 && ended.t < ktl_lc.tmax + 1.0);
    if (!names_one_state(pair) || patch == GuessPatch::search || astray) return GuessPatch::search;
    const double x = ended.primary;
    const bool above_350 = ended.t > ktl_lc.t3min + margin_of(pair).one_phase && ended.t < ktl_lc.tc;
    const PhaseKind kind = kind_of[static_cast<std::size_t>(patch)];
    switch (kind) {
    case PhaseKind::water:
        if (ended.t > ktl_lc.t1max) return GuessPatch::search;
        [[fallthrough]];
    case PhaseKind::steam: return mixture_beside(kind, pair, a);
    case PhaseKind::near_critical: return above_350 ? GuessPatch::wet_near_critical : GuessPatch::search;
    case PhaseKind::wet: return x < 0.5 ? GuessPatch::water : x > 0.5 ? saturated_steam(ended.t) : GuessPatch::search;
    case PhaseKind::wet_near_critical:
        return x < 0.5 ? GuessPatch::liquid_like : x > 0.5 ? GuessPatch::vapour_like : GuessPatch::search;
    }
    return GuessPatch::search;
}

Candidates candidates(GuessPatch own, const EndOfSearch& ended, const AcrossLine& across) noexcept {
    Patches patches = beside_border(own, ended);
    if (patches.size() == precedence.size() && across.patch != GuessPatch::search)
        patches = beside_border(across.patch, across.ended);
    return {patches, patches.size() < precedence.size()};
}

} // namespace ktl::engine
