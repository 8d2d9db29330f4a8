// Charts as engineers know them, and the values of their lines for any window.
#include "diagram/frame.hpp"

#include "engine/calls/float_environment.hpp"

#include <algorithm>
#include <array>
#include <cmath>

namespace ktl::diagram {

namespace {

struct FamilyForm {
    Property held;
    double lines;      ///< how many there are about, of those with equal steps; below zero: no family
    bool outside_dome; ///< not drawn in two phases
    double place;      ///< of labels along a line
};

constexpr FamilyForm no_family{Property::x, -1.0, false, 0.0};

struct PresetForm {
    Property x, y;
    bool logarithmic_x, logarithmic_y;
    Pair pair; ///< of y and x
    Window window;
    std::array<FamilyForm, 4> families;
};

const PresetForm& form(Preset preset) {
    using P = Property;
    // clang-format off
    static constexpr std::array<PresetForm, 5> all{{
        {P::s, P::h, false, false, Pair::hs, {5.0, 9.5, 1800.0, 4200.0},
         {{{P::p, 0.0, false, 0.93}, {P::t, 16.0, true, 0.04}, {P::x, 12.0, false, 0.3}, {P::v, 0.0, false, 0.75}}}},
        {P::s, P::t, false, false, Pair::ts, {0.0, 10.0, 0.0, 800.0},
         {{{P::p, 0.0, false, 0.93}, {P::h, 22.0, false, 0.1}, {P::x, 10.0, false, 0.4}, {P::v, 0.0, false, 0.8}}}},
        {P::h, P::p, false, true, Pair::ph, {0.0, 4200.0, 0.01, 1000.0},
         {{{P::t, 16.0, false, 0.1}, {P::s, 22.0, false, 0.7}, {P::x, 10.0, false, 0.3}, {P::v, 0.0, false, 0.8}}}},
        {P::v, P::p, true, true, Pair::pv, {0.0005, 500.0, 0.005, 1000.0},
         {{{P::t, 6.0, false, 0.15}, {P::s, 12.0, false, 0.6}, {P::x, 10.0, false, 0.3}, no_family}}},
        {P::t, P::p, false, true, Pair::pt, {0.0, 800.0, 0.006, 1000.0},
         {{{P::h, 22.0, false, 0.5}, {P::s, 22.0, false, 0.7}, {P::v, 0.0, false, 0.8}, no_family}}},
    }};
    // clang-format on
    return all[std::min(static_cast<std::size_t>(preset), all.size() - 1)];
}

double in_unit(double value, Property property, System system) {
    return units::Reading{unit(system, property), false, units::Fault::none}.from_ktl(value, 0.0);
}
double from_unit(double value, Property property, System system) {
    return units::Reading{unit(system, property), false, units::Fault::none}.to_ktl(value, 0.0);
}

/// The least and the largest value of a property in the window.
struct Extent {
    double low = 0.0, high = 0.0;
    bool found = false;
    void add(double value) {
        if (std::isnan(value)) return;
        low = found ? std::min(low, value) : value;
        high = found ? std::max(high, value) : value;
        found = true;
    }
};

double between(double low, double high, double part, bool logarithmic) {
    if (!logarithmic) return low + part * (high - low);
    return exponential(natural_log(low) + part * (natural_log(high) - natural_log(low)));
}

constexpr int cells = 12;

/// Of a net of states over the window.
std::array<Extent, 4> extents(const PresetForm& form, const Window& window) {
    std::array<Extent, 4> all;
    for (int i = 0; i <= cells; ++i) {
        for (int k = 0; k <= cells; ++k) {
            const double x = between(window.left, window.right, static_cast<double>(i) / cells, form.logarithmic_x);
            const double y = between(window.bottom, window.top, static_cast<double>(k) / cells, form.logarithmic_y);
            const State found = state(form.pair, y, x);
            if (!found) continue;
            for (std::size_t n = 0; n < all.size(); ++n) all[n].add(found.get(form.families[n].held));
        }
    }
    return all;
}

/// The step of 1, 2, 5, 10 and so on that is nearest to a length.
double round_step(double length) {
    const std::vector<double> steps = sequence_125(0.3 * length, 3.0 * length);
    return *std::min_element(steps.begin(), steps.end(), [&](double a, double b) {
        return std::fabs(natural_log(a / length)) < std::fabs(natural_log(b / length));
    });
}

/// Of pressures and volumes: 1, 2, 5 and so on over many decades, more over few of them, equal steps over less than one.
std::vector<double> ratio_values(double low, double high) {
    const double ratio = high / low;
    if (ratio < 8.0) return sequence(low, high, round_step((high - low) / 10.0));
    std::vector<double> all = sequence_125(low, high);
    if (ratio > 300.0) return all;
    for (const double one : sequence_125(0.1 * low, high))
        for (const double factor : {1.5, 3.0, 4.0, 6.0, 8.0})
            if (const double value = factor * one; sequence_125(one, one).size() == 1 && value >= low && value <= high)
                all.push_back(value);
    std::sort(all.begin(), all.end());
    all.erase(std::unique(all.begin(), all.end()), all.end());
    return all;
}

/// Over what lies between the states of the net and the edges of the window. Values beyond make lines without pieces.
Extent widened(Extent extent, Property property, bool by_ratio) {
    constexpr double part = 1.0 / cells, slightly = 1.0e-6;
    if (by_ratio) {
        const double factor = exponential(part * natural_log(extent.high / extent.low));
        extent.low = extent.low / factor;
        extent.high = extent.high * factor;
    } else {
        const double more = part * (extent.high - extent.low);
        extent.low -= more;
        extent.high += more;
    }
    const auto within = [&](double least, double most) {
        extent.low = std::max(extent.low, least);
        extent.high = std::min(extent.high, most);
    };
    if (property == Property::p) within(least_pressure, highest_pressure);
    if (property == Property::t) within(least_temperature, highest_temperature);
    if (property == Property::x) within(slightly, 1.0 - slightly); // the dome itself is no line of the family
    return extent;
}

std::vector<double> family_values(const FamilyForm& form, const Extent& extent, System system) {
    if (!extent.found) return {};
    const bool by_ratio = form.held == Property::p || form.held == Property::v;
    const Extent wide = widened(extent, form.held, by_ratio);
    const double low = in_unit(wide.low, form.held, system), high = in_unit(wide.high, form.held, system);
    std::vector<double> values;
    if (by_ratio)
        values = ratio_values(low, high);
    else if (high > low)
        values = sequence(
            low, high, form.held == Property::t && high - low > 300.0 ? 50.0 : round_step((high - low) / form.lines));
    for (double& value : values) value = from_unit(value, form.held, system);
    return values;
}

/// A window whose limits are round in the units of the system.
Window rounded(const PresetForm& form, System system) {
    Window window = form.window;
    const auto outward = [&](double& low, double& high, Property property) {
        const double a = in_unit(low, property, system), b = in_unit(high, property, system);
        const double step = round_step((b - a) / 20.0);
        low = from_unit(std::floor(a / step + 1.0e-9) * step, property, system);
        high = from_unit(std::ceil(b / step - 1.0e-9) * step, property, system);
    };
    if (system == System::bar) return window;
    if (!form.logarithmic_x) outward(window.left, window.right, form.x);
    if (!form.logarithmic_y) outward(window.bottom, window.top, form.y);
    return window;
}

Chart made(const PresetForm& form, const Window& window, System system, double width, double height) {
    Chart chart;
    chart.axes = {{form.x, form.logarithmic_x, width}, {form.y, form.logarithmic_y, height}};
    chart.window = window;
    chart.system = system;
    if (fault_of(chart.axes, window) != Fault::none) return chart;
    const std::array<Extent, 4> found = extents(form, window);
    for (std::size_t n = 0; n < found.size(); ++n) {
        const FamilyForm& family = form.families[n];
        if (family.lines < 0.0) continue;
        chart.families.push_back(
            {family.held, family_values(family, found[n], system), family.outside_dome, family.place});
    }
    return chart;
}

} // namespace

Chart preset(Preset preset, System system, double width, double height) {
    const FloatEnvironment environment;
    return made(form(preset), rounded(form(preset), system), system, width, height);
}

Chart preset(Preset preset, const Window& window, System system, double width, double height) {
    const FloatEnvironment environment;
    return made(form(preset), window, system, width, height);
}

} // namespace ktl::diagram
