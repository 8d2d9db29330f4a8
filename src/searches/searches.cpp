// The searches for the engine, with its own exp and log. What the named finders do not need is compiled here alone.
#include "searches/bodies.hpp"

namespace ktl {

using Scalar = engine::Scalar;

KTL_COMPILE_SEARCHES(Scalar)

template BothSides<Scalar> water_on_isobar<Scalar>(double, double, SaturationModel, bool);
template BothSides<Scalar> water_on_isotherm<Scalar>(Quantity, double, double, SaturationModel, bool);
template FoundState<Scalar> single_phase_at<Scalar>(double, double, SaturationModel);
template FoundState<Scalar> searches::on_line<Scalar>(double, const searches::Given&);
template int searches::on_quality_line<Scalar>(double, double, std::span<FoundState<Scalar>>);
template FoundState<Scalar> searches::saturated_water<Scalar>(const searches::Given&, double);
template FoundState<Scalar> searches::water_before<Scalar>(const FoundState<Scalar>&, const searches::Given&);
template searches::FoldedMixtures<Scalar> searches::folded_mixtures<Scalar>(const FoundState<Scalar>&,
                                                                            const searches::Given&);

} // namespace ktl
