#include <array>
#include <ktl/steam.hpp>

namespace ktl {

const char* sentence(Status status) noexcept {
    static constexpr std::array<const char*, status_count> sentences{
#define KTL_DEFINE_STATUS(status, STATUS, sentence) sentence,
#include <ktl/status.def>
    };
    const auto index = static_cast<std::size_t>(status);
    return index < status_count ? sentences[index] : "unknown status";
}

} // namespace ktl
