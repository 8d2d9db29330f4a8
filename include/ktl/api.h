/* What marks a name as part of the interface of the shared library: it is exported by the library (KTL_BUILDS_SHARED, set
 * while it is compiled) and imported by programs. CMake's ktl::ktl sets KTL_SHARED_BUILD; without it, functions are found
 * all the same, and ktlerr too with GCC. */
#ifndef KTL_API_H
#define KTL_API_H

#if defined(_WIN32) && defined(KTL_BUILDS_SHARED)
#define KTL_API __declspec(dllexport)
#elif defined(_WIN32) && defined(KTL_SHARED_BUILD)
#define KTL_API __declspec(dllimport)
#elif defined(KTL_SHARED_BUILD) && defined(__GNUC__)
#define KTL_API __attribute__((visibility("default")))
#else
#define KTL_API
#endif

#endif
