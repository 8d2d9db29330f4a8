// Reading CSV as a stream of records, and writing it.
#pragma once

#include <csv.h>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

namespace program {

/// One record: a line of the file, or several where a quoted field holds line ends.
struct Record {
    std::vector<std::string> fields; ///< as they stand, without quotes; none for an empty line
    bool too_long = false;           ///< longer than longest_record: skipped, no fields
};

inline constexpr std::size_t longest_record = std::size_t{1} << 20; // bytes, so that memory stays bounded

/// Records of a file, "-" for standard input. Line ends LF, CR LF or CR; a UTF-8 byte order mark is dropped.
class CsvReader {
public:
    /// Throws UsageError where the file cannot be opened.
    explicit CsvReader(const std::string& path);
    ~CsvReader();
    CsvReader(const CsvReader&) = delete;
    CsvReader& operator=(const CsvReader&) = delete;

    /// The next record; false at the end. Throws UsageError where the file cannot be read.
    bool next(Record& record);

private:
    void fill();
    void feed(std::string_view bytes);
    void feed_line(std::string_view bytes);
    void start_parser();
    void drop_record();
    static void on_field(void* text, std::size_t size, void* reader);
    static void on_row(int end, void* reader);

    std::string path_;
    int file_;
    csv_parser parser_{};
    Record current_;
    std::deque<Record> ready_;
    std::size_t mark_bytes_ = 0;   ///< bytes of the byte order mark seen at the start
    bool at_start_ = true;         ///< the byte order mark may still come
    std::size_t record_bytes_ = 0; ///< bytes of the current record so far
    bool skipping_ = false;        ///< in the rest of a line that is too long
    bool after_cr_ = false;
    bool at_end_ = false;
};

/// The fields as one CSV line with its line end; quotes where the field needs them.
std::string csv_line(const std::vector<std::string>& fields);

} // namespace program
