// One state: any request is answered, a solved one has the given values, an unsolved one has none.
#include "given.hpp"

namespace {

using namespace ktl;
using fuzz::promise;

/// To 1e-10, relative; h, s and u near zero against 10 of their units, x against 1.
bool reproduces(const State& state, Property y, double given) {
    const bool never_zero = y == Property::p || y == Property::v || y == Property::t;
    const double least = never_zero ? 0.0 : y == Property::x ? 1.0 : 10.0;
    return std::fabs(state.get(y) - given) <= 1.0e-10 * std::fmax(std::fabs(given), least);
}

/// Phases of a mixture are those of the saturation line at its temperature, but where it goes on past 350 degC to cover a
/// gap, and at the top of the dome, where they hang on the last digits of the temperature.
bool saturated(const State& state) {
    if ((state.region() == Region::wet && state.t() > 350.0) || state.t() > 374.1) return true;
    const Saturation line = saturation_at_temperature(state.t());
    const auto same = [](double a, double b) { return std::fabs(a - b) <= 1.0e-7 * b; };
    return same(state.liquid().v(), line.liquid.v()) && same(state.vapour().v(), line.vapour.v());
}

bool stands(const Phase& phase) { return phase.v() > 0.0 && std::isfinite(phase.h()); }

void check(Pair pair, double a, double b, const State& state) {
    promise(sentence(state.status()) != nullptr, "sentence", pair, a, b);
    const bool open = state.status() == Status::undetermined;
    if (!state) {
        for (std::size_t i = 0; i < property_count; ++i) {
            const auto y = static_cast<Property>(i);
            const bool stays = y == Property::region || (open && (y == Property::p || y == Property::t));
            promise(stays || std::isnan(state.get(y)), "a value of an unsolved state", pair, a, b);
        }
        promise(open || state.region() == Region::none, "a region of an unsolved state", pair, a, b);
    } else {
        promise(reproduces(state, test::row_of(pair).a, a), "first value", pair, a, b);
        promise(reproduces(state, test::row_of(pair).b, b), "second value", pair, a, b);
        for (const Property y : {Property::p, Property::t, Property::v, Property::h, Property::s, Property::u})
            promise(std::isfinite(state.get(y)), "a missing value", pair, a, b);
        promise(state.two_phase() == !std::isnan(state.x()), "quality", pair, a, b);
        promise(!state.two_phase() || saturated(state), "phases at its temperature", pair, a, b);
    }
    const bool phases = open || state.two_phase();
    promise(stands(state.liquid()) == phases && stands(state.vapour()) == phases, "phases", pair, a, b);
}

/// The most states that two values can have, by their pair.
int most_states(Pair pair) {
    switch (pair) {
    case Pair::sx: return 6;
    case Pair::hs:
    case Pair::th:
    case Pair::ts:
    case Pair::tu: return 3;
    case Pair::pv: return 2;
    default: return 1;
    }
}

void check_saturation(double given) {
    const double p = saturation_pressure(given);
    const double t = saturation_temperature(given);
    promise(std::isnan(p) || std::fabs(saturation_temperature(p) - given) <= 1.0e-9 * std::fmax(given, 1.0),
            "saturation temperature", Pair::px, given, 0.0);
    promise(std::isnan(t) || std::fabs(saturation_pressure(t) - given) <= 1.0e-9 * given, "saturation pressure",
            Pair::tx, given, 0.0);
    for (const Saturation& s : {saturation_at_temperature(given), saturation_at_pressure(given)}) {
        const bool solved = s.status == Status::solved;
        promise(solved == stands(s.liquid) && solved == stands(s.vapour) && solved == !std::isnan(s.slope),
                "saturated phases", Pair::px, given, 0.0);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Bytes bytes(data, size);
    const auto pair = static_cast<Pair>(bytes.byte() % (pair_count + 1));
    if (static_cast<std::size_t>(pair) == pair_count) {
        check_saturation(fuzz::given(bytes, bytes.byte() % 2 != 0 ? Property::p : Property::t));
        return 0;
    }
    const double a = fuzz::given(bytes, test::row_of(pair).a);
    const double b = fuzz::given(bytes, test::row_of(pair).b);
    const State found = state(pair, a, b);
    check(pair, a, b, found);
    const int count = state_count(pair, a, b);
    promise(count >= 0 && count <= most_states(pair) && (count > 0) == static_cast<bool>(found), "count", pair, a, b);
    for (int number = 0; number < count; ++number) {
        const State one = state(pair, a, b, number);
        promise(static_cast<bool>(one), "a state that was counted", pair, a, b);
        check(pair, a, b, one);
    }
    const int other = static_cast<int>(static_cast<std::uint32_t>(bytes.word()));
    if (other < 0 || other >= count) promise(!state(pair, a, b, other), "a state beyond the count", pair, a, b);
    return 0;
}
