/* ktl: properties of water and steam after the 1967 IFC Formulation for Industrial Use (IFC-67).
 *
 * The calls of steam.hpp in plain C, for C and for languages that call C. Meaning, units, range and limits are those
 * of steam.hpp. Nothing here prints, allocates, keeps global data or stops the program, and everything may be called
 * from any thread.
 *
 *     struct ktl_state s;
 *     if (ktl_state_of(KTL_PAIR_PH, 100.0, 2800.0, &s) == KTL_STATUS_SOLVED)
 *         printf("%g degC, %g m3/kg\n", s.t, s.v);
 *     else
 *         puts(ktl_sentence(s.status));
 *
 * Enumerators are passed as int, so that any number may be passed; those outside an enumeration give no state. */
#ifndef KTL_STEAM_H
#define KTL_STEAM_H

#include <ktl/api.h>
#include <ktl/version.h>
#include <stddef.h>

#ifdef __cplusplus
extern "C" {
#endif

/* The two properties that a state is given by, in this order. */
enum ktl_pair_code {
    KTL_PAIR_PT,
    KTL_PAIR_PH,
    KTL_PAIR_PS,
    KTL_PAIR_PU,
    KTL_PAIR_PV,
    KTL_PAIR_PX,
    KTL_PAIR_TV,
    KTL_PAIR_TH,
    KTL_PAIR_TS,
    KTL_PAIR_TU,
    KTL_PAIR_TX,
    KTL_PAIR_SX,
    KTL_PAIR_HS,
    KTL_PAIR_US,
    KTL_PAIR_VH,
    KTL_PAIR_VS,
    KTL_PAIR_VU
};

/* What became of a request. */
enum ktl_status_code {
    KTL_STATUS_SOLVED,
    KTL_STATUS_UNDETERMINED,
    KTL_STATUS_NOT_A_NUMBER,
    KTL_STATUS_PRESSURE_LOW,
    KTL_STATUS_PRESSURE_HIGH,
    KTL_STATUS_TEMPERATURE_LOW,
    KTL_STATUS_TEMPERATURE_HIGH,
    KTL_STATUS_QUALITY_LOW,
    KTL_STATUS_QUALITY_HIGH,
    KTL_STATUS_ABOVE_CRITICAL,
    KTL_STATUS_NO_STATE,
    KTL_STATUS_CANCELLED
};

/* The properties that ktl_batch gives. */
enum ktl_property_code {
    KTL_PROPERTY_P,
    KTL_PROPERTY_T,
    KTL_PROPERTY_V,
    KTL_PROPERTY_RHO,
    KTL_PROPERTY_H,
    KTL_PROPERTY_S,
    KTL_PROPERTY_U,
    KTL_PROPERTY_X,
    KTL_PROPERTY_GIBBS,
    KTL_PROPERTY_HELMHOLTZ,
    KTL_PROPERTY_REGION,
    KTL_PROPERTY_CP,
    KTL_PROPERTY_CV,
    KTL_PROPERTY_SPEED_OF_SOUND,
    KTL_PROPERTY_ISENTROPIC_EXPONENT,
    KTL_PROPERTY_COMPRESSIBILITY,
    KTL_PROPERTY_EXPANSION,
    KTL_PROPERTY_JOULE_THOMSON,
    KTL_PROPERTY_VISCOSITY,
    KTL_PROPERTY_KINEMATIC_VISCOSITY,
    KTL_PROPERTY_CONDUCTIVITY,
    KTL_PROPERTY_PRANDTL
};

/* One homogeneous phase. A phase that does not stand has not-a-number everywhere and region 7. */
struct ktl_phase {
    double p;                   /* bar */
    double t;                   /* degC */
    double v;                   /* m3/kg */
    double rho;                 /* kg/m3 */
    double h;                   /* kJ/kg */
    double s;                   /* kJ/(kg K) */
    double u;                   /* kJ/kg */
    double gibbs;               /* kJ/kg */
    double helmholtz;           /* kJ/kg */
    double cp;                  /* kJ/(kg K) */
    double cv;                  /* kJ/(kg K) */
    double speed_of_sound;      /* m/s */
    double isentropic_exponent; /* 1 */
    double compressibility;     /* 1/bar */
    double expansion;           /* 1/K */
    double joule_thomson;       /* K/bar */
    double viscosity;           /* Pa s */
    double kinematic_viscosity; /* m2/s */
    double conductivity;        /* W/(m K) */
    double prandtl;             /* 1 */
    int region;                 /* 1 to 7, as ktl_region in ktlftn.h */
};

/* A state, in the units of ktl_phase. In two phases v to helmholtz are those of the mixture, and the properties from
 * cp on are not-a-number. Unless the status is solved all are, but for p and t of an undetermined state. */
struct ktl_state {
    int status; /* enum ktl_status_code */
    int region;
    double p, t, v, rho, h, s, u;
    double x; /* quality; not-a-number in one phase */
    double gibbs, helmholtz;
    double cp, cv, speed_of_sound, isentropic_exponent, compressibility, expansion, joule_thomson;
    double viscosity, kinematic_viscosity, conductivity, prandtl;
    struct ktl_phase liquid, vapour; /* saturated phases of a two-phase or undetermined state */
};

/* A point of the saturation line with both phases. */
struct ktl_saturation {
    int status;
    double p, t;  /* bar, degC */
    double slope; /* dp/dt of the line, bar/K */
    struct ktl_phase liquid, vapour;
};

/* A sentence in plain English for each status. */
KTL_API const char* ktl_sentence(int status);

/* The state that has both values; where several have them, the one of the rule in the manual. Returns its status. */
KTL_API int ktl_state_of(int pair, double a, double b, struct ktl_state* state);
/* How many states have both values, 0 to 3, and the one of that number, from 0. */
KTL_API int ktl_state_count(int pair, double a, double b);
KTL_API int ktl_state_nth(int pair, double a, double b, int number, struct ktl_state* state);

/* Saturation line, 0.01 to 374.15 degC: bar at degC, degC at bar, and dp/dt in bar/K at degC; not-a-number outside. */
KTL_API double ktl_saturation_pressure(double t);
KTL_API double ktl_saturation_temperature(double p);
KTL_API double ktl_saturation_slope(double t);
/* The same for columns of n values. */
KTL_API void ktl_saturation_pressures(const double* t, double* p, size_t n);
KTL_API void ktl_saturation_temperatures(const double* p, double* t, size_t n);
/* The point of the line with both phases. Returns its status. */
KTL_API int ktl_saturation_at_temperature(double t, struct ktl_saturation* point);
KTL_API int ktl_saturation_at_pressure(double p, struct ktl_saturation* point);

/* Told how many rows are done, by one thread at a time. Return 0 to cancel the rest. */
typedef int (*ktl_progress)(void* context, size_t done, size_t total);

struct ktl_batch_options {
    unsigned threads;      /* 0: as many as the machine runs at once */
    ktl_progress progress; /* called at least every 65,536 rows, and at the end; may be null */
    void* context;         /* handed to progress */
};

/* What keeps a batch from starting: nothing is done then. */
enum ktl_fault_code {
    KTL_FAULT_NONE,
    KTL_FAULT_LENGTHS_DIFFER, /* in C: a, b or status is null */
    KTL_FAULT_COLUMNS_DIFFER, /* in C: properties, outputs or one of the outputs is null */
    KTL_FAULT_UNKNOWN_PAIR,
    KTL_FAULT_UNKNOWN_PROPERTY
};

struct ktl_batch_result {
    int fault;     /* enum ktl_fault_code */
    int cancelled; /* 1 where rows were left */
    size_t solved; /* rows with KTL_STATUS_SOLVED */
};

/* The states of rows (a[i], b[i]): outputs[k][i] gets the property properties[k] (enum ktl_property_code), status[i] what
 * became of the row (enum ktl_status_code). Options may be null: one thread. Results depend on nothing but a row's values. */
KTL_API struct ktl_batch_result ktl_batch(int pair, const double* a, const double* b, size_t rows,
                                          const unsigned char* properties, double* const* outputs, size_t columns,
                                          unsigned char* status, const struct ktl_batch_options* options);

#ifdef __cplusplus
}
#endif

#endif
