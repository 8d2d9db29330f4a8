#include "states.hpp"

#include <algorithm>
#include <cmath>
#include <limits>

namespace program {

namespace {

constexpr double none = std::numeric_limits<double>::quiet_NaN();

bool is_region(double number, ktl::Region region) { return number == static_cast<double>(region); }
bool wet(double region) {
    return is_region(region, ktl::Region::wet) || is_region(region, ktl::Region::wet_near_critical);
}
bool inner_quality(double x) { return x > 0.0 && x < 1.0; }

/// A property as it is shown. One phase has the quality of its side: 0 for water, 1 for steam. A mixture of quality 0 or 1
/// has the properties of the one phase that is there: phase(id) gives them.
template <class Phase>
double shown(const Property& property, double value, double region, double quality, const Phase& phase) {
    if (property.derivative) return property.factor * value;
    if (property.id == ktl::Property::x && !wet(region)) {
        const bool water = is_region(region, ktl::Region::water) || is_region(region, ktl::Region::near_critical_water);
        return water ? 0.0 : 1.0;
    }
    if (property.surface_tension) return wet(region) ? ktl::surface_tension(value) : none;
    if (property.one_phase && wet(region) && !inner_quality(quality)) value = phase(property.id);
    return property.factor * value;
}

double shown(const Property& property, const ktl::State& state) {
    if (const auto& d = property.derivative)
        return property.factor * ktl::derivative(state, d->of, d->by, d->at_constant);
    const auto phase = [&](ktl::Property id) { return (state.x() == 0.0 ? state.liquid() : state.vapour()).get(id); };
    return shown(property, state.get(property.id), state.get(ktl::Property::region), state.x(), phase);
}

/// A saturated phase.
double shown(const Property& property, const ktl::Phase& phase) {
    if (property.surface_tension) return ktl::surface_tension(phase.t());
    if (const auto& d = property.derivative)
        return property.factor * ktl::derivative(phase, d->of, d->by, d->at_constant);
    const double region = phase.get(ktl::Property::region);
    return shown(property, phase.get(property.id), region, none, [](ktl::Property /*id*/) { return none; });
}

} // namespace

States::States(const Pair& pair, const Properties& wanted, Keep keep) : pair_(&pair), wanted_(&wanted), keep_(keep) {
    for (const Property* property : wanted) {
        ids_.push_back(property->id);
        if (property->derivative) derivatives_.push_back(*property->derivative);
    }
    ids_.push_back(ktl::Property::region);
    ids_.push_back(ktl::Property::x);
    columns_.resize(ids_.size());
}

void States::clear() {
    first_.clear();
    second_.clear();
}

std::size_t States::add(double first, double second) {
    first_.push_back(first);
    second_.push_back(second);
    return first_.size() - 1;
}

void States::solve() {
    status_.resize(first_.size());
    std::vector<double*> outputs;
    for (auto& column : columns_) {
        column.resize(first_.size());
        outputs.push_back(column.data());
    }
    ktl::batch(pair_->id, first_, second_, ids_, outputs, status_);
    std::vector<double*> slopes; // their columns hold the property itself so far
    for (std::size_t place = 0; place < wanted_->size(); ++place)
        if ((*wanted_)[place]->derivative) slopes.push_back(outputs[place]);
    if (!slopes.empty()) ktl::derivative_batch(pair_->id, first_, second_, derivatives_, slopes, status_);
    more_.clear();
    found_.clear();
    for (std::size_t row = 0; keep_ == Keep::all && row < first_.size(); ++row) find_more(row);
}

void States::find_more(std::size_t row) {
    const std::size_t begin = found_.size();
    if (status_[row] == ktl::Status::undetermined) {
        found_.push_back(ktl::state(pair_->id, first_[row], second_[row]));
        more_.push_back({row, begin, 2}); // its two phases
        return;
    }
    const int count = ktl::state_count(pair_->id, first_[row], second_[row]);
    if (count < 2) return;
    for (int number = 0; number < count; ++number)
        found_.push_back(ktl::state(pair_->id, first_[row], second_[row], number));
    more_.push_back({row, begin, static_cast<std::size_t>(count)});
}

const States::More* States::more(std::size_t row) const {
    const auto at =
        std::lower_bound(more_.begin(), more_.end(), row, [](const More& m, std::size_t r) { return m.row < r; });
    return at != more_.end() && at->row == row ? &*at : nullptr;
}

std::size_t States::count(std::size_t row) const {
    const More* const kept = more(row);
    return kept != nullptr ? kept->count : 1;
}

std::string States::label(std::size_t row, std::size_t number) const {
    if (status_[row] == ktl::Status::undetermined && more(row) != nullptr) return number == 0 ? "liquid" : "vapour";
    return status_[row] == ktl::Status::solved ? std::to_string(number + 1) : "";
}

double States::value(std::size_t row, std::size_t place, std::size_t number) const {
    const Property& property = *(*wanted_)[place];
    const More* const kept = more(row);
    if (status_[row] == ktl::Status::undetermined && kept != nullptr) {
        const ktl::State& state = found_[kept->begin];
        return property.result(shown(property, number == 0 ? state.liquid() : state.vapour()));
    }
    if (status_[row] != ktl::Status::solved) return none;
    if (number != 0 && kept != nullptr) return property.result(shown(property, found_[kept->begin + number]));
    const double region = columns_[wanted_->size()][row];
    const double quality = columns_[wanted_->size() + 1][row];
    return property.result(shown(property, columns_[place][row], region, quality, [&](ktl::Property id) {
        const ktl::State state = ktl::state(pair_->id, first_[row], second_[row]);
        return (quality == 0.0 ? state.liquid() : state.vapour()).get(id);
    }));
}

std::string States::error(std::size_t row, std::size_t number) const {
    switch (const ktl::Status status = status_[row]) {
    case ktl::Status::solved: return missing(row, number);
    case ktl::Status::undetermined: return "on the saturation line: undetermined, give p,x or t,x";
    case ktl::Status::no_state: return ktl::sentence(status);
    case ktl::Status::not_a_number: {
        const bool first = !std::isfinite(first_[row]);
        return std::string(quantity(first ? pair_->first : pair_->second).name) +
               (std::isnan(first ? first_[row] : second_[row]) ? " is not a number" : " is infinite");
    }
    default: return std::string("no state: ") + ktl::sentence(status);
    }
}

/// The first wanted property that a solved state does not have.
std::string States::missing(std::size_t row, std::size_t number) const {
    for (std::size_t place = 0; place < wanted_->size(); ++place) {
        if (std::isfinite(value(row, place, number))) continue;
        if ((*wanted_)[place]->surface_tension) return "ST exists for two phases up to 373.946 degC only";
        const More* const kept = more(row);
        const bool other = number != 0 && kept != nullptr;
        const double x = other ? found_[kept->begin + number].x() : columns_[wanted_->size() + 1][row];
        return std::string((*wanted_)[place]->code) +
               (inner_quality(x) ? " is undefined for two phases" : " is infinite or not a number here");
    }
    return {};
}

} // namespace program
