#include "tools/kelutv/calls/PlainArguments.h"

#include "tools/kelutv/calls/Call.h"

namespace kelutv::tool {

namespace {

/** The first value that the parameter may have. */
std::string plainValue(const wire::ValueType& type) {
    if (type.names != nullptr) {
        for (const wire::Enumerator& each : type.names->values) {
            if (!each.isEndMarker) {
                return each.name;
            }
        }
    }
    return type.range != nullptr && type.range->least ? std::to_string(*type.range->least) : "0";
}

} // namespace

std::string plainArgument(const wire::Parameter& parameter) {
    switch (parameter.values.kind) {
    case wire::ValueKind::Text:
        return "\"\"";
    case wire::ValueKind::Array:
        return parameter.isLedByLength ? "hex:00000000" : "[0]";
    case wire::ValueKind::Record:
        return "";
    case wire::ValueKind::Callback:
        return "null";
    default:
        return plainValue(parameter.values);
    }
}

std::vector<std::string> plainArguments(const wire::Function& function) {
    std::vector<std::string> arguments;
    for (const wire::Parameter* const parameter : givenParameters(function)) {
        if (parameter->direction != wire::Direction::Length) {
            arguments.push_back(plainArgument(*parameter));
        }
    }
    return arguments;
}

} // namespace kelutv::tool
