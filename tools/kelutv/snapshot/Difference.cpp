#include "tools/kelutv/snapshot/Difference.h"

#include <algorithm>
#include <map>

namespace kelutv::tool {

namespace {

bool areAlike(const Json& left, const Json& right);

/** Objects are alike in whatever order their members stand. */
bool haveAlikeMembers(const Json& left, const Json& right) {
    return left.members().size() == right.members().size() &&
           std::all_of(left.members().begin(), left.members().end(), [&right](const Json::Member& member) {
               const Json* const other = right.find(member.first);
               return other != nullptr && areAlike(member.second, *other);
           });
}

bool areAlike(const Json& left, const Json& right) {
    if (left.isObject() && right.isObject()) {
        return haveAlikeMembers(left, right);
    }
    if (left.isArray() && right.isArray()) {
        return std::equal(left.entries().begin(), left.entries().end(), right.entries().begin(), right.entries().end(),
                          areAlike);
    }
    return left == right;
}

} // namespace

SnapshotComparison compare(const Snapshot& first, const Snapshot& second,
                           const std::function<bool(const HeldState& held)>& isWanted) {
    std::map<std::string, const HeldState*> others;
    for (const HeldState& held : second.held) {
        others.emplace(held.state, &held);
    }
    SnapshotComparison comparison;
    const auto take = [&](const HeldState& held, const Json& before, const Json& after) {
        if (isWanted(held)) {
            ++comparison.compared;
            if (!areAlike(before, after)) {
                comparison.differences.push_back({held.state, before, after});
            }
        }
    };
    for (const HeldState& held : first.held) {
        const auto other = others.find(held.state);
        take(held, held.values, other == others.end() ? Json() : other->second->values);
        others.erase(held.state);
    }
    for (const HeldState& held : second.held) {
        if (others.count(held.state) != 0) {
            take(held, Json(), held.values);
        }
    }
    return comparison;
}

} // namespace kelutv::tool
