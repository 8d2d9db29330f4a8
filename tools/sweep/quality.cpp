#include "quality.hpp"

#include "draw.hpp"
#include "quality_scan.hpp"
#include "tasks.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <ktl/steam.hpp>
#include <string>
#include <vector>

namespace sweep {

namespace {

using ktl::ktl_lc;
using ktl::Pair;
using ktl::Property;

constexpr long rows_per_task = 250;

/// What is offered.
enum Kind { any_state, wide, beside_350, top_of_dome, limit, extremum, in_the_jump, any_value, kind_count };
constexpr std::array<const char*, kind_count> names{"own values, any temperature",
                                                    "own values, x 0.35 to 0.65",
                                                    "own values, 348 to 354 degC, x 0.46 to 0.50",
                                                    "own values, from 373.9 degC up",
                                                    "limits: 0.01, both sides of 350, 374.149, 374.15 degC",
                                                    "extrema",
                                                    "between both sides of 350 degC",
                                                    "any values"};

struct Offer {
    double s, x;
};

/// The value itself, moved by a few last digits, or by 1e-14 to 1e-8 of it.
double beside(Random& random, double s) {
    switch (random.below(3)) {
    case 0: return s;
    case 1: {
        const double to = random.below(2) == 0 ? -INFINITY : INFINITY;
        for (unsigned steps = random.below(4) + 1; steps > 0; --steps) s = std::nextafter(s, to);
        return s;
    }
    default: return s * (1.0 + random.around_zero(1e-14, 1e-8));
    }
}

Offer own(double t, double x) { return {ktl::state(Pair::tx, std::clamp(t, ktl_lc.tmin, ktl_lc.tc), x).s(), x}; }

Offer draw_limit(Random& random) {
    const double past_350 = std::nextafter(ktl_lc.t3min, ktl_lc.tc);
    const std::array limits{ktl_lc.tmin, ktl_lc.t1max, past_350, 374.149, std::nextafter(374.149, 400.0), ktl_lc.tc};
    const double x = random.below(4) == 0 ? random.between(0.0, 1.0) : random.between(0.35, 0.65);
    const Offer offer = own(limits.at(random.below(static_cast<unsigned>(limits.size()))), x);
    return {beside(random, offer.s), x};
}

Offer draw(Random& random, int kind, const QualityScan& scan) {
    const double x = random.between(0.35, 0.65);
    switch (kind) {
    case any_state: return own(random.between(ktl_lc.tmin, ktl_lc.tc), random.between(0.0, 1.0));
    case wide: return own(random.between(ktl_lc.tmin, ktl_lc.tc), x);
    case beside_350: return own(random.between(348.0, 354.0), random.between(0.46, 0.50));
    case top_of_dome: return own(ktl_lc.tc - random.logarithmic(1.0e-7, 0.25), x);
    case limit: return draw_limit(random);
    case extremum: {
        const std::vector<LinePoint> points = scan.extrema(x);
        return {beside(random, points[random.below(static_cast<unsigned>(points.size()))].s), x};
    }
    case in_the_jump: {
        const double quality = random.between(0.46, 0.50);
        const double from = own(ktl_lc.t1max, quality).s;
        return {random.between(from, own(std::nextafter(ktl_lc.t1max, ktl_lc.tc), quality).s), quality};
    }
    default: return {random.between(-0.1, 9.3), random.between(0.0, 1.0)};
    }
}

struct Tally {
    struct Kind {
        long offers = 0, wrong = 0, within_width = 0;
        std::array<long, 8> with_states{};
    };
    std::array<Kind, kind_count> kinds{};

    void add(const Tally& other) {
        for (std::size_t k = 0; k < kinds.size(); ++k) {
            kinds.at(k).offers += other.kinds.at(k).offers;
            kinds.at(k).wrong += other.kinds.at(k).wrong;
            kinds.at(k).within_width += other.kinds.at(k).within_width;
            for (std::size_t n = 0; n < kinds.at(k).with_states.size(); ++n)
                kinds.at(k).with_states.at(n) += other.kinds.at(k).with_states.at(n);
        }
    }
};

void run_task(long task, long count, std::uint64_t seed, const QualityScan& scan, Tally& tally) {
    Random random(seed + 0x9fb21c651e98df25U * static_cast<std::uint64_t>(task + 1));
    const auto n = static_cast<std::size_t>(count);
    std::vector<double> s(n);
    std::vector<double> x(n);
    std::vector<double> t(n);
    std::vector<ktl::Status> status(n);
    for (std::size_t i = 0; i < n; ++i) {
        const Offer offer = draw(random, static_cast<int>(i % kind_count), scan);
        s[i] = offer.s, x[i] = offer.x;
    }
    const std::array wanted{Property::t};
    const std::array<double*, 1> outputs{t.data()};
    ktl::batch(Pair::sx, s, x, wanted, outputs, status);
    for (std::size_t i = 0; i < n; ++i) {
        Tally::Kind& kind = tally.kinds.at(i % kind_count);
        const ktl::State one = ktl::state(Pair::sx, s[i], x[i]);
        std::string wrong = scan.fault(s[i], x[i]);
        if (one.status() != status[i] || (one && one.t() != t[i])) wrong += " other bits in columns";
        ++kind.offers;
        const std::vector<Place> places = scan.places(s[i], x[i]);
        const auto open = [](const Place& place) { return place.least != place.most; };
        if (std::any_of(places.begin(), places.end(), open)) ++kind.within_width;
        ++kind.with_states.at(static_cast<std::size_t>(std::min(7, ktl::state_count(Pair::sx, s[i], x[i]))));
        if (!wrong.empty() && ++kind.wrong <= 5) std::fprintf(stderr, "%s\n", wrong.c_str());
    }
}

} // namespace

bool sweep_quality(long count, std::uint64_t seed) {
    const QualityScan scan;
    const Tally tally = on_all_processors<Tally>(
        count, rows_per_task, [&](long task, long rows, Tally& own) { run_task(task, rows, seed, scan, own); });
    std::printf("Extrema of the quality whose entropy has an extremum at t:");
    for (const LinePoint& point : QualityScan::extrema_of_extremum_quality())
        std::printf(" %.7f at %.5f degC;", point.s, point.t);
    std::printf("\n\n| offered | rows | wrong | within the width | no state | 1 | 2 | 3 | 4 | 5 | 6 | more |\n"
                "|---|---|---|---|---|---|---|---|---|---|---|---|\n");
    bool good = true;
    for (std::size_t k = 0; k < tally.kinds.size(); ++k) {
        const Tally::Kind& kind = tally.kinds.at(k);
        std::printf("| %s | %ld | %ld | %ld |", names.at(k), kind.offers, kind.wrong, kind.within_width);
        for (const long rows : kind.with_states) std::printf(" %ld |", rows);
        std::printf("\n");
        good = good && kind.wrong == 0 && kind.offers > 0;
    }
    return good;
}

} // namespace sweep
