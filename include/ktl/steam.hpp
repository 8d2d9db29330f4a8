// ktl: properties of water and steam after the 1967 IFC Formulation for Industrial Use (IFC-67).
//
// The calls for new programs. One solve gives a state with all its properties; columns of states are computed in vector
// lanes and on several threads. No call prints, throws, keeps global data or stops the program. No call allocates,
// except that batch() starts the threads it is asked for. Every call may be made from any thread at any time.
//
//     const ktl::State s = ktl::state(ktl::Pair::ph, 100.0, 2800.0);
//     if (s) std::printf("%g degC, %g m3/kg\n", s.t(), s.v());
//     else std::puts(ktl::sentence(s.status()));
//
// Units: pressure in bar, temperature in degC, specific volume in m3/kg, specific enthalpy and internal energy in
// kJ/kg, specific entropy in kJ/(kg K), quality in kg/kg; ktl/properties.def has those of all properties.
// Valid range: 0.01 to 800 degC and 0.006112444 to 1000 bar, one phase or two. The limits belong to the range, and a
// value past a limit by less than 1e-10 of it counts as the limit.
//
// Pairs, properties and statuses are listed once, with unit and meaning, in ktl/pairs.def, ktl/properties.def and
// ktl/status.def. The enumerations below, and the functions of Phase and State, are made from these lists.
//
// Source of the equations: "The 1967 IFC Formulation for Industrial Use", International Formulation Committee of the
// Sixth International Conference on the Properties of Steam, 1967; viscosity and conductivity as in ktlftn.h.
//
// Needs C++20. ktl/steam.h has the same calls for C and for older C++.
#pragma once

#if !(__cplusplus >= 202002L || (defined(_MSVC_LANG) && _MSVC_LANG >= 202002L))
#error "ktl/steam.hpp needs C++20; ktl/steam.h has the same calls for C and for older C++"
#endif

#include <cstddef>
#include <cstdint>
#include <ktl/api.h>
#include <ktl/version.h>
#include <limits>
#include <span>

namespace ktl {

/// The two known values of a state, in the order of the letters: pt, ph, ps, pu, pv and so on. p pressure, t
/// temperature, v specific volume, h specific enthalpy, s specific entropy, u specific internal energy, x quality (mass
/// fraction of steam in a two-phase state). All pairs: ktl/pairs.def.
enum class Pair : std::uint8_t {
#define KTL_DEFINE_PAIR(pair, PAIR, a, b) pair,
#include <ktl/pairs.def>
};
inline constexpr std::size_t pair_count = 0
#define KTL_DEFINE_PAIR(pair, PAIR, a, b) +1
#include <ktl/pairs.def>
    ;

/// What became of a request: solved, or the reason why not. All statuses with their sentences: ktl/status.def.
enum class Status : std::uint8_t {
#define KTL_DEFINE_STATUS(status, STATUS, sentence) status,
#include <ktl/status.def>
};
inline constexpr std::size_t status_count = 0
#define KTL_DEFINE_STATUS(status, STATUS, sentence) +1
#include <ktl/status.def>
    ;

/// The sentence of a status in plain English, as "the pressure is below 0.006112444 bar"; "unknown status" for a number
/// outside the enumeration. Never null.
KTL_API const char* sentence(Status status) noexcept;

/// The region of a state: water and steam are the two sides of the saturation line. The numbers are those of ktl_region
/// in ktlftn.h.
enum class Region : std::uint8_t {
    water = 1,               ///< sub-region 1: water up to 350 degC
    steam = 2,               ///< sub-region 2: steam below the boundary to sub-region 3
    near_critical_steam = 3, ///< sub-region 3: steam up to 374.15 degC, and every state above that temperature
    near_critical_water = 4, ///< sub-region 3: water above 350 degC, up to 374.15 degC
    wet_near_critical = 5,   ///< two phases above 350 degC
    wet = 6,                 ///< two phases up to 350 degC
    none = 7                 ///< no state
};

/// The properties of a state, by number: for columns of results and for get(). All of them with unit and meaning:
/// ktl/properties.def.
enum class Property : std::uint8_t {
#define KTL_DEFINE_PROPERTY(property, PROPERTY, unit, code, meaning) property,
#include <ktl/properties.def>
};
inline constexpr std::size_t property_count = 0
#define KTL_DEFINE_PROPERTY(property, PROPERTY, unit, code, meaning) +1
#include <ktl/properties.def>
    ;

namespace detail {
inline constexpr double nan = std::numeric_limits<double>::quiet_NaN();
}

/// One homogeneous phase: water, steam, or one of the two saturated phases of a two-phase state.
///
/// Returned by state() and the saturation calls. If the phase does not exist, and by default, region() is none and
/// every property is NaN. On a level isotherm, at the critical point and next to it, cp(), compressibility(), expansion() and
/// prandtl() are infinite; elsewhere they are positive, but for the expansion of cold water.
class Phase {
public:
    Phase() = default;

    /// A function for each property but the quality, in the unit of ktl/properties.def: p(), t(), v(), rho(), h() and
    /// so on. Volume, enthalpy, entropy and heat capacities come from the solve; the others are computed at each call.
#define KTL_DEFINE_PROPERTY(property, PROPERTY, unit, code, meaning)                                                   \
    [[nodiscard]] double property() const noexcept { return get(Property::property); }
#define KTL_DEFINE_STATE_PROPERTY(property, PROPERTY, unit, code, meaning)
#define KTL_DEFINE_REGION_PROPERTY(property, PROPERTY, unit, code, meaning)
#include <ktl/properties.def>

    /// Sub-region 1 or 2, or the side of sub-region 3; none if the phase does not exist.
    [[nodiscard]] Region region() const noexcept { return region_; }

    /// The property of that number: NaN for x and for a number outside the enumeration; the region as a number, 1 to 7.
    [[nodiscard]] double get(Property property) const noexcept {
        switch (property) {
        case Property::p: return p_;
        case Property::t: return t_;
        case Property::v: return v_;
        case Property::h: return h_;
        case Property::s: return s_;
        case Property::cp: return cp_;
        case Property::cv: return cv_;
        case Property::region: return static_cast<double>(region_);
        default: return computed(property);
        }
    }

private:
    friend struct StateBuilder;
    Phase(double p, double t, double v, double h, double s, double cp, double cv, double speed_of_sound_squared,
          double dvdt, double dvdp, Region region) noexcept
        : p_(p), t_(t), v_(v), h_(h), s_(s), cp_(cp), cv_(cv), speed_of_sound_squared_(speed_of_sound_squared),
          dvdt_(dvdt), dvdp_(dvdp), region_(region) {}
    [[nodiscard]] KTL_API double computed(Property property) const noexcept;

    double p_ = detail::nan, t_ = detail::nan, v_ = detail::nan, h_ = detail::nan, s_ = detail::nan;
    double cp_ = detail::nan, cv_ = detail::nan, speed_of_sound_squared_ = detail::nan;
    double dvdt_ = detail::nan, dvdp_ = detail::nan;
    Region region_ = Region::none;
};

/// A state: its status, its properties and, in two phases, both saturated phases.
///
/// Every property is NaN unless the status is solved; only p() and t() of an undetermined state are given. A state by
/// default has the status no_state. In two phases v(), rho(), h(), s(), u(), gibbs() and helmholtz() are those of the
/// mixture. What a mixture does not have, cp() and all that follow it in ktl/properties.def, is NaN: ask liquid() or
/// vapour() for it.
class State {
public:
    State() = default;

    [[nodiscard]] Status status() const noexcept { return status_; }
    /// True if the status is solved.
    explicit operator bool() const noexcept { return status_ == Status::solved; }
    /// None unless the status is solved or undetermined.
    [[nodiscard]] Region region() const noexcept { return bulk_.region(); }
    /// True if the state has two phases, that is a quality, or would have (undetermined).
    [[nodiscard]] bool two_phase() const noexcept {
        return region() == Region::wet || region() == Region::wet_near_critical;
    }

    /// A function for each property, in the unit of ktl/properties.def: p(), t(), v(), rho(), h(), x() and so on.
#define KTL_DEFINE_PROPERTY(property, PROPERTY, unit, code, meaning)                                                   \
    [[nodiscard]] double property() const noexcept { return get(Property::property); }
#define KTL_DEFINE_REGION_PROPERTY(property, PROPERTY, unit, code, meaning)
#include <ktl/properties.def>

    /// Saturated water of a two-phase or undetermined state; otherwise a phase that does not exist.
    [[nodiscard]] const Phase& liquid() const noexcept { return liquid_; }
    /// Saturated steam of a two-phase or undetermined state; otherwise a phase that does not exist.
    [[nodiscard]] const Phase& vapour() const noexcept { return vapour_; }

    /// The property of that number: NaN for a number outside the enumeration; the region as a number, 1 to 7.
    [[nodiscard]] double get(Property property) const noexcept {
        return property == Property::x ? x_ : bulk_.get(property);
    }

private:
    friend struct StateBuilder;
    State(Status status, const Phase& bulk, double x, const Phase& liquid, const Phase& vapour) noexcept
        : bulk_(bulk), liquid_(liquid), vapour_(vapour), x_(x), status_(status) {}

    Phase bulk_, liquid_, vapour_;
    double x_ = detail::nan;
    Status status_ = Status::no_state;
};

/// The state in which the two properties of the pair have the values a and b.
///
/// Both values are reproduced to a relative 1e-10 (near zero h and u to 1e-9 kJ/kg, s to 1e-10 kJ/(kg K)). If several
/// states have both values, this is the first one by the rule at state_count(). a and b may hold any bit pattern. If
/// there is no such state, or the pair is outside its enumeration, status() says why and every property is NaN.
[[nodiscard]] KTL_API State state(Pair pair, double a, double b) noexcept;

/// One property of state(pair, a, b), with the same bits, in less time: no more is computed than the property needs. NaN if
/// there is no such state, if the state does not have the property, or if a number is outside its enumeration.
[[nodiscard]] KTL_API double value(Pair pair, double a, double b, Property property) noexcept;

/// The number of states that have both values; 0 if state() is not solved. There may be more than one
/// - by p, v: water below 4 degC has the same volume at two temperatures; the warmer is the first;
/// - by t with h, s or u: a mixture and compressed water, or water at two pressures; the lowest pressure is the first;
/// - by s, x: from x = 0.365 up there are up to six temperatures; the lowest is the first;
/// - by h, s: water at saturation or up to 7e-6 bar above it, below 14 degC, shares its values with one or two mixtures of
///   x up to 3.4e-5; water is the first, then the one of more steam.
[[nodiscard]] KTL_API int state_count(Pair pair, double a, double b) noexcept;
/// The n-th state with both values, 0 <= number < state_count(pair, a, b); number 0 is what state(pair, a, b) returns.
/// Any other number gives the status no_state, or not_a_number if a or b is not finite.
[[nodiscard]] KTL_API State state(Pair pair, double a, double b, int number) noexcept;

// ---- Saturation line, 0.01 to 374.15 degC, 0.006112444 to 221.2 bar -------------------------------------------------

/// Saturation pressure, bar, at t (degC). NaN outside 0.01 to 374.15 degC.
[[nodiscard]] KTL_API double saturation_pressure(double t) noexcept;
/// Saturation temperature, degC, at p (bar). NaN outside 0.006112444 to 221.2 bar.
[[nodiscard]] KTL_API double saturation_temperature(double p) noexcept;
/// Slope dp/dt of the saturation line, bar/K, at t (degC). NaN outside 0.01 to 374.15 degC.
[[nodiscard]] KTL_API double saturation_slope(double t) noexcept;

/// The same for columns: p[i] is the saturation pressure at t[i], t[i] the saturation temperature at p[i], with the
/// bits of the single call. If the columns differ in length, the additional elements of the longer one are not used.
KTL_API void saturation_pressure(std::span<const double> t, std::span<double> p) noexcept;
KTL_API void saturation_temperature(std::span<const double> p, std::span<double> t) noexcept;

/// Surface tension of water against its own vapour, N/m, at t (degC) from 0.01 to 373.946 degC, the critical temperature, where it
/// is 0; NaN outside, also where the saturation line of the 1967 formulation goes on, up to 374.15 degC. IAPWS R1-76(2014), a
/// function of the temperature on the ITS-90, independent of the 1967 formulation and of IF97.
[[nodiscard]] KTL_API double surface_tension(double t) noexcept;

/// A point of the saturation line with both phases.
struct Saturation {
    Status status = Status::no_state;
    double p = detail::nan;               ///< bar
    double t = detail::nan;               ///< degC
    double slope = detail::nan;           ///< dp/dt, bar/K
    Phase liquid, vapour;                 ///< saturated water and steam
    double surface_tension = detail::nan; ///< N/m, surface_tension(t)
};
/// The point of the line at t (degC) or p (bar). Outside the line the status is temperature_low, pressure_low or
/// above_critical, or not_a_number if the value is not finite; the numbers then are NaN and the phases do not exist.
[[nodiscard]] KTL_API Saturation saturation_at_temperature(double t) noexcept;
[[nodiscard]] KTL_API Saturation saturation_at_pressure(double p) noexcept;

// ---- Many states ----------------------------------------------------------------------------------------------------

/// A function of the caller that batch() calls with the number of rows done so far, from one thread at a time and not
/// always the same one. Return false to cancel: rows not yet begun get Status::cancelled. If it throws, the batch is
/// cancelled too.
using Progress = bool (*)(void* context, std::size_t done, std::size_t total);

struct BatchOptions {
    unsigned threads = 1;        ///< the caller's included, at most 256; 0: one for each processor
    Progress progress = nullptr; ///< called at least every 65,536 rows and at the end, unless null
    void* context = nullptr;     ///< first argument of progress
};

/// The outcome of a batch call.
struct BatchResult {
    /// Why nothing was done: no output and no status was written.
    enum class Fault : std::uint8_t {
        none,             ///< the batch was computed
        lengths_differ,   ///< a, b and status differ in length
        columns_differ,   ///< there are not as many outputs as properties, or an output is null
        unknown_pair,     ///< the pair is outside its enumeration
        unknown_property, ///< a property is outside its enumeration
        unknown_process,  ///< a process is outside its enumeration (ktl/process.hpp)
    };
    Fault fault = Fault::none;
    bool cancelled = false; ///< true if some rows have Status::cancelled
    std::size_t solved = 0; ///< the number of rows with Status::solved
};

/// The states of many rows: for each i the state with the values a[i], b[i]. outputs[k][i] receives the property
/// properties[k], status[i] the status.
///
/// a, b, status and every output have the same length. A row depends on its two values alone and has the bits that
/// state(pair, a[i], b[i]) gives, whatever its place, its neighbours and the number of threads. The outputs of a row
/// that is not solved are NaN, except the region, which is 7 (none), and p, t and region of an undetermined one. Outputs must
/// overlap neither the given columns nor one another; a property may be asked for twice. Each thread uses less than 64 KiB of
/// stack; memory is allocated only to start threads, and if a thread cannot be started the others do its work.
KTL_API BatchResult batch(Pair pair, std::span<const double> a, std::span<const double> b,
                          std::span<const Property> properties, std::span<double* const> outputs,
                          std::span<Status> status, const BatchOptions& options = {}) noexcept;

// ---- The library itself ---------------------------------------------------------------------------------------------

/// What this library is. The texts stand for good and are never null.
struct BuildInfo {
    const char* version;        ///< as "0.1.0"
    const char* compiler;       ///< that built it, as "gcc 12.2.0"
    const char* kernels;        ///< the kernels it has, separated by blanks: "scalar", or "scalar avx2 avx512"
    const char* kernels_in_use; ///< the one that columns run on this machine, as "avx2"
};
/// A library with scalar kernels alone, or a machine without the vector instructions of the others, gives the same bits
/// more slowly.
[[nodiscard]] KTL_API BuildInfo build_info() noexcept;

} // namespace ktl
