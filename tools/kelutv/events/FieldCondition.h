#pragma once

#include "tools/kelutv/text/Comparison.h"
#include "wire/events/Event.h"
#include "wire/events/Payload.h"

#include <vector>

namespace kelutv::tool {

/** What a field of an event is to be. */
class FieldCondition {
public:
    /** @throws UsageError when the event has no such field, or it cannot be compared so */
    FieldCondition(const wire::Event& event, const Comparison& comparison);

    /** Whether the fields of a payload are so; not when they have none of this name. */
    bool isMetBy(const std::vector<wire::PayloadValue>& fields) const;

private:
    std::string mName;
    Relation mRelation;
    wire::Value mValue;
};

} // namespace kelutv::tool
