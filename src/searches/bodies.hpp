// The bodies of all searches, for the files that compile them for a number type T.
#pragma once

#include "searches/acceptance_bodies.hpp"
#include "searches/isentrope_isochore_bodies.hpp"
#include "searches/isobar_bodies.hpp"
#include "searches/isotherm_bodies.hpp"
#include "searches/limits_bodies.hpp"
#include "searches/quality_line_bodies.hpp"
#include "searches/saturated_water_bodies.hpp"
#include "searches/state_bodies.hpp"

// Searches that engine and named finders share.
#define KTL_COMPILE_SEARCHES(T)                                                                                        \
    template Saturated<T> saturated_at<T>(double, SaturationModel);                                                    \
    template Saturated<T> saturated_under<T>(double, SaturationModel);                                                 \
    template double last_low_pressure<T>(SaturationModel);                                                             \
    template FoundState<T> on_isobar<T>(Quantity, double, double, SaturationModel, double);                            \
    template FoundState<T> on_isotherm<T>(Quantity, double, double, SaturationModel);                                  \
    template FoundState<T> searches::confirmed<T>(FoundState<T>, const searches::Given&, double);                      \
    template FoundState<T> searches::on_isentrope<T>(Quantity, double, double, SaturationModel);                       \
    template FoundState<T> searches::on_isochore<T>(Quantity, double, double, SaturationModel);                        \
    template FoundState<T> searches::first_up_to_350<T>(double, double, SaturationModel);                              \
    template FoundState<T> searches::first_past_350<T>(double, double, SaturationModel);
