// The COMMON blocks of the Fortran door.
#pragma once

namespace ktl::fortran {

/// Copies the records ktl_cu and ktl_nt of the calling thread to COMMON /KTL_CU/ and /KTL_NT/. Only the thread that
/// loaded the library does so: the blocks exist once, and other threads must not write what it reads.
void keep_common_in_step();

/// Keeps the blocks in step when a routine returns.
class CommonSync {
public:
    CommonSync() = default;
    CommonSync(const CommonSync&) = delete;
    CommonSync& operator=(const CommonSync&) = delete;
    ~CommonSync() { keep_common_in_step(); }
};

} // namespace ktl::fortran
