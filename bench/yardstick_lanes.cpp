#include "yardstick.hpp"

#include "engine/lanes/lanes.hpp"

namespace ktl_bench {

using Lanes = ktl::engine::HWY_NAMESPACE::Lanes;

void yardstick_lanes(const double* x, std::size_t n, double* y) {
    for (std::size_t i = 0; i < n; i += Lanes::count) yardstick(Lanes::load(x + i)).store(y + i);
}

} // namespace ktl_bench
