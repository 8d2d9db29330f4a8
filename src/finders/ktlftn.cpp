// The entry: one request, from the two known values to the array of properties.
#include "reports/units.hpp"

#include <algorithm>
#include <array>
#include <cstdint>
#include <ktl/ktlftn.h>

namespace {

using ktl::reports::Line;

/// Tolerance handed to the finder and used for the saturated volumes of region 5.
constexpr double eps = 1e-08;
/// The entry writes its own lines here, whatever ktlerr.iunit is.
constexpr int message_unit = 13;

enum class Code { p, t, v, h, s, x, cp, dv, tc, illegal };
constexpr std::size_t token_size = 4;
using Token = std::array<char, token_size>;

/// Codes padded with blanks, in the order in which they are compared.
constexpr std::array<std::string_view, 9> codes{"P   ", "T   ", "V   ", "H   ", "S   ", "X   ", "CP  ", "DV  ", "TC  "};

Code code_of(const Token& token) {
    const auto at = std::find(codes.begin(), codes.end(), std::string_view(token.data(), token.size()));
    return static_cast<Code>(at - codes.begin());
}

/// The code list, read one token after the other. Its end counts as a blank, and nothing is read past a NUL.
class Codes {
public:
    Codes(const char* text, std::size_t length) : at_(text), left_(text != nullptr ? length : 0) {}

    /// The next token; the reading position stays at the character that ended it.
    Token token() {
        Token token{' ', ' ', ' ', ' '};
        for (std::size_t n = 0; n < token_size && !ends(here()); ++n) {
            token[n] = here();
            next();
        }
        return token;
    }

    /// Passes the comma that ends a token; false if something else does.
    bool another() {
        if (here() != ',') return false;
        next();
        return true;
    }

private:
    static bool ends(char c) { return c == '.' || c == ',' || c == ' ' || c == '\0'; }

    [[nodiscard]] char here() const { return left_ > 0 ? *at_ : ' '; }

    void next() {
        ++at_;
        --left_;
    }

    const char* at_;
    std::size_t left_;
};

void write_illegal_region(int region) {
    Line line;
    line.text(" *** KTLFTN-ERROR: illegal region calculated: IREG = ").list_integer(region).text(" ***");
    ktl::reports::write_line(message_unit, line);
}

void write_illegal_property(const Token& token) {
    Line line;
    line.text(" *** KTLFTN-ERROR: illegal dependend property: ").text({token.data(), token.size()}).text(" ***");
    ktl::reports::write_line(message_unit, line);
}

void write_wet_region() {
    Line line;
    line.text(" *** KTLFTN-ERROR: CP, DV, TC cannot be calculated in wet region ***");
    ktl::reports::write_line(message_unit, line);
}

/// Equations of one single-phase sub-region, in its own variables.
struct Equations {
    ktl_property volume, enthalpy, entropy, heat_capacity;
};
constexpr Equations liquid{ktl_c1, ktl_d1, ktl_e1, ktl_h1};
constexpr Equations steam{ktl_c2, ktl_d2, ktl_e2, ktl_h2};
double volume_itself(const double& v, const double& /*t*/) { return v; }
constexpr Equations near_critical{volume_itself, ktl_d3, ktl_e3, ktl_h3};

/// The state of one call: what the finder left, after two-phase states at the ends became single-phase.
class State {
public:
    State(int region, double first, double t) : region_(region), xx_(first), t_(t) {
        if (region_ == KTL_WET_NEAR_CRITICAL) saturate_near_critical();
        if (region_ == KTL_WET) saturate();
    }

    /// Writes the property to out, or leaves out as it is where the entry has no value for it.
    void evaluate(Code code, double& out) {
        switch (code) {
        case Code::p: out = pressure(); break;
        case Code::t: out = t_; break;
        case Code::v: out = value(&Equations::volume); break;
        case Code::h: out = value(&Equations::enthalpy); break;
        case Code::s: out = value(&Equations::entropy); break;
        case Code::x: out = quality(); break;
        case Code::cp: out = wet() ? refused() : equations().heat_capacity(xx_, t_); break;
        case Code::dv: transport(ktl_ci, 1.0, out); break;
        case Code::tc: transport(ktl_cj, 0.001, out); break;
        case Code::illegal: break;
        }
    }

    /// True once a property that two phases do not share was asked for.
    [[nodiscard]] bool refused_any() const { return refused_any_; }

private:
    static constexpr double lowest_wet_quality = 1e-06;
    static constexpr double highest_wet_quality = 0.999999;

    [[nodiscard]] bool wet() const { return region_ == KTL_WET || region_ == KTL_WET_NEAR_CRITICAL; }

    void saturate() {
        ps_ = ktl_pt(t_);
        become(KTL_WATER, ps_, KTL_STEAM, ps_);
    }

    /// Saturated volumes on the equation of sub-region 3.
    void saturate_near_critical() {
        ps_ = ktl_pt(t_);
        double va = std::max(0.08611 - 0.000222 * t_, 0.00317);
        double vb = 0.008799105448;
        vpp_ = ktl_i2(ktl_a3, t_, ps_, va, vb, eps);
        va = std::min(6e-05 * t_ - 0.01899, 0.00317);
        vb = 0.00174;
        vp_ = ktl_i2(ktl_a3, t_, ps_, va, vb, eps);
        become(KTL_NEAR_CRITICAL_WATER, vp_, KTL_NEAR_CRITICAL_STEAM, vpp_);
    }

    /// A two-phase state that is practically one phase becomes that phase.
    void become(int liquid_region, double liquid_first, int steam_region, double steam_first) {
        if (xx_ <= lowest_wet_quality) {
            region_ = liquid_region;
            xx_ = liquid_first;
        } else if (xx_ >= highest_wet_quality) {
            region_ = steam_region;
            xx_ = steam_first;
        }
    }

    [[nodiscard]] const Equations& equations() const {
        if (region_ == KTL_WATER) return liquid;
        return region_ == KTL_STEAM ? steam : near_critical;
    }

    [[nodiscard]] double value(ktl_property Equations::*property) const {
        if (!wet()) return (equations().*property)(xx_, t_);
        const bool low = region_ == KTL_WET;
        // Liquid first: the phase that is evaluated last stays in the records.
        const double of_liquid = ((low ? liquid : near_critical).*property)(low ? ps_ : vp_, t_);
        const double of_steam = ((low ? steam : near_critical).*property)(low ? ps_ : vpp_, t_);
        return of_liquid + xx_ * (of_steam - of_liquid);
    }

    [[nodiscard]] double pressure() const {
        if (wet()) return ps_;
        return &equations() == &near_critical ? ktl_a3(xx_, t_) : xx_;
    }

    [[nodiscard]] double quality() const {
        if (wet()) return xx_;
        return region_ == KTL_STEAM || region_ == KTL_NEAR_CRITICAL_STEAM ? 1.0 : 0.0;
    }

    double refused() {
        refused_any_ = true;
        return 0.0;
    }

    /// Viscosity and conductivity. Regions 3 and 4 leave the element alone: so it has always been, and
    /// programs test for their own marker there.
    void transport(ktl_property property, double factor, double& out) {
        if (wet()) {
            out = refused();
            return;
        }
        if (&equations() == &near_critical) return;
        if (!volume_known_) v_ = equations().volume(xx_, t_);
        volume_known_ = true;
        out = property(v_, t_) * factor;
    }

    int region_;
    double xx_; // pressure, volume or quality, as the region has it
    double t_;
    double ps_ = 0.0;             // saturation pressure of a two-phase state
    double vp_ = 0.0, vpp_ = 0.0; // saturated volumes of region 5
    double v_ = 0.0;
    bool volume_known_ = false;
    bool refused_any_ = false;
};

} // namespace

void ktlftn(ktl_finder regfun, const double& indep1, const double& indep2, const char* strdep, double* prodep) {
    // The length is not known: the text carries its own end.
    ktlftn_len(regfun, indep1, indep2, strdep, SIZE_MAX, prodep);
}

void ktlftn_len(ktl_finder regfun, const double& indep1, const double& indep2, const char* strdep, std::size_t length,
                double* prodep) {
    double xx = indep1;
    double yy = indep2;
    const int region = regfun(xx, yy, eps);
    if (region < KTL_WATER || region > KTL_WET) {
        write_illegal_region(region);
        return;
    }
    State state(region, xx, yy);
    Codes list(strdep, length);
    do {
        const Token token = list.token();
        const Code code = code_of(token);
        if (code == Code::illegal)
            write_illegal_property(token);
        else
            state.evaluate(code, *prodep);
        ++prodep;
    } while (list.another());
    if (state.refused_any()) write_wet_region();
}
