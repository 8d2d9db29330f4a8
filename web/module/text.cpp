// Memory shared with JavaScript, and JSON.
#include "module.hpp"
#include "report.hpp"

#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace web {

std::array<Column, column_count> columns;
std::string given;
std::string answer;

void add_json(std::string& out, std::string_view text) { program::add_json_string(out, text); }

void add_json(std::string& out, double number) {
    if (!std::isfinite(number)) {
        out += "null";
        return;
    }
    std::array<char, 40> text{};
    for (int digits = 15; digits <= 17; ++digits) {
        std::snprintf(text.data(), text.size(), "%.*g", digits, number);
        if (std::strtod(text.data(), nullptr) == number) break;
    }
    out += text.data();
}

int refuse(std::string_view sentence) {
    answer = "{\"error\": ";
    add_json(answer, sentence);
    answer += '}';
    return 0;
}

} // namespace web

extern "C" {

/// Memory for a text of so many bytes, or null if there is none.
KTL_WEB_EXPORT(ktl_text) char* ktl_text(std::size_t size) {
    try {
        web::given.assign(size, '\0');
        return web::given.data();
    } catch (const std::exception&) {
        return nullptr;
    }
}

KTL_WEB_EXPORT(ktl_answer) const char* ktl_answer() { return web::answer.data(); }
KTL_WEB_EXPORT(ktl_answer_size) std::size_t ktl_answer_size() { return web::answer.size(); }
KTL_WEB_EXPORT(ktl_columns) double* ktl_columns() { return web::columns.front().data(); }
KTL_WEB_EXPORT(ktl_block) std::size_t ktl_block() { return web::block; }
}
