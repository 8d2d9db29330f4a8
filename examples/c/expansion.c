/* A turbine stage, its exhaust and a table of isobars, in C11: the calls of steam.h. */
#include <ktl/steam.h>
#include <stdio.h>

static int failed(const char* what, int status) {
    printf("%s: %s\n", what, ktl_sentence(status));
    return 1;
}

int main(void) {
    /* Live steam, and the isentropic and the real end of an expansion to 0.05 bar with 85 % efficiency. */
    struct ktl_state live, ideal, exhaust;
    if (ktl_state_of(KTL_PAIR_PT, 100.0, 500.0, &live)) return failed("live steam", live.status);
    if (ktl_state_of(KTL_PAIR_PS, 0.05, live.s, &ideal)) return failed("ideal exhaust", ideal.status);
    const double h = live.h - 0.85 * (live.h - ideal.h);
    if (ktl_state_of(KTL_PAIR_PH, 0.05, h, &exhaust)) return failed("exhaust", exhaust.status);
    printf("live steam: %.3f kJ/kg, %.5f kJ/(kg K), sound %.2f m/s, exponent %.4f\n", live.h, live.s,
           live.speed_of_sound, live.isentropic_exponent);
    printf("exhaust:    %.3f kJ/kg, %.3f degC, quality %.4f, droplets %.2f kg/m3 in steam of %.5f kg/m3\n", exhaust.h,
           exhaust.t, exhaust.x, exhaust.liquid.rho, exhaust.vapour.rho);

    /* A state that is not open to pressure and temperature, and one that is none. */
    struct ktl_state none;
    const double p = ktl_saturation_pressure(200.0);
    printf("%.4f bar, 200 degC: %s\n", p, ktl_sentence(ktl_state_of(KTL_PAIR_PT, p, 200.0, &none)));
    printf("latent heat there: %.2f kJ/kg\n", none.vapour.h - none.liquid.h);
    printf("1500 bar, 200 degC: %s\n", ktl_sentence(ktl_state_of(KTL_PAIR_PT, 1500.0, 200.0, &none)));

    /* Columns: temperature and viscosity along 50 bar. */
    const double pressures[4] = {50.0, 50.0, 50.0, 50.0}, enthalpies[4] = {500.0, 2000.0, 3200.0, 9000.0};
    double t[4], viscosity[4];
    double* const outputs[2] = {t, viscosity};
    const unsigned char properties[2] = {KTL_PROPERTY_T, KTL_PROPERTY_VISCOSITY};
    unsigned char status[4];
    ktl_batch(KTL_PAIR_PH, pressures, enthalpies, 4, properties, outputs, 2, status, NULL);
    for (int i = 0; i < 4; ++i) {
        if (status[i] != KTL_STATUS_SOLVED)
            printf("%6.1f kJ/kg: %s\n", enthalpies[i], ktl_sentence(status[i]));
        else if (viscosity[i] == viscosity[i])
            printf("%6.1f kJ/kg: %.4f degC, %.4g Pa s\n", enthalpies[i], t[i], viscosity[i]);
        else
            printf("%6.1f kJ/kg: %.4f degC, two phases\n", enthalpies[i], t[i]);
    }
    return 0;
}
