// Prints how good the first guesses are: ktl_check_guesses [STATES_OF_EACH_CLASS [PAIR]].
#include "check.hpp"

#include <cstdio>
#include <cstdlib>

using namespace first_guesses;

int main(int count, char** arguments) {
    const std::size_t n = count > 1 ? std::strtoul(arguments[1], nullptr, 10) : 10000;
    std::puts("| pair | patch | t: max, K | rms | primary: max | rms | 2 steps, % | 3 steps, % | wrong region, % |");
    std::puts("| --- | --- | --- | --- | --- | --- | --- | --- | --- |");
    for (std::size_t k = 0; k < ktl::pair_count; ++k) {
        const auto pair = static_cast<Pair>(k);
        if (count > 2 && name(pair) != arguments[2]) continue;
        for (std::size_t c = 0; c + 1 < ktl::engine::guesses::patch_count; ++c) {
            const auto where = static_cast<GuessPatch>(c);
            if (!followed(pair, where)) continue;
            const Quality q = check(pair, where, n, 1000 + 100 * k + c);
            std::printf("| %s | %s | %.2g | %.2g | %.2g | %.2g | %.2f | %.2f | %.2f |\n", name(pair).data(),
                        name(where).data(), q.t_greatest, q.t_rms, q.first_greatest, q.first_rms, 100.0 * q.two,
                        100.0 * q.three, 100.0 * q.wrong);
        }
    }
    return 0;
}
