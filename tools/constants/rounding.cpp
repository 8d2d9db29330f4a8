// Rounding of the region equations in double, against the same equations in long double.
#include "rows.hpp"

#include "engine/lanes/scalar.hpp"
#include "first_guesses/states.hpp"
#include "searches/newton.hpp"
#include "searches/state.hpp"

#include <algorithm>

namespace constants {

namespace {

using ktl::ktl_lc;
using ktl::Quantity;
using ktl::Region;
using ktl::engine::Scalar;
using Wide = long double;

/// Largest error that was met, in parts of what the code allows for.
struct Worst {
    double newton = 0.0; ///< of searches::is_met
    double search = 0.0; ///< of search_tolerance
};

template <class T>
T value_of(const T& x) {
    return x;
}
inline double value_of(Scalar x) { return x.value; }

/// The quantity by the equations of a region, in the number type T.
template <class T>
T evaluate(Quantity y, Region region, double first, double t) {
    if (region == Region::water) return ktl::gibbs_property(y, ktl::region1::terms(T(first), T(t)), T(first), T(t));
    if (region == Region::steam) return ktl::gibbs_property(y, ktl::region2::terms(T(first), T(t)), T(first), T(t));
    return ktl::helmholtz_property(y, ktl::region3::terms(T(first), T(t)), T(first), T(t));
}

/// The deviation at which is_met() begins to refuse.
double allowed_by_newton(Quantity y, double value) {
    const auto met = [&](double miss) { return ktl::searches::is_met(y, Scalar(miss), Scalar(value)).value > 0.5; };
    return last_point(met, 0.0, 1.0);
}

void compare(Quantity y, const first_guesses::State& state, Worst& worst) {
    const double got = value_of(evaluate<Scalar>(y, state.region, state.first, state.t));
    const double plain = evaluate<double>(y, state.region, state.first, state.t);
    const Wide truth = evaluate<Wide>(y, state.region, state.first, state.t);
    const double value = static_cast<double>(truth);
    worst.newton = std::fmax(worst.newton, static_cast<double>(std::fabs(got - truth)) / allowed_by_newton(y, value));
    const double tolerance =
        ktl::search_tolerance(y, static_cast<int>(state.region), value, ktl::SaturationModel::outermost_roots);
    worst.search = std::fmax(worst.search, static_cast<double>(std::fabs(plain - truth)) / tolerance);
}

} // namespace

void rounding_of_equations(Table& table) {
    struct Item {
        Quantity y;
        Region region;
        const char* name;
    };
    constexpr Item items[]{{Quantity::volume, Region::water, "is_met, water: v"},
                           {Quantity::enthalpy, Region::water, "is_met, water: h"},
                           {Quantity::entropy, Region::water, "is_met, water: s"},
                           {Quantity::energy, Region::water, "is_met, water: u"},
                           {Quantity::volume, Region::steam, "is_met, steam: v"},
                           {Quantity::enthalpy, Region::steam, "is_met, steam: h"},
                           {Quantity::entropy, Region::steam, "is_met, steam: s"},
                           {Quantity::energy, Region::steam, "is_met, steam: u"},
                           {Quantity::pressure, Region::near_critical_steam, "is_met, sub-region 3: p"},
                           {Quantity::enthalpy, Region::near_critical_steam, "is_met, sub-region 3: h"},
                           {Quantity::entropy, Region::near_critical_steam, "is_met, sub-region 3: s"},
                           {Quantity::energy, Region::near_critical_steam, "is_met, sub-region 3: u"}};
    for (const Item& item : items) {
        first_guesses::Random random(1967);
        Worst worst;
        const int n = 100 * table.points();
        for (int i = 0; i < n; ++i) compare(item.y, first_guesses::draw(item.region, random), worst);
        // Volumes of dense steam round by more than the steps allow for: there the length of the steps tells the end.
        if (item.region == Region::steam && item.y == Quantity::volume)
            table.shown(item.name, worst.newton);
        else
            table.covers(item.name, 1.0, worst.newton);
        if (item.region == Region::water) table.shown("  the same by search_tolerance", worst.search);
    }
}

} // namespace constants
