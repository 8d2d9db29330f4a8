#include "fit.hpp"

#include <Eigen/Dense>
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <sstream>

namespace first_guesses {

namespace guesses = ktl::engine::guesses;

double transform(Scale scale, double x) {
    switch (scale) {
    case Scale::linear: return x;
    case Scale::log: return guesses::transform<Scale::log>(x);
    case Scale::root: return guesses::transform<Scale::root>(x);
    case Scale::fourth_root: return guesses::transform<Scale::fourth_root>(x);
    case Scale::reciprocal: return guesses::transform<Scale::reciprocal>(x);
    case Scale::below_critical_p: return guesses::transform<Scale::below_critical_p>(x);
    case Scale::below_critical_t: return guesses::transform<Scale::below_critical_t>(x);
    case Scale::above_least_volume: return guesses::transform<Scale::above_least_volume>(x);
    }
    return x;
}

double inverse_transform(Scale scale, double x) {
    switch (scale) {
    case Scale::log: return guesses::inverse_transform<Scale::log>(x);
    case Scale::root: return guesses::inverse_transform<Scale::root>(x);
    case Scale::reciprocal: return guesses::inverse_transform<Scale::reciprocal>(x);
    default: return x;
    }
}

namespace {

constexpr int passes = 12;

Interval span_of(const std::vector<double>& x) {
    const auto [low, high] = std::minmax_element(x.begin(), x.end());
    return *low < *high ? Interval{0.5 * (*low + *high), 2.0 / (*high - *low)} : Interval{*low, 1.0};
}

/// T_k in powers of x: row k.
Eigen::MatrixXd chebyshev_powers(std::size_t n) {
    const auto size = static_cast<Eigen::Index>(n);
    Eigen::MatrixXd m = Eigen::MatrixXd::Zero(size, size);
    m(0, 0) = 1.0;
    if (n > 1) m(1, 1) = 1.0;
    for (Eigen::Index k = 2; k < size; ++k) {
        m.row(k).tail(size - 1) = 2.0 * m.row(k - 1).head(size - 1);
        m.row(k) -= m.row(k - 2);
    }
    return m;
}

std::vector<double> chebyshev(double x, std::size_t n) {
    std::vector<double> values{1.0, x};
    while (values.size() < n) values.push_back(2.0 * x * values.back() - values[values.size() - 2]);
    return values;
}

struct Term {
    std::size_t i, j;
};

std::vector<Term> terms_of(const Shape& shape) {
    std::vector<Term> terms;
    for (std::size_t i = 0; i < shape.na; ++i)
        for (std::size_t j = 0; j < shape.nb && i + j <= shape.total; ++j) terms.push_back({i, j});
    return terms;
}

std::string number(double x) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.11g", x);
    return text.data();
}

const char* name(Scale scale) {
    static constexpr std::array names{"linear",
                                      "log",
                                      "root",
                                      "fourth_root",
                                      "reciprocal",
                                      "below_critical_p",
                                      "below_critical_t",
                                      "above_least_volume"};
    return names[static_cast<std::size_t>(scale)];
}

std::string span_text(const Interval& span) {
    std::ostringstream text;
    text << '{' << number(span.center) << ", " << number(span.inverse_half_width) << '}';
    return text.str();
}

} // namespace

Polynomial fit(const Shape& shape, const std::vector<Point>& points) {
    std::vector<double> a, b;
    for (const Point& point : points) {
        a.push_back(transform(shape.a, point.a));
        b.push_back(transform(shape.b, point.b));
    }
    Polynomial out{shape, span_of(a), span_of(b), std::vector<double>(shape.na * shape.nb)};

    const auto terms = terms_of(shape);
    const auto rows = static_cast<Eigen::Index>(points.size());
    const auto columns = static_cast<Eigen::Index>(terms.size());
    Eigen::MatrixXd basis(rows, columns);
    Eigen::VectorXd wanted(rows), cost(rows);
    for (Eigen::Index r = 0; r < rows; ++r) {
        const auto k = static_cast<std::size_t>(r);
        const auto ta = chebyshev(out.a_span(a[k]), shape.na), tb = chebyshev(out.b_span(b[k]), shape.nb);
        for (Eigen::Index c = 0; c < columns; ++c) {
            const Term term = terms[static_cast<std::size_t>(c)];
            basis(r, c) = ta[term.i] * tb[term.j];
        }
        wanted(r) = transform(shape.z, points[k].z);
        cost(r) = points[k].weight;
    }

    // Points that are missed most get more weight, pass after pass.
    Eigen::VectorXd weight = cost, best, found;
    double least = 1.0e300;
    for (int pass = 0; pass < passes; ++pass) {
        const Eigen::MatrixXd weighted = weight.asDiagonal() * basis;
        found = (weighted.transpose() * weighted +
                 1.0e-13 * static_cast<double>(rows) * Eigen::MatrixXd::Identity(columns, columns))
                    .ldlt()
                    .solve(weighted.transpose() * weight.cwiseProduct(wanted));
        const Eigen::VectorXd miss = cost.cwiseProduct((basis * found - wanted).cwiseAbs());
        const double rms = std::sqrt(miss.squaredNorm() / static_cast<double>(rows));
        if (miss.maxCoeff() + 3.0 * rms < least) {
            least = miss.maxCoeff() + 3.0 * rms;
            best = found;
        }
        weight = weight.cwiseProduct((miss / rms).cwiseMax(0.1).cwiseMin(10.0).cwiseSqrt());
        weight /= std::sqrt(weight.squaredNorm() / static_cast<double>(rows));
    }

    const Eigen::MatrixXd pa = chebyshev_powers(shape.na), pb = chebyshev_powers(shape.nb);
    for (std::size_t k = 0; k < terms.size(); ++k)
        for (std::size_t i = 0; i <= terms[k].i; ++i)
            for (std::size_t j = 0; j <= terms[k].j; ++j) {
                const auto at = [](std::size_t n) { return static_cast<Eigen::Index>(n); };
                out.c[i * shape.nb + j] += best(at(k)) * pa(at(terms[k].i), at(i)) * pb(at(terms[k].j), at(j));
            }

    double sum = 0.0;
    for (const Point& point : points) {
        const double miss = std::fabs(out(point.a, point.b) - point.z);
        out.greatest = std::max(out.greatest, miss);
        sum += miss * miss;
    }
    out.rms = std::sqrt(sum / static_cast<double>(rows));
    return out;
}

double Polynomial::operator()(double a, double b) const {
    const double x = a_span(transform(shape.a, a)), y = b_span(transform(shape.b, b));
    double sum = 0.0;
    for (std::size_t i = shape.na; i-- > 0;) {
        double inner = 0.0;
        for (std::size_t j = shape.nb; j-- > 0;) inner = c[i * shape.nb + j] + y * inner;
        sum = inner + x * sum;
    }
    return inverse_transform(shape.z, sum);
}

namespace {

std::string row_text(const std::vector<double>& c, std::size_t begin, std::size_t n) {
    std::ostringstream text;
    for (std::size_t k = 0; k < n; ++k) text << (k > 0 ? ", " : "{") << number(c[begin + k]);
    text << '}';
    return text.str();
}

} // namespace

std::string Polynomial::curve_text() const {
    std::ostringstream text;
    text << "{Scale::" << name(shape.a) << ", Scale::" << name(shape.z) << ", " << span_text(a_span) << ", "
         << row_text(c, 0, shape.na) << '}';
    return text.str();
}

std::string Polynomial::fit_text() const {
    return '{' + number(a_span.center) + ", " + number(a_span.inverse_half_width) + ", " + row_text(c, 0, shape.na) +
           '}';
}

std::string Polynomial::surface_text() const {
    std::ostringstream text;
    text << "{Scale::" << name(shape.a) << ", Scale::" << name(shape.b) << ", Scale::" << name(shape.z) << ", "
         << span_text(a_span) << ", " << span_text(b_span) << ",\n    {";
    for (std::size_t i = 0; i < shape.na; ++i) text << (i > 0 ? ",\n     " : "") << row_text(c, i * shape.nb, shape.nb);
    text << "}}";
    return text.str();
}

} // namespace first_guesses
