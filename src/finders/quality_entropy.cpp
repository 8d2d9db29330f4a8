// States from entropy and quality.
#include "front/diagnostics.hpp"
#include "searches/given.hpp"
#include "searches/quality_line.hpp"

#include <ktl/ktlftn.h>

int ktlrsx(double& s, double& x, const double& /*eps*/) {
    using namespace ktl;
    double quality = x;
    if (searches::finite(s, x) && x >= -rounding && searches::bring_within(quality, 0.0, 1.0)) {
        FoundState found;
        if (searches::on_quality_line(s, quality, Phases::of_entry, &found, 1) == 1) {
            s = found.first;
            x = found.t;
            return found.region;
        }
    }
    front::no_state_sx(s, x);
    return KTL_NO_STATE;
}
