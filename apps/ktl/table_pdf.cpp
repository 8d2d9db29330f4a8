#include "canvas.hpp"
#include "table_writers.hpp"

#include <algorithm>

namespace program {

namespace {

// Millimetres of a sheet of A4.
constexpr double page_width = 210.0, page_height = 297.0, margin = 12.0, top = 15.0;
constexpr double title_size = 4.2, remark_size = 2.5, size = 2.7;
constexpr double pitch = 3.85, block_space = 1.5;
constexpr double digit = 0.6, point = 0.3; ///< widths, of the size of letters
constexpr double usual_gap = 4.5, least_gap = 2.0;
constexpr double thin = 0.12, thick = 0.3;
constexpr std::size_t page_rows = 55;

/// Where the columns of a sheet are, and how large its letters.
class Grid {
public:
    explicit Grid(const Sheet& sheet) : rooms_(rooms(sheet)) {
        double letters = 0.0;
        for (const ColumnRoom& room : rooms_) letters += width(room);
        const double available = page_width - 2.0 * margin, gaps = static_cast<double>(rooms_.size());
        scale_ = std::min(1.0, available / (letters * size + gaps * least_gap));
        gap_ = std::min(usual_gap, (available - letters * size * scale_) / gaps);
        double x = 0.5 * (page_width - (letters * size * scale_ + gaps * gap_));
        for (const ColumnRoom& room : rooms_) {
            begins_.push_back(x);
            x += gap_ + width(room) * size * scale_;
        }
        begins_.push_back(x);
    }

    [[nodiscard]] double letter_size() const { return size * scale_; }
    /// The edges of a column, half a gap away from its letters; column may be one past the last.
    [[nodiscard]] double edge(std::size_t column) const { return begins_[column]; }
    [[nodiscard]] double middle(std::size_t first, std::size_t end) const {
        return 0.5 * (begins_[first] + begins_[end]);
    }
    /// Where the decimal points of a column are.
    [[nodiscard]] double decimal_point(std::size_t column) const {
        const ColumnRoom& room = rooms_[column];
        return middle(column, column + 1) + 0.5 * (before(room) - after(room)) * letter_size();
    }
    [[nodiscard]] double right(std::size_t column) const { return begins_[column + 1] - 0.5 * gap_; }

private:
    static double before(const ColumnRoom& room) { return digit * static_cast<double>(room.before); }
    static double after(const ColumnRoom& room) {
        return room.after == 0 ? 0.0 : point + digit * static_cast<double>(room.after - 1);
    }
    static double width(const ColumnRoom& room) {
        const std::size_t more = room.width - std::min(room.width, room.before + room.after);
        return before(room) + after(room) + digit * static_cast<double>(more);
    }

    std::vector<ColumnRoom> rooms_;
    std::vector<double> begins_;
    double scale_ = 1.0, gap_ = 0.0;
};

/// Draws the pages of a sheet, from the top of each one down.
class SheetPages {
public:
    SheetPages(const Sheet& sheet, Canvas& canvas) : sheet_(sheet), canvas_(canvas), grid_(sheet) {
        for (const PrintedGroup& group : sheet.groups) {
            group_begins_.push_back(columns_);
            columns_ += group.symbols.size();
        }
        group_begins_.push_back(columns_);
    }

    /// Headings and rows from a place down.
    void draw(double y, std::size_t begin, std::size_t end) {
        const double upper = y;
        y = headings(y);
        for (std::size_t k = begin; k < end; ++k) {
            if (k != begin && (k - begin) % block_rows == 0) y += block_space;
            for (const std::size_t group : sheet_.rows[k].rules)
                if (k != begin) rule(y - 0.5 * pitch, group_begins_[group], group_begins_[group + 1], thin * 2.0);
            y = row(sheet_.rows[k], y);
        }
        const double lower = y - 0.3 * pitch;
        rule(lower, 0, columns_, thick);
        if (sheet_.groups.back().heading.empty()) return;
        for (std::size_t g = 1; g < sheet_.groups.size(); ++g) {
            const double x = grid_.edge(group_begins_[g]);
            canvas_.draw({{{x, upper - 0.5 * pitch}, {x, lower}}}, {{}, thin, {}});
        }
    }

private:
    void write(double x, double y, std::string_view text, Anchor anchor, bool bold = false) {
        canvas_.write({x, y}, text, {grid_.letter_size(), {}, anchor, 0.0, bold});
    }

    void rule(double y, std::size_t begin, std::size_t end, double width) {
        canvas_.draw({{{grid_.edge(begin), y}, {grid_.edge(end), y}}}, {{}, width, {}});
    }

    /// Returns where the next row is.
    double row(const PrintedRow& row, double y) {
        for (std::size_t k = 0; k < row.cells.size(); ++k) {
            const SplitCell parts = split(row.cells[k]);
            if (parts.is_number) {
                write(grid_.decimal_point(k), y, parts.before, Anchor::right);
                if (!parts.after.empty()) write(grid_.decimal_point(k), y, parts.after, Anchor::left);
            } else if (!row.cells[k].empty()) {
                write(grid_.right(k), y, row.cells[k], Anchor::right);
            }
        }
        return y + pitch;
    }

    double headings(double y) {
        std::size_t lines = 0;
        for (const PrintedGroup& group : sheet_.groups) lines = std::max(lines, group.heading.size());
        for (std::size_t g = 0; g < sheet_.groups.size(); ++g) {
            const PrintedGroup& group = sheet_.groups[g];
            std::size_t column = group_begins_[g];
            double line = y;
            for (const std::string& text : group.heading) {
                write(grid_.middle(column, group_begins_[g + 1]), line, signs(text), Anchor::middle, line == y);
                line += pitch;
            }
            line = y + static_cast<double>(lines) * pitch;
            for (std::size_t k = 0; k < group.symbols.size(); ++k)
                write(grid_.middle(column + k, column + k + 1), line, signs(group.symbols[k]), Anchor::middle, true);
            for (const PrintedUnit& unit : group.units) {
                write(grid_.middle(column, column + unit.columns), line + pitch, signs(unit.name), Anchor::middle);
                column += unit.columns;
            }
        }
        y += static_cast<double>(lines + 2) * pitch + block_space;
        rule(y - 0.65 * pitch, 0, columns_, thick);
        for (const PrintedRow& saturated : sheet_.saturation) y = row(saturated, y);
        if (sheet_.saturation.empty()) return y;
        y += block_space;
        rule(y - 0.65 * pitch, 0, columns_, thin);
        return y;
    }

    const Sheet& sheet_;
    Canvas& canvas_;
    Grid grid_;
    std::vector<std::size_t> group_begins_; ///< first columns of groups, and one past the last
    std::size_t columns_ = 0;
};

std::size_t page_count(const Sheet& sheet) { return (sheet.rows.size() + page_rows - 1) / page_rows; }

/// The lines above a table; returns where it begins.
double page_heading(Canvas& canvas, const PrintedTable& table, const std::string& number) {
    double y = top;
    canvas.write({margin, y}, table.title, {title_size, {}, Anchor::left, 0.0, true});
    canvas.write({page_width - margin, y}, number, {remark_size, {}, Anchor::right});
    y += 1.4 * title_size;
    canvas.write({margin, y}, table.source, {remark_size, {}, Anchor::left});
    for (const std::string& note : table.notes) {
        y += 1.4 * remark_size;
        canvas.write({margin, y}, signs(note), {remark_size, {}, Anchor::left});
    }
    return y + 3.0 * remark_size;
}

} // namespace

std::string pdf_pages(const PrintedTable& table) {
    const auto canvas = pdf_canvas({page_width, page_height, table.title, table.source});
    std::size_t pages = 0, page = 0;
    for (const Sheet& sheet : table.sheets) pages += page_count(sheet);
    for (const Sheet& sheet : table.sheets) {
        SheetPages drawn(sheet, *canvas);
        for (std::size_t begin = 0; begin < sheet.rows.size(); begin += page_rows) {
            if (page++ != 0) canvas->next_page();
            const double y =
                page_heading(*canvas, table, "page " + std::to_string(page) + " of " + std::to_string(pages));
            drawn.draw(y, begin, std::min(begin + page_rows, sheet.rows.size()));
        }
    }
    return canvas->finish();
}

} // namespace program
