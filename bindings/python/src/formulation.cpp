#include "formulation.hpp"

#include "module.hpp"

#include <algorithm>
#include <array>
#include <ktl/if97.hpp>

namespace ktl::python {

namespace {

using Given = std::span<const double>;
using Found = std::span<double>;

constexpr std::array<Formulation, formulation_count> all{{
    {[](Pair) noexcept { return true; },
     [](Pair pair, double a, double b, int number) noexcept { return state(pair, a, b, number); },
     [](Pair pair, Given a, Given b, std::span<const Property> properties, std::span<double* const> outputs,
        std::span<Status> status) noexcept { return batch(pair, a, b, properties, outputs, status); },
     [](double t) noexcept { return saturation_pressure(t); },
     [](double p) noexcept { return saturation_temperature(p); },
     [](Given t, Found p) noexcept { saturation_pressure(t, p); },
     [](Given p, Found t) noexcept { saturation_temperature(p, t); },
     [](Status status) noexcept { return sentence(status); }, 0.006112444, 221.2, 374.15},
    {[](Pair pair) noexcept { return if97::has_pair(pair); },
     [](Pair pair, double a, double b, int number) noexcept { return number == 0 ? if97::state(pair, a, b) : State(); },
     [](Pair pair, Given a, Given b, std::span<const Property> properties, std::span<double* const> outputs,
        std::span<Status> status) noexcept { return if97::batch(pair, a, b, properties, outputs, status); },
     [](double t) noexcept { return if97::saturation_pressure(t); },
     [](double p) noexcept { return if97::saturation_temperature(p); },
     [](Given t, Found p) noexcept { std::transform(t.begin(), t.end(), p.begin(), if97::saturation_pressure); },
     [](Given p, Found t) noexcept { std::transform(p.begin(), p.end(), t.begin(), if97::saturation_temperature); },
     [](Status status) noexcept { return if97::sentence(status); }, 0.00611657, 220.64, 373.946},
}};

} // namespace

const Formulation& formulation(std::size_t number) { return all[number]; }

bool formulation_from(long number, const Formulation** formulation) {
    if (number < 0 || number >= static_cast<long>(formulation_count)) return refuse("unknown formulation");
    *formulation = &all[static_cast<std::size_t>(number)];
    return true;
}

} // namespace ktl::python
