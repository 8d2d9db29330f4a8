// A picture: which values its axes have, and the places of states in millimetres.
#pragma once

#include "engine/lanes/scalar.hpp"

#include <ktl/diagram.hpp>

namespace ktl::diagram {

/// The engine's own functions: the same bits with every compiler and C library.
inline double natural_log(double x) { return engine::logarithm(engine::Scalar(x)).value; }
inline double exponential(double x) { return engine::exponential(engine::Scalar(x)).value; }

inline constexpr double least_pressure = 0.006112444; // bar
inline constexpr double highest_pressure = 1000.0;
inline constexpr double least_temperature = 0.01; // degC
inline constexpr double highest_temperature = 800.0;
inline constexpr double critical_temperature = 374.15;

inline bool is_wet(Region region) { return region == Region::wet || region == Region::wet_near_critical; }

/// From values of one axis to millimetres.
class Scale {
public:
    Scale(const Axis& axis, double low, double high)
        : logarithmic_(axis.logarithmic), low_(mapped(low)), factor_(axis.length / (mapped(high) - low_)) {}
    [[nodiscard]] double place(double value) const { return (mapped(value) - low_) * factor_; }

private:
    [[nodiscard]] double mapped(double value) const { return logarithmic_ ? natural_log(value) : value; }
    bool logarithmic_;
    double low_, factor_;
};

class Frame {
public:
    /// axes and window without a fault.
    Frame(const Axes& axes, const Window& window)
        : axes_(axes), x_(axes.x, window.left, window.right), y_(axes.y, window.bottom, window.top) {}

    [[nodiscard]] double width() const { return axes_.x.length; }
    [[nodiscard]] double height() const { return axes_.y.length; }
    /// Fills in the place of a point that has its state.
    void set_place(Point& point) const {
        point.x = x_.place(point.get(axes_.x.property));
        point.y = y_.place(point.get(axes_.y.property));
    }
    /// The point of a solved state, and of a saturated phase with its quality.
    [[nodiscard]] Point point(const State& state) const;
    [[nodiscard]] Point point(const Phase& phase, double quality) const;

private:
    Axes axes_;
    Scale x_, y_;
};

/// True for the properties that an axis may have.
bool is_axis(Property property);
/// What is wrong with a picture.
Fault fault_of(const Axes& axes, const Window& window);
/// And with lines in it.
Fault fault_of(const Axes& axes, const Window& window, double tolerance);

} // namespace ktl::diagram
