#include "reports/diagnostics.hpp"

#include "reports/format.hpp"
#include "reports/shared_count.hpp"
#include "reports/units.hpp"

#include <array>
#include <atomic>
#include <cstdlib>
#include <ktl/ktlftn.h>
#include <string_view>
#include <utility>
#if !defined(KTL_NO_THREADS)
#include <chrono>
#include <thread>
#endif

namespace ktl::reports {

namespace {

constexpr std::array<std::string_view, 2> kinds{"Out of range", "Non converg."};

/// Label of the value that a digit of the case code names.
std::string_view label(unsigned digit) {
    constexpr std::array<std::string_view, 6> labels{", ?=", ", P=", ", T=", ", H=", ", V=", ", S="};
    return digit < labels.size() ? labels[digit] : labels[0];
}

void show(Line& line, unsigned digit, double value) { line.text(label(digit)).real_1pe(value, 16, 8); }

Line error_line(int code, double a, double b) {
    // Unsigned, so that the most negative code has a magnitude too.
    const unsigned k = code < 0 ? 0U - static_cast<unsigned>(code) : static_cast<unsigned>(code);
    Line line;
    line.text(" *** KTLFTN-ERROR: ").text(kinds[code < 0 ? 1 : 0]);
    if (k / 10 == 0) {
        show(line, k % 10, a);
    } else {
        show(line, k / 10, a);
        show(line, k % 10, b);
    }
    line.text(" ***");
    return line;
}

/// Ends the program normally. std::exit must run once only: a report from an exit handler of the stopping thread goes on,
/// and a second thread waits for the end.
void stop_program() {
#if defined(KTL_NO_THREADS)
    static constinit bool stopping = false;
    if (std::exchange(stopping, true)) return;
    std::exit(EXIT_SUCCESS);
#else
    static constinit std::atomic<bool> stopping{false};
    static constinit thread_local bool stopped_here = false;
    if (!stopping.exchange(true)) {
        stopped_here = true;
        std::exit(EXIT_SUCCESS);
    }
    if (stopped_here) return;
    for (;;) std::this_thread::sleep_for(std::chrono::seconds(1)); // NOLINT(bugprone-infinite-loop): until the end
#endif
}

void stop_lines(int unit, int count) {
    Line words;
    Line number;
    words.text(" Execution inhibited due to KTLFTN-ERROR count!");
    number.text(" Number of diagnosed errors: ").integer(count, 5);
    write_line(unit, Line{});
    write_line(unit, words);
    write_line(unit, number);
    write_line(unit, Line{});
    flush_unit(unit);
}

} // namespace

void report(const char* routine, Case what, double a, double b) { ktler(routine, static_cast<int>(what), a, b); }

void warn_passes(const char* solver) {
    Line line;
    line.text(" *** KTLFTN-WARNING: Maximum number of ").text("iterations exceeded (code: ").text(solver).text(") ***");
    write_line(load(ktlerr.iunit), line);
}

void no_state_th(double t, double h) {
    Line line;
    line.text(" SUB-REGION CAN NOT BE CALCULATED IN THIS STATE ");
    line.text(" T=").real_1pe(t, 16, 9).text(" H=").real_1pe(h, 16, 9);
    write_line(load(ktlerr.iunit), line);
}

void no_state_tu(double t, double u) {
    Line line;
    line.text(" SUB-REGION CANNOT BE CALCULATED IN THIS STATE");
    line.text(" T=").real_1pe(t, 16, 9).text(" U=").real_1pe(u, 16, 9);
    write_line(load(ktlerr.iunit), line);
}

void no_state_us(double u, double s) {
    Line line;
    line.text(" SUB-REGION CANNOT BE CALCULATED IN THIS STATE");
    line.text(" U=").real_e(u, 16, 9).text(" S=").real_e(s, 16, 9);
    write_line(load(ktlerr.iunit), line);
}

void no_state_sx(double s, double x) {
    constexpr double critical_entropy = 4.44286;
    Line line;
    line.text(" POINT IS NOT IN WET-REGION  S=").real_e(s, 16, 9).text(" X=").real_e(x, 16, 9);
    write_line(load(ktlerr.iunit), line);
    if (!(s < critical_entropy)) return;
    Line below;
    below.text(" POINT IS BELOW CRITICAL POINT  S=").real_e(s, 16, 9);
    write_line(load(ktlerr.iunit), below);
}

} // namespace ktl::reports

void ktler(const char* /*name*/, const int& i, const double& a, const double& b) {
    using namespace ktl::reports;
    const int count = count_up(ktlerr.ientry);
    const int unit = load(ktlerr.iunit);
    if (count <= load(ktlerr.nprer)) write_line(unit, error_line(i, a, b));
    if (count > load(ktlerr.maxer)) {
        stop_lines(unit, count);
        stop_program();
    }
}
