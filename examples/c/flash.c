/* Condensate flashing through a valve, in C11: enthalpy stays, pressure drops. Pointers where C++ has references. */
#include <ktl/ktlftn.h>
#include <stdio.h>

/* Finder of the program's own: saturated water at a pressure, less a subcooling in K. */
static int subcooled(double* p, double* subcooling, const double* eps) {
    const double x = 0.0;
    double first = *p, t = x;
    const int region = ktlrpx(&first, &t, eps);
    if (region == KTL_NO_STATE) return region;
    t -= *subcooling;
    *subcooling = t;
    return ktlrpt(p, subcooling, eps);
}

int main(void) {
    const double before = 12.0, behind = 1.5, subcooling = 4.0;
    double water[2], mixture[3] = {-1.0, -1.0, -1.0};

    ktlftn(subcooled, &before, &subcooling, "T,H.", water);
    printf("before the valve: %.2f bar, %.3f degC, %.3f kJ/kg\n", before, water[0], water[1]);

    ktlftn(ktlrph, &behind, &water[1], "T,X,V.", mixture);
    printf("behind it:        %.2f bar, %.3f degC, steam %.4f, %.5f m3/kg\n", behind, mixture[0], mixture[1],
           mixture[2]);

    /* Diagnostics: on standard output (unit 6), counted in ktlerr, and none printed once nprer is 1. */
    ktlerr.nprer = 1;
    for (double t = 400.0; t < 403.0; t += 1.0) ktl_pt(&t);
    printf("errors counted: %d, terms last prepared at %.3f degC, pca = %.1f bar\n", ktlerr.ientry, ktl_cu.t,
           ktl_constants()->pca);

    /* A code without a value in two phases: a line on unit 13. */
    ktl_connect_unit(&(int){13}, stdout);
    const double wet = 0.3;
    ktlftn_len(ktlrpx, &behind, &wet, "X,CP", 4, mixture);
    printf("X %.2f, CP %.1f\n", mixture[0], mixture[1]);
    return 0;
}
