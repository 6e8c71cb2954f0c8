#pragma once

#include "tools/kelutv/comparison/Vocabulary.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace kelutv::tool {

/** One happening of each side that stand for each other, or one that the other side lacks. */
struct Aligned {
    /** Its index; nothing where the side lacks it. */
    std::optional<std::size_t> first;
    std::optional<std::size_t> second;
};

/**
 * What of the one sequence stands for what of the other: in order, as much as possible of what is alike in all, then of
 * what has the same request, then of what has the same subject. Between runs that are alike on both sides, pieces of
 * up to 4,000,000 combinations are aligned as well as can be; larger ones are cut where both have what is nowhere else
 * in them, or piece by piece, so that time and memory grow with the length and not with its square.
 */
std::vector<Aligned> align(const std::vector<Token>& first, const std::vector<Token>& second);

} // namespace kelutv::tool
