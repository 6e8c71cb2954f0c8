#include "simulator/faults/Faults.h"

#include <algorithm>

namespace kelutv::simulator {

namespace {

bool isMeant(const FaultRule& rule, const wire::Request& request, pid_t caller) {
    return (!rule.caller || *rule.caller == caller) && rule.pattern.matches(request);
}

} // namespace

bool Faults::add(const FaultRule& rule) {
    const bool hasRoom = mEntries.size() < kMost;
    if (hasRoom) {
        mEntries.push_back({rule, 0});
    }
    return hasRoom;
}

std::vector<std::string> Faults::list() const {
    std::vector<std::string> lines;
    for (const Entry& entry : mEntries) {
        lines.push_back("fault " + entry.rule.line);
    }
    return lines;
}

std::vector<FaultRule> Faults::meet(const wire::Request& request, pid_t caller) {
    std::vector<FaultRule> hits;
    for (Entry& entry : mEntries) {
        if (isMeant(entry.rule, request, caller) && ++entry.seen >= entry.rule.nth) {
            hits.push_back(entry.rule);
        }
    }
    const auto isSpent = [](const Entry& entry) {
        return entry.rule.times && entry.seen - entry.rule.nth + 1 >= *entry.rule.times;
    };
    mEntries.erase(std::remove_if(mEntries.begin(), mEntries.end(), isSpent), mEntries.end());
    return hits;
}

} // namespace kelutv::simulator
