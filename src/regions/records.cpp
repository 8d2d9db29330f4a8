// The records that callers see. Who writes them: ktlerr the caller and ktler; ktl_cu comt1, comt2 and comt3;
// ktl_nt psl1. The working terms of each sub-region are fenced in its own file.
#include "regions/constants.hpp"
#include "regions/number.hpp"

#include <ktl/ktlftn.h>

// Aligned as any Fortran compiler may want its COMMON block.
alignas(64) constinit ktlerr_record ktlerr{
    .iunit = KTL_INITIAL_UNIT, .nprer = KTL_INITIAL_LIMIT, .maxer = KTL_INITIAL_LIMIT, .ientry = 0};

#if defined(_WIN32)
namespace {
constinit KTL_THREAD_LOCAL ktl_cu_record cu_of_thread{};
constinit KTL_THREAD_LOCAL ktl_nt_record nt_of_thread{};
} // namespace
ktl_cu_record* ktl_cu_of_thread(void) { return &cu_of_thread; }
ktl_nt_record* ktl_nt_of_thread(void) { return &nt_of_thread; }
#else
constinit KTL_THREAD_LOCAL ktl_cu_record ktl_cu{};
constinit KTL_THREAD_LOCAL ktl_nt_record ktl_nt{};
ktl_cu_record* ktl_cu_of_thread(void) { return &ktl_cu; }
ktl_nt_record* ktl_nt_of_thread(void) { return &ktl_nt; }
#endif

const ktl_lc_record* ktl_constants(void) { return &ktl::ktl_lc; }

#if defined(__GNUC__) && defined(__ELF__)
// ktlerr is the symbol ktlerr_ (see KTL_COMMON_BLOCK). Its plain name is a second one, for programs that declare the
// record themselves; weak, so that the linker keeps both names at one address.
extern "C" __attribute__((weak, alias("ktlerr_"), visibility("default"))) ktlerr_record ktlerr_plain __asm__("ktlerr");
#endif
