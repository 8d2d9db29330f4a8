#include "csv.hpp"

#include <algorithm>

namespace program {

namespace {

constexpr std::string_view byte_order_mark = "\xEF\xBB\xBF";
constexpr std::size_t bytes_at_once = std::size_t{1} << 18;
constexpr std::size_t longest_preamble = 2 * longest_record; // comments before the header, bytes

bool is_line_end(char c) { return c == '\n' || c == '\r'; }

/// Line ends in the text; CR LF counts once if the text has both.
std::size_t count_line_ends(std::string_view text) {
    std::size_t count = 0;
    for (std::size_t i = 0; i < text.size(); ++i)
        if (text[i] == '\n' || (text[i] == '\r' && (i + 1 == text.size() || text[i + 1] != '\n'))) ++count;
    return count;
}

} // namespace

void Records::clear() {
    text_.clear();
    ends_.clear();
    records_.clear();
}

/// Of the fields that no record holds yet, leaves the first so many.
void Records::drop_open_fields(std::size_t kept) {
    ends_.resize(first(records_.size()) + kept);
    text_.resize(ends_.empty() ? 0 : ends_.back());
}

CsvReader::CsvReader(InputFile& file) : file_(file) {
    while (bytes_.size() < byte_order_mark.size() && !at_end_ && byte_order_mark.starts_with(bytes_)) fill();
    if (bytes_.starts_with(byte_order_mark)) begin_ = byte_order_mark.size();
}

void CsvReader::fill() {
    const std::size_t before = bytes_.size();
    bytes_.resize(before + bytes_at_once);
    const std::size_t count = file_.read({bytes_.data() + before, bytes_at_once});
    bytes_.resize(before + count);
    bytes_read_ += count;
    at_end_ = count == 0 || file_.ended();
}

Records CsvReader::header(char separator) {
    const std::size_t begin = begin_;
    separator_ = separator;
    Records records;
    while (begin_ - begin < longest_preamble) {
        records.clear();
        if (take(records)) {
            if (records.kind(0) != Kind::comment) break;
        } else if (at_end_ || bytes_.size() - begin > longest_preamble) {
            break;
        } else {
            fill();
        }
    }
    begin_ = begin;
    line_ = 1;
    waited_for_ = 0;
    after_cr_ = skipping_ = false;
    if (records.size() != 0 && records.kind(0) == Kind::comment) records.clear();
    return records;
}

void CsvReader::set_format(char separator, std::size_t columns) {
    separator_ = separator;
    columns_ = columns;
}

bool CsvReader::next(Records& records) {
    records.clear();
    for (;;) {
        while (take(records)) {
        }
        if (records.size() != 0 || at_end_) return records.size() != 0;
        bytes_.erase(0, begin_); // given out, or part of a line that is too long
        waited_for_ -= std::min(waited_for_, begin_);
        begin_ = 0;
        fill();
    }
}

/// Takes the next record out of the bytes; false if no whole one is there.
bool CsvReader::take(Records& records) {
    if (after_cr_ && begin_ < bytes_.size()) {
        if (bytes_[begin_] == '\n') ++begin_;
        after_cr_ = false;
    }
    if (skipping_ && !skip_long_line()) return false;
    if (begin_ == bytes_.size()) return false;
    if (!at_end_ && waited_for_ > begin_ && bytes_.size() - begin_ <= longest_record &&
        std::none_of(bytes_.begin() + static_cast<std::ptrdiff_t>(waited_for_), bytes_.end(), is_line_end))
        return false;
    return scan(records) == Scan::complete;
}

bool CsvReader::skip_long_line() {
    at_ = end_of_line(begin_);
    const bool found = at_ != std::string::npos;
    if (!found) at_ = bytes_.size();
    skipping_ = !found;
    lines_ = 1;
    consume_line_end();
    return found;
}

std::size_t CsvReader::end_of_line(std::size_t from) const {
    const auto at = std::find_if(bytes_.begin() + static_cast<std::ptrdiff_t>(from), bytes_.end(), is_line_end);
    return at == bytes_.end() ? std::string::npos : static_cast<std::size_t>(at - bytes_.begin());
}

bool CsvReader::ends_field(std::size_t at) const {
    return at == bytes_.size() || bytes_[at] == separator_ || is_line_end(bytes_[at]);
}

CsvReader::Scan CsvReader::scan(Records& records) {
    if (bytes_[begin_] == '#') return scan_comment(records);
    at_ = quote_ = begin_;
    lines_ = 1;
    before_quote_ = 0;
    if (is_line_end(bytes_[at_])) return finish(records, Kind::row);
    for (;;) {
        const bool quoted = at_ < bytes_.size() && bytes_[at_] == '"';
        const std::size_t known = records.size();
        const Scan scanned = quoted ? scan_quoted_field(records) : scan_plain_field(records);
        if (scanned == Scan::more || records.size() != known) return scanned; // a broken record is complete
        const bool joined = lines_ > 1 && columns_ != 0;
        if (joined && records.open_fields() > columns_) return broken(records, Kind::wrong_width);
        if (at_ < bytes_.size() && bytes_[at_] == separator_) {
            ++at_;
            continue;
        }
        if (joined && records.open_fields() != columns_) return broken(records, Kind::wrong_width);
        return finish(records, Kind::row);
    }
}

CsvReader::Scan CsvReader::scan_comment(Records& records) {
    lines_ = 1;
    at_ = end_of_line(begin_);
    if (at_ == std::string::npos) {
        at_ = bytes_.size();
        if (!at_end_) return wait_for_more(records);
    }
    records.add_field(std::string_view(bytes_).substr(begin_, at_ - begin_));
    return finish(records, Kind::comment);
}

CsvReader::Scan CsvReader::scan_plain_field(Records& records) {
    std::size_t end = at_;
    while (!ends_field(end)) ++end;
    if (end == bytes_.size() && !at_end_) return wait_for_more(records);
    records.add_field(std::string_view(bytes_).substr(at_, end - at_));
    at_ = end;
    return Scan::complete;
}

CsvReader::Scan CsvReader::scan_quoted_field(Records& records) {
    if (lines_ == 1) {
        quote_ = at_;
        before_quote_ = records.open_fields();
    }
    for (++at_;;) {
        const std::size_t close = std::min(bytes_.find('"', at_), bytes_.size());
        const auto piece = std::string_view(bytes_).substr(at_, close - at_);
        lines_ += count_line_ends(piece);
        if (lines_ > most_lines) return broken(records, Kind::no_end);
        if (close + 1 >= bytes_.size() && !at_end_) return wait_for_more(records); // another quote may follow
        if (close == bytes_.size()) return broken(records, Kind::no_end);
        records.text_ += piece;
        at_ = close + 1;
        if (at_ == bytes_.size() || bytes_[at_] != '"') break;
        records.text_ += '"';
        ++at_;
    }
    if (!ends_field(at_)) return broken(records, Kind::text_after_quote);
    records.ends_.push_back(records.text_.size());
    return Scan::complete;
}

/// No whole record is there. More bytes are needed, unless it is too long already.
CsvReader::Scan CsvReader::wait_for_more(Records& records) {
    const bool too_long = bytes_.size() - begin_ > longest_record;
    return too_long && lines_ > 1 ? broken(records, Kind::no_end) : wait_for_line_end(records);
}

/// The first line of the record has no end yet. One that is too long becomes a record of the fields before that.
CsvReader::Scan CsvReader::wait_for_line_end(Records& records) {
    if (bytes_.size() - begin_ <= longest_record) {
        records.drop_open_fields(0);
        waited_for_ = bytes_.size();
        return Scan::more;
    }
    records.drop_open_fields(records.open_fields()); // and text of a field that is open
    records.records_.push_back({records.ends_.size(), line_, 0, Kind::too_long});
    begin_ = bytes_.size();
    skipping_ = true;
    return Scan::complete;
}

/// The quoted field that opens in the first line is none: this line becomes a record of its own, with the rest from the
/// quote on as its last field.
CsvReader::Scan CsvReader::broken(Records& records, Kind kind) {
    const bool ended = kind == Kind::no_end && at_end_ && lines_ <= most_lines && is_line_end(bytes_.back());
    const std::size_t quoted_lines = ended ? lines_ - 1 : lines_; // no line begins behind the last line end
    lines_ = 1;
    at_ = end_of_line(quote_);
    if (at_ == std::string::npos) {
        at_ = bytes_.size();
        if (!at_end_) return wait_for_line_end(records);
    }
    records.drop_open_fields(before_quote_);
    records.add_field(std::string_view(bytes_).substr(quote_, at_ - quote_));
    const Scan done = finish(records, kind);
    records.records_.back().quoted_lines = quoted_lines;
    return done;
}

/// Makes a record of the open fields; the next one begins behind the line end at at_.
CsvReader::Scan CsvReader::finish(Records& records, Kind kind) {
    records.records_.push_back({records.ends_.size(), line_, 0, kind});
    consume_line_end();
    return Scan::complete;
}

void CsvReader::consume_line_end() {
    begin_ = at_;
    if (begin_ == bytes_.size()) return;
    after_cr_ = bytes_[begin_] == '\r';
    ++begin_;
    line_ += lines_;
}

void add_csv_field(std::string& line, std::string_view field, char separator) {
    const auto special = [=](char c) { return c == separator || c == '"' || is_line_end(c); };
    if (!field.starts_with('#') && std::none_of(field.begin(), field.end(), special)) {
        line += field;
        return;
    }
    line += '"';
    for (const char c : field) line.append(c == '"' ? 2 : 1, c);
    line += '"';
}

} // namespace program
