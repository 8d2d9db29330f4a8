#include "if97/rows.hpp"

#include "if97/region3_volume.hpp"

namespace ktl::if97 {

using region3::critical_density;
using saturation::critical_temperature;

RowState failed(Status status) noexcept {
    RowState row;
    row.status = status;
    return row;
}

[[gnu::flatten]] RowState row_of(SubRegion region, const Point& x) noexcept {
    RowState row;
    row.status = Status::solved;
    switch (region) {
    case SubRegion::water:
        row.region = Region::water;
        row.bulk = water_at(x.primary, x.t);
        break;
    case SubRegion::steam:
        row.region = Region::steam;
        row.bulk = steam_at(x.primary, x.t);
        break;
    case SubRegion::near_critical:
        row.region = x.t < critical_temperature && x.primary < 1.0 / critical_density ? Region::near_critical_water
                                                                                      : Region::near_critical_steam;
        row.bulk = near_critical_at(x.primary, x.t);
        break;
    }
    return row;
}

// The equations are inlined into the three functions that evaluate all properties: calls of them cost some 5 % of a row.
[[gnu::flatten]] SaturatedState saturated_low(double p, double t) noexcept {
    return {p, t, false, {water_at(p, t), steam_at(p, t)}};
}

[[gnu::flatten]] SaturatedState saturated_high(double p, double t, const SaturatedVolumes& v) noexcept {
    SaturatedState line{p, t, true, {near_critical_at(v.water, t), near_critical_at(v.steam, t)}};
    line.phases.liquid.p = line.phases.vapour.p = p; // which the volumes have to rounding
    return line;
}

namespace {

SaturatedState saturated(double p, double t) noexcept {
    return t <= t_13 ? saturated_low(p, t) : saturated_high(p, t, saturated_volumes(p, t));
}

} // namespace

SaturatedState saturated_at(double t) noexcept { return saturated(saturation::pressure(Scalar(t)).value, t); }

SaturatedState saturated_under(double p) noexcept {
    const double t = saturation::temperature(Scalar(p)).value;
    const bool at_13 = t > t_13 && p <= boundary_pressure(Scalar(t_13)).value;
    return saturated(p, at_13 ? t_13 : std::fmin(t, critical_temperature));
}

RowState mixture_row(const SaturatedState& line, double x) noexcept {
    Phase bulk = mixture_of(line.phases, Scalar(x), Scalar(line.p));
    bulk.t = line.t;
    const Region region = line.high ? Region::wet_near_critical : Region::wet;
    return {Status::solved, region, x, bulk, line.phases.liquid, line.phases.vapour};
}

bool in_water(double p, double t, double margin) noexcept {
    return t >= t_min && t <= t_13 && p <= p_max && p >= saturation::pressure(Scalar(t)).value * (1.0 + margin);
}

bool in_steam(double p, double t, double margin) noexcept {
    if (!(p >= p_min && p <= p_max && t >= t_min && t <= t_max)) return false;
    if (t <= t_13) return p <= saturation::pressure(Scalar(t)).value * (1.0 - margin);
    return t >= t_23 || p <= boundary_pressure(Scalar(t)).value * (1.0 - margin);
}

bool in_near_critical(double p, double v, double t, double margin, double t_margin) noexcept {
    if (!(t > t_13 + t_margin && t <= t_23 && p <= p_max && p > boundary_pressure(Scalar(t)).value * (1.0 + margin)))
        return false;
    if (t >= critical_temperature) return true;
    const double ps = saturation::pressure(Scalar(t)).value;
    return v < 1.0 / critical_density ? p > ps * (1.0 + margin) : p < ps * (1.0 - margin);
}

} // namespace ktl::if97
