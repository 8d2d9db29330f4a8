/* ktl: properties of water and steam after the 1967 IFC Formulation for Industrial Use (IFC-67).
 *
 * The named routines, as Fortran, C and C++ programs call them. Units everywhere:
 *
 *     pressure p              bar            enthalpy h, internal energy u        kJ/kg
 *     temperature t           degC           entropy s, isobaric heat capacity cp kJ/(kg K)
 *     specific volume v       m3/kg          vapour quality x                     mass fraction, 0..1
 *
 * Valid range: 0.01 to 800 degC, 0.006112444 to 1000 bar (sub-region 3 lies between 350 and 590 degC).
 *
 * How a name is built
 *     ktlr + two letters      state finder of that pair of known values: ktlrph from pressure and enthalpy
 *     ktl_ + letter + digit   equation of a sub-region: c volume, d enthalpy, e entropy, f internal energy,
 *                             h isobaric heat capacity; ktl_a3 is the pressure of sub-region 3
 *     comt + digit            prepares the working terms that the equations of a sub-region share
 *     ktl_pt, ktl_tp, ktl_it  saturation pressure of t; saturation temperature of p
 *     ktl_i1 .. ktl_i3, ktl_id  root finders in one and in two unknowns
 *
 * Every argument is passed by reference (a pointer in C). Failures are reported as text lines on numbered
 * output units (see ktlerr), never by a status: each routine below says what it returns then. A value that
 * is not a number is not reported; it yields not-a-number in bounded work. No routine allocates memory.
 *
 * Standards: C99 and later, C++98 and later.
 *
 * Threads: the working records are one per thread, so threads never share a state. ktlerr is one record
 * of the process; counting is atomic, and whoever changes its limits does so before threads start.
 *
 * Source of all equations: "The 1967 IFC Formulation for Industrial Use", International Formulation
 * Committee of the Sixth International Conference on the Properties of Steam, 1967. */
#ifndef KTL_KTLFTN_H
#define KTL_KTLFTN_H

#include <ktl/api.h>
#include <ktl/version.h>
#include <stddef.h>
#include <stdio.h>

/* The record of the process is one symbol for every language: the one of Fortran's COMMON /KTLERR/. A common
 * block of a Fortran program then is that record, wherever the linker places it. */
#if defined(__GNUC__) && defined(__ELF__)
#define KTL_COMMON_BLOCK(symbol) __asm__(symbol)
#else
#define KTL_COMMON_BLOCK(symbol)
#endif

/* KTL_IN: read only. KTL_INOUT: read and overwritten. References in C++, pointers in C. */
#ifdef __cplusplus
#define KTL_IN(type) const type&
#define KTL_INOUT(type) type&
extern "C" {
#else
#define KTL_IN(type) const type*
#define KTL_INOUT(type) type*
#endif

/* The records of a thread. A library built without threads has one of each; its users see the same definition. */
#if defined(KTL_NO_THREADS)
#define KTL_THREAD_RECORD extern KTL_API
#elif defined(__GNUC__)
#define KTL_THREAD_RECORD extern KTL_API __thread /* in every standard; never a call to initialise it */
#elif defined(__cplusplus)
#define KTL_THREAD_RECORD extern KTL_API thread_local
#else
#define KTL_THREAD_RECORD extern KTL_API _Thread_local
#endif

/* ---- Types -------------------------------------------------------------------------------------------- */

/** Region number that a state finder returns, and what its two arguments then hold. */
enum ktl_region {
    KTL_WATER = 1,               /**< sub-region 1, water up to 350 degC: p, t */
    KTL_STEAM = 2,               /**< sub-region 2, steam: p, t */
    KTL_NEAR_CRITICAL_STEAM = 3, /**< sub-region 3, steam side and above 374.15 degC: v, t */
    KTL_NEAR_CRITICAL_WATER = 4, /**< sub-region 3, water between 350 and 374.15 degC: v, t */
    KTL_WET_NEAR_CRITICAL = 5,   /**< two phases, saturation temperature above 350 degC: x, t */
    KTL_WET = 6,                 /**< two phases, saturation temperature up to 350 degC: x, t */
    KTL_NO_STATE = 7             /**< no valid state: both arguments as they were given */
};

/** A state finder: overwrites the two known values with the variables of the region that it returns. */
typedef int (*ktl_finder)(KTL_INOUT(double) first, KTL_INOUT(double) second, KTL_IN(double) eps);
/** A property of two variables. */
typedef double (*ktl_property)(KTL_IN(double), KTL_IN(double));
/** A property of two variables that is itself found to a relative tolerance eps. */
typedef double (*ktl_property_eps)(KTL_IN(double), KTL_IN(double), KTL_IN(double) eps);

/* ---- Records ------------------------------------------------------------------------------------------ */

/** Error accounting, one record for the process. A program may set it before its calls. */
struct ktlerr_record {
    int iunit;  /**< output unit of the diagnostic lines, initially 6 (standard output) */
    int nprer;  /**< errors whose line is printed, initially 1000000; later ones are counted silently */
    int maxer;  /**< errors tolerated, initially 1000000; the next one stops the program */
    int ientry; /**< errors counted so far, initially 0 */
};
extern KTL_API struct ktlerr_record ktlerr KTL_COMMON_BLOCK("ktlerr_");

/** Initial values of ktlerr. */
enum { KTL_INITIAL_UNIT = 6, KTL_INITIAL_LIMIT = 1000000 };

/** Record ktl_lc: constants of the formulation and limits of its validity. Slots that no routine reads keep
 *  their place. */
struct ktl_lc_record {
    double alpha0; /**< reduced enthalpy of the reference state, added to every enthalpy */
    double alpha1; /**< reduced entropy of the reference state, subtracted from every entropy */
    double pca;    /**< critical pressure, bar */
    double vca;    /**< critical specific volume, m3/kg */
    double tca;    /**< critical temperature, K */
    double tza;    /**< 0 degC in K */
    double pvo10;  /**< pca vca 100: one unit of reduced enthalpy, kJ/kg */
    double pvot;   /**< pvo10/tca to 10 digits: one unit of reduced entropy, kJ/(kg K) */
    double ai1;    /**< I1, the reduced gas constant */
    double t1;     /**< boundary between sub-regions 1 and 3, degC */
    double tc;     /**< critical temperature, degC */
    double p1;     /**< saturation pressure at t1, bar */
    double pmin;   /**< lowest pressure, bar: saturation pressure at tmin */
    double pmax;   /**< highest pressure, bar */
    double unread1[2];
    double v3min; /**< lowest specific volume of sub-region 3, m3/kg */
    double v3max; /**< highest specific volume of sub-region 3, m3/kg */
    double tmin;  /**< lowest temperature, degC */
    double tmax;  /**< highest temperature, degC */
    double unread2;
    double t1max; /**< highest temperature of sub-region 1, degC */
    double t2min; /**< lowest temperature of sub-region 2, degC */
    double t3min; /**< lowest temperature of sub-region 3, degC */
    double t3max; /**< highest temperature of sub-region 3, degC */
    double unread3[8];
};
/** The record ktl_lc. */
KTL_API const struct ktl_lc_record* ktl_constants(void);

/** The state for which the thread's working terms were last prepared; 0 before the first. */
struct ktl_cu_record {
    double p;        /**< bar, written by comt1 and comt2 */
    double t;        /**< degC, written by comt1, comt2 and comt3 */
    double v;        /**< m3/kg, written by comt3 */
    double spare[2]; /**< part of the layout; never read or written */
};
/** The record ktl_cu of the calling thread. */
KTL_API struct ktl_cu_record* ktl_cu_of_thread(void);

/** Slope of the saturation line, written by psl1 (and by ktl_tp, which calls it). */
struct ktl_nt_record {
    double dpdt; /**< (p / 80.3334) d ln p / d theta: about 8.06 times dp/dt in bar/K; 0 before the first */
};
/** The record ktl_nt of the calling thread. */
KTL_API struct ktl_nt_record* ktl_nt_of_thread(void);

/* The records by name. Variables of a thread cannot be exported from a DLL: there the names are calls. */
#if defined(_WIN32)
#define ktl_cu (*ktl_cu_of_thread())
#define ktl_nt (*ktl_nt_of_thread())
#else
KTL_THREAD_RECORD struct ktl_cu_record ktl_cu;
KTL_THREAD_RECORD struct ktl_nt_record ktl_nt;
#endif

/* ---- The entry ---------------------------------------------------------------------------------------- */

/** Properties of one state.
 *
 *  Given:     regfun   finder of the state, for instance ktlrph
 *             indep1, indep2  the two known values, in the finder's order
 *             strdep   codes of the wanted properties, separated by commas, ended by a full stop, a blank or
 *                      a NUL, for instance "P,T,V."; upper case only:
 *                      P  T  V  H  S  X  CP   as above
 *                      DV  dynamic viscosity, Pa s         TC  thermal conductivity, kW/(m K)
 *                      Nothing is read past the end; a null pointer counts as an empty text.
 *  Returned:  prodep   one element for each code, in the order of the codes
 *
 *  The finder is called once, with eps = 1e-8. A quality at or below 1e-6 is taken as saturated water, one
 *  at or above 0.999999 as saturated steam.
 *
 *  On failure a line is written to unit 13, not counted in ktlerr:
 *   - no state (region 7): " *** KTLFTN-ERROR: illegal region calculated: IREG = ..."; prodep untouched;
 *   - an unknown code, an empty one among them: " *** KTLFTN-ERROR: illegal dependend property: ...";
 *     its element is left as it was;
 *   - CP, DV or TC of a two-phase state: 0.0, and one line " *** KTLFTN-ERROR: CP, DV, TC cannot be
 *     calculated in wet region ***" for the whole call.
 *
 *  Notes
 *   1. In regions 3 and 4 the elements of DV and TC are left as they were, without a line.
 *   2. The codes end after a token that is not followed by a comma, so a token of five or more characters
 *      (its first four match no code) ends the list.
 *   3. A state given to ktlrpt exactly on the saturation line keeps its pressure as the quality. */
KTL_API void ktlftn(ktl_finder regfun, KTL_IN(double) indep1, KTL_IN(double) indep2, const char* strdep,
                    double* prodep);

/** ktlftn for a text of known length: nothing is read past its first `length` characters, and their end ends
 *  the codes as a blank does. For texts that carry no end of their own, such as those of Fortran. */
KTL_API void ktlftn_len(ktl_finder regfun, KTL_IN(double) indep1, KTL_IN(double) indep2, const char* strdep,
                        size_t length, double* prodep);

/* ---- State finders ------------------------------------------------------------------------------------ */

/** State from pressure (bar) and temperature (degC): regions 1 to 6.
 *
 *  Given and returned: p, t, overwritten with the variables of the region.  Given: eps, relative tolerance.
 *  The limits of the range are not tested here; out-of-range states are reported by comt1 and comt2 up to
 *  350 degC and by the equations above. A volume that the solver cannot find comes back as it left it.
 *  A temperature that is not a number gives region 1, a pressure that is not a number region 1, 2 or 3, and
 *  the equations then give not-a-number.
 *
 *  Notes
 *   1. A pressure within eps * p of the saturation pressure returns 6 (up to 350 degC) or 5, and both
 *      arguments stay as they were: argument 1 is then not a quality but the pressure.
 *   2. The boundary between steam and sub-region 3 is placed about 0.7 bar above the boundary line of the
 *      formulation near 350 degC (166.06 bar instead of 165.35 bar).
 *   3. Above 840 bar between 385 and 495 degC, mostly near 920 to 1000 bar and 400 to 475 degC, the bracket of
 *      the volume misses the root at scattered states; the volume comes back as not-a-number, in a few of
 *      them as a wrong number.
 *   4. From about 369 to 374 degC and within 0.15 % of the saturation pressure the bracket can hold three
 *      roots; the volume of the other phase, or of none, may come back. */
KTL_API int ktlrpt(KTL_INOUT(double) p, KTL_INOUT(double) t, KTL_IN(double) eps);

/** Saturated state from pressure (bar) and quality: regions 5 and 6; 7 above 221.2 bar or if p is not a
 *  number. Returns the quality as given, unchecked, and the saturation temperature. A pressure below
 *  0.006112444 bar is reported; the temperature is then 0.01 degC or what the search leaves. eps unused. */
KTL_API int ktlrpx(KTL_INOUT(double) p, KTL_INOUT(double) x, KTL_IN(double) eps);

/** Saturated state from temperature (degC) and quality: regions 5 and 6; 7 above 374.15 degC. Returns the
 *  quality as given, unchecked, and t (argument order x, t). A temperature that is not a number gives
 *  region 6. eps unused. */
KTL_API int ktlrtx(KTL_INOUT(double) t, KTL_INOUT(double) x, KTL_IN(double) eps);

/** State from pressure (bar) and enthalpy (kJ/kg): regions 1 to 6.
 *
 *  Given and returned: p, h, overwritten with the variables of the region.  Given: eps, relative tolerance.
 *  No line of its own; pressures outside the saturation line's range are reported by ktl_it where it is
 *  called. An enthalpy that no temperature of the region reaches yields what the solver returns: 0.0 degC
 *  with the KTL_I1 warning in regions 1 and 2, the last pair in sub-region 3. A value that is not a number
 *  gives region 6 with a quality that is not a number, or, above 165.3512406 bar, region 2 with 0.0 degC and
 *  the KTL_I1 warning.
 *
 *  Notes
 *   1. Above 165.3512406 bar a state less than 0.2 kJ/kg above the enthalpy at 350 degC is still solved in
 *      sub-region 1, and sub-region 3 begins 0.2 kJ/kg below the steam enthalpy on the boundary.
 *   2. The temperature on that boundary is taken about 0.003 K below its exact inverse. */
KTL_API int ktlrph(KTL_INOUT(double) p, KTL_INOUT(double) h, KTL_IN(double) eps);

/* The finders below reproduce both given values to 1e-8 of each (near zero to 1e-7 kJ/kg, 1e-8 kJ/(kg K)), for
 * every state of the valid range. Without a state in the range, and for a value that is not finite,
 * they return 7 and leave both arguments as they were; they report nothing else than what each says. They find
 * the state to rounding, whatever eps is.
 *
 * The sub-regions do not meet exactly. At 350 degC and on the boundary between sub-regions 2 and 3 a pair may have
 * a state on both sides, or on neither:
 *  - where both sides have one, sub-regions 1 and 2 go before sub-region 3, except in the pairs without pressure
 *    and temperature, where it is the one that the search meets;
 *  - where neither has one, sub-region 1, 2 or the mixture of both carries on past its limit (less than 0.5 K) to
 *    exactly the given values. Equations of sub-region 1 evaluated above 350.0035 degC report "Out of range".
 *
 * A mixture is given by the saturated phases that ktlftn has for it. Its steam volume above 373.117 degC is
 * the middle one of three that have the saturation pressure; states between it and true saturated steam are
 * given as sub-region 3, with exactly the given values. */

/** State from pressure (bar) and entropy (kJ/(kg K)): regions 1 to 6, or 7. */
KTL_API int ktlrps(KTL_INOUT(double) p, KTL_INOUT(double) s, KTL_IN(double) eps);
/** State from pressure (bar) and internal energy (kJ/kg): regions 1 to 6, or 7. */
KTL_API int ktlrpu(KTL_INOUT(double) p, KTL_INOUT(double) u, KTL_IN(double) eps);
/** State from pressure (bar) and volume (m3/kg): regions 1 to 6, or 7.
 *
 *  Of two temperatures of cold water the higher is taken. Water goes before a mixture whose quality is at most
 *  1e-6, which ktlftn would take as saturated water. */
KTL_API int ktlrpv(KTL_INOUT(double) p, KTL_INOUT(double) v, KTL_IN(double) eps);

/** State from temperature (degC) and volume (m3/kg): regions 1 to 6, or 7. */
KTL_API int ktlrtv(KTL_INOUT(double) t, KTL_INOUT(double) v, KTL_IN(double) eps);
/** State from temperature (degC) and enthalpy (kJ/kg): regions 1 to 6, or 7.
 *
 *  Along an isotherm enthalpy falls with rising pressure, and rises again in water and in dense sub-region 3. Of
 *  several pressures the lowest is taken: a mixture goes before compressed water, and water on the falling branch
 *  before water on the rising one. Only a mixture whose quality is at most 1e-6, which ktlftn would take as
 *  saturated water, goes after compressed water.
 *  On failure the line " SUB-REGION CAN NOT BE CALCULATED IN THIS STATE  T=... H=..." on unit ktlerr.iunit, not
 *  counted. */
KTL_API int ktlrth(KTL_INOUT(double) t, KTL_INOUT(double) h, KTL_IN(double) eps);
/** State from temperature (degC) and entropy (kJ/(kg K)): regions 1 to 6, or 7. Of several pressures, which water
 *  has below 4 degC, the lowest is taken, as by ktlrth. */
KTL_API int ktlrts(KTL_INOUT(double) t, KTL_INOUT(double) s, KTL_IN(double) eps);
/** State from temperature (degC) and internal energy (kJ/kg): regions 1 to 6, or 7. Of several pressures, which
 *  cold water has, the lowest is taken, as by ktlrth.
 *  On failure the line " SUB-REGION CANNOT BE CALCULATED IN THIS STATE T=... U=..." on unit ktlerr.iunit, not
 *  counted. */
KTL_API int ktlrtu(KTL_INOUT(double) t, KTL_INOUT(double) u, KTL_IN(double) eps);

/** Saturated state from entropy (kJ/(kg K)) and quality (0 to 1): regions 5 and 6, or 7.
 *
 *  Of several temperatures (up to six, at qualities from about 0.37 up) the lowest is taken. Returns
 *  the quality and the saturation temperature (argument order x, t).
 *  On failure the line " POINT IS NOT IN WET-REGION  S=... X=..." on unit ktlerr.iunit, and after it, for an
 *  entropy below that of the critical point, " POINT IS BELOW CRITICAL POINT  S=..."; not counted. */
KTL_API int ktlrsx(KTL_INOUT(double) s, KTL_INOUT(double) x, KTL_IN(double) eps);
/** State from enthalpy (kJ/kg) and entropy (kJ/(kg K)): regions 1 to 6, or 7.
 *
 *  Below 14 degC mixtures of little steam (quality up to 3.4e-5) may have the values of water at saturation or slightly
 *  above it: then water is taken. */
KTL_API int ktlrhs(KTL_INOUT(double) h, KTL_INOUT(double) s, KTL_IN(double) eps);
/** State from internal energy (kJ/kg) and entropy (kJ/(kg K)): regions 1 to 6, or 7. Water at low pressure is
 *  hardly compressed: its pressure follows from u and s only as far as their last digits tell.
 *  On failure the line " SUB-REGION CANNOT BE CALCULATED IN THIS STATE U=... S=..." on unit ktlerr.iunit, not
 *  counted. */
KTL_API int ktlrus(KTL_INOUT(double) u, KTL_INOUT(double) s, KTL_IN(double) eps);
/** State from volume (m3/kg) and enthalpy (kJ/kg): regions 1 to 6, or 7. */
KTL_API int ktlrvh(KTL_INOUT(double) v, KTL_INOUT(double) h, KTL_IN(double) eps);
/** State from volume (m3/kg) and entropy (kJ/(kg K)): regions 1 to 6, or 7. */
KTL_API int ktlrvs(KTL_INOUT(double) v, KTL_INOUT(double) s, KTL_IN(double) eps);
/** State from volume (m3/kg) and internal energy (kJ/kg): regions 1 to 6, or 7. */
KTL_API int ktlrvu(KTL_INOUT(double) v, KTL_INOUT(double) u, KTL_IN(double) eps);

/* ---- Properties of two variables ---------------------------------------------------------------------- */

/* Of the state that ktlrpv or ktlrts finds, single-phase or two-phase, in every region. Without a state in the
 * range: reported ("Out of range", P and V, or T and S), 0.0. eps as in the finders. */

/** Entropy, kJ/(kg K), at p (bar) and v (m3/kg). */
KTL_API double ktl_sp(KTL_IN(double) p, KTL_IN(double) v, KTL_IN(double) eps);
/** Enthalpy, kJ/kg, at p (bar) and v (m3/kg). */
KTL_API double ktl_hp(KTL_IN(double) p, KTL_IN(double) v, KTL_IN(double) eps);
/** Internal energy, kJ/kg, at p (bar) and v (m3/kg). */
KTL_API double ktl_up(KTL_IN(double) p, KTL_IN(double) v, KTL_IN(double) eps);
/** Enthalpy, kJ/kg, at t (degC) and s (kJ/(kg K)). */
KTL_API double ktl_ht(KTL_IN(double) t, KTL_IN(double) s, KTL_IN(double) eps);
/** Internal energy, kJ/kg, at t (degC) and s (kJ/(kg K)). */
KTL_API double ktl_ut(KTL_IN(double) t, KTL_IN(double) s, KTL_IN(double) eps);

/* ---- Equations of the sub-regions --------------------------------------------------------------------- */

/* Each prepares the working terms first (comt1, comt2, comt3) and evaluates at any values given: a state out
 * of the range is reported ("Out of range", P and T, once for each of the two that is out; V and T, once for
 * both), counted in ktlerr, and the value of the formula is returned all the same. Infinite or absurd values follow the
 * arithmetic, to infinity or not-a-number. */

/** Working terms of sub-region 1 at p (bar), t (degC); kept until p or t changes. Writes ktl_cu.p, .t. */
KTL_API void comt1(KTL_IN(double) p, KTL_IN(double) t);
KTL_API double ktl_c1(KTL_IN(double) p, KTL_IN(double) t); /**< volume, sub-region 1 (water to 350 degC) */
KTL_API double ktl_d1(KTL_IN(double) p, KTL_IN(double) t); /**< enthalpy */
KTL_API double ktl_e1(KTL_IN(double) p, KTL_IN(double) t); /**< entropy */
KTL_API double ktl_f1(KTL_IN(double) p, KTL_IN(double) t); /**< internal energy, h - 100 p v */
KTL_API double ktl_h1(KTL_IN(double) p, KTL_IN(double) t); /**< isobaric heat capacity */

/** Working terms of sub-region 2 at p (bar), t (degC); kept until p or t changes. Writes ktl_cu.p, .t. */
KTL_API void comt2(KTL_IN(double) p, KTL_IN(double) t);
KTL_API double ktl_c2(KTL_IN(double) p, KTL_IN(double) t); /**< volume, sub-region 2 (steam) */
KTL_API double ktl_d2(KTL_IN(double) p, KTL_IN(double) t); /**< enthalpy */
KTL_API double ktl_e2(KTL_IN(double) p, KTL_IN(double) t); /**< entropy */
KTL_API double ktl_f2(KTL_IN(double) p, KTL_IN(double) t); /**< internal energy, h - 100 p v */
KTL_API double ktl_h2(KTL_IN(double) p, KTL_IN(double) t); /**< isobaric heat capacity */

/** Working terms of sub-region 3 at v (m3/kg), t (degC); kept until v or t changes. Writes ktl_cu.v, .t. */
KTL_API void comt3(KTL_IN(double) v, KTL_IN(double) t);
KTL_API double ktl_a3(KTL_IN(double) v, KTL_IN(double) t); /**< pressure, sub-region 3 (near-critical) */
KTL_API double ktl_d3(KTL_IN(double) v, KTL_IN(double) t); /**< enthalpy */
KTL_API double ktl_e3(KTL_IN(double) v, KTL_IN(double) t); /**< entropy */
KTL_API double ktl_f3(KTL_IN(double) v, KTL_IN(double) t); /**< internal energy, h - 100 p v */
KTL_API double ktl_h3(KTL_IN(double) v, KTL_IN(double) t); /**< isobaric heat capacity, 6.7e9 if critical */
KTL_API double cp3e(KTL_IN(double) v, KTL_IN(double) t);   /**< second name of ktl_h3 */

/* ---- Saturation line ---------------------------------------------------------------------------------- */

/** Saturation pressure (bar) at t (degC), 0.01 to 374.15. Above 374.15: reported ("Out of range", T), 0.0. */
KTL_API double ktl_pt(KTL_IN(double) t);
/** ktl_pt that also writes the slope of the line to ktl_nt (unchanged above 374.15 degC). */
KTL_API double psl1(KTL_IN(double) t);
/** Saturation temperature (degC) at p (bar), by bracketing on ktl_pt. A pressure outside 0.006112444 to
 *  221.2 is reported ("Out of range", P) and the search runs all the same: false positions then leave the
 *  interval, and its 40 passes end at a temperature below 0.01 degC for a pressure that is too low, at
 *  not-a-number for one that is too high or negative (with reports of the trial points above 374.15 degC). */
KTL_API double ktl_it(KTL_IN(double) p);
/** Saturation temperature by correction, kept as it has always behaved: 374.15 at exactly 221.2 bar; 0.0 and
 *  a report above; below, its start value throws the search off, 29 "Out of range" lines for T and one
 *  "Non converg." line for P are reported and positive infinity is returned. Use ktl_it. */
KTL_API double ktl_tp(KTL_IN(double) pin);

/* ---- Transport properties ----------------------------------------------------------------------------- */

/** Dynamic viscosity, Pa s, at v (m3/kg), t (degC); no range test. Source: the 1975 international
 *  representative equation for the viscosity of water substance. */
KTL_API double ktl_ci(KTL_IN(double) v, KTL_IN(double) t);
/** Thermal conductivity, W/(m K), at v (m3/kg), t (degC); no range test. The value steps at 150, 300 and
 *  450 degC, where a correction term ends. */
KTL_API double ktl_cj(KTL_IN(double) v, KTL_IN(double) t);

/* ---- Solvers ------------------------------------------------------------------------------------------ */

/** One unknown: z between a and b with f(y, z) = x, to |f - x| < |x eps|.
 *
 *  Given:               f, y (the fixed variable), x (the target), eps (relative tolerance)
 *  Given and returned:  a, b, ends of the search interval in either order; overwritten, last interval
 *  False position, then bisection, at most 40 passes and 82 evaluations of f.
 *  Without a root within 40 passes: the line " *** KTLFTN-WARNING: Maximum number of iterations exceeded
 *  (code: KTL_I1) ***" on unit ktlerr.iunit, not counted, and 0.0. */
KTL_API double ktl_i1(ktl_property f, KTL_IN(double) y, KTL_IN(double) x, KTL_INOUT(double) a, KTL_INOUT(double) b,
                      KTL_IN(double) eps);
/** As ktl_i1 with f(z, y) = x. An interval without a change of sign is left by secant steps. After 40 passes
 *  the midpoint of the last interval, or the last secant point, silently. */
KTL_API double ktl_i2(ktl_property f, KTL_IN(double) y, KTL_IN(double) x, KTL_INOUT(double) a, KTL_INOUT(double) b,
                      KTL_IN(double) eps);
/** As ktl_i1 with f(z, y, eps) = x. After 40 passes the last false-position point, silently. */
KTL_API double ktl_i3(ktl_property_eps f, KTL_IN(double) y, KTL_IN(double) x, KTL_INOUT(double) a, KTL_INOUT(double) b,
                      KTL_IN(double) eps);
/** Two unknowns: z, w with f1(z, w) = x to |x eps| and f2(z, w) = y to |y| eps^1.25.
 *
 *  Given:               f1, x, f2, y, eps
 *  Given and returned:  a1, b1 interval of z; a2, b2 interval of w; on return a1 = b1 = z, a2 = b2 = w
 *  For each trial w an inner search as ktl_i2 finds z; at most 40 outer passes. Beyond them the line
 *  " *** KTLFTN-WARNING: ... (code: KTL_ID) ***" on unit ktlerr.iunit, not counted; the last pair returns. */
KTL_API void ktl_id(ktl_property f1, KTL_IN(double) x, ktl_property f2, KTL_IN(double) y, KTL_INOUT(double) a1,
                    KTL_INOUT(double) b1, KTL_INOUT(double) a2, KTL_INOUT(double) b2, KTL_IN(double) eps);

/* ---- Diagnostics -------------------------------------------------------------------------------------- */

/** Reports and counts one error: writes " *** KTLFTN-ERROR: <kind>, <label>=<value>... ***" to unit
 *  ktlerr.iunit while ientry <= nprer, and stops the program (exit status 0) when ientry > maxer.
 *
 *  Given: name, the reporting routine (not written, not read); i, the case code: negative for "Non converg.",
 *  else "Out of range"; its decimal digits choose the labels of a and b: 1 P, 2 T, 3 H, 4 V, 5 S, one digit
 *  for a alone, two for a and b. Any other digit gives the label ", ?=". */
KTL_API void ktler(const char* name, KTL_IN(int) i, KTL_IN(double) a, KTL_IN(double) b);

/** Connects an output unit to a stream of the caller's; a null stream disconnects it. Up to 32 units.
 *
 *  Unconnected, unit 6 is standard output, unit 0 standard error, and any other writes to standard error,
 *  unless ktl_set_line_writer has handed the unconnected units to somebody else.
 *  Returns 1, or 0 when 32 other units are connected already. Once this returns, nothing is written to the
 *  stream that the unit had before. */
KTL_API int ktl_connect_unit(KTL_IN(int) unit, FILE* stream);

/** Writes one line, given without its end, to an output unit. Returns 1, or 0 when it cannot. */
typedef int (*ktl_line_writer)(int unit, const char* text, size_t length);

/** Hands the lines of all units that ktl_connect_unit has not connected to a writer: the run-time library of
 *  another language, a window, a log. A null pointer takes them back. A line that the writer cannot write
 *  goes where the unit writes without it.
 *
 *  Returns the writer that was set before. The writer is called from any thread that reports, from several at
 *  a time, and once more perhaps by a thread that was reporting while it was taken back. */
KTL_API ktl_line_writer ktl_set_line_writer(ktl_line_writer writer);

#undef KTL_IN
#undef KTL_INOUT
#undef KTL_THREAD_RECORD
#undef KTL_COMMON_BLOCK

#ifdef __cplusplus
}
#endif

#endif
