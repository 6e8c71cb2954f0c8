#include "wire/events/EventTable.h"

#include "wire/text/EnumeratorNames.h"
#include "wire/text/Letters.h"

#include <algorithm>

namespace kelutv::wire {

const Event* EventTable::find(std::uint32_t identifier) const {
    const auto* const found = std::find_if(mRows.begin(), mRows.end(), [identifier](const Event& event) {
        return event.first <= identifier && identifier <= event.last;
    });
    return found != mRows.end() ? found : nullptr;
}

const Event* EventTable::named(const std::string& name) const {
    const std::string wanted = lowered(name);
    const auto* const found = std::find_if(mRows.begin(), mRows.end(),
                                           [&wanted](const Event& event) { return lowered(event.name) == wanted; });
    return found != mRows.end() ? found : nullptr;
}

std::vector<std::string> EventTable::names() const {
    std::vector<std::string> names;
    for (const Event& event : mRows) {
        names.emplace_back(event.name);
    }
    return names;
}

const Enumeration& eventModules() { return *findEnumeration("KELU_EM_MODE_E"); }

bool isEventModule(std::uint32_t number) {
    return number == moduleOf(number) && !nameOfValue(static_cast<std::int32_t>(number), &eventModules()).empty();
}

} // namespace kelutv::wire
