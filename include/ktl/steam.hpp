// ktl: properties of water and steam after the 1967 IFC Formulation for Industrial Use (IFC-67).
//
// The calls for new programs. One solve gives a state with all its properties; columns of states run in vector lanes
// and on several threads. Nothing here prints, throws, allocates, keeps global data or stops the program, and
// everything may be called from any thread.
//
//     const ktl::State s = ktl::state(ktl::Pair::ph, 100.0, 2800.0);
//     if (s) std::printf("%g degC, %g m3/kg\n", s.t(), s.v());
//     else std::puts(ktl::sentence(s.status()));
//
// Units: bar, degC, m3/kg, kJ/kg, kJ/(kg K); others where a property is declared.
// Valid range: 0.01 to 800 degC, 0.006112444 to 1000 bar, one phase or two; limits belong to the range.
//
// Source of the equations: "The 1967 IFC Formulation for Industrial Use", International Formulation Committee of the
// Sixth International Conference on the Properties of Steam, 1967; viscosity and conductivity as in ktlftn.h.
#pragma once

#include <cstddef>
#include <cstdint>
#include <ktl/api.h>
#include <ktl/version.h>
#include <span>

namespace ktl {

/// The two properties that a state is given by, in this order: p pressure, t temperature, v specific volume,
/// h enthalpy, s entropy, u internal energy, x quality (mass fraction of steam in a two-phase state).
enum class Pair : std::uint8_t { pt, ph, ps, pu, pv, px, tv, th, ts, tu, tx, sx, hs, us, vh, vs, vu };
inline constexpr std::size_t pair_count = 17;

/// What became of a request.
enum class Status : std::uint8_t {
    solved,           ///< the state stands with all its properties
    undetermined,     ///< p, t on the saturation line: the saturated phases stand, how much of each is open
    not_a_number,     ///< a given value is not a number, or infinite
    pressure_low,     ///< the given pressure, or that of the state, is below 0.006112444 bar
    pressure_high,    ///< the given pressure, or that of the state, is above 1000 bar
    temperature_low,  ///< the given temperature, or that of the state, is below 0.01 degC
    temperature_high, ///< the given temperature, or that of the state, is above 800 degC
    quality_low,      ///< the given quality is below 0
    quality_high,     ///< the given quality is above 1
    above_critical,   ///< a quality is given with a pressure or temperature above the critical one
    no_state,         ///< no state of the range has both values
    cancelled,        ///< batch calls: stopped before this row was reached
};
inline constexpr std::size_t status_count = 12;

/// A sentence in plain English for each status: "solved", "the pressure is below 0.006112444 bar", ...
KTL_API const char* sentence(Status status) noexcept;

/// Where a state lies. The numbers are those of ktl_region in ktlftn.h.
enum class Region : std::uint8_t {
    water = 1,               ///< sub-region 1, up to 350 degC
    steam = 2,               ///< sub-region 2
    near_critical_steam = 3, ///< sub-region 3, steam side and above 374.15 degC
    near_critical_water = 4, ///< sub-region 3, water between 350 and 374.15 degC
    wet_near_critical = 5,   ///< two phases, above 350 degC
    wet = 6,                 ///< two phases, up to 350 degC
    none = 7                 ///< no state
};

/// The properties of a state, for columns of results and for State::get.
enum class Property : std::uint8_t {
    p,                   ///< pressure, bar
    t,                   ///< temperature, degC
    v,                   ///< specific volume, m3/kg
    rho,                 ///< density, kg/m3
    h,                   ///< specific enthalpy, kJ/kg
    s,                   ///< specific entropy, kJ/(kg K)
    u,                   ///< specific internal energy, kJ/kg
    x,                   ///< quality, kg/kg; not-a-number in one phase
    gibbs,               ///< specific Gibbs energy h - T s, kJ/kg
    helmholtz,           ///< specific Helmholtz energy u - T s, kJ/kg
    region,              ///< number of the region, 1 to 7
    cp,                  ///< isobaric heat capacity, kJ/(kg K); this and all below: not-a-number in two phases
    cv,                  ///< isochoric heat capacity, kJ/(kg K)
    speed_of_sound,      ///< m/s
    isentropic_exponent, ///< -(v/p) (dp/dv) at constant s
    compressibility,     ///< isothermal compressibility -(dv/dp)/v, 1/bar
    expansion,           ///< isobaric expansion coefficient (dv/dt)/v, 1/K
    joule_thomson,       ///< Joule-Thomson coefficient (dt/dp) at constant h, K/bar
    viscosity,           ///< dynamic viscosity, Pa s
    kinematic_viscosity, ///< m2/s
    conductivity,        ///< thermal conductivity, W/(m K)
    prandtl,             ///< Prandtl number
};
inline constexpr std::size_t property_count = 22;

/// One homogeneous phase: water, steam, or either beside the other on the saturation line.
///
/// Given away by state() and saturation calls; a phase that does not stand has not-a-number everywhere. What is not
/// kept from the solve (density and those that follow u below) is computed when asked for.
class Phase {
public:
    [[nodiscard]] double p() const noexcept { return p_; }             ///< pressure, bar
    [[nodiscard]] double t() const noexcept { return t_; }             ///< temperature, degC
    [[nodiscard]] double v() const noexcept { return v_; }             ///< specific volume, m3/kg
    [[nodiscard]] double h() const noexcept { return h_; }             ///< specific enthalpy, kJ/kg
    [[nodiscard]] double s() const noexcept { return s_; }             ///< specific entropy, kJ/(kg K)
    [[nodiscard]] double cp() const noexcept { return cp_; }           ///< isobaric heat capacity, kJ/(kg K)
    [[nodiscard]] double cv() const noexcept { return cv_; }           ///< isochoric heat capacity, kJ/(kg K)
    [[nodiscard]] KTL_API double rho() const noexcept;                 ///< density, kg/m3
    [[nodiscard]] KTL_API double u() const noexcept;                   ///< specific internal energy, kJ/kg
    [[nodiscard]] KTL_API double gibbs() const noexcept;               ///< specific Gibbs energy h - T s, kJ/kg
    [[nodiscard]] KTL_API double helmholtz() const noexcept;           ///< specific Helmholtz energy u - T s, kJ/kg
    [[nodiscard]] KTL_API double speed_of_sound() const noexcept;      ///< m/s
    [[nodiscard]] KTL_API double isentropic_exponent() const noexcept; ///< -(v/p) (dp/dv) at constant entropy
    /// Isothermal compressibility -(dv/dp)/v, 1/bar. Infinite at the critical point, as cp and expansion.
    [[nodiscard]] KTL_API double compressibility() const noexcept;
    [[nodiscard]] KTL_API double expansion() const noexcept;     ///< isobaric expansion coefficient (dv/dt)/v, 1/K
    [[nodiscard]] KTL_API double joule_thomson() const noexcept; ///< (dt/dp) at constant enthalpy, K/bar
    [[nodiscard]] KTL_API double viscosity() const noexcept;     ///< dynamic viscosity, Pa s
    [[nodiscard]] KTL_API double kinematic_viscosity() const noexcept; ///< m2/s
    [[nodiscard]] KTL_API double conductivity() const noexcept;        ///< thermal conductivity, W/(m K)
    [[nodiscard]] KTL_API double prandtl() const noexcept;             ///< Prandtl number cp viscosity / conductivity
    /// The property by its enumerator; x is not-a-number, the region a number.
    [[nodiscard]] KTL_API double get(Property property) const noexcept;
    /// Sub-region 1 or 2, or the side of sub-region 3.
    [[nodiscard]] Region region() const noexcept { return region_; }

private:
    friend struct StateBuilder;
    double p_, t_, v_, h_, s_, cp_, cv_, speed_of_sound_squared_, dvdt_, dvdp_;
    Region region_;
};

/// A state: its status, its properties and, in two phases, both saturated phases.
///
/// Unless the status is solved every property is not-a-number, but for p and t of an undetermined state. In two phases
/// v, h, s and u are those of the mixture, and the properties that a mixture does not have (cp, cv, speed of sound,
/// isentropic exponent, compressibility, expansion, Joule-Thomson coefficient, viscosities, conductivity, Prandtl
/// number) are not-a-number: ask a phase for them.
class State {
public:
    [[nodiscard]] Status status() const noexcept { return status_; }
    /// True where the state is solved.
    explicit operator bool() const noexcept { return status_ == Status::solved; }
    [[nodiscard]] Region region() const noexcept { return bulk_.region(); }
    [[nodiscard]] bool two_phase() const noexcept {
        return region() == Region::wet || region() == Region::wet_near_critical;
    }

    [[nodiscard]] double p() const noexcept { return bulk_.p(); }
    [[nodiscard]] double t() const noexcept { return bulk_.t(); }
    [[nodiscard]] double v() const noexcept { return bulk_.v(); }
    [[nodiscard]] double rho() const noexcept { return bulk_.rho(); }
    [[nodiscard]] double h() const noexcept { return bulk_.h(); }
    [[nodiscard]] double s() const noexcept { return bulk_.s(); }
    [[nodiscard]] double u() const noexcept { return bulk_.u(); }
    [[nodiscard]] double x() const noexcept { return x_; } ///< quality; not-a-number in one phase
    [[nodiscard]] double gibbs() const noexcept { return bulk_.gibbs(); }
    [[nodiscard]] double helmholtz() const noexcept { return bulk_.helmholtz(); }
    [[nodiscard]] double cp() const noexcept { return bulk_.cp(); }
    [[nodiscard]] double cv() const noexcept { return bulk_.cv(); }
    [[nodiscard]] double speed_of_sound() const noexcept { return bulk_.speed_of_sound(); }
    [[nodiscard]] double isentropic_exponent() const noexcept { return bulk_.isentropic_exponent(); }
    [[nodiscard]] double compressibility() const noexcept { return bulk_.compressibility(); }
    [[nodiscard]] double expansion() const noexcept { return bulk_.expansion(); }
    [[nodiscard]] double joule_thomson() const noexcept { return bulk_.joule_thomson(); }
    [[nodiscard]] double viscosity() const noexcept { return bulk_.viscosity(); }
    [[nodiscard]] double kinematic_viscosity() const noexcept { return bulk_.kinematic_viscosity(); }
    [[nodiscard]] double conductivity() const noexcept { return bulk_.conductivity(); }
    [[nodiscard]] double prandtl() const noexcept { return bulk_.prandtl(); }

    /// Saturated water and steam of a two-phase or undetermined state; otherwise not-a-number throughout.
    [[nodiscard]] const Phase& liquid() const noexcept { return liquid_; }
    [[nodiscard]] const Phase& vapour() const noexcept { return vapour_; }

    /// The property by its enumerator; the region as a number.
    [[nodiscard]] KTL_API double get(Property property) const noexcept;

private:
    friend struct StateBuilder;
    Phase bulk_, liquid_, vapour_;
    double x_;
    Status status_;
};

/// The state that has both values.
///
/// Both are reproduced to 1e-10, relative (h, u, s near zero: to 1e-9 kJ/kg and kJ/(kg K)). Where several states have
/// them, one of which is the rule: see state_count() and the manual. Any bit pattern may be given.
[[nodiscard]] KTL_API State state(Pair pair, double a, double b) noexcept;

/// How many states have both values: 0, 1, or up to 3. More than one: p, v in water below 4 degC (by falling
/// temperature), t with h, s or u in water (by rising pressure), s, x between x = 0.37 and 0.62 (by rising temperature).
[[nodiscard]] KTL_API int state_count(Pair pair, double a, double b) noexcept;
/// The state of that number, from 0, which is the one that state() gives; no_state from state_count() on.
[[nodiscard]] KTL_API State state(Pair pair, double a, double b, int number) noexcept;

// ---- Saturation line, 0.01 to 374.15 degC ----------------------------------------------------------------------------

/// Saturation pressure, bar, at t (degC); not-a-number outside the line.
[[nodiscard]] KTL_API double saturation_pressure(double t) noexcept;
/// Saturation temperature, degC, under p (bar); not-a-number outside the line.
[[nodiscard]] KTL_API double saturation_temperature(double p) noexcept;
/// Slope dp/dt of the line, bar/K, at t (degC); not-a-number outside it.
[[nodiscard]] KTL_API double saturation_slope(double t) noexcept;

/// The same for columns, in vector lanes: the result i belongs to the given value i; as many as the shorter column has.
KTL_API void saturation_pressure(std::span<const double> t, std::span<double> p) noexcept;
KTL_API void saturation_temperature(std::span<const double> p, std::span<double> t) noexcept;

/// A point of the saturation line with both phases.
struct Saturation {
    Status status;
    double p, t;  ///< bar, degC
    double slope; ///< dp/dt, bar/K
    Phase liquid, vapour;
};
[[nodiscard]] KTL_API Saturation saturation_at_temperature(double t) noexcept;
[[nodiscard]] KTL_API Saturation saturation_at_pressure(double p) noexcept;

// ---- Many states -----------------------------------------------------------------------------------------------------

/// Told how many rows are done; called from one thread at a time, from time to time and at the end. Return false to
/// cancel: rows not yet begun get Status::cancelled. A callback that throws cancels, too.
using Progress = bool (*)(void* context, std::size_t done, std::size_t total);

struct BatchOptions {
    unsigned threads = 1;        ///< 0: as many as the machine runs at once
    Progress progress = nullptr; ///< called at least every 65,536 rows
    void* context = nullptr;     ///< handed to progress
};

/// What a batch call came to.
struct BatchResult {
    enum class Fault : std::uint8_t {
        none,
        lengths_differ,   ///< columns of different lengths: nothing was done
        columns_differ,   ///< not as many output columns as properties, or a null one: nothing was done
        unknown_pair,     ///< a pair outside its enumeration: nothing was done
        unknown_property, ///< a property outside its enumeration: nothing was done
    };
    Fault fault = Fault::none;
    bool cancelled = false; ///< rows were left that no thread had begun
    std::size_t solved = 0; ///< rows with Status::solved
};

/// The states of rows (a[i], b[i]), the wanted properties of each in outputs[k][i], what became of it in status[i].
///
/// All columns have the length of a. A row depends on its two values alone: not on its place, its neighbours or the
/// number of threads, and it has the same bits as state() gives. A row that is not solved has not-a-number in all outputs
/// (p and t of an undetermined one stand). Outputs must not overlap the given columns or one another. Memory: some
/// 200 kB of stack per thread; nothing is allocated but by the start of threads.
KTL_API BatchResult batch(Pair pair, std::span<const double> a, std::span<const double> b,
                          std::span<const Property> properties, std::span<double* const> outputs,
                          std::span<Status> status, const BatchOptions& options = {}) noexcept;

} // namespace ktl
