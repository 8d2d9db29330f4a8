// Calls ktl::state() and ktl::batch() once each and writes down which functions of the library are entered, in order: for
// tools/walk.sh, which builds it and the library with -finstrument-functions.
#include <cstdio>
#include <cstdlib>
#include <ktl/steam.hpp>
#include <string_view>

namespace {

constexpr std::size_t most_entries = 1000000;
void* entries[most_entries]; // a plain array: operator[] of std::array would be an entered function, too
std::size_t entered = 0;
bool recording = false;

} // namespace

extern "C" {
__attribute__((no_instrument_function)) void __cyg_profile_func_enter(void* function, void* /*caller*/) {
    if (recording && entered < most_entries) entries[entered++] = function;
}
__attribute__((no_instrument_function)) void __cyg_profile_func_exit(void* /*function*/, void* /*caller*/) {}
}

int main(int argc, char** argv) {
    const std::string_view call = argc > 3 ? argv[1] : "";
    if (call != "state" && call != "batch") return std::fputs("usage: walk state|batch P H\n", stderr), EXIT_FAILURE;
    const double p = std::strtod(argv[2], nullptr), h = std::strtod(argv[3], nullptr);
    const ktl::Property wanted[]{ktl::Property::t, ktl::Property::v, ktl::Property::s};
    double t, v, s;
    double* const outputs[]{&t, &v, &s};
    ktl::Status status;
    recording = true;
    if (call == "state")
        status = ktl::state(ktl::Pair::ph, p, h).status();
    else
        ktl::batch(ktl::Pair::ph, {&p, 1}, {&h, 1}, wanted, outputs, {&status, 1});
    recording = false;
    for (std::size_t i = 0; i < entered; ++i) std::printf("%p\n", entries[i]);
    return EXIT_SUCCESS;
}
