// Reading CSV as a stream of records, and writing it.
#pragma once

#include "files.hpp"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace program {

inline constexpr std::size_t longest_record = std::size_t{1} << 20; // bytes, so that memory stays bounded
inline constexpr std::size_t most_lines = 1000;                     // that a record in quotes may take

/// Records one after the other: each a line of the file, or several if a quoted field holds line ends. Fields have no
/// quotes around them; an empty line has none.
class Records {
public:
    enum class Kind : unsigned char {
        row,
        comment,          ///< a line that begins with #; one field, the line
        too_long,         ///< more than longest_record bytes; the fields that end before that
        no_end,           ///< a quote is not closed; the fields before it, then the rest of the line as it is
        text_after_quote, ///< a closing quote has text behind it; as no_end
        wrong_width       ///< a quote joins lines to a record without the header's number of columns; as no_end
    };

    [[nodiscard]] std::size_t size() const { return records_.size(); }
    [[nodiscard]] Kind kind(std::size_t record) const { return records_[record].kind; }
    /// Number of its first line in the file, from 1.
    [[nodiscard]] std::size_t line(std::size_t record) const { return records_[record].line; }
    /// Lines that a broken quote runs through, its own included.
    [[nodiscard]] std::size_t quoted_lines(std::size_t record) const { return records_[record].quoted_lines; }
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
        std::size_t line, quoted_lines;
        Kind kind;
    };
    [[nodiscard]] std::size_t first(std::size_t record) const { return record == 0 ? 0 : records_[record - 1].end; }

    void clear();
    void add_field(std::string_view field) {
        text_ += field;
        ends_.push_back(text_.size());
    }
    [[nodiscard]] std::size_t open_fields() const { return ends_.size() - first(records_.size()); }
    void drop_open_fields(std::size_t kept);

    std::string text_;
    std::vector<std::size_t> ends_; ///< of the fields in the text
    std::vector<Record> records_;
};

/// Records of a file. Line ends LF, CR LF or CR; a UTF-8 byte order mark is dropped. A quote that opens a field belongs to
/// the field up to the next single quote, line ends included. If that gives no whole field, or a record of several lines
/// with another number of columns than the header, the record is broken: its first line alone, and the lines behind it
/// are read anew.
class CsvReader {
public:
    explicit CsvReader(InputFile& file);

    /// The header, which is the first line that is no comment, split at the separator: nothing is consumed. Empty if the
    /// file has none.
    Records header(char separator);
    /// For the records from here on. Columns are those of the header.
    void set_format(char separator, std::size_t columns);
    /// The records that are there without waiting for more, at least one; false at the end. Throws UsageError if the
    /// file cannot be read.
    bool next(Records& records);

    [[nodiscard]] bool at_end() const { return at_end_ && begin_ == bytes_.size(); }
    [[nodiscard]] std::size_t bytes_read() const { return bytes_read_; }

private:
    enum class Scan { complete, more };
    using Kind = Records::Kind;

    void fill();
    bool take(Records& records);
    bool skip_long_line();
    Scan scan(Records& records);
    Scan scan_comment(Records& records);
    Scan scan_plain_field(Records& records);
    Scan scan_quoted_field(Records& records);
    Scan wait_for_more(Records& records);
    Scan wait_for_line_end(Records& records);
    Scan broken(Records& records, Kind kind);
    Scan finish(Records& records, Kind kind);
    void consume_line_end();
    [[nodiscard]] std::size_t end_of_line(std::size_t from) const;
    [[nodiscard]] bool ends_field(std::size_t at) const;

    InputFile& file_;
    std::string bytes_;            ///< what was read, from the record begin_ on not yet given out
    std::size_t begin_ = 0;        ///< of the next record
    std::size_t at_ = 0;           ///< where its scan is
    std::size_t lines_ = 1;        ///< that the scan has seen of it
    std::size_t quote_ = 0;        ///< where the last quoted field of its first line opens
    std::size_t before_quote_ = 0; ///< number of its fields before that
    std::size_t line_ = 1;         ///< number of its line
    std::size_t waited_for_ = 0;   ///< bytes in which a scan found no whole record
    std::size_t bytes_read_ = 0;
    std::size_t columns_ = 0; ///< 0: not known yet
    char separator_ = ',';
    bool at_end_ = false;
    bool after_cr_ = false; ///< a line feed that follows belongs to the line end before
    bool skipping_ = false; ///< in the rest of a line that is too long
};

/// Appends the field to a line, in quotes if it needs them.
void add_csv_field(std::string& line, std::string_view field, char separator = ',');

} // namespace program
