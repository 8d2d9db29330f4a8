#include <array>
#include <ktl/steam.hpp>

namespace ktl {

const char* sentence(Status status) noexcept {
    static constexpr std::array<const char*, status_count> sentences{
        "solved",
        "pressure and temperature lie on the saturation line and leave the quality open",
        "a given value is not a finite number",
        "the pressure is below 0.006112444 bar",
        "the pressure is above 1000 bar",
        "the temperature is below 0.01 degC",
        "the temperature is above 800 degC",
        "the quality is below 0",
        "the quality is above 1",
        "there is no quality above the critical point, 221.2 bar and 374.15 degC",
        "no state of the valid range has both values",
        "cancelled before this row was reached",
    };
    const auto index = static_cast<std::size_t>(status);
    return index < status_count ? sentences[index] : "unknown status";
}

} // namespace ktl
