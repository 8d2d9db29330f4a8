#include "states.hpp"

#include "number.hpp"

#include <cmath>
#include <limits>

namespace program {

namespace {

bool wet(double region) {
    return region == static_cast<double>(ktl::Region::wet) ||
           region == static_cast<double>(ktl::Region::wet_near_critical);
}

} // namespace

States::States(const Pair& pair, const Properties& wanted) : pair_(&pair), wanted_(&wanted) {
    for (const Property* property : wanted) ids_.push_back(property->id);
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
}

bool States::mixed(std::size_t row) const { return wet(columns_[wanted_->size()][row]); }
double States::quality_of(std::size_t row) const { return columns_[wanted_->size() + 1][row]; }

/// One phase has the quality of its side: 0 for water, 1 for steam. A mixture of quality 0 or 1 has the properties
/// of the one phase that is there.
double States::value(std::size_t row, std::size_t number) const {
    const Property& property = *(*wanted_)[number];
    if (status_[row] != ktl::Status::solved) return std::numeric_limits<double>::quiet_NaN();
    if (property.id == ktl::Property::x && !mixed(row)) {
        const auto region = static_cast<ktl::Region>(columns_[wanted_->size()][row]);
        return region == ktl::Region::water || region == ktl::Region::near_critical_water ? 0.0 : 1.0;
    }
    double value = columns_[number][row];
    if (property.one_phase && mixed(row) && (quality_of(row) == 0.0 || quality_of(row) == 1.0)) {
        const ktl::State state = ktl::state(pair_->id, first_[row], second_[row]);
        value = (quality_of(row) == 0.0 ? state.liquid() : state.vapour()).get(property.id);
    }
    return property.factor * value;
}

std::string States::error(std::size_t row) const {
    switch (const ktl::Status status = status_[row]) {
    case ktl::Status::solved: break;
    case ktl::Status::undetermined: return "on the saturation line: undetermined, give p,x or t,x";
    case ktl::Status::no_state: return ktl::sentence(status);
    case ktl::Status::not_a_number: {
        const bool first = !std::isfinite(first_[row]);
        return std::string(quantity(first ? pair_->first : pair_->second).name) +
               (std::isnan(first ? first_[row] : second_[row]) ? " is not a number" : " is infinite");
    }
    default: return std::string("no state: ") + ktl::sentence(status);
    }
    for (std::size_t number = 0; number < wanted_->size(); ++number) {
        if (std::isfinite(value(row, number))) continue;
        const bool two_phases = mixed(row) && quality_of(row) > 0.0 && quality_of(row) < 1.0;
        return std::string((*wanted_)[number]->code) +
               (two_phases ? " is undefined for two phases" : " is infinite or not a number here");
    }
    return {};
}

} // namespace program
