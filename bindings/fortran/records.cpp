// COMMON /KTL_LC/, /KTL_CU/, /KTL_NT/, and what must hold before the first statement of a Fortran program.
#include "records.hpp"

#include <cstddef>
#include <ktl/ktlftn.h>

extern "C" {
// A Fortran program that names a block has a block of that name of its own, filled with zeros. Linked statically, the
// definitions here replace it; linked to the shared library, it replaces these: either way there is one.
// Compilers align blocks as they please, up to a cache line.
alignas(64) KTL_API ktl_lc_record ktl_lc_{};
alignas(64) KTL_API ktl_cu_record ktl_cu_{};
alignas(64) KTL_API ktl_nt_record ktl_nt_{};

// Of the Fortran sources.
int ktl_fortran_write_line(int unit, const char* text, std::size_t length);
void ktl_fortran_associate(ktlerr_record* record);

/// For the module: the calling thread's own records.
KTL_API void ktl_prepared_state(double& p, double& t, double& v) {
    p = ktl_cu.p;
    t = ktl_cu.t;
    v = ktl_cu.v;
}
KTL_API double ktl_last_psl1_slope() { return ktl_nt.dpdt; }
}

namespace ktl::fortran {

namespace {

constinit thread_local bool keeps_common = false;

/// A program's own COMMON /KTLERR/ in place of the library's starts with zeros, unless a BLOCK DATA fills it.
void initialise(ktlerr_record& record) {
    if (record.iunit != 0 || record.nprer != 0 || record.maxer != 0 || record.ientry != 0) return;
    record = {.iunit = KTL_INITIAL_UNIT, .nprer = KTL_INITIAL_LIMIT, .maxer = KTL_INITIAL_LIMIT, .ientry = 0};
}

/// Runs when the library is loaded, before the program's own code.
__attribute__((constructor)) void load() {
    keeps_common = true;
    initialise(ktlerr);
    ktl_lc_ = *ktl_constants();
    ktl_fortran_associate(&ktlerr);
    ktl_set_line_writer(ktl_fortran_write_line);
}

} // namespace

void keep_common_in_step() {
    if (!keeps_common) return;
    ktl_cu_ = ktl_cu;
    ktl_nt_ = ktl_nt;
}

} // namespace ktl::fortran
