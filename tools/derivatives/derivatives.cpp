// ktl_derivatives states N SEED: N states of each homogeneous sub-region, for reference.py.
// ktl_derivatives table REFERENCE: docs/derivatives.md, the errors of all derivatives against what reference.py made of them.
// Exit status 1 if an error exceeds what the documents promise.
#include "support/derivative_truth.hpp"
#include "support/states.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <ktl/derivative.hpp>
#include <sstream>
#include <string>
#include <vector>

namespace {

using ktl::Property;
using ktl::test::nine;
using Number = long double;

constexpr int regions = 3;
constexpr Number promised = 1e-8; // of the terms of a derivative
constexpr Number least = 1e-13;   // errors below it are the rounding of doubles, and shown as it

void print_states(int n, unsigned seed) {
    ktl::test::Random random(seed);
    for (int region = 1; region <= regions; ++region)
        for (int i = 0; i < n; ++i) {
            const auto at = region == 1   ? ktl::test::random_liquid(random)
                            : region == 2 ? ktl::test::random_steam(random)
                                          : ktl::test::random_near_critical(random);
            std::printf("%d,%.17g,%.17g\n", region, at.first, at.t);
        }
}

/// A line of the reference: a state and the derivatives of its free energy, x theta, y beta or chi.
struct Reference {
    int region;
    double primary, t;
    Number f, x, y, xx, xy, yy, xxx, xxy, xyy, yyy;
};

std::vector<Reference> read(const char* path) {
    std::ifstream file(path);
    std::string line;
    std::getline(file, line);
    std::vector<Reference> all;
    while (std::getline(file, line)) {
        std::istringstream text(line);
        std::array<std::string, 13> cell;
        for (std::string& one : cell) std::getline(text, one, ',');
        Reference& r = all.emplace_back();
        r.region = std::atoi(cell[0].c_str());
        r.primary = std::strtod(cell[1].c_str(), nullptr);
        r.t = std::strtod(cell[2].c_str(), nullptr);
        Number* const values[] = {&r.f, &r.x, &r.y, &r.xx, &r.xy, &r.yy, &r.xxx, &r.xxy, &r.xyy, &r.yyy};
        for (std::size_t k = 0; k < std::size(values); ++k) *values[k] = std::strtold(cell[k + 3].c_str(), nullptr);
    }
    return all;
}

/// (d2v/dp2), (d2v/dpdt), (d2v/dt2) with the size of their terms.
using Second = std::array<ktl::test::Truth::Value, 3>;
Second second_of(const Reference& r) {
    using namespace ktl;
    const Number pp = ktl_lc.vca / (Number(ktl_lc.pca) * ktl_lc.pca),
                 pt = ktl_lc.vca / (Number(ktl_lc.pca) * ktl_lc.tca),
                 tt = ktl_lc.vca / (Number(ktl_lc.tca) * ktl_lc.tca);
    if (r.region != 3) {
        const auto alone = [](Number y) { return test::Truth::Value{y, std::fabs(y)}; };
        return {alone(pp * r.yyy), alone(pt * r.xyy), alone(tt * r.xxy)};
    }
    // Of v(p, t) by those of the reduced pressure -psi_chi: y is chi.
    const Number v_t = -r.xy / r.yy;
    const auto sum = [](Number scale, std::initializer_list<Number> terms) {
        test::Truth::Value y{0, 0};
        for (const Number term : terms) y.value += scale * term, y.size += std::fabs(scale * term);
        return y;
    };
    return {sum(pp, {r.yyy / (r.yy * r.yy * r.yy) * -1}), sum(pt / r.yy / r.yy, {r.xyy, r.yyy * v_t}),
            sum(-tt / r.yy, {r.xxy, 2 * r.xyy * v_t, r.yyy * v_t * v_t})};
}

/// The worst errors: of each derivative relative to itself, and of all relative to their terms.
struct Errors {
    Number pairs[regions][9][9] = {}, second[regions][3] = {};
    Number of_terms[regions] = {}, second_of_terms[regions] = {};
    int count[regions] = {};

    void add(const Reference& r) {
        using namespace ktl;
        const int k = r.region - 1;
        ++count[k];
        const State y = r.region == 3 ? state(Pair::tv, r.t, r.primary) : state(Pair::pt, r.primary, r.t);
        const test::Truth truth =
            r.region == 3 ? test::helmholtz_truth(r, r.primary, r.t) : test::gibbs_truth(r, r.primary, r.t);
        for (std::size_t of = 0; of < 9; ++of)
            for (std::size_t by = 0; by < 9; ++by)
                for (std::size_t held = 0; held < 9; ++held) {
                    if (test::hold_each_other(nine[by], nine[held]) || test::hold_each_other(nine[of], nine[held]) ||
                        of == by)
                        continue;
                    const auto [value, size] = truth.derivative(of, by, held);
                    const Number error = std::fabs(derivative(y, nine[of], nine[by], nine[held]) - value);
                    pairs[k][of][by] = std::fmax(pairs[k][of][by], error / std::fabs(value));
                    of_terms[k] = std::fmax(of_terms[k], error / size);
                }
        constexpr Property orders[][2] = {
            {Property::p, Property::p}, {Property::p, Property::t}, {Property::t, Property::t}};
        const Second wanted = second_of(r);
        for (std::size_t n = 0; n < 3; ++n) {
            const Number error = std::fabs(volume_second_derivative(y, orders[n][0], orders[n][1]) - wanted[n].value);
            second[k][n] = std::fmax(second[k][n], error / std::fabs(wanted[n].value));
            second_of_terms[k] = std::fmax(second_of_terms[k], error / wanted[n].size);
        }
    }

    /// An error that is not a number fails too.
    [[nodiscard]] bool all_hold() const {
        const auto holds = [](Number error) { return error <= promised; };
        return std::all_of(of_terms, of_terms + regions, holds) &&
               std::all_of(second_of_terms, second_of_terms + regions, holds) &&
               std::all_of(count, count + regions, [](int n) { return n >= 30; });
    }
};

Number at_least(Number error) { return error < least ? least : error; }

void print_table(const Errors& errors) {
    for (int k = 0; k < regions; ++k) {
        std::printf("\n### Sub-region %d, %d states\n\n| of, by |", k + 1, errors.count[k]);
        for (const Property by : nine) std::printf(" %s |", ktl::test::name_of(by));
        std::printf("\n| --- |");
        for (int by = 0; by < 9; ++by) std::printf(" --- |");
        for (std::size_t of = 0; of < 9; ++of) {
            std::printf("\n| %s |", ktl::test::name_of(nine[of]));
            for (std::size_t by = 0; by < 9; ++by)
                if (of == by)
                    std::printf(" - |");
                else
                    std::printf(" %.0Le |", at_least(errors.pairs[k][of][by]));
        }
        std::printf(
            "\n\nRelative to the terms: %.0Le. Second derivatives of v, relative to themselves: (d2v/dp2) %.0Le, "
            "(d2v/dpdt) %.0Le, (d2v/dt2) %.0Le; relative to their terms %.0Le.\n",
            errors.of_terms[k], errors.second[k][0], errors.second[k][1], errors.second[k][2],
            errors.second_of_terms[k]);
    }
}

constexpr const char* page =
    "# Errors of derivatives\n\n"
    "Written by `build/release/tools/derivatives/ktl_derivatives table tests/data/free_energy_derivatives.csv`; the "
    "test\n"
    "`documents.derivatives` compares. The reference is that of `tools/derivatives/reference.py`: the free energies of "
    "the\n"
    "formulation, written there as published, differentiated in arithmetic of 60 digits at the random states of\n"
    "`ktl_derivatives states 60 67`.\n\n"
    "Each cell is the worst relative error of a derivative over all states and over all properties that are held, in "
    "units of\n"
    "the derivative itself. Where terms cancel it is large although the terms are right, so a line below each table "
    "gives the\n"
    "worst error in units of the terms. Most errors are those of the printed digits: the formulation's equations hold "
    "products\n"
    "of coefficients that are rounded to ten digits. An error below 1e-13 is shown as 1e-13.\n";

} // namespace

int main(int count, char** arguments) {
    const std::string task = count > 1 ? arguments[1] : "";
    if (task == "states" && count == 4) {
        print_states(std::atoi(arguments[2]), static_cast<unsigned>(std::atoi(arguments[3])));
        return 0;
    }
    if (task != "table" || count != 3) {
        std::fprintf(stderr, "usage: ktl_derivatives states N SEED | table REFERENCE\n");
        return 2;
    }
    Errors errors;
    for (const Reference& reference : read(arguments[2])) errors.add(reference);
    std::fputs(page, stdout);
    print_table(errors);
    return errors.all_hold() ? 0 : 1;
}
