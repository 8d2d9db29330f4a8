#include "process.hpp"

#include "column.hpp"
#include "module.hpp"
#include "states.hpp"

#include <algorithm>
#include <ktl/process.hpp>
#include <vector>

namespace ktl::python {

namespace {

/// Calls row(i) for all rows without the interpreter's lock; false, with an exception, if a signal handler raised one.
template <class Row>
bool for_rows(std::size_t rows, Row&& row) {
    for (std::size_t begin = 0; begin < rows; begin += block_rows) {
        const std::size_t end = std::min(begin + static_cast<std::size_t>(block_rows), rows);
        Py_BEGIN_ALLOW_THREADS;
        for (std::size_t i = begin; i < end; ++i) row(i);
        Py_END_ALLOW_THREADS;
        if (PyErr_CheckSignals() != 0) return false;
    }
    return true;
}

bool have_rows(std::size_t rows, std::initializer_list<std::size_t> lengths) {
    const bool same = std::all_of(lengths.begin(), lengths.end(), [&](std::size_t length) { return length == rows; });
    return same || refuse("columns differ in length");
}

PyObject* none_if(bool done) {
    if (!done) return nullptr;
    Py_RETURN_NONE;
}

struct StreamArrays {
    std::span<char> states;
    std::span<double> flow;
};

/// Streams from two tuples of arrays, all of that many rows.
bool read_streams(PyObject* states, PyObject* flows, std::size_t rows, std::vector<StreamArrays>& streams) {
    if (PyTuple_Size(states) != PyTuple_Size(flows)) return refuse("there must be a flow for each stream");
    for (Py_ssize_t k = 0; k < PyTuple_Size(states); ++k) {
        StreamArrays stream;
        if (!elements_of(PyTuple_GetItem(states, k), sizeof(State), false, &stream.states) ||
            !doubles_of(PyTuple_GetItem(flows, k), false, &stream.flow) ||
            !have_rows(rows, {states_in(stream.states), stream.flow.size()}))
            return false;
        streams.push_back(stream);
    }
    return true;
}

PyObject* mixed(PyObject* arguments) {
    int system_number = 0;
    double surroundings_t = 0.0;
    PyObject *states = nullptr, *flows = nullptr, *end_array = nullptr, *flow_array = nullptr;
    PyObject *entropy_array = nullptr, *lost_array = nullptr, *status_array = nullptr;
    System system;
    std::span<char> ends;
    std::span<double> flow, entropy, lost;
    std::span<unsigned char> status;
    std::vector<StreamArrays> streams;
    if (!PyArg_ParseTuple(arguments, "iO!O!dOOOOO", &system_number, &PyTuple_Type, &states, &PyTuple_Type, &flows,
                          &surroundings_t, &end_array, &flow_array, &entropy_array, &lost_array, &status_array) ||
        !system_from(system_number, &system) || !elements_of(end_array, sizeof(State), true, &ends) ||
        !doubles_of(flow_array, true, &flow) || !doubles_of(entropy_array, true, &entropy) ||
        !doubles_of(lost_array, true, &lost) || !bytes_of(status_array, &status) ||
        !have_rows(states_in(ends), {flow.size(), entropy.size(), lost.size(), status.size()}) ||
        !read_streams(states, flows, states_in(ends), streams))
        return nullptr;
    const Conversion &h = conversion(system, Property::h), &s = conversion(system, Property::s);
    std::vector<Stream> row(streams.size());
    return none_if(for_rows(states_in(ends), [&](std::size_t i) {
        for (std::size_t k = 0; k < row.size(); ++k) row[k] = {state_at(streams[k].states, i), streams[k].flow[i]};
        const Mixture y = mix(row, surroundings_t);
        put_state(ends, i, y.end);
        flow[i] = y.flow;
        entropy[i] = s.from_library(y.entropy_generated);
        lost[i] = h.from_library(y.lost_work);
        status[i] = static_cast<unsigned char>(y.status);
    }));
}

} // namespace

PyObject* mixtures_of_states(PyObject* /*module*/, PyObject* arguments) {
    try {
        return mixed(arguments);
    } catch (const std::bad_alloc&) {
        return PyErr_NoMemory();
    }
}

PyObject* exergies_of_states(PyObject* /*module*/, PyObject* arguments) {
    int system_number = 0;
    Surroundings outside;
    PyObject *array = nullptr, *flow_array = nullptr, *closed_array = nullptr, *status_array = nullptr;
    System system;
    std::span<char> states;
    std::span<double> flow, closed;
    std::span<unsigned char> status;
    if (!PyArg_ParseTuple(arguments, "iOddOOO", &system_number, &array, &outside.p, &outside.t, &flow_array,
                          &closed_array, &status_array) ||
        !system_from(system_number, &system) || !elements_of(array, sizeof(State), false, &states) ||
        !doubles_of(flow_array, true, &flow) || !doubles_of(closed_array, true, &closed) ||
        !bytes_of(status_array, &status) || !have_rows(states_in(states), {flow.size(), closed.size(), status.size()}))
        return nullptr;
    const Conversion& h = conversion(system, Property::h);
    return none_if(for_rows(states_in(states), [&](std::size_t i) {
        const Exergy y = exergy(state_at(states, i), outside);
        flow[i] = h.from_library(y.flow);
        closed[i] = h.from_library(y.closed);
        status[i] = static_cast<unsigned char>(y.status);
    }));
}

PyObject* beside_saturation(PyObject* /*module*/, PyObject* arguments) {
    int system_number = 0, what = 0;
    PyObject *array = nullptr, *out_array = nullptr;
    System system;
    std::span<char> states;
    std::span<double> out;
    if (!PyArg_ParseTuple(arguments, "iiOO", &system_number, &what, &array, &out_array) ||
        !system_from(system_number, &system) || !elements_of(array, sizeof(State), false, &states) ||
        !doubles_of(out_array, true, &out) || !have_rows(states_in(states), {out.size()}))
        return nullptr;
    constexpr std::array calls{superheat, subcooling, wetness, latent_heat};
    if (what < 0 || what >= static_cast<int>(calls.size())) return refuse("unknown quantity"), nullptr;
    const Conversion &t = conversion(system, Property::t), &h = conversion(system, Property::h);
    const Conversion kelvin{"K", t.multiplier, t.divisor}; // a difference has no zero
    const Conversion pure{"kg/kg"};
    const std::array units{&kelvin, &kelvin, &pure, &h};
    const auto index = static_cast<std::size_t>(what);
    return none_if(for_rows(
        out.size(), [&](std::size_t i) { out[i] = units[index]->from_library(calls[index](state_at(states, i))); }));
}

PyObject* saturation_points(PyObject* /*module*/, PyObject* arguments) {
    int system_number = 0, vapour = 0, property_number = 0;
    PyObject *value_array = nullptr, *t_array = nullptr, *count_array = nullptr, *status_array = nullptr;
    System system;
    std::span<double> values, t;
    std::span<unsigned char> count, status;
    if (!PyArg_ParseTuple(arguments, "ipiOOOO", &system_number, &vapour, &property_number, &value_array, &t_array,
                          &count_array, &status_array) ||
        !system_from(system_number, &system) || !doubles_of(value_array, false, &values) ||
        !doubles_of(t_array, true, &t) || !bytes_of(count_array, &count) || !bytes_of(status_array, &status) ||
        !have_rows(values.size(), {count.size(), status.size()}) || !have_rows(3 * values.size(), {t.size()}))
        return nullptr;
    if (property_number < 0 || property_number >= static_cast<int>(property_count))
        return refuse("unknown property"), nullptr;
    const auto property = static_cast<Property>(property_number);
    const auto phase = vapour != 0 ? SaturatedPhase::vapour : SaturatedPhase::liquid;
    const Conversion &unit = conversion(system, property), &degree = conversion(system, Property::t);
    return none_if(for_rows(values.size(), [&](std::size_t i) {
        const double value = unit.identity() ? values[i] : unit.to_library(values[i]);
        const SaturationPoints y = saturation_by(phase, property, value);
        std::transform(y.t.begin(), y.t.end(), t.begin() + static_cast<std::ptrdiff_t>(3 * i),
                       [&](double x) { return degree.identity() ? x : degree.from_library(x); });
        count[i] = static_cast<unsigned char>(y.count);
        status[i] = static_cast<unsigned char>(y.status);
    }));
}

} // namespace ktl::python
