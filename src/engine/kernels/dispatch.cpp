#include "engine/kernels/kernels.hpp"

namespace ktl::engine {

#if !defined(KTL_LANES)
const Kernels* avx2_kernels() noexcept { return nullptr; }
const Kernels* avx512_kernels() noexcept { return nullptr; }
#endif
#if !defined(KTL_NEON_LANES)
const Kernels* neon_kernels() noexcept { return nullptr; }
#endif

namespace {

/// The features that the compiler flags of the kernels name; every machine with AVX2 has the others.
bool runs_avx2() {
#if defined(KTL_LANES)
    return __builtin_cpu_supports("avx2") && __builtin_cpu_supports("fma") && __builtin_cpu_supports("bmi") &&
           __builtin_cpu_supports("bmi2") && __builtin_cpu_supports("aes") && __builtin_cpu_supports("pclmul");
#else
    return false;
#endif
}

bool runs_avx512() {
#if defined(KTL_LANES)
    return runs_avx2() && __builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512cd") &&
           __builtin_cpu_supports("avx512vl") && __builtin_cpu_supports("avx512dq") &&
           __builtin_cpu_supports("avx512bw");
#else
    return false;
#endif
}

} // namespace

const char* names_of_kernels() noexcept {
#if defined(KTL_LANES)
    return "scalar avx2 avx512";
#elif defined(KTL_NEON_LANES)
    return "scalar neon";
#else
    return "scalar";
#endif
}

const Kernels& kernels() noexcept {
    static const Kernels* const best = [] {
        if (runs_avx512()) return avx512_kernels();
        if (runs_avx2()) return avx2_kernels();
        if (neon_kernels() != nullptr) return neon_kernels(); // every 64-bit ARM has them
        return &scalar_kernels();
    }();
    return *best;
}

} // namespace ktl::engine
