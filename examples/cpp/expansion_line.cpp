// The expansion line of a condensing turbine with reheat: sections by their end pressures and isentropic efficiencies, Baumann's
// factor in the wet ones. All in kJ for each kg of steam; no steam is extracted.
#include <cstdio>
#include <ktl/process.hpp>

int main() {
    struct Section {
        const char* name;
        double p, efficiency, wetness_factor; // bar, -, -
        double reheat_p, reheat_t;            // bar, degC behind it; 0 without reheat
    };
    constexpr Section sections[] = {
        {"HP", 40.0, 0.88, 0.0, 36.0, 538.0}, {"IP1", 12.0, 0.92, 0.0, 0.0, 0.0}, {"IP2", 4.0, 0.92, 0.0, 0.0, 0.0},
        {"LP1", 0.8, 0.91, 1.0, 0.0, 0.0},    {"LP2", 0.05, 0.86, 1.0, 0.0, 0.0},
    };
    ktl::State steam = ktl::state(ktl::Pair::pt, 166.7, 538.0);
    double work = 0.0, lost = 0.0;
    for (const Section& section : sections) {
        const ktl::Step step = ktl::expand(steam, section.p, section.efficiency, {section.wetness_factor, 15.0});
        if (!step) return std::printf("%s: %s\n", section.name, ktl::sentence(step.status)), 1;
        std::printf("%-4s %6.2f bar %8.3f degC %9.3f kJ/kg, wetness %6.4f, work %8.3f, lost %7.3f\n", section.name,
                    step.end.p(), step.end.t(), step.end.h(), step.end.two_phase() ? ktl::wetness(step.end) : 0.0,
                    step.work, step.lost_work);
        work += step.work;
        lost += step.lost_work;
        steam = step.end;
        if (section.reheat_p > 0.0)
            steam = ktl::heat_to_t(ktl::throttle(steam, section.reheat_p).end, section.reheat_t).end;
    }
    std::printf("work %.3f kJ/kg, lost %.3f kJ/kg by the sections\n", work, lost);
}
