#include "front/units.hpp"

#include <algorithm>
#include <array>
#include <cstdio>
#include <ktl/ktlftn.h>
#include <mutex>

namespace ktl::front {

namespace {

struct Connection {
    int unit;
    FILE* stream;
};

/// Connected units. The lock is held while a line is written, so that a caller who has disconnected a stream
/// may close it.
constinit std::mutex lock;
constinit std::array<Connection, 32> connections{};
constinit std::size_t connected = 0;

Connection* find(int unit) {
    auto* end = connections.data() + connected;
    return std::find_if(connections.data(), end, [unit](const Connection& c) { return c.unit == unit; });
}

FILE* stream_of(int unit) {
    const Connection* c = find(unit);
    if (c != connections.data() + connected) return c->stream;
    return unit == 6 ? stdout : stderr;
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

} // namespace ktl::front

int ktl_connect_unit(const int& unit, FILE* stream) { return ktl::front::connect(unit, stream) ? 1 : 0; }
