#include "engine/rows/row.hpp"

namespace ktl::engine {

namespace {

using guesses::GuessPatch;

/// The state by the guess and the search of one patch; Status::no_state where that leads to none.
Solution by_patch(Pair pair, GuessPatch patch, double a, double b, const Margin& margin) noexcept {
    const Kernels& one = scalar_kernels();
    const auto index = static_cast<std::size_t>(pair);
    const PhaseKind kind = kind_of[static_cast<std::size_t>(patch)];
    Solution found{Status::solved, Region::none, a, b, not_a_number, not_a_number};
    double accepted = 1.0;
    const SolutionColumns columns{&found.primary, &found.t, &found.liquid, &found.vapour, &accepted};
    one.guess[index](patch, &a, &b, 1, columns);
    const Kernels::Solve newton = one.solve[index][static_cast<std::size_t>(kind)];
    if (newton != nullptr) newton(pair, &a, &b, 1, columns, margin);
    if (!(accepted > 0.5)) return {};
    found.region = region_of(kind, found.primary, found.t);
    return found;
}

GuessPatch patch_of(Pair pair, double a, double b) noexcept {
    double c = 0.0;
    scalar_kernels().classify[static_cast<std::size_t>(pair)](&a, &b, 1, &c);
    return static_cast<GuessPatch>(c);
}

/// True where two values name one state at most, so that whichever patch finds a state has found it.
constexpr bool names_one(Pair pair) {
    return pair == Pair::ph || pair == Pair::ps || pair == Pair::pu || pair == Pair::tv || pair >= Pair::hs;
}

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

} // namespace

Region region_of(PhaseKind kind, double primary, double t) noexcept {
    switch (kind) {
    case PhaseKind::water: return Region::water;
    case PhaseKind::steam: return Region::steam;
    case PhaseKind::near_critical:
        return primary < ktl_lc.vca && t <= ktl_lc.tc ? Region::near_critical_water : Region::near_critical_steam;
    case PhaseKind::wet: return Region::wet;
    case PhaseKind::wet_near_critical: return Region::wet_near_critical;
    }
    return Region::none;
}

Solution solve_row(Pair pair, double a, double b) noexcept {
    if (static_cast<std::size_t>(pair) >= pair_count) return {};
    const GuessPatch c = patch_of(pair, a, b);
    if (c != GuessPatch::search) {
        const Solution found = by_patch(pair, c, a, b, margin_of(pair));
        if (found.status == Status::solved) return found;
    }
    return search_row_again(pair, a, b);
}

Solution search_row_again(Pair pair, double a, double b) noexcept {
    if (names_one(pair) && patch_of(pair, a, b) != GuessPatch::search) {
        for (const GuessPatch c : precedence) {
            const Solution found = by_patch(pair, c, a, b, no_margin);
            if (found.status == Status::solved) return found;
        }
    }
    return search(pair, a, b, 0);
}

} // namespace ktl::engine
