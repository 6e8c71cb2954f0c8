#pragma once

#include "tools/kelutv/names/Entry.h"

#include <string>
#include <vector>

namespace kelutv::tool {

/** Every name of the interface beside those of functions. */
class Directory {
public:
    /** The events are those that the environment says the television has. @throws UsageError when it says it wrongly */
    Directory();

    /** Those of which the name matches the pattern; of one kind unless that is empty. */
    std::vector<const Entry*> matching(const std::string& pattern, const std::string& kind) const;

    /** In any case of letters; null when there is none. */
    const Entry* named(const std::string& name) const;

    std::vector<std::string> names() const;

private:
    wire::EventTable mEvents;
    Entries mEntries;
};

/** What `Entry::kind` may say. */
const std::vector<std::string>& entryKinds();

} // namespace kelutv::tool
