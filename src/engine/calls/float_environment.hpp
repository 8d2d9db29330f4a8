// The floating-point environment of the engine: rounding to nearest, subnormal numbers kept, no traps. The masked branches of
// vector lanes and the trial points of searches raise INVALID, DIVBYZERO and OVERFLOW on the way to a valid state: a
// caller who has these trapped must not be stopped by them, and flags that it reads afterwards must be its own.
#pragma once

#if defined(__SSE2__) || defined(_M_X64)
#define KTL_SSE_ENVIRONMENT
#include <cstdint>
#include <xmmintrin.h>
#else
#include <cfenv>
#endif

#if defined(__GNUC__) && !defined(__clang__)
#define KTL_APART [[gnu::noipa]]
#elif defined(__GNUC__)
#define KTL_APART [[gnu::noinline]]
#else
#define KTL_APART __declspec(noinline)
#endif

namespace ktl {

#if defined(KTL_SSE_ENVIRONMENT) && defined(__GNUC__) && (defined(_WIN32) || defined(__i386__))
/// The environment of the x87 unit, in which the C libraries of these systems have exp and log. Reading its words is quick;
/// they are set only if a trap or a flag asks for it.
class X87Environment {
public:
    X87Environment() noexcept {
        __asm__ volatile("fnstcw %0\n\tfnstsw %1" : "=m"(control_), "=m"(status_));
        if (const std::uint16_t word = wanted(); word != control_) __asm__ volatile("fldcw %0" : : "m"(word));
    }
    void give_back() const noexcept {
        std::uint16_t status;
        __asm__ volatile("fnstsw %0" : "=m"(status));
        if (((status ^ status_) & exceptions) != 0) {
            std::uint16_t words[14]; // the first is the control word, the third the status word
            __asm__ volatile("fnstenv %0" : "=m"(words));
            words[0] = control_;
            words[2] = static_cast<std::uint16_t>((words[2] & ~exceptions) | (status_ & exceptions));
            __asm__ volatile("fldenv %0" : : "m"(words));
        } else if (wanted() != control_) {
            __asm__ volatile("fldcw %0" : : "m"(control_));
        }
    }

private:
    static constexpr std::uint16_t exceptions = 0x3f;
    static constexpr std::uint16_t rounding = 0x0c00; // 0: to nearest
    /// The control word of the engine: every exception masked.
    [[nodiscard]] std::uint16_t wanted() const noexcept {
        return static_cast<std::uint16_t>((control_ | exceptions) & ~rounding);
    }
    std::uint16_t control_, status_;
};
#else
struct X87Environment {
    void give_back() const noexcept {}
};
#endif

/// Sets the environment of the engine; gives back the caller's, flags included.
class FloatEnvironment {
public:
    FloatEnvironment(const FloatEnvironment&) = delete;
    FloatEnvironment& operator=(const FloatEnvironment&) = delete;

#if defined(KTL_SSE_ENVIRONMENT)
    // The environment of SSE registers is one word. Setting it costs more than reading it, so that is done only if something
    // else than flags is to be changed, or if flags were raised.
    FloatEnvironment() noexcept : given_(_mm_getcsr()) {
        if ((given_ & ~flags) != initial) _mm_setcsr(initial);
    }
    ~FloatEnvironment() {
        if (_mm_getcsr() != given_) _mm_setcsr(given_);
        x87_.give_back();
    }

private:
    static constexpr unsigned flags = 0x3f;
    static constexpr unsigned initial = 0x1f80; // every exception masked
    unsigned given_;
    [[no_unique_address]] X87Environment x87_;
#else
    FloatEnvironment() noexcept {
        std::fegetenv(&given_);
        std::fesetenv(FE_DFL_ENV);
    }
    ~FloatEnvironment() { std::fesetenv(&given_); }

private:
    std::fenv_t given_;
#endif
};

/// A call that the compiler neither inlines nor looks into, so that no operation leaves the environment that it is made in.
template <class Work>
KTL_APART auto apart(const Work& work) noexcept {
    return work();
}

/// What work() returns, computed in the environment of the engine.
template <class Work>
auto in_float_environment(const Work& work) noexcept {
    const FloatEnvironment environment;
    return apart(work);
}

} // namespace ktl

#undef KTL_APART
#undef KTL_SSE_ENVIRONMENT
