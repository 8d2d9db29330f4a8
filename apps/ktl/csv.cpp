#include "csv.hpp"

#include "number.hpp"
#include "tables.hpp"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace program {

namespace {

constexpr std::string_view byte_order_mark = "\xEF\xBB\xBF";
constexpr std::size_t bytes_at_once = std::size_t{1} << 18;

/// Blanks belong to their field (RFC 4180); libcsv would strip them.
int no_blank(unsigned char /*c*/) { return 0; }

[[noreturn]] void fail(const std::string& path) {
    throw UsageError("cannot read " + in_quotes(path) + ": " + std::strerror(errno));
}

} // namespace

void Records::drop_open_fields() {
    ends_.resize(records_.empty() ? 0 : records_.back().end);
    text_.resize(ends_.empty() ? 0 : ends_.back());
}

void Records::take_open_fields(Records& other) {
    text_.clear();
    ends_.clear();
    records_.clear();
    const std::size_t closed = other.records_.empty() ? 0 : other.records_.back().end;
    const std::size_t begin = closed == 0 ? 0 : other.ends_[closed - 1];
    text_.append(other.text_, begin);
    for (std::size_t i = closed; i < other.ends_.size(); ++i) ends_.push_back(other.ends_[i] - begin);
    other.drop_open_fields();
}

CsvReader::CsvReader(const std::string& path)
    : path_(path), file_(path == "-" ? STDIN_FILENO : ::open(path.c_str(), O_RDONLY | O_CLOEXEC)),
      buffer_(bytes_at_once) {
    if (file_ < 0) fail(path_);
    start_parser();
}

CsvReader::~CsvReader() {
    csv_free(&parser_);
    if (file_ != STDIN_FILENO) ::close(file_);
}

void CsvReader::start_parser() {
    csv_init(&parser_, CSV_REPALL_NL); // every line end is reported, so that empty lines count
    csv_set_space_func(&parser_, no_blank);
}

void CsvReader::on_field(void* text, std::size_t size, void* reader) {
    auto& self = *static_cast<CsvReader*>(reader);
    self.current_.add_field({static_cast<const char*>(text), size});
    self.after_cr_ = false;
}

void CsvReader::on_row(int end, void* reader) {
    auto& self = *static_cast<CsvReader*>(reader);
    const bool second_half = self.after_cr_ && end == '\n'; // of CR LF
    self.after_cr_ = end == '\r';
    if (second_half) return;
    self.current_.end_record(false);
    self.record_bytes_ = 0;
}

/// Gives the record up and reads on at the next line end, quoted or not.
void CsvReader::drop_record() {
    csv_free(&parser_);
    start_parser();
    current_.drop_open_fields();
    current_.end_record(true);
    record_bytes_ = 0;
    skipping_ = true;
}

/// Bytes up to a line end at most.
void CsvReader::feed_line(std::string_view bytes) {
    if (!skipping_) {
        record_bytes_ += bytes.size();
        if (csv_parse(&parser_, bytes.data(), bytes.size(), on_field, on_row, this) != bytes.size())
            throw UsageError("cannot read " + in_quotes(path_) + ": " + csv_strerror(csv_error(&parser_)));
        if (record_bytes_ > longest_record) drop_record();
    }
    if (bytes.ends_with('\n')) skipping_ = false;
}

void CsvReader::feed(std::string_view bytes) {
    while (at_start_ && !bytes.empty()) {
        if (bytes.front() != byte_order_mark[mark_bytes_]) {
            feed_line(byte_order_mark.substr(0, mark_bytes_));
            at_start_ = false;
        } else {
            bytes.remove_prefix(1);
            at_start_ = ++mark_bytes_ < byte_order_mark.size();
        }
    }
    while (!bytes.empty()) {
        const std::size_t line = std::min(bytes.find('\n'), bytes.size() - 1) + 1;
        feed_line(bytes.substr(0, line));
        bytes.remove_prefix(line);
    }
}

void CsvReader::fill() {
    const ssize_t count = ::read(file_, buffer_.data(), buffer_.size());
    if (count < 0 && errno != EINTR) fail(path_);
    if (count > 0) {
        bytes_read_ += static_cast<std::size_t>(count);
        feed({buffer_.data(), static_cast<std::size_t>(count)});
    }
    if (count == 0) {
        at_end_ = true;
        csv_fini(&parser_, on_field, on_row, this);
    }
}

bool CsvReader::next(Records& records) {
    while (current_.size() == 0 && !at_end_) fill();
    std::swap(records, current_);
    current_.take_open_fields(records);
    return records.size() != 0;
}

std::optional<std::size_t> CsvReader::size() const {
    struct stat about {};
    if (::fstat(file_, &about) != 0 || !S_ISREG(about.st_mode)) return std::nullopt;
    return static_cast<std::size_t>(about.st_size);
}

void add_csv_field(std::string& line, std::string_view field) {
    const auto special = [](char c) { return c == ',' || c == '"' || c == '\r' || c == '\n'; };
    if (std::none_of(field.begin(), field.end(), special)) {
        line += field;
        return;
    }
    line += '"';
    for (const char c : field) line.append(c == '"' ? 2 : 1, c);
    line += '"';
}

} // namespace program
