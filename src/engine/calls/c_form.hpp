// What the calls in plain C share: enumerators from numbers, states and batch options handed over.
#pragma once

#include <ktl/steam.h>
#include <ktl/steam.hpp>

namespace ktl::c_form {

/// An enumerator from any number: those that do not fit become one that is in no enumeration.
template <class E>
E enumerator(int number) {
    return static_cast<E>(number >= 0 && number < 255 ? number : 255);
}

/// Fills the record unless it is null; returns the status.
int hand_over(const State& from, ktl_state* to) noexcept;

/// Options of a batch call; given: what the caller named, which must live as long as the call, null for none.
class Options {
public:
    explicit Options(const ktl_batch_options* given) noexcept
        : given_(given != nullptr ? *given : ktl_batch_options{1, nullptr, nullptr}) {}
    [[nodiscard]] BatchOptions options() noexcept {
        return {
            .threads = given_.threads, .progress = given_.progress != nullptr ? report : nullptr, .context = &given_};
    }

private:
    static bool report(void* options, std::size_t done, std::size_t total) {
        const auto& o = *static_cast<const ktl_batch_options*>(options);
        return o.progress(o.context, done, total) != 0;
    }

    ktl_batch_options given_;
};

inline ktl_batch_result result_of(const BatchResult& result) {
    return {static_cast<int>(result.fault), result.cancelled ? 1 : 0, result.solved};
}

} // namespace ktl::c_form
