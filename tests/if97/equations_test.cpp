// The equations of IF97: the values printed in its release, the digits of its coefficients, and every property against
// derivatives of the free-energy function taken by dual numbers.
#include "if97/phases.hpp"

#include "support/compare.hpp"
#include "support/csv.hpp"
#include "support/dual.hpp"
#include "support/random.hpp"

#include <map>

namespace {

using namespace ktl;
using namespace ktl::test;

/// Rows of each table of the release: exponents (0 if there is none) and coefficient.
struct Row {
    double i, j;
    double n;
};
using Table = std::vector<Row>;
const std::map<std::string, Table>& tables() {
    static const std::map<std::string, Table> all = [] {
        std::map<std::string, Table> out;
        for (const auto& row : read_csv(KTL_TEST_DATA "/if97_coefficients.csv"))
            out[row.at("table")].push_back({number(row.at("I")), number(row.at("J")), number(row.at("n"))});
        return out;
    }();
    return all;
}

template <std::size_t n>
void expect_table(const char* name, const if97::Term (&code)[n], std::size_t first = 0) {
    const Table& printed = tables().at(name);
    ASSERT_EQ(printed.size(), n + first) << name;
    for (std::size_t k = 0; k < n; ++k) {
        EXPECT_EQ(code[k].i, printed[k + first].i) << name << " row " << k + 1;
        EXPECT_EQ(code[k].j, printed[k + first].j) << name << " row " << k + 1;
        EXPECT_EQ(code[k].n, printed[k + first].n) << name << " row " << k + 1;
    }
}

/// The printed values do not show an error of 1e-8 in 55 of the 141 coefficients.
TEST(If97, Coefficients) {
    expect_table("region1", if97::region1::table);
    expect_table("region2-ideal", if97::region2::ideal_table);
    expect_table("region2-residual", if97::region2::residual_table);
    expect_table("region3", if97::region3::table, 1);
    EXPECT_EQ(if97::region3::n1, tables().at("region3").front().n);
    const auto expect_list = [](const char* name, const auto& code) {
        ASSERT_EQ(code.size(), tables().at(name).size());
        for (std::size_t k = 0; k < code.size(); ++k) EXPECT_EQ(code[k], tables().at(name)[k].n) << name << k + 1;
    };
    expect_list("region4", if97::saturation::n);
    expect_list("boundary23", if97::boundary_n);
}

/// The quantity of a phase, in the units of the release: MPa instead of bar.
double value(const std::string& quantity, const PhaseProperties<double>& y) {
    if (quantity == "p") return y.p / 10.0;
    if (quantity == "v") return y.v;
    if (quantity == "h") return y.h;
    if (quantity == "u") return internal_energy(y.h, y.p, y.v);
    if (quantity == "s") return y.s;
    if (quantity == "cp") return y.cp;
    if (quantity == "cv") return y.cv;
    if (quantity == "w") return std::sqrt(y.speed_of_sound_squared);
    if (quantity == "alphav") return y.dvdt / y.v;
    if (quantity == "kappaT") return -10.0 * y.dvdp / y.v;
    if (quantity == "dp_drho") return -y.v * y.v / y.dvdp / 10.0;
    ADD_FAILURE() << quantity;
    return quiet_nan;
}

double computed(const std::string& region, const std::string& quantity, const std::map<std::string, double>& in) {
    const auto p = [&] { return 10.0 * in.at("p"); };
    const auto t = [&] { return in.at("T") - 273.15; };
    if (quantity == "ps") return if97::saturation::pressure(t()) / 10.0;
    if (quantity == "Ts") return if97::saturation::temperature(p()) + 273.15;
    if (region == "boundary23")
        return quantity == "p" ? if97::boundary_pressure(t()) / 10.0 : if97::boundary_temperature(p()) + 273.15;
    if (region == "1") return value(quantity, if97::water(p(), t()));
    if (region == "2") return value(quantity, if97::steam(p(), t()));
    return value(quantity, from_helmholtz(if97::near_critical(1.0 / in.at("rho"), t())));
}

/// Half a unit of the last digit of a number printed as 0.123E+01, and a little for the conversion of units.
double half_last_digit(const std::string& printed) {
    const auto e = printed.find('E');
    const auto mantissa = e == std::string::npos ? printed : printed.substr(0, e);
    const double digits = static_cast<double>(mantissa.size() - mantissa.find('.') - 1);
    const double exponent = e == std::string::npos ? 0.0 : number(printed.substr(e + 1));
    return 0.5001 * std::pow(10.0, exponent - digits);
}

TEST(If97, PrintedValues) {
    const auto rows = read_csv(KTL_TEST_DATA "/if97_values.csv");
    ASSERT_EQ(rows.size(), 83U);
    for (const auto& row : rows) {
        std::map<std::string, double> in;
        for (const char* input : {"input1", "input2"}) {
            const std::string& text = row.at(input);
            if (!text.empty()) in[text.substr(0, text.find('='))] = number(text.substr(text.find('=') + 1));
        }
        const std::string& quantity = row.at("quantity");
        const auto what = named(row.at("region"), " ", row.at("input1"), " ", row.at("input2"), " ", quantity);
        EXPECT_TRUE(within(what, computed(row.at("region"), quantity, in), number(row.at("value")),
                           half_last_digit(row.at("value"))));
    }
}

/// The reduced functions, from the printed table alone.
template <class D>
D sum(const char* name, const D& x, const D& y) {
    D total(0.0);
    for (const Row& row : tables().at(name)) total = total + row.n * pow(x, row.i) * pow(y, row.j);
    return total;
}
template <class D>
D gamma1(const D& pi, const D& tau) {
    return sum("region1", D(7.1 - pi), D(tau - 1.222));
}
template <class D>
D gamma2(const D& pi, const D& tau) {
    return log(pi) + sum("region2-ideal", D(1.0), tau) + sum("region2-residual", pi, D(tau - 0.5));
}
template <class D>
D phi(const D& delta, const D& tau) {
    const double n1 = tables().at("region3").front().n;
    return sum("region3", delta, tau) - n1 + n1 * log(delta); // the first row of the table has no exponents
}

struct Wanted {
    long double p, v, h, s, cp, cv, w2, dvdt, dvdp;
};

/// Rounding of double precision: measured 1.02e-13 of h in region 3, whose terms cancel in part, less of v, h, s elsewhere.
void expect_phase(const std::string& at, const PhaseProperties<double>& y, const Wanted& w) {
    EXPECT_TRUE(close(at + "p", y.p, static_cast<double>(w.p), 1e-11, 1.0));
    EXPECT_TRUE(close(at + "v", y.v, static_cast<double>(w.v), 2e-13));
    EXPECT_TRUE(close(at + "h", y.h, static_cast<double>(w.h), 2e-13, 1000.0));
    EXPECT_TRUE(close(at + "s", y.s, static_cast<double>(w.s), 2e-13, 3.0));
    EXPECT_TRUE(close(at + "cp", y.cp, static_cast<double>(w.cp), 1e-11));
    EXPECT_TRUE(close(at + "cv", y.cv, static_cast<double>(w.cv), 1e-11));
    EXPECT_TRUE(close(at + "w2", y.speed_of_sound_squared, static_cast<double>(w.w2), 1e-11));
    EXPECT_TRUE(close(at + "dvdt", y.dvdt, static_cast<double>(w.dvdt), 1e-11, static_cast<double>(w.v) * 1e-3));
    EXPECT_TRUE(close(at + "dvdp", y.dvdp, static_cast<double>(w.dvdp), 1e-11));
}

constexpr long double gas = 0.461526L;

/// Properties by the table of the release, from the derivatives of gamma; pressures p in bar, p_star in kPa.
template <class Gamma>
Wanted from_gamma(Gamma&& gamma, double p, double t, long double p_star, long double t_star) {
    const long double kelvin = t + 273.15L;
    const long double pi = p * 100.0L / p_star;
    const long double tau = t_star / kelvin;
    const auto g = derivatives(gamma, pi, tau);
    const long double v = gas * kelvin / p_star * g.x;
    const long double a = g.x - tau * g.xy;
    const long double cp = -gas * tau * tau * g.yy;
    return {p,
            v,
            gas * kelvin * tau * g.y,
            gas * (tau * g.y - g.f),
            cp,
            cp + gas * a * a / g.xx,
            1000.0L * gas * kelvin * g.x * g.x / (a * a / (tau * tau * g.yy) - g.xx),
            v * a / (g.x * kelvin),
            v * 100.0L / p_star * g.xx / g.x};
}

TEST(If97, DerivativesOfRegions1And2) {
    Random random(97);
    for (int k = 0; k < 2000; ++k) {
        const double t = random.between(0.01, 350.0);
        const double p = random.between(if97::saturation::pressure(t), 1000.0);
        const auto wanted =
            from_gamma([](const auto& x, const auto& y) { return gamma1(x, y); }, p, t, 16530.0L, 1386.0L);
        expect_phase(named("water at ", p, ", ", t, ": "), if97::water(p, t), wanted);
    }
    for (int k = 0; k < 2000; ++k) {
        const double t = random.between(0.01, 800.0);
        const double most = t <= 350.0   ? if97::saturation::pressure(t)
                            : t <= 590.0 ? if97::boundary_pressure(t)
                                         : 1000.0;
        const double p = random.logarithmic(0.006, most);
        const auto wanted =
            from_gamma([](const auto& x, const auto& y) { return gamma2(x, y); }, p, t, 1000.0L, 540.0L);
        expect_phase(named("steam at ", p, ", ", t, ": "), if97::steam(p, t), wanted);
    }
}

TEST(If97, DerivativesOfRegion3) {
    Random random(3);
    for (int k = 0; k < 2000; ++k) {
        const double t = random.between(350.0, 590.0);
        const double v = random.between(1.0 / 760.0, 1.0 / 115.0);
        const long double kelvin = t + 273.15L;
        const long double delta = 1.0L / v / 322.0L;
        const long double tau = 647.096L / kelvin;
        const auto f = derivatives([](const auto& x, const auto& y) { return phi(x, y); }, delta, tau);
        const long double a = delta * f.x - delta * tau * f.xy;
        const long double b = 2.0L * delta * f.x + delta * delta * f.xx;
        if (b < 0.05L) continue; // inside the two phases, or so near the critical point that the rounding of b tells
        const long double cv = -gas * tau * tau * f.yy;
        const long double dvdp = -v / (gas * kelvin * b / v / 100.0L);
        const Wanted wanted{gas * kelvin / v * delta * f.x / 100.0L,
                            v,
                            gas * kelvin * (tau * f.y + delta * f.x),
                            gas * (tau * f.y - f.f),
                            cv + gas * a * a / b,
                            cv,
                            1000.0L * gas * kelvin * (b - a * a / (tau * tau * f.yy)),
                            v * a / (kelvin * b),
                            dvdp};
        expect_phase(named("near-critical at ", v, ", ", t, ": "), from_helmholtz(if97::near_critical(v, t)), wanted);
    }
}

/// The slope against the equation of the line by dual numbers; temperature and pressure are inverse to each other.
TEST(If97, SaturationLine) {
    Random random(4);
    for (int k = 0; k < 3000; ++k) {
        const double t = random.between(0.01, if97::saturation::critical_temperature);
        const auto terms = if97::saturation::terms(t);
        const double p = if97::saturation::pressure(terms);
        const auto dual = if97::saturation::pressure(Dual<long double>(t, 1.0L));
        EXPECT_TRUE(close(named("p at ", t), p, static_cast<double>(dual.v), 1e-13));
        EXPECT_TRUE(close(named("slope at ", t), if97::saturation::slope(terms), static_cast<double>(dual.d), 1e-12));
        EXPECT_TRUE(within(named("t at ", p), if97::saturation::temperature(p), t, 1e-11));
    }
}

} // namespace
