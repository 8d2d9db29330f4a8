// Reading CSV as a stream of records, and writing it.
#pragma once

#include <csv.h>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace program {

inline constexpr std::size_t longest_record = std::size_t{1} << 20; // bytes, so that memory stays bounded

/// Records one after the other: each a line of the file, or several where a quoted field holds line ends. Fields are
/// as they stand, without quotes; an empty line has none, nor has a record longer than longest_record.
class Records {
public:
    [[nodiscard]] std::size_t size() const { return records_.size(); }
    [[nodiscard]] bool too_long(std::size_t record) const { return records_[record].too_long; }
    [[nodiscard]] std::size_t fields(std::size_t record) const { return records_[record].end - first(record); }
    [[nodiscard]] std::string_view field(std::size_t record, std::size_t number) const {
        const std::size_t at = first(record) + number;
        const std::size_t begin = at == 0 ? 0 : ends_[at - 1];
        return std::string_view(text_).substr(begin, ends_[at] - begin);
    }

private:
    friend class CsvReader;
    struct Record {
        std::size_t end; ///< number of fields up to here
        bool too_long;
    };
    [[nodiscard]] std::size_t first(std::size_t record) const { return record == 0 ? 0 : records_[record - 1].end; }

    void add_field(std::string_view field) {
        text_ += field;
        ends_.push_back(text_.size());
    }
    void end_record(bool too_long) { records_.push_back({ends_.size(), too_long}); }
    void drop_open_fields();
    /// Becomes the fields of the other that no record holds yet.
    void take_open_fields(Records& other);

    std::string text_;
    std::vector<std::size_t> ends_; ///< of the fields in the text
    std::vector<Record> records_;
};

/// Records of a file, "-" for standard input. Line ends LF, CR LF or CR; a UTF-8 byte order mark is dropped.
class CsvReader {
public:
    /// Throws UsageError where the file cannot be opened.
    explicit CsvReader(const std::string& path);
    ~CsvReader();
    CsvReader(const CsvReader&) = delete;
    CsvReader& operator=(const CsvReader&) = delete;

    /// The records that the next bytes of the file complete; false at the end. Throws UsageError where the file cannot
    /// be read.
    bool next(Records& records);

    [[nodiscard]] bool at_end() const { return at_end_; }
    [[nodiscard]] std::size_t bytes_read() const { return bytes_read_; }
    /// Size of the file, where it is one.
    [[nodiscard]] std::optional<std::size_t> size() const;

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
    std::vector<char> buffer_;
    Records current_; ///< what was read since the last call of next
    std::size_t bytes_read_ = 0;
    std::size_t mark_bytes_ = 0;   ///< bytes of the byte order mark seen at the start
    bool at_start_ = true;         ///< the byte order mark may still come
    std::size_t record_bytes_ = 0; ///< bytes of the current record so far
    bool skipping_ = false;        ///< in the rest of a line that is too long
    bool after_cr_ = false;
    bool at_end_ = false;
};

/// Appends the field to a CSV line, in quotes where it needs them.
void add_csv_field(std::string& line, std::string_view field);

} // namespace program
