// NumPy calls these loops without the interpreter's lock, on aligned doubles in native byte order; strides may be of any
// sign and size, and zero.
//
// NumPy reads the floating-point flags after the loop. The library's searches set them on their way, so a loop leaves the
// flags as they were, and sets "invalid" if a row has no state although both values are numbers: a NaN that was given
// comes back as NaN without a warning, as in NumPy's own functions.
#include "loops.hpp"

#include "column.hpp"

#include <algorithm>
#include <array>
#include <cfenv>
#include <cmath>

namespace ktl::python {

namespace {

constexpr int watched_flags = FE_INVALID | FE_DIVBYZERO | FE_OVERFLOW | FE_UNDERFLOW;

/// Takes back the flags that the library has set.
class FlagGuard {
public:
    FlagGuard() : before_(std::fetestexcept(watched_flags)) {}
    ~FlagGuard() {
        const int stray = std::fetestexcept(watched_flags) & ~before_;
        if (stray != 0) std::feclearexcept(stray);
        if (invalid_) std::feraiseexcept(FE_INVALID);
    }
    FlagGuard(const FlagGuard&) = delete;
    FlagGuard& operator=(const FlagGuard&) = delete;

    void raise_invalid() { invalid_ = true; }

private:
    int before_;
    bool invalid_ = false;
};

/// Columns of fewer rows take single calls, which start faster and give the same bits.
constexpr npy_intp few_rows = 4;

bool unsolved_numbers(const double* a, const double* b, const Status* status, npy_intp n) {
    for (npy_intp row = 0; row < n; ++row)
        if (status[row] != Status::solved && !std::isnan(a[row]) && !std::isnan(b[row])) return true;
    return false;
}

void one_property(const Function& f, const Given& a, const Given& b, const Result& y, npy_intp row, FlagGuard& flags) {
    const double first = a.at(row), second = b.at(row);
    const State state = f.of->state(f.pair, first, second, 0);
    if (!state && !std::isnan(first) && !std::isnan(second)) flags.raise_invalid();
    y.put(row, state.get(f.property));
}

/// One value of the saturation line or a column of them.
struct LineCalls {
    double (*one)(double) noexcept;
    void (*column)(std::span<const double>, std::span<double>) noexcept;
};

void line_loop(const LineCalls& calls, char** columns, npy_intp n, const npy_intp* steps, const Function& f) {
    FlagGuard flags;
    const Given x{columns[0], steps[0], f.a};
    const Result y{columns[1], steps[1], f.result};
    const bool in_order = sharing(columns[0], steps[0], columns[1], steps[1], sizeof(double), n) == Sharing::other_rows;
    std::array<double, block_rows> scratch, found;
    for (npy_intp row = 0; row < n;) {
        const npy_intp rows = in_order ? 1 : std::min<npy_intp>(block_rows, n - row);
        const double* given = x.block(row, rows, scratch.data());
        if (rows < few_rows)
            std::transform(given, given + rows, found.data(), calls.one);
        else
            calls.column({given, static_cast<std::size_t>(rows)}, found);
        for (npy_intp i = 0; i < rows; ++i)
            if (std::isnan(found[static_cast<std::size_t>(i)]) && !std::isnan(given[i])) flags.raise_invalid();
        for (npy_intp i = 0; i < rows; ++i) y.put(row + i, found[static_cast<std::size_t>(i)]);
        row += rows;
    }
}

void slopes(std::span<const double> t, std::span<double> slope) noexcept {
    std::transform(t.begin(), t.end(), slope.begin(), saturation_slope);
}

} // namespace

void property_loop(char** columns, const npy_intp* rows, const npy_intp* steps, void* function) {
    const auto& f = *static_cast<const Function*>(function);
    const npy_intp n = rows[0];
    if (n <= 0) return;
    FlagGuard flags;
    const Given a{columns[0], steps[0], f.a}, b{columns[1], steps[1], f.b};
    const Result y{columns[2], steps[2], f.result};
    const Sharing shared = std::max(sharing(a.base, a.step, y.base, y.step, sizeof(double), n),
                                    sharing(b.base, b.step, y.base, y.step, sizeof(double), n));
    if (n < few_rows || shared == Sharing::other_rows) {
        for (npy_intp row = 0; row < n; ++row) one_property(f, a, b, y, row, flags);
        return;
    }
    const bool direct = y.direct() && shared == Sharing::none;
    std::array<double, block_rows> a_scratch, b_scratch, y_scratch;
    std::array<Status, block_rows> status;
    for (npy_intp row = 0; row < n; row += block_rows) {
        const auto size = static_cast<std::size_t>(std::min<npy_intp>(block_rows, n - row));
        const auto count = static_cast<npy_intp>(size);
        const double* first = a.block(row, count, a_scratch.data());
        const double* second = b.block(row, count, b_scratch.data());
        double* found = direct ? y.place(row) : y_scratch.data();
        const BatchResult result =
            f.of->batch(f.pair, {first, size}, {second, size}, {&f.property, 1}, {&found, 1}, {status.data(), size});
        if (result.solved != size && unsolved_numbers(first, second, status.data(), count)) flags.raise_invalid();
        if (direct) continue;
        for (npy_intp i = 0; i < count; ++i) y.put(row + i, found[i]);
    }
}

void status_loop(char** columns, const npy_intp* rows, const npy_intp* steps, void* function) {
    const auto& f = *static_cast<const Function*>(function);
    const npy_intp n = rows[0];
    if (n <= 0) return;
    const FlagGuard flags;
    const Given a{columns[0], steps[0], f.a}, b{columns[1], steps[1], f.b};
    const bool in_order = std::max(sharing(a.base, a.step, columns[2], steps[2], 1, n),
                                   sharing(b.base, b.step, columns[2], steps[2], 1, n)) != Sharing::none;
    std::array<double, block_rows> a_scratch, b_scratch;
    std::array<Status, block_rows> status;
    for (npy_intp row = 0; row < n;) {
        const npy_intp count = in_order ? 1 : std::min<npy_intp>(block_rows, n - row);
        const auto size = static_cast<std::size_t>(count);
        if (count == 1)
            status[0] = f.of->state(f.pair, a.at(row), b.at(row), 0).status();
        else
            f.of->batch(f.pair, {a.block(row, count, a_scratch.data()), size},
                        {b.block(row, count, b_scratch.data()), size}, {}, {}, {status.data(), size});
        for (npy_intp i = 0; i < count; ++i)
            columns[2][(row + i) * steps[2]] = static_cast<char>(status[static_cast<std::size_t>(i)]);
        row += count;
    }
}

void count_loop(char** columns, const npy_intp* rows, const npy_intp* steps, void* function) {
    const auto& f = *static_cast<const Function*>(function);
    const FlagGuard flags;
    const Given a{columns[0], steps[0], f.a}, b{columns[1], steps[1], f.b};
    for (npy_intp row = 0; row < rows[0]; ++row) {
        const npy_int32 count = state_count(f.pair, a.at(row), b.at(row));
        std::memcpy(columns[2] + row * steps[2], &count, sizeof count);
    }
}

void saturation_pressure_loop(char** columns, const npy_intp* rows, const npy_intp* steps, void* function) {
    const auto& f = *static_cast<const Function*>(function);
    line_loop({f.of->saturation_pressure, f.of->saturation_pressures}, columns, rows[0], steps, f);
}
void saturation_temperature_loop(char** columns, const npy_intp* rows, const npy_intp* steps, void* function) {
    const auto& f = *static_cast<const Function*>(function);
    line_loop({f.of->saturation_temperature, f.of->saturation_temperatures}, columns, rows[0], steps, f);
}
void saturation_slope_loop(char** columns, const npy_intp* rows, const npy_intp* steps, void* function) {
    line_loop({saturation_slope, slopes}, columns, rows[0], steps, *static_cast<const Function*>(function));
}

} // namespace ktl::python
