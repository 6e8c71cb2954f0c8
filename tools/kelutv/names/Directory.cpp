#include "tools/kelutv/names/Directory.h"

#include "tools/kelutv/events/EventNames.h"
#include "wire/text/Letters.h"
#include "wire/text/Pattern.h"

namespace kelutv::tool {

Directory::Directory() : mEvents(eventsOf("")) {
    addRequests(mEntries);
    addTypes(mEntries);
    addEvents(mEntries, mEvents);
}

std::vector<const Entry*> Directory::matching(const std::string& pattern, const std::string& kind) const {
    const wire::Pattern wanted(pattern, names());
    std::vector<const Entry*> found;
    for (const auto& entry : mEntries) {
        if ((kind.empty() || kind == entry->kind()) && (pattern.empty() || wanted.matches(entry->name()))) {
            found.push_back(entry.get());
        }
    }
    return found;
}

const Entry* Directory::named(const std::string& name) const {
    const std::string wanted = wire::lowered(name);
    for (const auto& entry : mEntries) {
        if (wire::lowered(entry->name()) == wanted) {
            return entry.get();
        }
    }
    return nullptr;
}

std::vector<std::string> Directory::names() const {
    std::vector<std::string> names;
    for (const auto& entry : mEntries) {
        names.push_back(entry->name());
    }
    return names;
}

const std::vector<std::string>& entryKinds() {
    static const std::vector<std::string> kinds{"command", "item", "enumeration", "value", "record", "event"};
    return kinds;
}

} // namespace kelutv::tool
