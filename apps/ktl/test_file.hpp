// A file of measured points of a plant and of the turbine sections between them.
#pragma once

#include "tables.hpp"

#include <optional>

namespace program {

/// Which way the flow of a point crosses the border of turbine or boiler.
enum class Crossing { none, in, out };

struct TestPoint {
    std::string name;
    std::size_t line = 0;       ///< of the file, from 1
    const Pair* pair = nullptr; ///< null: the pressure alone, the state follows from the section that ends here
    double first = 0.0, second = 0.0;
    std::optional<double> flow; ///< kg/s
    Crossing turbine = Crossing::none, boiler = Crossing::none;
};

struct TestSection {
    std::string name;
    std::size_t line = 0;
    std::size_t inlet = 0, outlet = 0; ///< numbers of points
    std::optional<double> efficiency;  ///< given, if the outlet has a pressure alone
};

struct TestFile {
    std::vector<TestPoint> points;
    std::vector<TestSection> sections;
};

/// Reads a file, "-" for standard input. Throws UsageError with line and column of the first fault.
TestFile read_test_file(const std::string& path);

} // namespace program
