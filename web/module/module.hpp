// What the files of the module share: how a call takes texts and columns from JavaScript and answers.
//
// A call takes numbers as arguments. A text is written into the memory that ktl_text() returns before the call. Columns are in the
// memory of ktl_columns(). An answer in words is JSON in UTF-8, at ktl_answer(), until the next call.
#pragma once

#include "tables.hpp"

#include <array>
#include <string>
#include <string_view>

#define KTL_WEB_EXPORT(name) __attribute__((used, export_name(#name)))

namespace web {

/// Rows of a call of ktl_batch.
inline constexpr std::size_t block = 4096;
/// Two given columns, one for each property, and one of statuses as numbers.
using Column = std::array<double, block>;
inline constexpr std::size_t column_count = ktl::property_count + 3;
extern std::array<Column, column_count> columns;
inline constexpr std::size_t first_output = 2;
inline constexpr std::size_t status_column = column_count - 1;

/// The text of the caller and the answer to it.
extern std::string given;
extern std::string answer;

/// Appends the text in quotes, as JSON has it.
void add_json(std::string& out, std::string_view text);
/// Appends the shortest of 15 to 17 digits that read back as this number; null if it is not finite.
void add_json(std::string& out, double number);

/// The answer of a call that failed: {"error": sentence}. Returns 0.
int refuse(std::string_view sentence);

/// Calls work and returns 1; refuses with the sentence of a UsageError.
template <class Work>
int answered(Work work) {
    answer.clear();
    try {
        work();
        return 1;
    } catch (const program::UsageError& fault) {
        return refuse(fault.what());
    } catch (const std::exception&) {
        return refuse("there is not enough memory");
    }
}

} // namespace web
