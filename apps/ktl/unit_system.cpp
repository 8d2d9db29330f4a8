#include "unit_system.hpp"

#include "number.hpp"
#include "suggestion.hpp"

#include <array>

namespace program {

namespace {

UnitSystem system(std::string_view name, ktl::diagram::System id) {
    const auto of = [=](ktl::Property property) {
        return ktl::units::Reading{ktl::diagram::unit(id, property), false, ktl::units::Fault::none};
    };
    return {name,
            id,
            of(ktl::Property::p),
            of(ktl::Property::t),
            of(ktl::Property::v),
            of(ktl::Property::h),
            of(ktl::Property::s)};
}

const std::array systems{system("bar", ktl::diagram::System::bar), system("si", ktl::diagram::System::si),
                         system("mpa", ktl::diagram::System::mpa), system("us", ktl::diagram::System::us)};

} // namespace

const ktl::units::Reading& UnitSystem::unit_of(ktl::Property id) const {
    switch (id) {
    case ktl::Property::p: return pressure;
    case ktl::Property::t: return temperature;
    case ktl::Property::v: return volume;
    case ktl::Property::s:
    case ktl::Property::cp: return entropy;
    default: return energy;
    }
}

const UnitSystem& unit_system(std::string_view name) {
    for (const UnitSystem& known : systems)
        if (known.name == lower_case(name)) return known;
    throw UsageError("--units: no system of units is called " + in_quotes(name) +
                     did_you_mean(name, unit_system_names()) + "; there are " + unit_system_names());
}

std::string unit_system_names() {
    std::string out;
    for (const UnitSystem& known : systems) out.append(out.empty() ? "" : " ").append(known.name);
    return out;
}

std::string heading(const ktl::units::Reading& unit) {
    return std::string(unit.unit->name) + (unit.unit->needs_reference ? "a" : "");
}

} // namespace program
