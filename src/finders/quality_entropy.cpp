// States from entropy and quality.
#include "finders/entry_quality_line.hpp"
#include "finders/guessed_state.hpp"
#include "reports/diagnostics.hpp"
#include "searches/acceptance.hpp"

#include <ktl/ktlftn.h>

int ktlrsx(double& s, double& x, const double& /*eps*/) {
    using namespace ktl;
    double quality = x;
    if (searches::finite(s, x) && x >= -searches::limit_rounding_of_finders &&
        searches::bring_within(quality, 0.0, 1.0)) {
        const searches::Given given{Quantity::entropy, s, Quantity::quality, quality};
        FoundState<double> found = finders::guessed_state(Pair::sx, given);
        if (!found.found()) found = finders::on_entry_quality_line(s, quality);
        if (found.found()) {
            s = found.primary;
            x = found.t;
            return found.region;
        }
    }
    reports::no_state_sx(s, x);
    return KTL_NO_STATE;
}
