// ktl_constants [POINTS]: measures the constants that the equations themselves determine, and compares them with the
// code. Exit status 1 if one of them does not hold. docs/sources.md says what each of them is for.
#include "rows.hpp"

#include <cstdlib>

int main(int count, char** arguments) {
    constexpr int usual_points = 400, fewest_points = 20;
    const int points = count > 1 ? std::atoi(arguments[1]) : usual_points;
    if (count > 2 || points < fewest_points) {
        std::fprintf(stderr, "usage: ktl_constants [POINTS], POINTS at least %d\n", fewest_points);
        return 2;
    }
    constants::Table table(points);
    constants::formulation(table);
    constants::named_routines(table);
    constants::transport(table);
    constants::elementary_functions(table);
    constants::rounding_of_equations(table);
    constants::overlaps(table);
    constants::critical_point(table);
    constants::divisions_of_the_range(table);
    constants::extrema_at_constant_quality(table);
    constants::extrema_of_saturated_phases(table);
    table.end();
    return table.all_hold() ? 0 : 1;
}
