// The calls of steam.hpp: one state, a choice among several, the saturation line, and columns of states.
#include <cstdio>
#include <ktl/steam.hpp>
#include <vector>

namespace {

/// One state, with every property from one solve.
void one_state() {
    const ktl::State steam = ktl::state(ktl::Pair::ph, 100.0, 3100.0);
    if (!steam) return (void)std::puts(ktl::sentence(steam.status()));
    std::printf("100 bar, 3100 kJ/kg: %.4f degC, %.3f kg/m3, cp %.4f kJ/(kg K), sound %.2f m/s\n", steam.t(),
                steam.rho(), steam.cp(), steam.speed_of_sound());

    const ktl::State wet = ktl::state(ktl::Pair::ps, 0.05, steam.s());
    std::printf("expanded to 0.05 bar: quality %.4f, water of %.2f kg/m3, steam of %.5f kg/m3\n", wet.x(),
                wet.liquid().rho(), wet.vapour().rho());
}

/// 100 degC and 430 kJ/kg: a mixture, or water under pressure.
void several_states() {
    const int count = ktl::state_count(ktl::Pair::th, 100.0, 430.0);
    for (int number = 0; number < count; ++number) {
        const ktl::State state = ktl::state(ktl::Pair::th, 100.0, 430.0, number);
        std::printf("state %d: %.4f bar%s\n", number, state.p(), state.two_phase() ? ", two phases" : "");
    }
}

void saturation_line() {
    for (const double p : {0.05, 1.0, 50.0, 220.0}) {
        const ktl::Saturation line = ktl::saturation_at_pressure(p);
        std::printf("%6.2f bar: %.4f degC, %.5f bar/K, latent heat %.2f kJ/kg\n", p, line.t, line.slope,
                    line.vapour.h() - line.liquid.h());
    }
}

bool tell(void* told, std::size_t done, std::size_t total) {
    if (done == total) *static_cast<std::size_t*>(told) = done;
    return true; // false would cancel the rest
}

/// A million rows on all cores.
void columns() {
    constexpr std::size_t rows = 1000000;
    std::vector<double> p(rows), t(rows), h(rows), viscosity(rows);
    for (std::size_t i = 0; i < rows; ++i) {
        p[i] = 1.0 + static_cast<double>(i % 1000);
        t[i] = 20.0 + static_cast<double>(i / 1000) * 0.75;
    }
    const std::vector<ktl::Property> wanted{ktl::Property::h, ktl::Property::viscosity};
    const std::vector<double*> outputs{h.data(), viscosity.data()};
    std::vector<ktl::Status> status(rows);
    std::size_t told = 0;
    const ktl::BatchResult result =
        ktl::batch(ktl::Pair::pt, p, t, wanted, outputs, status, {.threads = 0, .progress = tell, .context = &told});
    std::printf("%zu rows of %zu solved; row 123456: %.3f kJ/kg, %.4g Pa s; row 999999: %s\n", result.solved, told,
                h[123456], viscosity[123456], ktl::sentence(status[999999]));
}

} // namespace

int main() {
    one_state();
    several_states();
    saturation_line();
    columns();
}
