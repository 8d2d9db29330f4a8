// A plant test after both formulations: the program's comparison, its tables as JSON.
#include "compare.hpp"
#include "module.hpp"

namespace web {

namespace {

template <class List, class Add>
void add_list(std::string& out, const List& list, Add add) {
    out += '[';
    for (std::size_t i = 0; i < list.size(); ++i) {
        if (i != 0) out += ", ";
        add(list[i]);
    }
    out += ']';
}

/// A text, or a number as it is shown and as it is.
void add_cell(std::string& out, const program::Cell& cell) {
    if (!cell.is_number()) {
        add_json(out, cell.text);
        return;
    }
    out += '[';
    add_json(out, cell.shown());
    out += ", ";
    add_json(out, cell.number);
    out += ']';
}

void add_table(std::string& out, const program::ReportTable& table) {
    out += "{\"name\": ";
    add_json(out, table.name);
    out += ", \"title\": ";
    add_json(out, table.title);
    out += ", \"columns\": ";
    add_list(out, table.columns, [&](const std::string& name) { add_json(out, name); });
    out += ", \"rows\": ";
    add_list(out, table.rows, [&](const std::vector<program::Cell>& row) {
        add_list(out, row, [&](const program::Cell& cell) { add_cell(out, cell); });
    });
    out += '}';
}

} // namespace

} // namespace web

extern "C" {

/// The plant test in the given text. scale: 0 the ITS-90, 1 the scale of 1968, 2 that of 1948, for the temperatures that the 1967
/// formulation is given. The properties of the points are P, T, V, H, S and X.
KTL_WEB_EXPORT(ktl_compare) int ktl_compare(int scale) {
    return web::answered([=] {
        const program::Scale scales[] = {program::Scale::its90, program::Scale::ipts68, program::Scale::ipts48};
        const program::Comparison comparison = program::compare_test("the table", program::parse_codes("P,T,V,H,S,X"),
                                                                     scales[scale == 1 || scale == 2 ? scale : 0]);
        std::string& out = web::answer;
        out += comparison.complete ? "{\"complete\": true, \"tables\": " : "{\"complete\": false, \"tables\": ";
        web::add_list(out, comparison.report.tables,
                      [&](const program::ReportTable& table) { web::add_table(out, table); });
        out += ", \"notes\": ";
        web::add_list(out, comparison.report.notes, [&](const std::string& note) { web::add_json(out, note); });
        out += '}';
    });
}
}
