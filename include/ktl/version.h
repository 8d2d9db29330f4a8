#ifndef KTL_VERSION_H
#define KTL_VERSION_H

/* The one place that states the version; the build reads these three lines. */
#define KTL_VERSION_MAJOR 0
#define KTL_VERSION_MINOR 1
#define KTL_VERSION_PATCH 0

#endif
