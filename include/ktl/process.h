/* ktl: steps of a turbine cycle, what they lose, and properties beside saturation, in plain C.
 *
 * The calls of process.hpp, with its meaning, units and limits: pressure in bar, temperature in degC, energies in kJ/kg, entropies in
 * kJ/(kg K), efficiencies as fractions. States are given by a pair and its two values, as in steam.h.
 *
 *     struct ktl_step hp;
 *     if (ktl_step_of(KTL_PROCESS_EXPANSION, KTL_PAIR_PT, 166.7, 538.0, 40.0, 0.88, NULL, &hp) == KTL_STATUS_SOLVED)
 *         printf("%g kJ/kg, end at %g degC\n", hp.work, hp.end.t);
 *     else
 *         puts(ktl_sentence(hp.status));
 *
 * No call prints, keeps global data or stops the program. Records of results may be null. Wherever there is no value, the number
 * is not-a-number (NaN). */
#ifndef KTL_PROCESS_H
#define KTL_PROCESS_H

#include <ktl/steam.h>

#ifdef __cplusplus
extern "C" {
#endif

/* What is done to a stream: ktl::Process. */
enum ktl_process_code {
    KTL_PROCESS_EXPANSION,
    KTL_PROCESS_COMPRESSION,
    KTL_PROCESS_POLYTROPIC_EXPANSION,
    KTL_PROCESS_POLYTROPIC_COMPRESSION,
    KTL_PROCESS_THROTTLING,
    KTL_PROCESS_HEATING_TO_T,
    KTL_PROCESS_HEATING_TO_H,
    KTL_PROCESS_HEATING_TO_X,
    KTL_PROCESS_COUNT /* how many there are */
};

struct ktl_step_options {
    double wetness_factor; /* Baumann's factor of expansions, empirical; 0: none */
    double surroundings_t; /* degC, for the lost work */
};

struct ktl_step {
    int status;               /* enum ktl_status_code */
    double work;              /* kJ/kg; negative if it is taken up */
    double heat;              /* kJ/kg; negative if it is given off */
    double entropy_generated; /* kJ/(kg K) */
    double lost_work;         /* kJ/kg */
    struct ktl_state end;
};

/* Computes the process from the state of the pair to the pressure `to`, or to the value that the name of the process has. options
 * may be null: no factor, surroundings of 15 degC. Returns the status; for a number that is no process KTL_STATUS_NO_STATE. */
KTL_API int ktl_step_of(int process, int pair, double a, double b, double to, double efficiency,
                        const struct ktl_step_options* options, struct ktl_step* step);

/* Columns that a batch of steps fills; null those that are not wanted. */
struct ktl_step_columns {
    double *work, *heat, *entropy_generated, *lost_work;
};
/* Computes a step for each row: from the state of a[i], b[i] to to[i] by efficiency[i]. outputs[k][i] receives the property
 * properties[k] of the end, status[i] the status. results and both options may be null; the rest as in ktl_batch. */
KTL_API struct ktl_batch_result ktl_step_batch(int process, int pair, const double* a, const double* b,
                                               const double* to, const double* efficiency, size_t rows,
                                               const struct ktl_step_options* step_options,
                                               const unsigned char* properties, double* const* outputs, size_t columns,
                                               const struct ktl_step_columns* results, unsigned char* status,
                                               const struct ktl_batch_options* options);

struct ktl_mixture {
    int status;               /* enum ktl_status_code */
    double flow;              /* the sum of the flows */
    double entropy_generated; /* kJ/(kg K), for each kg of the mixture */
    double lost_work;         /* kJ/kg */
    struct ktl_state end;
};
/* Mixes streams without heat and work at the lowest of their pressures: the states of the pair with the values a[i], b[i] and the
 * mass flows flow[i]. surroundings_t: degC. Returns the status. */
KTL_API int ktl_mix(int pair, const double* a, const double* b, const double* flow, size_t streams,
                    double surroundings_t, struct ktl_mixture* mixture);

/* One of the streams of each row: the states of the pair with the values a[i], b[i], and their mass flows. */
struct ktl_stream_columns {
    int pair;
    const double *a, *b, *flow;
};
/* Columns that a batch of mixtures fills; null those that are not wanted. */
struct ktl_mixture_columns {
    double *flow, *entropy_generated, *lost_work;
};
/* Mixes row i of all streams, for each row: the results of ktl_mix, whose streams may be of different pairs here. outputs[k][i]
 * receives the property properties[k] of the mixture, status[i] the status. results and options may be null; the rest as in
 * ktl_batch. Without a stream, or if a column of one is null, the fault is KTL_FAULT_LENGTHS_DIFFER. */
KTL_API struct ktl_batch_result ktl_mix_batch(const struct ktl_stream_columns* streams, size_t stream_count,
                                              size_t rows, double surroundings_t, const unsigned char* properties,
                                              double* const* outputs, size_t columns,
                                              const struct ktl_mixture_columns* results, unsigned char* status,
                                              const struct ktl_batch_options* options);

/* Exergy to surroundings of p0 (bar), t0 (degC), kJ/kg: of a stream and of a closed mass; either may be null. Returns the
 * status. */
KTL_API int ktl_exergy_of(int pair, double a, double b, double p0, double t0, double* flow, double* closed);
/* The same for the state of a[i], b[i] of each row; either column may be null, and options. Statuses and faults as in ktl_batch. */
KTL_API struct ktl_batch_result ktl_exergy_batch(int pair, const double* a, const double* b, size_t rows, double p0,
                                                 double t0, double* flow, double* closed, unsigned char* status,
                                                 const struct ktl_batch_options* options);

/* Of the state of the pair: K above saturation of steam and below it of water, 0 of a mixture; mass fraction of water in a mixture;
 * h" - h' at the pressure of the state, kJ/kg. When there is none (NaN): process.hpp. */
KTL_API double ktl_superheat(int pair, double a, double b);
KTL_API double ktl_subcooling(int pair, double a, double b);
KTL_API double ktl_wetness(int pair, double a, double b);
KTL_API double ktl_latent_heat(int pair, double a, double b);

/* Finds all temperatures, degC, at which saturated water (vapour 0) or steam (vapour 1) has that value of the property,
 * KTL_PROPERTY_V, H, S or U. t receives three numbers, ascending, NaN beyond the last; it may be null. Returns how many there
 * are. */
KTL_API int ktl_saturation_by(int vapour, int property, double value, double* t);

#ifdef __cplusplus
}
#endif

#endif
