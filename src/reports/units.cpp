#include "reports/units.hpp"

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdio>
#include <ktl/ktlftn.h>
#include <mutex>
#include <string_view>

namespace ktl::reports {

namespace {

struct Connection {
    int unit;
    FILE* stream;
};

/// A lock that is ready before any code runs; std::mutex is not, with some libraries of threads. One thread needs none.
class Lock {
public:
#if defined(KTL_NO_THREADS)
    void lock() {}
    void unlock() {}
#else
    void lock() {
        while (taken_.test_and_set(std::memory_order_acquire)) taken_.wait(true, std::memory_order_relaxed);
    }
    void unlock() {
        taken_.clear(std::memory_order_release);
        taken_.notify_one();
    }

private:
    std::atomic_flag taken_{};
#endif
};

/// Connected units. The lock is held while a line is written, so that a caller who has disconnected a stream
/// may close it.
constinit Lock lock;
constinit std::array<Connection, 32> connections{};
constinit std::size_t connected = 0;

Connection* find(int unit) {
    auto* end = connections.data() + connected;
    return std::find_if(connections.data(), end, [unit](const Connection& c) { return c.unit == unit; });
}

/// The writer of unconnected units. It is called without the lock: another language's run-time library has locks
/// of its own.
constinit std::atomic<ktl_line_writer> line_writer{nullptr};

/// The stream that a caller connected, else null.
FILE* connected_stream(int unit) {
    const Connection* c = find(unit);
    return c != connections.data() + connected ? c->stream : nullptr;
}

FILE* stream_of(int unit) {
    if (FILE* stream = connected_stream(unit)) return stream;
    return unit == 6 ? stdout : stderr;
}

bool is_connected(int unit) {
    const std::lock_guard guard(lock);
    return connected_stream(unit) != nullptr;
}

/// Offers the line to the writer of unconnected units.
bool handed_over(int unit, std::string_view words) {
    const ktl_line_writer writer = line_writer.load(std::memory_order_acquire);
    return writer != nullptr && !is_connected(unit) && writer(unit, words.data(), words.size()) != 0;
}

bool connect(int unit, FILE* stream) {
    const std::lock_guard guard(lock);
    Connection* c = find(unit);
    const bool known = c != connections.data() + connected;
    if (stream == nullptr) {
        if (known) *c = connections[--connected];
        return true;
    }
    if (!known && connected == connections.size()) return false;
    if (!known) ++connected;
    *c = {unit, stream};
    return true;
}

} // namespace

void write_line(int unit, const Line& line) {
    if (handed_over(unit, line.view())) return;
    Line whole = line;
    whole.text("\n");
    const auto words = whole.view();
    const std::lock_guard guard(lock);
    std::fwrite(words.data(), 1, words.size(), stream_of(unit));
}

void flush_unit(int unit) {
    const std::lock_guard guard(lock);
    std::fflush(stream_of(unit));
}

} // namespace ktl::reports

int ktl_connect_unit(const int& unit, FILE* stream) { return ktl::reports::connect(unit, stream) ? 1 : 0; }

ktl_line_writer ktl_set_line_writer(ktl_line_writer writer) {
    return ktl::reports::line_writer.exchange(writer, std::memory_order_acq_rel);
}
