#pragma once

#include <optional>
#include <string>

namespace kelutv::tool {

enum class Relation { Equal, NotEqual, Less, LessOrEqual, Greater, GreaterOrEqual };

/** What somebody wants something to be: `volume>=20`. */
struct Comparison {
    std::string name;
    Relation relation;
    std::string value;
};

/**
 * The comparison in a word, by `==` or `=`, `!=`, `<`, `<=`, `>` or `>=`; nothing when there is no such sign in it.
 * @throws UsageError when there is nothing on one side of the sign
 */
std::optional<Comparison> comparisonIn(const std::string& word);

/** Whether the relation asks for more than whether both are the same. */
bool isOfOrder(Relation relation);

template <typename Value> bool holds(const Value& left, Relation relation, const Value& right) {
    switch (relation) {
    case Relation::Equal:
        return left == right;
    case Relation::NotEqual:
        return left != right;
    case Relation::Less:
        return left < right;
    case Relation::LessOrEqual:
        return left <= right;
    case Relation::Greater:
        return left > right;
    case Relation::GreaterOrEqual:
        break;
    }
    return left >= right;
}

} // namespace kelutv::tool
