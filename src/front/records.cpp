// The records that callers see. Who writes them: ktlerr the caller and ktler; ktl_cu comt1, comt2 and comt3;
// ktl_nt psl1. The working terms of each sub-region are fenced in its own file.
#include <ktl/ktlftn.h>

constinit ktlerr_record ktlerr{.iunit = 6, .nprer = 1000000, .maxer = 1000000, .ientry = 0};
constinit thread_local ktl_cu_record ktl_cu{};
constinit thread_local ktl_nt_record ktl_nt{};
