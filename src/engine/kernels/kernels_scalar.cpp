#include "engine/kernels/kernel_table.hpp"
#include "engine/lanes/scalar.hpp"

namespace ktl::engine {

const Kernels& scalar_kernels() noexcept {
    static constexpr Kernels of_scalars = table<Scalar, Scalar>("scalar");
    return of_scalars;
}

} // namespace ktl::engine
