// The two formulations as the loops call them: that of 1967 and IAPWS-IF97.
#pragma once

#include "python_api.hpp"

#include <cstddef>
#include <ktl/steam.hpp>
#include <span>

namespace ktl::python {

struct Formulation {
    bool (*has_pair)(Pair) noexcept;
    State (*state)(Pair, double, double, int number) noexcept;
    BatchResult (*batch)(Pair, std::span<const double> a, std::span<const double> b, std::span<const Property>,
                         std::span<double* const> outputs, std::span<Status>) noexcept;
    double (*saturation_pressure)(double t) noexcept;
    double (*saturation_temperature)(double p) noexcept;
    void (*saturation_pressures)(std::span<const double> t, std::span<double> p) noexcept;
    void (*saturation_temperatures)(std::span<const double> p, std::span<double> t) noexcept;
    const char* (*sentence)(Status) noexcept;
    double least_pressure, critical_pressure, critical_temperature; ///< of the saturation line, bar, degC
};

inline constexpr std::size_t formulation_count = 2;
/// 0: of 1967, 1: IF97.
[[nodiscard]] const Formulation& formulation(std::size_t number);
/// False, with a Python exception set, if there is no formulation of that number.
[[nodiscard]] bool formulation_from(long number, const Formulation** formulation);

} // namespace ktl::python
