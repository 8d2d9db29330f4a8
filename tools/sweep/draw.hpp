// Random states of the whole range and of its borders, evaluated by the named routines.
#pragma once

#include "searches/state.hpp"
#include "support/random.hpp"

#include <ktl/ktlftn.h>

namespace sweep {

using ktl::test::Random;

/// Every property of one state. Quality is -1 for a single phase.
struct Values {
    double p, t, v, h, s, u, x;
};

/// Keeps the reports of the named routines from the terminal, and from stopping the program.
void silence_reports();

/// Properties of what a finder handed back, as the entry ktlftn evaluates it, but with every quality taken as it
/// is: the entry reads those up to 1e-6 and from 0.999999 as saturated.
Values evaluate(int region, double first, double t);

/// One state of the valid range. kind cycles through the sub-regions, the neighbourhood of the critical point, the
/// mixtures and the borders. Mixtures above 350 degC have saturated phases from the given model.
Values draw(Random& random, int kind, ktl::SaturationModel model = ktl::SaturationModel::entry_compatible);
inline constexpr int kinds = 12;

/// Values between those of two neighbouring states, one on each side of a border between sub-regions: of 350 degC
/// in water and in mixtures, and of the 2/3 boundary, in turn. They lie in a gap or an overlap, or between both.
Values draw_at_border(Random& random, int kind, ktl::SaturationModel model = ktl::SaturationModel::entry_compatible);

/// True where the region number suits the state, rounding at the borders aside.
bool suits(int region, const Values& got);

/// Properties of the single-phase state at p and t.
Values at_pressure_temperature(double p, double t);

} // namespace sweep
