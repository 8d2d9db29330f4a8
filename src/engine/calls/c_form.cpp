// The calls in plain C.
#include "engine/calls/c_form.hpp"

#include "engine/calls/float_environment.hpp"
#include "engine/calls/state.hpp"

#include <ktl/derivative.hpp>
#include <ktl/ktlftn.h>
#include <ktl/steam.h>
#include <ktl/steam.hpp>

namespace {

using namespace ktl;
using c_form::enumerator;
using c_form::hand_over;

constexpr bool same(int c, auto cpp) { return c == static_cast<int>(cpp); }

static_assert(same(KTL_WATER, Region::water) && same(KTL_STEAM, Region::steam) &&
              same(KTL_NEAR_CRITICAL_STEAM, Region::near_critical_steam) &&
              same(KTL_NEAR_CRITICAL_WATER, Region::near_critical_water) &&
              same(KTL_WET_NEAR_CRITICAL, Region::wet_near_critical) && same(KTL_WET, Region::wet) &&
              same(KTL_NO_STATE, Region::none));
using Fault = BatchResult::Fault;
static_assert(same(KTL_FAULT_NONE, Fault::none) && same(KTL_FAULT_LENGTHS_DIFFER, Fault::lengths_differ) &&
              same(KTL_FAULT_COLUMNS_DIFFER, Fault::columns_differ) &&
              same(KTL_FAULT_UNKNOWN_PAIR, Fault::unknown_pair) &&
              same(KTL_FAULT_UNKNOWN_PROPERTY, Fault::unknown_property) &&
              same(KTL_FAULT_UNKNOWN_PROCESS, Fault::unknown_process));

/// What a phase and a state have in common.
template <class To>
void fill(To& to, const Phase& from) {
    const auto properties = StateBuilder::properties(from);
    const bool exists = from.region() != Region::none;
#define KTL_DEFINE_PROPERTY(property, PROPERTY, unit, code, meaning)                                                   \
    to.property = exists ? engine::value(Property::property, properties, quiet_nan, from.region()) : quiet_nan;
#define KTL_DEFINE_STATE_PROPERTY(property, PROPERTY, unit, code, meaning)
#define KTL_DEFINE_REGION_PROPERTY(property, PROPERTY, unit, code, meaning)                                            \
    to.property = static_cast<int>(from.property());
#include <ktl/properties.def>
}

int hand_over(const Saturation& from, ktl_saturation* to) {
    const int status = static_cast<int>(from.status);
    if (to == nullptr) return status;
    to->status = status;
    to->p = from.p;
    to->t = from.t;
    to->slope = from.slope;
    in_float_environment([&] {
        fill(to->liquid, from.liquid);
        fill(to->vapour, from.vapour);
    });
    to->surface_tension = from.surface_tension;
    return status;
}

} // namespace

int ktl::c_form::hand_over(const State& from, ktl_state* to) noexcept {
    const int status = static_cast<int>(from.status());
    if (to == nullptr) return status;
    to->status = status;
    to->x = from.x();
    in_float_environment([&] { // one for all properties
        fill(*to, StateBuilder::bulk(from));
        fill(to->liquid, from.liquid());
        fill(to->vapour, from.vapour());
    });
    return status;
}

const char* ktl_sentence(int status) { return sentence(enumerator<Status>(status)); }

int ktl_state_of(int pair, double a, double b, ktl_state* state) {
    return hand_over(ktl::state(enumerator<Pair>(pair), a, b), state);
}

double ktl_value(int pair, double a, double b, int property) {
    return value(enumerator<Pair>(pair), a, b, enumerator<Property>(property));
}

int ktl_state_count(int pair, double a, double b) { return state_count(enumerator<Pair>(pair), a, b); }

int ktl_state_nth(int pair, double a, double b, int number, ktl_state* state) {
    return hand_over(ktl::state(enumerator<Pair>(pair), a, b, number), state);
}

double ktl_derivative(int pair, double a, double b, int of, int by, int at_constant) {
    return derivative(ktl::state(enumerator<Pair>(pair), a, b), enumerator<Property>(of), enumerator<Property>(by),
                      enumerator<Property>(at_constant));
}

double ktl_volume_second_derivative(int pair, double a, double b, int by, int also_by) {
    return volume_second_derivative(ktl::state(enumerator<Pair>(pair), a, b), enumerator<Property>(by),
                                    enumerator<Property>(also_by));
}

double ktl_saturation_pressure(double t) { return saturation_pressure(t); }
double ktl_saturation_temperature(double p) { return saturation_temperature(p); }
double ktl_saturation_slope(double t) { return saturation_slope(t); }
double ktl_surface_tension(double t) { return surface_tension(t); }

void ktl_saturation_pressures(const double* t, double* p, size_t n) {
    if (t != nullptr && p != nullptr) saturation_pressure({t, n}, {p, n});
}
void ktl_saturation_temperatures(const double* p, double* t, size_t n) {
    if (p != nullptr && t != nullptr) saturation_temperature({p, n}, {t, n});
}

int ktl_saturation_at_temperature(double t, ktl_saturation* point) {
    return hand_over(saturation_at_temperature(t), point);
}

int ktl_saturation_at_pressure(double p, ktl_saturation* point) { return hand_over(saturation_at_pressure(p), point); }

ktl_batch_result ktl_batch(int pair, const double* a, const double* b, size_t rows, const unsigned char* properties,
                           double* const* outputs, size_t columns, unsigned char* status,
                           const ktl_batch_options* options) {
    if (rows != 0 && (a == nullptr || b == nullptr || status == nullptr)) return {KTL_FAULT_LENGTHS_DIFFER, 0, 0};
    if (columns != 0 && (properties == nullptr || outputs == nullptr)) return {KTL_FAULT_COLUMNS_DIFFER, 0, 0};
    c_form::Options given(options);
    // Property and Status have the size of a byte and any value of one.
    return c_form::result_of(batch(enumerator<Pair>(pair), {a, rows}, {b, rows},
                                   {reinterpret_cast<const Property*>(properties), columns}, {outputs, columns},
                                   {reinterpret_cast<Status*>(status), rows}, given.options()));
}

static_assert(sizeof(Derivative) == 3, "three bytes in C");

ktl_batch_result ktl_derivative_batch(int pair, const double* a, const double* b, size_t rows,
                                      const unsigned char* derivatives, double* const* outputs, size_t columns,
                                      unsigned char* status, const ktl_batch_options* options) {
    if (rows != 0 && (a == nullptr || b == nullptr || status == nullptr)) return {KTL_FAULT_LENGTHS_DIFFER, 0, 0};
    if (columns != 0 && (derivatives == nullptr || outputs == nullptr)) return {KTL_FAULT_COLUMNS_DIFFER, 0, 0};
    c_form::Options given(options);
    return c_form::result_of(derivative_batch(
        enumerator<Pair>(pair), {a, rows}, {b, rows}, {reinterpret_cast<const Derivative*>(derivatives), columns},
        {outputs, columns}, {reinterpret_cast<Status*>(status), rows}, given.options()));
}
