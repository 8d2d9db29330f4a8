// The members of ktlerr: plain integers for the caller, which the library reads and counts atomically.
#pragma once

#include <atomic>

namespace ktl::reports {

// The compilers' own operations, if there are any: not every standard library has std::atomic_ref yet.
#if defined(KTL_NO_THREADS)
inline int load(int& member) { return member; }
inline int count_up(int& member) { return ++member; }
#elif defined(__GNUC__)
inline int load(int& member) { return __atomic_load_n(&member, __ATOMIC_RELAXED); }
inline int count_up(int& member) { return __atomic_add_fetch(&member, 1, __ATOMIC_RELAXED); }
#else
inline int load(int& member) { return std::atomic_ref(member).load(std::memory_order_relaxed); }
inline int count_up(int& member) { return std::atomic_ref(member).fetch_add(1, std::memory_order_relaxed) + 1; }
#endif

} // namespace ktl::reports
