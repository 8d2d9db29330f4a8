// The reports of a library built without them (KTL_REPORTS=OFF): errors are counted in ktlerr, nothing is written, and
// no count stops the program. Takes the place of diagnostics.cpp, format.cpp and units.cpp.
#include "reports/diagnostics.hpp"
#include "reports/shared_count.hpp"
#include "reports/units.hpp"

#include <ktl/ktlftn.h>

namespace ktl::reports {

void report(const char* routine, Case what, double a, double b) { ktler(routine, static_cast<int>(what), a, b); }
void warn_passes(const char* /*solver*/) {}
void no_state_th(double /*t*/, double /*h*/) {}
void no_state_tu(double /*t*/, double /*u*/) {}
void no_state_us(double /*u*/, double /*s*/) {}
void no_state_sx(double /*s*/, double /*x*/) {}

Line& Line::text(std::string_view /*words*/) { return *this; }
Line& Line::integer(int /*value*/, int /*w*/) { return *this; }

void write_line(int /*unit*/, const Line& /*line*/) {}

} // namespace ktl::reports

void ktler(const char* /*name*/, const int& /*i*/, const double& /*a*/, const double& /*b*/) {
    ktl::reports::count_up(ktlerr.ientry);
}

int ktl_connect_unit(const int& /*unit*/, FILE* /*stream*/) { return 0; }
ktl_line_writer ktl_set_line_writer(ktl_line_writer /*writer*/) { return nullptr; }
