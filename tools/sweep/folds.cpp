#include "folds.hpp"

#include "draw.hpp"
#include "fold_scan.hpp"
#include "tasks.hpp"

#include <array>
#include <cmath>
#include <cstdio>
#include <ktl/steam.hpp>
#include <vector>

namespace sweep {

namespace {

using ktl::Pair;
using ktl::Property;
using ktl::State;

constexpr long rows_per_task = 600;
/// Agreement that is expected of the volume of saturated water, relative.
constexpr double same_volume = 1.0e-6;

/// Limits of the bands of the table, degC.
constexpr std::array limits{0.01, 4.0, 8.0, 12.0, 13.5, 14.0, 30.0, 100.0, 345.0, 350.0};
constexpr std::size_t band_count = limits.size() - 1;

enum class Kind { saturated, saturated_mixture, saturated_equations, compressed, moved, mixture };
constexpr long kind_count = 6;
constexpr bool is_saturated(Kind kind) { return kind <= Kind::saturated_equations; }

struct Drawn {
    Kind kind;
    double t, h, s, v;
};

/// A state of the band: saturated water in three ways; water up to 3e-5 bar above saturation; saturated water with h
/// moved by up to 1e-6 kJ/kg; a mixture with x from 1e-9 to 1e-4.
Drawn draw_beside_line(Random& random, Kind kind, std::size_t band) {
    const double t = random.between(limits.at(band), limits.at(band + 1));
    const double p = ktl_pt(t);
    if (kind == Kind::saturated_mixture) {
        const State state = ktl::state(Pair::px, p, 0.0);
        return {kind, state.t(), state.h(), state.s(), state.v()};
    }
    if (kind == Kind::compressed || kind == Kind::saturated_equations) {
        const double pressure = kind == Kind::compressed ? p + random.logarithmic(1e-10, 3e-5) : p;
        return {kind, t, ktl_d1(pressure, t), ktl_e1(pressure, t), ktl_c1(pressure, t)};
    }
    if (kind == Kind::mixture) {
        const State state = ktl::state(Pair::tx, t, random.logarithmic(1e-9, 1e-4));
        return {kind, t, state.h(), state.s(), state.v()};
    }
    const ktl::Phase water = ktl::saturation_at_temperature(t).liquid;
    const double moved = kind == Kind::moved ? random.around_zero(1e-10, 1e-6) : 0.0;
    return {kind, t, water.h() + moved, water.s(), water.v()};
}

struct Tally {
    struct Band {
        std::array<long, 4> states{}; // by their number
        long rows = 0, certain = 0, wrong = 0;
        double x = 0.0, volume = 0.0, colder = 0.0; // greatest of mixtures that saturated water shares h, s with
    };
    std::array<Band, band_count> bands{};

    void add(const Tally& other) {
        for (std::size_t k = 0; k < band_count; ++k) {
            Band& sum = bands.at(k);
            const Band& more = other.bands.at(k);
            sum.rows += more.rows, sum.certain += more.certain, sum.wrong += more.wrong;
            sum.x = std::fmax(sum.x, more.x), sum.volume = std::fmax(sum.volume, more.volume);
            sum.colder = std::fmax(sum.colder, more.colder);
            for (std::size_t n = 0; n < sum.states.size(); ++n) sum.states.at(n) += more.states.at(n);
        }
    }
};

/// Saturated water by the named routine.
const char* fault_of_named(const Drawn& drawn) {
    double first = drawn.h;
    double t = drawn.s;
    if (ktlrhs(first, t, 1.0e-8) != KTL_WATER) return "named routine: not water";
    return std::fabs(ktl_c1(first, t) / drawn.v - 1.0) <= same_volume ? nullptr : "named routine: another volume";
}

/// What is wrong with a row, or null; v and status are those of the column.
const char* fault(const Drawn& drawn, double v, ktl::Status status, const Fold& fold) {
    const State state = ktl::state(Pair::hs, drawn.h, drawn.s);
    if (state.status() != status) return "another status than ktl::state()";
    if (state && state.v() != v) return "other bits than ktl::state()";
    // Moved values may name mixtures below 0.01 degC.
    if (!state && drawn.kind != Kind::moved) return ktl::sentence(status);
    if (is_saturated(drawn.kind)) {
        if (state.region() != ktl::Region::water || !std::isnan(state.x())) return "not water";
        if (!(std::fabs(v / drawn.v - 1.0) <= same_volume)) return "another volume";
        if (const char* const wrong = fault_of_named(drawn)) return wrong;
    } else if (drawn.kind == Kind::compressed && state.region() != ktl::Region::water) {
        return "not water";
    }
    return drawn.t < warmest_fold ? fault_at_fold(drawn.h, drawn.s, fold) : nullptr;
}

void run_task(long task, long count, std::uint64_t seed, Tally& tally) {
    Random random(seed + 0x7f4a7c159e3779b9U * static_cast<std::uint64_t>(task + 1));
    const auto n = static_cast<std::size_t>(count);
    const std::size_t band = static_cast<std::size_t>(task) % band_count;
    std::vector<Drawn> drawn(n);
    std::vector<double> h(n);
    std::vector<double> s(n);
    std::vector<double> v(n);
    std::vector<ktl::Status> status(n);
    for (std::size_t i = 0; i < n; ++i) {
        drawn[i] = draw_beside_line(random, static_cast<Kind>(static_cast<long>(i) % kind_count), band);
        h[i] = drawn[i].h;
        s[i] = drawn[i].s;
    }
    const std::array wanted{Property::v};
    const std::array<double*, 1> outputs{v.data()};
    ktl::batch(Pair::hs, h, s, wanted, outputs, status);
    Tally::Band& sum = tally.bands.at(band);
    for (std::size_t i = 0; i < n; ++i) {
        ++sum.rows;
        const int states = ktl::state_count(Pair::hs, h[i], s[i]);
        ++sum.states.at(static_cast<std::size_t>(states));
        if (is_saturated(drawn[i].kind) && states > 1) {
            const State mixture = ktl::state(Pair::hs, h[i], s[i], 1);
            sum.x = std::fmax(sum.x, mixture.x());
            sum.volume = std::fmax(sum.volume, mixture.v() / drawn[i].v);
            sum.colder = std::fmax(sum.colder, drawn[i].t - mixture.t());
        }
        const Fold fold = drawn[i].t < warmest_fold ? scan_fold(h[i], s[i]) : Fold{};
        if (fold.certain) ++sum.certain;
        const char* const wrong = fault(drawn[i], v[i], status[i], fold);
        if (wrong != nullptr && ++sum.wrong <= 5) {
            std::fprintf(stderr, "hs %.17g %.17g (kind %d, %.10g degC): %s\n", h[i], s[i],
                         static_cast<int>(drawn[i].kind), drawn[i].t, wrong);
        }
    }
}

} // namespace

bool sweep_folds(long count, std::uint64_t seed) {
    const Tally total = on_all_processors<Tally>(
        count, rows_per_task, [&](long task, long rows, Tally& own) { run_task(task, rows, seed, own); });
    std::printf(
        "| degC | rows | no state | 1 state | 2 states | 3 states | count certain | wrong | colder, K | x | v/v' |\n"
        "|---|---|---|---|---|---|---|---|---|---|---|\n");
    bool good = true;
    for (std::size_t k = 0; k < band_count; ++k) {
        const Tally::Band& sum = total.bands.at(k);
        std::printf("| %g to %g | %ld | %ld | %ld | %ld | %ld | %ld | %ld | %.4f | %.2e | %.2f |\n", limits.at(k),
                    limits.at(k + 1), sum.rows, sum.states[0], sum.states[1], sum.states[2], sum.states[3], sum.certain,
                    sum.wrong, sum.colder, sum.x, sum.volume);
        good = good && sum.wrong == 0 && sum.rows > 0;
    }
    return good;
}

} // namespace sweep
