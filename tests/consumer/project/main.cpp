// A program of somebody else's: one property of one state.
#include <cmath>
#include <cstdio>
#include <ktl/ktlftn.h>

int main() {
    double v = 0.0;
    ktlftn(ktlrpt, 8.0, 500.0, "V.", &v);
    std::printf("%.5f m3/kg, version %d.%d.%d, t %.1f\n", v, KTL_VERSION_MAJOR, KTL_VERSION_MINOR, KTL_VERSION_PATCH,
                ktl_cu.t);
    return std::fabs(v - 0.44317) < 1e-5 && ktl_cu.t == 500.0 ? 0 : 1;
}
