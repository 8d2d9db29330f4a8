// A digest of the bits that the library gives: every platform builds this program and prints the same lines. Fixed rows of all
// pairs, by single calls and by columns; every state of them; the saturation line; the named routines and their report
// lines. With the argument "rows", the bits of each result, one row to a line, to find a difference.
//
// The rows are drawn by integers, sums and products alone, so they are the same wherever the results are.
#include "support/pairs.hpp"
#include "support/random.hpp"

#include <algorithm>
#include <cinttypes>
#include <cmath>
#include <cstdio>
#include <cstring>

namespace {

using namespace ktl;
using test::Random;

#ifndef KTL_DIGEST_ROWS
#define KTL_DIGEST_ROWS 2000
#endif
constexpr std::size_t rows = KTL_DIGEST_ROWS;
bool print_rows = false;

/// A hash of 64-bit words (FNV-1a). Sign and payload of a not-a-number are the compiler's choice, all other bits are not.
class Digest {
public:
    void add(std::uint64_t word) {
        for (int byte = 0; byte < 8; ++byte) hash_ = (hash_ ^ (word >> 8 * byte & 0xff)) * 0x100000001b3;
        if (print_rows) std::printf(" %016" PRIx64, word);
    }
    void add(double value) {
        std::uint64_t word = 0x7ff8000000000000;
        if (!std::isnan(value)) std::memcpy(&word, &value, sizeof word);
        add(word);
    }
    /// A line of the digest, and the beginning of the next one.
    void line(const char* name, std::size_t count) {
        std::printf("%s%-10s %6zu %016" PRIx64 "\n", print_rows ? "\n" : "", name, count, hash_);
        hash_ = 0xcbf29ce484222325;
    }

private:
    std::uint64_t hash_ = 0xcbf29ce484222325;
};

void begin_row(const char* name, std::size_t row) {
    if (print_rows) std::printf("\n%s %zu", name, row);
}

/// Pressures spread over the logarithm.
double pressure(Random& random) {
    double p = random.between(0.0061, 0.0122);
    for (unsigned doublings = random.below(17); doublings > 0; --doublings) p *= 2.0;
    return p;
}

/// The values of a state of any kind; one row in eight has a value that may belong to none.
void draw(Random& random, const test::PairRow& pair, double& a, double& b) {
    const double p = pressure(random);
    const double t = random.between(0.01, random.below(4) == 0 ? 12.0 : 800.0);
    const double near_critical = random.between(345.0, 378.0);
    const double x = random.between(0.0, 1.0);
    State drawn;
    switch (random.below(8)) {
    case 0: drawn = state(Pair::px, p, x); break;
    case 1: drawn = state(Pair::tx, near_critical, x); break;
    case 2: drawn = state(Pair::pt, random.between(160.0, 300.0), near_critical); break;
    // Most pairs need the exact search for these: cold water, the top of the dome, next to the line of saturation and at 350 degC.
    case 3: drawn = state(Pair::pt, p, random.between(0.01, 12.0)); break;
    case 4: drawn = state(Pair::tx, random.between(374.1, 374.15), x); break;
    case 5: drawn = state(Pair::tx, random.between(0.01, 374.0), 1.0e-7 * x); break;
    case 6: drawn = state(Pair::pt, random.between(166.0, 1000.0), 350.0); break;
    default: drawn = state(Pair::pt, p, t); break;
    }
    a = drawn.get(pair.a);
    b = drawn.get(pair.b);
    if (random.below(8) == 0) b *= random.between(0.9, 1.1);
}

void add(Digest& digest, const State& found) {
    digest.add(static_cast<std::uint64_t>(found.status()));
    for (unsigned k = 0; k < property_count; ++k) digest.add(found.get(static_cast<Property>(k)));
    for (const Phase& phase : {found.liquid(), found.vapour()})
        for (unsigned k = 0; k < property_count; ++k) digest.add(phase.get(static_cast<Property>(k)));
}

double a[rows], b[rows], results[property_count][rows];
Status statuses[rows];
Property properties[property_count];

void digest_pair(Random& random, std::size_t number) {
    const test::PairRow& pair = test::pairs[number];
    const auto code = static_cast<Pair>(number);
    Digest digest;
    double* outputs[property_count];
    for (unsigned k = 0; k < property_count; ++k) outputs[k] = results[k];
    for (std::size_t i = 0; i < rows; ++i) {
        draw(random, pair, a[i], b[i]);
        begin_row(pair.name, i);
        digest.add(a[i]);
        digest.add(b[i]);
        add(digest, state(code, a[i], b[i]));
    }
    const BatchResult done = batch(code, a, b, properties, outputs, statuses, {.threads = 2});
    for (std::size_t i = 0; i < rows; ++i) {
        begin_row("column", i);
        digest.add(static_cast<std::uint64_t>(statuses[i]));
        for (const auto& column : results) digest.add(column[i]);
    }
    digest.line(pair.name, done.solved);
    std::size_t states = 0;
    for (std::size_t i = 0; i < rows; i += 20) {
        begin_row("states", i);
        const int count = state_count(code, a[i], b[i]);
        states += static_cast<std::size_t>(count);
        for (int n = 0; n < count; ++n) add(digest, state(code, a[i], b[i], n));
    }
    digest.line("  states", states);
}

void digest_line(Random& random) {
    Digest digest;
    for (std::size_t i = 0; i < rows; ++i) {
        a[i] = random.between(-1.0, 376.0);
        b[i] = pressure(random);
    }
    saturation_pressure(a, results[0]);
    saturation_temperature(b, results[1]);
    for (std::size_t i = 0; i < rows; ++i) {
        begin_row("line", i);
        for (const double y : {results[0][i], saturation_pressure(a[i]), results[1][i], saturation_temperature(b[i]),
                               saturation_slope(a[i])})
            digest.add(y);
    }
    digest.line("line", 2 * rows);
}

Digest written;
std::size_t lines = 0;
int take_line(int unit, const char* text, std::size_t length) {
    written.add(static_cast<std::uint64_t>(unit));
    for (std::size_t i = 0; i < length; ++i) written.add(static_cast<std::uint64_t>(text[i]));
    ++lines;
    return 1;
}

void digest_equations(Random& random) {
    constexpr std::array equations{ktl_c1, ktl_d1, ktl_e1, ktl_f1, ktl_h1, ktl_c2, ktl_d2, ktl_e2, ktl_f2,
                                   ktl_h2, ktl_a3, ktl_d3, ktl_e3, ktl_f3, ktl_h3, cp3e,   ktl_ci, ktl_cj};
    Digest digest;
    for (std::size_t i = 0; i < rows; ++i) {
        begin_row("equations", i);
        const std::size_t n = i % equations.size();
        const double first = n >= 10 ? random.between(0.00131, 0.0088) : pressure(random);
        const double t = n >= 10 ? random.between(350.0, 590.0) : random.between(0.01, n < 5 ? 350.0 : 800.0);
        digest.add(equations[n](first, t));
        digest.add(ktl_pt(t));
        digest.add(psl1(t));
        digest.add(ktl_it(pressure(random)));
    }
    digest.line("equations", rows);
}

void digest_finders(Random& random) {
    Digest digest;
    for (const test::PairRow& pair : test::pairs) {
        for (std::size_t i = 0; i < rows / 10; ++i) {
            begin_row(pair.finder, i);
            double first = 0.0;
            double second = 0.0;
            draw(random, pair, first, second);
            std::array<double, 9> out{};
            ktlftn(pair.find, first, second, "P,T,V,H,S,X,CP,DV,TC.", out.data());
            digest.add(static_cast<std::uint64_t>(pair.find(first, second, 1.0e-8)));
            digest.add(first);
            digest.add(second);
            for (const double y : out) digest.add(y);
        }
    }
    digest.line("finders", pair_count * (rows / 10));
}

} // namespace

int main(int count, char** arguments) {
    print_rows = count > 1 && std::strcmp(arguments[1], "rows") == 0;
    for (unsigned k = 0; k < property_count; ++k) properties[k] = static_cast<Property>(k);
    ktl_set_line_writer(take_line);
    Random random(1967);
    for (std::size_t pair = 0; pair < pair_count; ++pair) digest_pair(random, pair);
    digest_line(random);
    digest_equations(random);
    digest_finders(random);
    std::printf("%-10s %6d\n", "errors", ktlerr.ientry);
    written.line("lines", lines);
    return 0;
}
