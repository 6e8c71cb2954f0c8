#pragma once

namespace kelutv::bench {

/** How much is measured: enough to see that it works, or enough to rely on. */
enum class Extent { Quick, Full };

template <typename Amount> constexpr Amount amount(Extent extent, Amount quick, Amount full) {
    return extent == Extent::Quick ? quick : full;
}

} // namespace kelutv::bench
