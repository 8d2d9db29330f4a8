#include "progress.hpp"

#include "files.hpp"

#include <algorithm>
#include <cstdio>
#include <string>

namespace program {

namespace {

constexpr int standard_error = 2;
constexpr double seconds_between = 0.1;
constexpr std::size_t bar_width = 30;

/// With commas between the thousands.
std::string grouped(std::size_t number) {
    std::string text = std::to_string(number);
    for (std::size_t place = text.size(); place > 3; place -= 3) text.insert(place - 3, 1, ',');
    return text;
}

std::string rate(std::size_t rows, double seconds) {
    return grouped(static_cast<std::size_t>(static_cast<double>(rows) / std::max(seconds, 1.0e-6))) + " rows/s";
}

} // namespace

Progress::Progress(bool stats, std::optional<std::size_t> bytes, bool results_on_terminal)
    : bytes_(bytes), bar_(is_terminal(standard_error) && !results_on_terminal),
      rate_(stats || is_terminal(standard_error)) {}

double Progress::seconds() const { return std::chrono::duration<double>(Clock::now() - start_).count(); }

void Progress::show(std::size_t rows, std::size_t bytes) {
    const double now = seconds();
    if (!bar_ || now - shown_ < seconds_between) return;
    shown_ = now;
    std::string text = "\r\033[K";
    if (bytes_ && *bytes_ > 0) {
        const std::size_t done = std::min(bytes, *bytes_);
        const std::size_t filled = bar_width * done / *bytes_;
        text.append(1, '[').append(filled, '=').append(bar_width - filled, ' ').append("] ");
        text.append(std::to_string(100 * done / *bytes_)).append(" %  ");
    }
    text.append(grouped(rows)).append(" rows  ").append(rate(rows, now));
    std::fwrite(text.data(), 1, text.size(), stderr);
}

void Progress::finish(std::size_t rows) {
    const double now = seconds();
    if (shown_ > 0.0) std::fputs("\r\033[K", stderr);
    if (rate_) std::fprintf(stderr, "%s rows in %.3f s, %s\n", grouped(rows).c_str(), now, rate(rows, now).c_str());
}

} // namespace program
