// How far a batch has come: a bar on a terminal, and the rate at the end.
#pragma once

#include <chrono>
#include <cstddef>
#include <optional>

namespace program {

class Progress {
public:
    /// bytes: size of the file if it is known. The bar is drawn if standard error is a terminal and the results do not go
    /// to one; the rate at the end is told on a terminal, or if stats asks for it.
    Progress(bool stats, std::optional<std::size_t> bytes, bool results_on_terminal);

    void show(std::size_t rows, std::size_t bytes);
    void finish(std::size_t rows);

private:
    using Clock = std::chrono::steady_clock;
    [[nodiscard]] double seconds() const;

    std::optional<std::size_t> bytes_;
    bool bar_, rate_;
    Clock::time_point start_ = Clock::now();
    double shown_ = 0.0;
};

} // namespace program
