/* ktl: properties of water and steam after the 1967 IFC Formulation for Industrial Use (IFC-67).
 *
 * The calls of steam.hpp in plain C, for C and for languages that call C. Meaning, units, range and limits are those
 * of steam.hpp. No call prints, keeps global data or stops the program, and none allocates, except that ktl_batch
 * starts the threads it is asked for. Every call may be made from any thread at any time.
 *
 *     struct ktl_state s;
 *     if (ktl_state_of(KTL_PAIR_PH, 100.0, 2800.0, &s) == KTL_STATUS_SOLVED)
 *         printf("%g degC, %g m3/kg\n", s.t, s.v);
 *     else
 *         puts(ktl_sentence(s.status));
 *
 * Pairs, properties and statuses are listed once, with unit and meaning, in ktl/pairs.def, ktl/properties.def and
 * ktl/status.def; the enumerations and members below are made from these lists.
 *
 * Enumerators are passed as int, so that any number may be passed; a number outside an enumeration gives no state.
 * Wherever there is no value, the number is not-a-number (NaN). */
#ifndef KTL_STEAM_H
#define KTL_STEAM_H

#include <ktl/api.h>
#include <ktl/version.h>
#include <stddef.h>

#ifdef __cplusplus
extern "C" {
#endif

/* The two known values of a state, in the order of the letters: KTL_PAIR_PT, KTL_PAIR_PH and so on. */
enum ktl_pair_code {
#define KTL_DEFINE_PAIR(pair, PAIR, a, b) KTL_PAIR_##PAIR,
#include <ktl/pairs.def>
    KTL_PAIR_COUNT /* how many there are */
};

/* What became of a request: KTL_STATUS_SOLVED, or the reason why it was not solved. */
enum ktl_status_code {
#define KTL_DEFINE_STATUS(status, STATUS, sentence) KTL_STATUS_##STATUS,
#include <ktl/status.def>
    KTL_STATUS_COUNT /* how many there are */
};

/* The properties that ktl_batch gives: KTL_PROPERTY_P, KTL_PROPERTY_SPEED_OF_SOUND and so on. */
enum ktl_property_code {
#define KTL_DEFINE_PROPERTY(property, PROPERTY, unit, code, meaning) KTL_PROPERTY_##PROPERTY,
#include <ktl/properties.def>
    KTL_PROPERTY_COUNT /* how many there are */
};

/* One homogeneous phase. It has a double for each property but the quality, in the unit and the order of
 * ktl/properties.def: p, t, v, rho, h, s, u, gibbs, helmholtz, cp, cv, speed_of_sound and so on. If the phase does not
 * exist all of them are NaN and the region is 7. */
struct ktl_phase {
#define KTL_DEFINE_PROPERTY(property, PROPERTY, unit, code, meaning) double property;
#define KTL_DEFINE_STATE_PROPERTY(property, PROPERTY, unit, code, meaning)
#define KTL_DEFINE_REGION_PROPERTY(property, PROPERTY, unit, code, meaning)
#include <ktl/properties.def>
    int region; /* 1 to 7, as ktl_region in ktlftn.h */
};

/* A state. It has a double for each property, in the unit and the order of ktl/properties.def: p, t, v, rho, h, s, u, x
 * and so on. In two phases v, rho, h, s, u, gibbs and helmholtz are those of the mixture, and cp and all that follow it
 * are NaN; x is NaN in one phase. Unless the status is solved all are NaN, except p and t of an undetermined state. */
struct ktl_state {
    int status; /* enum ktl_status_code */
    int region; /* 1 to 7, as ktl_region in ktlftn.h */
#define KTL_DEFINE_PROPERTY(property, PROPERTY, unit, code, meaning) double property;
#define KTL_DEFINE_REGION_PROPERTY(property, PROPERTY, unit, code, meaning)
#include <ktl/properties.def>
    struct ktl_phase liquid, vapour; /* saturated phases of a two-phase or undetermined state; else they do not exist */
};

/* A point of the saturation line with both phases. Unless the status is solved the numbers are NaN and the phases do
 * not exist. */
struct ktl_saturation {
    int status;   /* enum ktl_status_code */
    double p, t;  /* bar, degC */
    double slope; /* dp/dt of the line, bar/K */
    struct ktl_phase liquid, vapour;
    double surface_tension; /* N/m, ktl_surface_tension(t) */
};

/* The sentence of a status in plain English; "unknown status" for a number outside the enumeration. Never null. */
KTL_API const char* ktl_sentence(int status);

/* Computes the state in which the two properties of the pair have the values a and b: if there are several, the first
 * one by the rule in steam.hpp. state may be null. Returns the status. */
KTL_API int ktl_state_of(int pair, double a, double b, struct ktl_state* state);
/* One property of that state, KTL_PROPERTY_...: the same bits in less time. NaN if there is none. */
KTL_API double ktl_value(int pair, double a, double b, int property);
/* Returns the number of states that have both values; 0 if ktl_state_of does not return KTL_STATUS_SOLVED. */
KTL_API int ktl_state_count(int pair, double a, double b);
/* Computes the n-th of them, 0 <= number < ktl_state_count(pair, a, b); number 0 is that of ktl_state_of. Returns the
 * status: for other numbers KTL_STATUS_NO_STATE, or KTL_STATUS_NOT_A_NUMBER if a or b is not finite. */
KTL_API int ktl_state_nth(int pair, double a, double b, int number, struct ktl_state* state);

/* The first partial derivative (d of / d by) with at_constant held, of the state of ktl_state_of; of, by and at_constant are
 * KTL_PROPERTY_P, T, V, RHO, H, S, U, GIBBS or HELMHOLTZ. Units, and when there is none (NaN): derivative.hpp. */
KTL_API double ktl_derivative(int pair, double a, double b, int of, int by, int at_constant);
/* The second derivative of v of that state by p and t: by and also_by are KTL_PROPERTY_P or T. m3/(kg bar2), m3/(kg bar K),
 * m3/(kg K2); when there is none (NaN): derivative.hpp. */
KTL_API double ktl_volume_second_derivative(int pair, double a, double b, int by, int also_by);

/* Saturation line: pressure, bar, and slope dp/dt, bar/K, at t (degC), temperature, degC, at p (bar). NaN outside 0.01
 * to 374.15 degC, 0.006112444 to 221.2 bar. */
KTL_API double ktl_saturation_pressure(double t);
KTL_API double ktl_saturation_temperature(double p);
KTL_API double ktl_saturation_slope(double t);
/* The same for columns of n values. If a column is null nothing is done. */
KTL_API void ktl_saturation_pressures(const double* t, double* p, size_t n);
KTL_API void ktl_saturation_temperatures(const double* p, double* t, size_t n);
/* Surface tension of water against its own vapour, N/m, at t (degC) from 0.01 to 373.946 degC; NaN outside. Independent of the 1967
 * formulation, see steam.hpp. */
KTL_API double ktl_surface_tension(double t);
/* Computes the point of the line at t (degC) or p (bar). point may be null. Returns the status: not KTL_STATUS_SOLVED
 * outside the line. */
KTL_API int ktl_saturation_at_temperature(double t, struct ktl_saturation* point);
KTL_API int ktl_saturation_at_pressure(double p, struct ktl_saturation* point);

/* A function of the caller that ktl_batch calls with the number of rows done so far, from one thread at a time and not
 * always the same one. Return 0 to cancel: rows not yet begun get KTL_STATUS_CANCELLED. */
typedef int (*ktl_progress)(void* context, size_t done, size_t total);

struct ktl_batch_options {
    unsigned threads;      /* threads to compute on, the caller's included, at most 256; 0: one for each processor */
    ktl_progress progress; /* called at least every 65,536 rows and at the end, unless null */
    void* context;         /* first argument of progress */
};

/* Why a batch did nothing: no output and no status was written. */
enum ktl_fault_code {
    KTL_FAULT_NONE,             /* the batch was computed */
    KTL_FAULT_LENGTHS_DIFFER,   /* a, b or status is null */
    KTL_FAULT_COLUMNS_DIFFER,   /* properties, outputs or one of the outputs is null */
    KTL_FAULT_UNKNOWN_PAIR,     /* the pair is outside its enumeration */
    KTL_FAULT_UNKNOWN_PROPERTY, /* a property is outside its enumeration */
    KTL_FAULT_UNKNOWN_PROCESS   /* a process is outside its enumeration (process.h) */
};

struct ktl_batch_result {
    int fault;     /* enum ktl_fault_code */
    int cancelled; /* 1 if some rows have KTL_STATUS_CANCELLED, else 0 */
    size_t solved; /* the number of rows with KTL_STATUS_SOLVED */
};

/* Computes the states of many rows: for each i below rows the state with the values a[i], b[i]. outputs[k][i] receives
 * the property properties[k] (enum ktl_property_code), k below columns, and status[i] the status (enum
 * ktl_status_code). A row depends on its two values alone and has the bits of ktl_state_of. The outputs of a row that
 * is not solved are NaN, except the region, 7, and p, t and region of an undetermined one. Outputs must overlap neither the
 * given columns nor one another. options may be null: one thread, no progress. */
KTL_API struct ktl_batch_result ktl_batch(int pair, const double* a, const double* b, size_t rows,
                                          const unsigned char* properties, double* const* outputs, size_t columns,
                                          unsigned char* status, const struct ktl_batch_options* options);

/* Computes first partial derivatives of many rows: outputs[k][i] receives that of the state with the values a[i], b[i], as
 * ktl_derivative gives it. derivatives has three bytes for each column: of, by and at_constant (enum ktl_property_code). The rest as
 * in ktl_batch. */
KTL_API struct ktl_batch_result ktl_derivative_batch(int pair, const double* a, const double* b, size_t rows,
                                                     const unsigned char* derivatives, double* const* outputs,
                                                     size_t columns, unsigned char* status,
                                                     const struct ktl_batch_options* options);

/* What this library is: ktl::BuildInfo of steam.hpp. */
struct ktl_build_info {
    const char *version, *compiler, *kernels, *kernels_in_use;
};
KTL_API struct ktl_build_info ktl_get_build_info(void);

#ifdef __cplusplus
}
#endif

#endif
