#include "if97/enthalpy_entropy.hpp"

#include "if97/isobar.hpp"
#include "if97/region3_volume.hpp"
#include "searches/enclosure.hpp"

namespace ktl::if97 {

namespace {

/// Distances from borders at which a state found from a start is taken as it is; see isobar.cpp. Mixtures of nearly no steam are
/// handled by the search, because water takes precedence.
constexpr double rounding_margin = 1.0e-6;
constexpr double overlap_margin = 3.0e-3;
constexpr double overlap_margin_13 = 0.1;  // K
constexpr double mixture_margin_13 = 0.03; // K; mixtures overlap by 0.008 K
constexpr double least_quality = 1.0e-4;

/// How far past a border, by rounding, a state of regions 1 and 2 still is one of them.
constexpr double past_border_t = 1.0e-9;  // K
constexpr double past_border_p = 1.0e-11; // relative

/// How far past a border regions 1 and 2 and their mixtures are continued into a gap.
constexpr double continued_t = 0.5; // K
constexpr double continued_p = 0.01;

/// h and s of a saturated phase and their slopes along the line.
struct Along {
    double h, s, dh, ds;
};
Along along(const Phase& y, double slope) {
    const auto h = slopes(Quantity::enthalpy, y);
    const auto s = slopes(Quantity::entropy, y);
    return {y.h.value, y.s.value, h.d_t.value + h.d_primary.value * slope, s.d_t.value + s.d_primary.value * slope};
}

/// A phase of region 3 close to the line, where its pressure is not quite that of the line: brought there to first order.
struct OnLine {
    double to_line, slope; ///< of the volume: to the line at the same temperature, and by the temperature along it
    Along values;
};
OnLine on_line(double v, double t, double p, double dpdt) {
    const auto y = near_critical(Scalar(v), Scalar(t));
    const auto h = slopes(Quantity::enthalpy, y);
    const auto s = slopes(Quantity::entropy, y);
    const double to_line = (p - y.p.value) / y.dpdv.value;
    const double slope = (dpdt - y.dpdt.value) / y.dpdv.value;
    return {to_line,
            slope,
            {y.h.value + h.d_primary.value * to_line, y.s.value + s.d_primary.value * to_line,
             h.d_t.value + h.d_primary.value * slope, s.d_t.value + s.d_primary.value * slope}};
}

class Isentrope {
public:
    Isentrope(double h, double s) : h_(h), s_(s) {}

    /// From a start, unless the rules for borders decide.
    [[nodiscard]] RowState search_from(const Start& start) const {
        switch (start.region) {
        case Region::water: {
            const Point x = newton_from<SubRegion::water>({start.p, start.t});
            return x.found() && in_water(x.primary, x.t, rounding_margin) ? row_of(SubRegion::water, x) : RowState{};
        }
        case Region::steam: {
            const Point x = newton_from<SubRegion::steam>({start.p, start.t});
            return x.found() && in_steam(x.primary, x.t, rounding_margin) ? row_of(SubRegion::steam, x) : RowState{};
        }
        case Region::near_critical_water:
        case Region::near_critical_steam: {
            RowState row = near_critical({start.v, start.t}, overlap_margin, overlap_margin_13);
            if (row.status != Status::solved) row = far_mixture(start.t, true);
            return row;
        }
        case Region::wet:
        case Region::wet_near_critical: return far_mixture(start.t, start.region == Region::wet_near_critical);
        default: return {};
        }
    }

    /// From nothing but h and s. At constant h the entropy falls as the pressure rises, by v/T of it: one pressure is enclosed.
    [[nodiscard]] RowState search() const {
        const auto missing = [&](double root) { return entropy_at(pressure_of(root)) - s_; };
        const double low = std::sqrt(std::sqrt(p_min));
        const double high = std::sqrt(std::sqrt(p_max));
        const solvers::Enclosed root = solvers::enclose(missing, low, high, 0.0);
        const RowState found = on_isobar(pressure_of(root.x), Quantity::enthalpy, h_, {});
        if (found.status == Status::solved && misses(found) <= 1.0) return preferred(found);
        const RowState other = on_isobar(pressure_of(root.other), Quantity::enthalpy, h_, {});
        for (const RowState& side : {found, other}) {
            if (side.status != Status::solved) continue;
            if (const RowState row = continued(side); row.status == Status::solved) return row;
        }
        return {};
    }

private:
    /// The fourth power: pressures are spread evenly enough over it.
    static double pressure_of(double root) { return (root * root) * (root * root); }

    template <SubRegion region>
    [[nodiscard]] Point newton_from(const Point& start) const {
        return newton<region, Quantity::enthalpy, Quantity::entropy>(h_, s_, start);
    }

    /// Deviation of both values as a share of what a state may miss them by.
    [[nodiscard]] double misses(const RowState& row) const {
        const double of_h = std::fabs(row.bulk.h.value - h_) / std::fmax(std::fabs(h_), searches::near_zero_energy);
        const double of_s = std::fabs(row.bulk.s.value - s_) / std::fmax(std::fabs(s_), searches::near_zero_entropy);
        return std::fmax(of_h, of_s) / searches::limit_rounding;
    }

    /// Entropy at p and h; beyond the ends of the isobar the line of the end, ds = dh/T.
    [[nodiscard]] double entropy_at(double p) const {
        const RowState row = on_isobar(p, Quantity::enthalpy, h_, {});
        if (row.status == Status::solved) return row.bulk.s.value;
        const bool cold = row.status == Status::temperature_low;
        const double t = cold ? t_min : t_max;
        const Phase end = cold && p >= saturation::pressure(Scalar(t)).value ? water_at(p, t) : steam_at(p, t);
        return end.s.value + (h_ - end.h.value) / (t + kelvin_of_zero);
    }

    [[nodiscard]] RowState near_critical(const Point& start, double margin, double t_margin) const {
        const Point x = newton_from<SubRegion::near_critical>(start);
        if (!x.found()) return {};
        const RowState row = row_of(SubRegion::near_critical, x);
        return in_near_critical(row.bulk.p.value, x.primary, x.t, margin, t_margin) ? row : RowState{};
    }

    /// A mixture, if it lies far enough from the borders.
    [[nodiscard]] RowState far_mixture(double t, bool high) const {
        const RowState row = high ? high_mixture(t) : low_mixture(t);
        if (row.status != Status::solved || misses(row) > 1.0) return {};
        const bool far = high ? row.bulk.t.value > t_13 + mixture_margin_13 : row.bulk.t.value <= t_13;
        return far && row.x > least_quality && row.x < 1.0 ? row : RowState{};
    }

    /// Newton's method for the mixture of regions 1 and 2 with both values: for the temperature, along the saturation line.
    [[nodiscard]] RowState low_mixture(double t) const {
        searches::ConvergenceTest<double> convergence{.negligible = 1.0e-13};
        for (int pass = 0; pass < searches::most_passes; ++pass) {
            if (!(t > 0.0 && t < t_13 + continued_t)) return {};
            const auto terms = saturation::terms(Scalar(t));
            const SaturatedState line = saturated_low(saturation::pressure(terms).value, t);
            const double slope = saturation::slope(terms).value;
            const Step step = mixture_step(along(line.phases.liquid, slope), along(line.phases.vapour, slope));
            if (step.met) return mixture_row(line, step.x);
            t += step.t;
            if (convergence.reached(std::fabs(step.t) / searches::scale_of_t) > 0.5)
                return mixed(saturated_low(saturation::pressure(Scalar(t)).value, t));
        }
        return {};
    }

    /// The same in region 3, where the volumes of both phases are unknown too: each step moves all three at once.
    [[nodiscard]] RowState high_mixture(double t) const {
        // The 1967 formulation has a mixture warmer by 0.1 to 0.4 K; next to the critical point the start is kept below it.
        t = std::fmin(t - 0.2, saturation::critical_temperature - 0.4);
        if (!(t > t_13)) return {};
        const double p_start = saturation::pressure(Scalar(t)).value;
        SaturatedVolumes v = saturated_volumes(p_start, t);
        searches::ConvergenceTest<double> convergence{.negligible = 1.0e-13};
        for (int pass = 0; pass < searches::most_passes; ++pass) {
            const auto terms = saturation::terms(Scalar(t));
            const double p = saturation::pressure(terms).value;
            const double slope = saturation::slope(terms).value;
            const OnLine liquid = on_line(v.water, t, p, slope);
            const OnLine vapour = on_line(v.steam, t, p, slope);
            const Step step = mixture_step(liquid.values, vapour.values);
            const double of_water = liquid.to_line + liquid.slope * step.t;
            const double of_steam = vapour.to_line + vapour.slope * step.t;
            const double of_volumes = std::fmax(std::fabs(of_water) / v.water, std::fabs(of_steam) / v.steam);
            v.water += of_water;
            v.steam += of_steam;
            t += step.t;
            if (!(t > t_13 && t < saturation::critical_temperature - beside_critical)) return {};
            const double size = std::fmax(std::fabs(step.t) / searches::scale_of_t, of_volumes);
            if (convergence.reached(size) > 0.5)
                return mixed(saturated_high(saturation::pressure(Scalar(t)).value, t, v));
        }
        return {};
    }

    [[nodiscard]] RowState mixed(const SaturatedState& line) const {
        const double liquid = line.phases.liquid.s.value;
        return mixture_row(line, (s_ - liquid) / (line.phases.vapour.s.value - liquid));
    }

    /// Quality of the mixture that has the entropy, and the step of the temperature towards the enthalpy.
    struct Step {
        double x, t;
        bool met;
    };
    [[nodiscard]] Step mixture_step(const Along& liquid, const Along& vapour) const {
        const double x = (s_ - liquid.s) / (vapour.s - liquid.s);
        const double miss = h_ - (liquid.h + x * (vapour.h - liquid.h));
        // From the entropy: dx/dt = -(ds'/dt + x d(s" - s')/dt)/(s" - s').
        const double dx = -(liquid.ds + x * (vapour.ds - liquid.ds)) / (vapour.s - liquid.s);
        const double dh = liquid.dh + x * (vapour.dh - liquid.dh) + dx * (vapour.h - liquid.h);
        return {x, miss / dh, searches::is_met(Quantity::enthalpy, miss, h_) > 0.5};
    }

    /// A state of regions 1 or 2 or of their mixtures that takes precedence over the one found, or that one.
    [[nodiscard]] RowState preferred(const RowState& found) const {
        const double p = found.bulk.p.value;
        const double t = found.bulk.t.value;
        if (found.region == Region::water || found.region == Region::steam) return found;
        if (found.region == Region::wet && found.x > least_quality) return found;
        if (const Point x = newton_from<SubRegion::water>({p, t});
            x.found() && in_water(x.primary, x.t - past_border_t, -past_border_p))
            return row_of(SubRegion::water, x);
        if (found.region == Region::wet) return found;
        if (const Point x = newton_from<SubRegion::steam>({p, t});
            x.found() && in_steam(x.primary, x.t, -past_border_p))
            return row_of(SubRegion::steam, x);
        const RowState row = low_mixture(t);
        const bool inside = row.status == Status::solved && row.x >= 0.0 && row.x <= 1.0 && row.bulk.t.value <= t_13;
        return inside ? row : found;
    }

    /// The state beside a gap, continued into it.
    [[nodiscard]] RowState continued(const RowState& beside) const {
        const Point start{beside.bulk.p.value, beside.bulk.t.value};
        if (const Point x = newton_from<SubRegion::water>(start);
            x.found() && x.t > t_13 - continued_t && x.t < t_13 + continued_t && x.primary <= p_max)
            return row_of(SubRegion::water, x);
        if (const Point x = newton_from<SubRegion::steam>(start);
            x.found() && x.t > t_13 - continued_t && x.t <= t_23 && x.primary <= p_max &&
            x.primary <= boundary_pressure(Scalar(x.t)).value * (1.0 + continued_p))
            return row_of(SubRegion::steam, x);
        const RowState row = low_mixture(start.t);
        const bool inside = row.status == Status::solved && row.x >= 0.0 && row.x <= 1.0;
        return inside && std::fabs(row.bulk.t.value - t_13) < continued_t ? row : RowState{};
    }

    double h_, s_;
};

} // namespace

RowState of_enthalpy_entropy(double h, double s, const Start& start) noexcept {
    const Isentrope isentrope(h, s);
    RowState row = isentrope.search_from(start);
    if (row.status != Status::solved) row = isentrope.search();
    return row;
}

} // namespace ktl::if97
