#include "tools/kelutv/output/JsonMembers.h"

#include "tools/kelutv/output/Errors.h"

namespace kelutv::tool {

JsonMembers::JsonMembers(const Json& object, std::string place) : mObject(object), mPlace(std::move(place)) {
    require(object.isObject(), "is no object");
}

const Json& JsonMembers::member(const std::string& name) const {
    const Json* const found = mObject.find(name);
    require(found != nullptr, "lacks '" + name + '\'');
    return *found;
}

const std::string& JsonMembers::text(const std::string& name) const {
    const Json& value = member(name);
    require(value.isText(), '\'' + name + "' is no text");
    return value.asText();
}

const Json& JsonMembers::list(const std::string& name) const {
    const Json& value = member(name);
    require(value.isArray(), '\'' + name + "' is no list");
    return value;
}

double JsonMembers::number(const std::string& name) const {
    const Json& value = member(name);
    require(value.isNumber(), '\'' + name + "' is no number");
    return value.asReal();
}

std::int64_t JsonMembers::integer(const std::string& name) const {
    const Json& value = member(name);
    require(value.isInteger(), '\'' + name + "' is no integer");
    return value.asInteger();
}

void JsonMembers::require(bool holds, const std::string& complaint) const {
    if (!holds) {
        throw UsageError(mPlace + ": " + complaint);
    }
}

Json jsonOfFile(const std::string& text, const std::string& file) {
    try {
        return Json::parsed(text);
    } catch (const JsonError& error) {
        throw UsageError(file + ": " + error.what());
    }
}

} // namespace kelutv::tool
