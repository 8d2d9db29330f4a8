// What the library is, and which kernels it runs.
#include "engine/kernels/kernels.hpp"

#include <ktl/steam.h>
#include <ktl/steam.hpp>

#define KTL_TEXT_OF(number) #number
#define KTL_TEXT(number) KTL_TEXT_OF(number)

namespace ktl {

namespace {

constexpr const char* version =
    KTL_TEXT(KTL_VERSION_MAJOR) "." KTL_TEXT(KTL_VERSION_MINOR) "." KTL_TEXT(KTL_VERSION_PATCH);

constexpr const char* compiler =
#if defined(__clang__)
    "clang " __clang_version__;
#elif defined(__GNUC__)
    "gcc " __VERSION__;
#else
    "another compiler";
#endif

} // namespace

BuildInfo build_info() noexcept { return {version, compiler, engine::names_of_kernels(), engine::kernels().name}; }

} // namespace ktl

ktl_build_info ktl_get_build_info(void) {
    const ktl::BuildInfo info = ktl::build_info();
    return {info.version, info.compiler, info.kernels, info.kernels_in_use};
}
