// The records that callers see. Who writes them: ktlerr the caller and ktler; ktl_cu comt1, comt2 and comt3;
// ktl_nt psl1. The working terms of each sub-region are fenced in its own file.
#include "regions/constants.hpp"

#include <ktl/ktlftn.h>

// Aligned as any Fortran compiler may want its COMMON block.
alignas(64) constinit ktlerr_record ktlerr{
    .iunit = KTL_INITIAL_UNIT, .nprer = KTL_INITIAL_LIMIT, .maxer = KTL_INITIAL_LIMIT, .ientry = 0};
constinit thread_local ktl_cu_record ktl_cu{};
constinit thread_local ktl_nt_record ktl_nt{};

const ktl_lc_record* ktl_constants(void) { return &ktl::ktl_lc; }

#if defined(__GNUC__) && defined(__ELF__)
// ktlerr is the symbol ktlerr_ (see KTL_COMMON_BLOCK). Its plain name is a second one, for programs that declare the
// record themselves; weak, so that the linker keeps both names at one address.
extern "C" __attribute__((weak, alias("ktlerr_"), visibility("default"))) ktlerr_record ktlerr_plain __asm__("ktlerr");
#endif
