#include "engine/kernels/kernel_table.hpp"
#include "engine/lanes/lanes.hpp"

namespace ktl::engine {

static_assert(HWY_NAMESPACE::Lanes::count == 2, "the flags of the instruction set have no effect");

const Kernels* neon_kernels() noexcept {
    static constexpr Kernels of_lanes = table<HWY_NAMESPACE::Lanes, HWY_NAMESPACE::Lanes>("neon");
    return &of_lanes;
}

} // namespace ktl::engine
