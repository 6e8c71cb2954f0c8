#pragma once

#include "tools/kelutv/snapshot/Snapshot.h"

#include <string>
#include <vector>

namespace kelutv::tool {

/** Whether a state is meant by one of the patterns: by its full name, or as the tool's patterns are read. */
bool isMeant(const std::string& state, const std::vector<std::string>& patterns);

/** @param option what the patterns were given with @throws UsageError for an empty one, which would mean everything */
void refuseEmpty(const std::string& option, const std::vector<std::string>& patterns);

/** What is to be put back, and what is left alone since it is dangerous and not named. */
struct Chosen {
    std::vector<HeldState> states;
    std::vector<HeldState> leftAlone;
};

/**
 * Of what can be put back, what one of the patterns means; everything without one.
 *
 * @param dangerous patterns of dangerous states that may be put back
 * @throws UsageError when a pattern is empty, or means none of the states that it could
 */
Chosen chosenFrom(const Snapshot& snapshot, const std::vector<std::string>& only,
                  const std::vector<std::string>& dangerous);

} // namespace kelutv::tool
