#include "if97/isobar.hpp"

#include "if97/region3_volume.hpp"

namespace ktl::if97 {

namespace {

/// Distances from a border, relative to the pressure, at which a state found from a start is taken as it is: beyond rounding, and well
/// beyond the overlaps, which reach 0.006 K at 350 degC and 0.02 K or 0.014 % of the pressure on the 2/3 boundary.
constexpr double rounding_margin = 1.0e-9;
constexpr double overlap_margin = 3.0e-3;
constexpr double overlap_margin_13 = 0.1; // K

template <Quantity Y>
struct Isobar {
    double p, value;

    [[nodiscard]] double of(const Phase& phase) const { return value_of(Y, phase); }

    /// The temperature at which the equations of the region have the value; the nearer end if it lies outside of low to high.
    /// Newton's method inside the interval, which halves where a step would leave it: h and s rise with t.
    template <class At>
    double temperature(At&& at, double low, double high) const {
        constexpr int most_passes = 100;
        double t = 0.5 * (low + high);
        for (int pass = 0; pass < most_passes; ++pass) {
            const Slopes<Scalar> y = slopes(Y, at(t));
            const double miss = value - y.y.value;
            if (searches::is_met(Y, miss, value) > 0.5) break;
            (miss > 0.0 ? low : high) = t;
            const double next = t + miss / y.d_t.value;
            t = next > low && next < high ? next : 0.5 * (low + high);
            if (t <= low || t >= high) break;
        }
        return t;
    }

    RowState in_water(double low, double high) const {
        return row_of(SubRegion::water, {p, temperature([&](double t) { return water_at(p, t); }, low, high)});
    }
    RowState in_steam(double low, double high) const {
        return row_of(SubRegion::steam, {p, temperature([&](double t) { return steam_at(p, t); }, low, high)});
    }
    RowState in_near_critical(Side side, double low, double high) const {
        const auto volume = [&](double t) { return region3_volume(p, t, side); };
        const double t = temperature([&](double at) { return near_critical_at(volume(at), at); }, low, high);
        const Point found{volume(t), t};
        const Point polished = newton<SubRegion::near_critical, Quantity::pressure, Y>(p, value, found);
        const bool same = std::fabs(polished.t - t) < 1.0e-6 * t;
        return row_of(SubRegion::near_critical, same ? polished : found);
    }

    /// A mixture, if the value lies between those of the phases.
    RowState mixed(const SaturatedState& line) const {
        const double liquid = of(line.phases.liquid);
        return mixture_row(line, (value - liquid) / (of(line.phases.vapour) - liquid));
    }

    /// From nothing but p and the value.
    RowState search() const {
        constexpr double past =
            1.0; // K past the ends of the isobar, so that what lies outside is told from what rounds
        constexpr double continued = 0.5; // K past a border, in a gap
        const double low = t_min - past;
        const double high = t_max + past;
        if (p <= boundary_pressure(Scalar(t_13)).value) {
            const SaturatedState line = saturated_under(p);
            if (value <= of(line.phases.liquid)) return in_water(low, line.t);
            return value < of(line.phases.vapour) ? mixed(line) : in_steam(line.t, high);
        }
        const double t23 = border_23();
        if (value <= of(water_at(p, t_13))) return in_water(low, t_13);
        const double end = of(steam_at(p, t23));
        if (value >= end || searches::is_met(Y, end - value, value) > 0.5) return in_steam(t23, high);
        const bool subcritical = p < saturation::critical_pressure;
        if (value < of(near_critical_at(region3_volume(p, t_13, Side::water), t_13)))
            return in_water(t_13, t_13 + continued);
        const Side last = subcritical ? Side::steam : Side::water;
        if (value > of(near_critical_at(region3_volume(p, t23, last), t23))) return in_steam(t23 - continued, t23);
        if (!subcritical) return in_near_critical(last, t_13, t23);
        const SaturatedState line = saturated_under(p);
        if (value < of(line.phases.liquid)) return in_near_critical(Side::water, t_13, line.t);
        return value <= of(line.phases.vapour) ? mixed(line) : in_near_critical(Side::steam, line.t, t23);
    }

    /// Temperature of the 2/3 boundary under p to rounding: its published inverse and one step of Newton's method.
    [[nodiscard]] double border_23() const {
        if (p >= boundary_pressure(Scalar(t_23)).value) return t_23;
        const double t = boundary_temperature(Scalar(p)).value;
        const double slope = 10.0 * (boundary_n[1] + 2.0 * boundary_n[2] * (t + kelvin_of_zero));
        return std::fmin(t + (p - boundary_pressure(Scalar(t)).value) / slope, t_23);
    }

    template <SubRegion region>
    Point from(double primary, double t) const {
        return newton<region, Quantity::pressure, Y>(p, value, {primary, t});
    }

    /// From a start, unless the state lies so close to a border that the rules for borders decide.
    RowState search_from(const Start& start) const {
        switch (start.region) {
        case Region::water: {
            const Point x = from<SubRegion::water>(p, start.t);
            return x.found() && if97::in_water(p, x.t, rounding_margin) ? row_of(SubRegion::water, x) : RowState{};
        }
        case Region::steam: {
            const Point x = from<SubRegion::steam>(p, start.t);
            return x.found() && if97::in_steam(p, x.t, rounding_margin) ? row_of(SubRegion::steam, x) : RowState{};
        }
        case Region::near_critical_water:
        case Region::near_critical_steam: {
            const Point x = from<SubRegion::near_critical>(start.v, start.t);
            const bool inside =
                x.found() && if97::in_near_critical(p, x.primary, x.t, overlap_margin, overlap_margin_13);
            return inside ? row_of(SubRegion::near_critical, x) : RowState{};
        }
        case Region::wet: {
            if (p > boundary_pressure(Scalar(t_13)).value) return {};
            RowState row = mixed(saturated_under(p));
            if (!(row.x > 0.0 && row.x < 1.0 && row.bulk.t.value >= t_min)) row = {};
            return row;
        }
        case Region::wet_near_critical: {
            if (!(p < saturation::critical_pressure)) return {};
            const SaturatedState line = saturated_under(p);
            RowState row = mixed(line);
            const bool inside = line.t > t_13 + overlap_margin_13 && row.x > 0.0 && row.x < 1.0;
            if (!inside) row = {};
            return row;
        }
        default: return {};
        }
    }
};

/// A temperature past an end of the isobar is that end if the value there is as good as the one given.
template <Quantity Y>
void bring_into_range(const Isobar<Y>& isobar, RowState& row) {
    const double t = row.bulk.t.value;
    if (t >= t_min && t <= t_max) return;
    const bool cold = t < t_min;
    const double end = cold ? t_min : t_max;
    const bool is_mixture = row.region == Region::wet;
    const RowState limit =
        is_mixture
            ? mixture_row(saturated_at(end), row.x)
            : row_of(cold ? (row.region == Region::water ? SubRegion::water : SubRegion::steam) : SubRegion::steam,
                     {isobar.p, end});
    constexpr double least = Y == Quantity::entropy ? 1.0 : 10.0;
    const double allowed = searches::limit_rounding * std::fmax(std::fabs(isobar.value), least);
    const bool same_pressure = std::fabs(limit.bulk.p.value - isobar.p) <= searches::limit_rounding * isobar.p;
    const bool same_value = std::fabs(isobar.of(limit.bulk) - isobar.value) <= allowed;
    row = same_pressure && same_value ? limit : failed(cold ? Status::temperature_low : Status::temperature_high);
}

template <Quantity Y>
RowState solve(double p, double value, const Start& start) {
    const Isobar<Y> isobar{p, value};
    RowState row = isobar.search_from(start);
    if (row.status == Status::solved) return row;
    row = isobar.search();
    bring_into_range(isobar, row);
    return row;
}

} // namespace

RowState on_isobar(double p, Quantity y, double value, const Start& start) noexcept {
    return y == Quantity::entropy ? solve<Quantity::entropy>(p, value, start)
                                  : solve<Quantity::enthalpy>(p, value, start);
}

} // namespace ktl::if97
