#include "engine/block.hpp"

namespace ktl::engine {

std::size_t solve_block(Pair pair, const double* a, const double* b, std::size_t n,
                        std::span<const Property> properties, double* const* outputs, Status* status) noexcept {
    std::size_t solved = 0;
    for (std::size_t i = 0; i < n; ++i) {
        const State found = state(pair, a[i], b[i]);
        status[i] = found.status();
        solved += found ? 1 : 0;
        for (std::size_t k = 0; k < properties.size(); ++k) outputs[k][i] = found.get(properties[k]);
    }
    return solved;
}

} // namespace ktl::engine
