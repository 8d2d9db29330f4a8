/* What marks a name as part of the interface of the shared library. */
#ifndef KTL_API_H
#define KTL_API_H

#if defined(KTL_SHARED_BUILD) && defined(__GNUC__)
#define KTL_API __attribute__((visibility("default")))
#else
#define KTL_API
#endif

#endif
