#include "tools/kelutv/text/EnumeratedValue.h"

#include "wire/text/EnumeratorNames.h"

#include <cstdint>
#include <string>

namespace kelutv::tool {

Json valueDocument(const Json& value, const wire::Enumeration* names) {
    if (names != nullptr && value.isArray()) {
        Json entries = Json::array();
        for (const Json& entry : value.entries()) {
            entries.add(valueDocument(entry, names));
        }
        return entries;
    }
    if (names == nullptr || !value.isInteger()) {
        return value;
    }
    Json document;
    addValue(document, value, names);
    return document;
}

void addValue(Json& document, const Json& value, const wire::Enumeration* names) {
    if (names == nullptr || !value.isInteger()) {
        document["value"] = valueDocument(value, names);
        return;
    }
    document["value"] = value;
    const std::string name = wire::nameOfValue(static_cast<std::int32_t>(value.asInteger()), names);
    document["enumerator"] = name.empty() ? Json() : Json(name);
}

Json valuesDocument(const wire::Enumeration& names) {
    Json values = Json::array();
    for (const wire::Enumerator& each : names.values) {
        if (!each.isEndMarker) {
            values.add(valueDocument(each.value, &names));
        }
    }
    return values;
}

} // namespace kelutv::tool
