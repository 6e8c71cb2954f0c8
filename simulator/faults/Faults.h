#pragma once

#include "simulator/faults/FaultRule.h"

#include <sys/types.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace kelutv::simulator {

/** The injected faults, in the order in which they were given. Not synchronised. */
class Faults {
public:
    static constexpr std::size_t kMost = 1000;

    /** False when there are too many already; then it is not added. */
    bool add(const FaultRule& rule);

    /** A line for each fault that is not spent, as it was given, after the verb `fault`. */
    std::vector<std::string> list() const;

    void clear() { mEntries.clear(); }

    /** The faults that hit this request; those that are spent are removed. */
    std::vector<FaultRule> meet(const wire::Request& request, pid_t caller);

private:
    struct Entry {
        FaultRule rule;
        /** How many requests it matched. */
        std::int64_t seen;
    };

    std::vector<Entry> mEntries;
};

} // namespace kelutv::simulator
