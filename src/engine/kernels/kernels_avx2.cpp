#include "engine/kernels/kernel_table.hpp"
#include "engine/lanes/double_lanes.hpp"

namespace ktl::engine {

static_assert(HWY_NAMESPACE::Lanes::count == 4, "the flags of the instruction set have no effect");

const Kernels* avx2_kernels() noexcept {
    static constexpr Kernels of_lanes = table<HWY_NAMESPACE::Lanes, HWY_NAMESPACE::DoubleLanes>("avx2");
    return &of_lanes;
}

} // namespace ktl::engine
