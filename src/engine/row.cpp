#include "engine/row.hpp"

namespace ktl::engine {

namespace {

using guesses::Class;

/// The state by the guess and the search of one class; Status::no_state where that leads to none.
Solution by_class(Pair pair, Class of_class, double a, double b, const Margin& margin) noexcept {
    const Kernels& one = scalar_kernels();
    const auto index = static_cast<std::size_t>(pair);
    const Kind kind = kind_of[static_cast<std::size_t>(of_class)];
    Solution found{Status::solved, Region::none, a, b, not_a_number, not_a_number};
    double settled = 1.0;
    const Columns columns{&found.first, &found.t, &found.liquid, &found.vapour, &settled};
    one.guess[index](of_class, &a, &b, 1, columns);
    const Kernels::Solve newton = one.solve[index][static_cast<std::size_t>(kind)];
    if (newton != nullptr) newton(pair, &a, &b, 1, columns, margin);
    if (!(settled > 0.5)) return {};
    found.region = region_of(kind, found.first, found.t);
    return found;
}

Class class_of(Pair pair, double a, double b) noexcept {
    double c = 0.0;
    scalar_kernels().classify[static_cast<std::size_t>(pair)](&a, &b, 1, &c);
    return static_cast<Class>(c);
}

/// True where two values name one state at most, so that whichever class finds a state has found it.
constexpr bool names_one(Pair pair) {
    return pair == Pair::ph || pair == Pair::ps || pair == Pair::pu || pair == Pair::tv || pair >= Pair::hs;
}

/// The order in which sub-regions claim a state: 1 and 2, their mixtures, then sub-region 3.
constexpr std::array claims{
    Class::water, Class::steam_thin,        Class::steam,       Class::steam_dense, Class::wet_liquid,
    Class::wet,   Class::wet_near_critical, Class::liquid_like, Class::vapour_like};

} // namespace

Region region_of(Kind kind, double first, double t) noexcept {
    switch (kind) {
    case Kind::water: return Region::water;
    case Kind::steam: return Region::steam;
    case Kind::near_critical:
        return first < ktl_lc.vca && t <= ktl_lc.tc ? Region::near_critical_water : Region::near_critical_steam;
    case Kind::wet: return Region::wet;
    case Kind::wet_near_critical: return Region::wet_near_critical;
    }
    return Region::none;
}

Solution solve_row(Pair pair, double a, double b) noexcept {
    if (static_cast<std::size_t>(pair) >= pair_count) return {};
    const Class c = class_of(pair, a, b);
    if (c != Class::search) {
        const Solution found = by_class(pair, c, a, b, margin_of(pair));
        if (found.status == Status::solved) return found;
    }
    return search_row_again(pair, a, b);
}

Solution search_row_again(Pair pair, double a, double b) noexcept {
    if (names_one(pair) && class_of(pair, a, b) != Class::search) {
        for (const Class c : claims) {
            const Solution found = by_class(pair, c, a, b, no_margin);
            if (found.status == Status::solved) return found;
        }
    }
    return search(pair, a, b, 0);
}

} // namespace ktl::engine
