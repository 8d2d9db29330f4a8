#include "steam_table.hpp"

namespace program {

namespace {

/// Converts results of the library.
class Results {
public:
    explicit Results(const UnitSystem& units) : units_(units) {}
    [[nodiscard]] double operator()(ktl::Property id, double value) const {
        return units_.unit_of(id).from_ktl(value, 0.0);
    }
    [[nodiscard]] PhaseRow row(double t, const ktl::Phase& phase) const {
        return {t, (*this)(ktl::Property::v, phase.v()), (*this)(ktl::Property::h, phase.h()),
                (*this)(ktl::Property::s, phase.s()), (*this)(ktl::Property::cp, phase.cp())};
    }

private:
    const UnitSystem& units_;
};

bool is_water(ktl::Region region) { return region == ktl::Region::water || region == ktl::Region::near_critical_water; }

} // namespace

double given_value(const UnitSystem& units, ktl::Property id, double value) {
    return at_limit(id, units.unit_of(id).to_ktl(value, 0.0));
}

SaturationTable saturation_table(const UnitSystem& units, bool by_pressure, std::span<const double> values) {
    const Results in(units);
    SaturationTable table{&units, by_pressure, {}};
    table.rows.reserve(values.size());
    for (const double value : values) {
        const double given = given_value(units, by_pressure ? ktl::Property::p : ktl::Property::t, value);
        const ktl::Saturation at =
            by_pressure ? ktl::saturation_at_pressure(given) : ktl::saturation_at_temperature(given);
        const ktl::Phase &water = at.liquid, &steam = at.vapour;
        table.rows.push_back({by_pressure ? in(ktl::Property::t, at.t) : value,
                              by_pressure ? value : in(ktl::Property::p, at.p), in(ktl::Property::v, water.v()),
                              in(ktl::Property::v, steam.v()), in(ktl::Property::h, water.h()),
                              in(ktl::Property::h, steam.h() - water.h()), in(ktl::Property::h, steam.h()),
                              in(ktl::Property::s, water.s()), in(ktl::Property::s, steam.s())});
    }
    return table;
}

SingleTable single_table(const UnitSystem& units, std::span<const double> p, std::span<const double> t) {
    const Results in(units);
    SingleTable table{&units, {}};
    for (const double pressure : p) {
        const double bar = given_value(units, ktl::Property::p, pressure);
        Isobar isobar{.p = pressure, .rows = {}};
        const ktl::Saturation line = ktl::saturation_at_pressure(bar);
        const bool has_line = line.status == ktl::Status::solved;
        if (has_line) {
            isobar.t_saturation = in(ktl::Property::t, line.t);
            isobar.water = in.row(isobar.t_saturation, line.liquid);
            isobar.steam = in.row(isobar.t_saturation, line.vapour);
        }
        for (const double temperature : t) {
            const ktl::State state = ktl::state(ktl::Pair::pt, bar, given_value(units, ktl::Property::t, temperature));
            const bool saturated = state.status() == ktl::Status::undetermined;
            if (has_line && (saturated || is_water(state.region()))) ++isobar.water_rows;
            isobar.rows.push_back(saturated ? in.row(temperature, state.liquid())
                                            : PhaseRow{temperature, in(ktl::Property::v, state.v()),
                                                       in(ktl::Property::h, state.h()), in(ktl::Property::s, state.s()),
                                                       in(ktl::Property::cp, state.cp())});
        }
        table.isobars.push_back(std::move(isobar));
    }
    return table;
}

} // namespace program
