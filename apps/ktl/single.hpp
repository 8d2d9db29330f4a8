// One state, from two values on the command line.
#pragma once

#include "measure.hpp"
#include "output.hpp"
#include "tables.hpp"
#include "unit_system.hpp"

namespace program {

struct SingleWishes {
    std::string first, second; ///< numbers, with units or without
    Atmosphere atmosphere;
    const UnitSystem* units = &own_units(); ///< of values without a unit
    int digits = result_digits;
    bool json = false;
    bool all_states = false;
};

/// Writes the state, one property on a line; both saturated phases if p and t leave the quality open. Returns why not all
/// of it is there; empty if it is. Throws UsageError for values that are none.
std::string run_single(const Pair& pair, const Properties& wanted, const SingleWishes& wishes, OutputFile& file);

} // namespace program
