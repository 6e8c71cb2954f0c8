#pragma once

#include "tools/kelutv/snapshot/Snapshot.h"

#include <cstddef>
#include <functional>
#include <vector>

namespace kelutv::tool {

/** A state that two snapshots do not have alike; null where one does not hold it. */
struct Difference {
    std::string state;
    Json first;
    Json second;
};

struct SnapshotComparison {
    /** In the order of the first snapshot; then what only the second one holds. */
    std::vector<Difference> differences;
    /** How many states were looked at. */
    std::size_t compared = 0;
};

/** Compares the values of the states that are wanted. */
SnapshotComparison compare(const Snapshot& first, const Snapshot& second,
                           const std::function<bool(const HeldState& held)>& isWanted);

} // namespace kelutv::tool
