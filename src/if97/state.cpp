#include "if97/state.hpp"

#include "if97/enthalpy_entropy.hpp"
#include "if97/isobar.hpp"
#include "if97/region3_volume.hpp"

#include <algorithm>
#include <cmath>

namespace ktl::if97 {

namespace {

/// Brings a given value to the limit that rounding alone may have put it past; solved unless it lies further out.
Status within(double& value, double low, double high, Status if_low, Status if_high) {
    if (low - value > searches::limit_rounding * (low > 0.0 ? low : 1.0)) return if_low;
    if (value - high > searches::limit_rounding * high) return if_high;
    value = std::clamp(value, low, high);
    return Status::solved;
}
Status pressure_within(double& p) { return within(p, p_min, p_max, Status::pressure_low, Status::pressure_high); }

RowState at_pressure_temperature(double p, double t, const Start& start) {
    if (const Status status = pressure_within(p); status != Status::solved) return failed(status);
    if (const Status status = within(t, t_min, t_max, Status::temperature_low, Status::temperature_high);
        status != Status::solved)
        return failed(status);
    bool water = false;
    if (t <= saturation::critical_temperature) {
        const double ps = saturation::pressure(Scalar(t)).value;
        if (std::fabs(p - ps) <= searches::on_saturation_line * p) {
            RowState row = mixture_row(saturated_at(t), quiet_nan);
            row.status = Status::undetermined;
            return row;
        }
        water = p > ps;
    }
    if (t <= t_13) return row_of(water ? SubRegion::water : SubRegion::steam, {p, t});
    if (t >= t_23 || p <= boundary_pressure(Scalar(t)).value) return row_of(SubRegion::steam, {p, t});
    const Side side = water ? Side::water : Side::steam;
    double v = region3_volume_from(p, t, side, start.v);
    if (!std::isfinite(v)) v = region3_volume(p, t, side);
    if (!std::isfinite(v)) return {};
    RowState row = row_of(SubRegion::near_critical, {v, t});
    row.bulk.p = p; // as given; the volume has it to rounding
    return row;
}

RowState of_quality(bool by_pressure, double value, double x) {
    const Status status =
        by_pressure
            ? within(value, p_min, saturation::critical_pressure, Status::pressure_low, Status::above_critical)
            : within(value, t_min, saturation::critical_temperature, Status::temperature_low, Status::above_critical);
    if (status != Status::solved) return failed(status);
    if (const Status of_x = within(x, 0.0, 1.0, Status::quality_low, Status::quality_high); of_x != Status::solved)
        return failed(of_x);
    if (!by_pressure) return mixture_row(saturated_at(value), x);
    const SaturatedState line = saturated_under(value);
    return line.t < t_min * (1.0 - searches::limit_rounding) ? failed(Status::temperature_low) : mixture_row(line, x);
}

} // namespace

bool takes_start(Pair pair, double a, double b) noexcept {
    if (pair != Pair::pt) return pair == Pair::ph || pair == Pair::ps || pair == Pair::hs;
    return b > t_13 && b < t_23 && a > boundary_pressure(Scalar(b)).value;
}

RowState solve_row(Pair pair, double a, double b, const Start& start) noexcept {
    if (!std::isfinite(a) || !std::isfinite(b)) return failed(Status::not_a_number);
    switch (pair) {
    case Pair::pt: return at_pressure_temperature(a, b, start);
    case Pair::ph:
    case Pair::ps:
        if (const Status status = pressure_within(a); status != Status::solved) return failed(status);
        return on_isobar(a, pair == Pair::ps ? Quantity::entropy : Quantity::enthalpy, b, start);
    case Pair::px: return of_quality(true, a, b);
    case Pair::tx: return of_quality(false, a, b);
    case Pair::hs: return of_enthalpy_entropy(a, b, start);
    default: return {};
    }
}

} // namespace ktl::if97
